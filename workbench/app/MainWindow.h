/// The workbench's window: projects, the host's switches, and the journal.
#pragma once

#include <QMainWindow>
#include <functional>

#include "workbench/hostlibs/common/ProjectStore.h"

class QLabel;
class QMenu;

namespace workbench {

class ProjectPanel;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow();

    /// Opens the dialog "新建工程" and returns when it has closed.
    /// @param kind ribbon entry to start with; empty for the dialog's own.
    void newProject(const QString& kind = QString());
    /// Asks for the kind first.
    void chooseKind();

  private:
    void makeActions();
    QAction* addAction(const QString& text, const char* picture, const char* objectName,
                       const char* shortcut, const std::function<void()>& work);
    void addSkins(QMenu* menu);
    void makeDocks();
    void makeStatusBar();
    void watchScale();
    void adaptToLook();
    void showCreated(const QString& path);
    void showCount();

    ProjectStore store;
    ProjectPanel* projects;
    QToolBar* tools;
    QLabel* count;
};

}  // namespace workbench
