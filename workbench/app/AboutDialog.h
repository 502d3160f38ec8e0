/// Which workbench this is, and what it is made of.
#pragma once

#include <QDialog>
#include <QPair>
#include <QVector>

namespace workbench {

/// @return names and versions: the workbench, Qt at build and run time, the libraries, the system.
QVector<QPair<QString, QString>> partVersions();

class AboutDialog : public QDialog {
    Q_OBJECT
  public:
    explicit AboutDialog(QWidget* parent);
};

}  // namespace workbench
