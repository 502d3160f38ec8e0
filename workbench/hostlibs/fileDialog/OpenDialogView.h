/// The widgets of the file dialog.
#pragma once

#include <QWidget>

#include "workbench/hostlibs/fileDialog/FileFilter.h"
#include "workbench/hostlibs/fileDialog/FileLocation.h"
#include "workbench/hostlibs/fileDialog/FileRequest.h"
#include "zBaseControl.h"

class QLineEdit;
class QProgressBar;
class QTreeView;

namespace workbench {

/// Shows a listing and says what the user wants; knows no folder and no disk. The object names of
/// its widgets are "place1" to "place4", "upButton", "pathField", "fileList", "nameField",
/// "filterBox", "messageLabel", "progressBar", "openButton" and "cancelButton".
class OpenDialogView : public QWidget {
    Q_OBJECT
  public:
    OpenDialogView(const FileRequest& request, QWidget* parent);

    void showListing(const Listing& listing, int place);
    void markPlace(int place);
    void tell(const QString& message, bool failure = true);
    void focusList();
    /// While busy everything is disabled but the cancel button.
    void setBusy(bool busy);
    /// Busy with a download, of which `done` of `total` bytes are here.
    void showProgress(qint64 done, qint64 total);
    /// @return the text of the name field.
    QString name() const;
    void setName(const QString& name);
    /// @return the entry selected in the list; null without one.
    const FileEntry* selected() const;

  Q_SIGNALS:
    void placeWanted(int place);
    void upWanted();
    void pathTyped(const QString& text);
    void activated(const FileEntry& entry);
    void confirmed();
    void cancelled();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* placeColumn(bool withClouds);
    QWidget* pathRow();
    QWidget* fileList();
    QWidget* nameRow();
    QWidget* buttonRow();
    void applyColours();
    void makeMenu();
    QString emptyText() const;
    void copyPath() const;
    void connectWidgets();
    bool listKey(int key);
    void activate(int row);
    void showSelection();
    void selectRow(int row);
    int selectedRow() const;

    const bool foldersWanted;
    const FileFilter filter;
    bool canGoUp = false;
    FileListModel* model = nullptr;
    QVector<zBaseButton*> places;
    zBaseButton* upButton = nullptr;
    QLineEdit* pathField = nullptr;
    QTreeView* list = nullptr;
    QLineEdit* nameField = nullptr;
    zBaseCombox* filterBox = nullptr;
    zBaseLabel* messageLabel = nullptr;
    QProgressBar* progressBar = nullptr;
    zBaseButton* openButton = nullptr;
    zBaseButton* cancelButton = nullptr;
};

}  // namespace workbench
