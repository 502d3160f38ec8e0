/// The projects of the installation, and what each holds.
#pragma once

#include <QFileSystemWatcher>
#include <QSplitter>

#include "workbench/app/PinyinSearch.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTreeWidget;

namespace workbench {

class EmptyState;

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
    /// @return how many of the listed files the search has found; all where nothing is searched.
    int shownCount() const;
    bool isSearching() const;
    void focusList();
    void focusSearch();

  Q_SIGNALS:
    /// The list shows what the project folder holds now.
    void refreshed();
    /// A person wants to see a file where it lies.
    void folderWanted(const QString& path);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    QWidget* makeList();
    void makeMenu();
    QWidget* makeDetails();
    void adaptToScale();
    void applySearch();
    void say();
    QString emptyText() const;
    QString currentPath() const;
    void showDetails();

    QLineEdit* search;
    QTreeWidget* list;
    EmptyState* empty = nullptr;
    PinyinSearch pinyin;
    QLabel* title = nullptr;
    QVector<QLabel*> facts;
    QPlainTextEdit* request = nullptr;
    QFileSystemWatcher watcher;
};

}  // namespace workbench
