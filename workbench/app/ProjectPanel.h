/// The projects of the installation, and what each holds.
#pragma once

#include <QFileSystemWatcher>
#include <QWidget>

class QFormLayout;
class QLabel;
class QPlainTextEdit;
class QTreeWidget;

namespace workbench {

class ProjectPanel : public QWidget {
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
    QLabel* addFact(QFormLayout* form, const QString& caption, const char* objectName);
    void adaptToScale();
    void showDetails();

    QTreeWidget* list;
    QLabel* title = nullptr;
    QLabel* kind = nullptr;
    QLabel* created = nullptr;
    QLabel* summary = nullptr;
    QLabel* source = nullptr;
    QLabel* file = nullptr;
    QPlainTextEdit* request = nullptr;
    QFileSystemWatcher watcher;
};

}  // namespace workbench
