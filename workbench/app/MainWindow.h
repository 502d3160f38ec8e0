/// The workbench's window: projects, the host's switches, and the journal.
#pragma once

#include <QMainWindow>
#include <functional>

#include "workbench/hostlibs/common/ProjectStore.h"

class QLabel;
class QMenu;
class zBaseLabel;

namespace workbench {

class NoticeBar;
class ProjectPanel;
class Settings;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    /// @param settings keeps what the window keeps between runs, and outlives it. Null: nothing is
    ///        kept, and no other installation can be opened.
    explicit MainWindow(Settings* settings = nullptr);

    /// Works in another installation. One that cannot be read is said in the window, with what can
    /// be done, and the old one stays.
    /// @return empty, or the error.
    QString openInstallation(const QString& folder);
    /// Says in the window that no installation could be opened.
    /// @param folder the one that was tried; may be empty. @param error the reason.
    void tellBroken(const QString& folder, const QString& error);
    /// Opens the dialog "新建工程" and returns when it has closed.
    /// @param entry of the ribbon to start with; empty for the dialog's own.
    void newProject(const QString& entry = QString());
    /// Asks for the kind first.
    void chooseKind();
    /// Shows from now on that what is done is recorded.
    void showRecording();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void makeActions();
    void makeMenus();
    void addStarts(QMenu* menu);
    void makeLanguageMenu(QMenu* view);
    void chooseInstallation();
    void showInstallation();
    void showFolder(const QString& path);
    void tellFailed(const QString& reason);
    void watchJournal();
    QAction* addAction(const QString& text, const QString& description, const char* picture,
                       const char* objectName, const char* shortcut,
                       const std::function<void()>& work);
    void addSkins(QMenu* menu);
    void makeDocks();
    void makeStatusBar();
    void watchScale();
    void adaptToLook();
    void showCreated(const QString& path);
    void showCount();

    ProjectStore store;
    Settings* const settings;
    NoticeBar* notice;
    ProjectPanel* projects;
    QToolBar* tools;
    zBaseLabel* created;  ///< Names for a while the file that was made.
    QTimer* passing;      ///< That while.
    QLabel* count;
    zBaseLabel* installation;
};

}  // namespace workbench
