/// The projects of the installation, and what each holds.
#pragma once

#include <QFileSystemWatcher>
#include <QSplitter>

class QLabel;
class QPlainTextEdit;
class QTreeWidget;

namespace workbench {

class ProjectPanel : public QSplitter {
    Q_OBJECT
  public:
    explicit ProjectPanel(QWidget* parent = nullptr);

    /// Reads the project folder again; the selection stays.
    void refresh();
    /// Selects a project by its path.
    void select(const QString& path);
    /// @return how many of the listed files are project files.
    int projectCount() const;

  Q_SIGNALS:
    /// The list shows what the project folder holds now.
    void refreshed();

  private:
    QWidget* makeDetails();
    void adaptToScale();
    void showDetails();

    QTreeWidget* list;
    QLabel* title = nullptr;
    QVector<QLabel*> facts;
    QPlainTextEdit* request = nullptr;
    QFileSystemWatcher watcher;
};

}  // namespace workbench
