/// The window of the host's file dialog.
#pragma once

#include <QStringList>
#include <QVector>
#include <memory>

#include "fileDialog.h"
#include "workbench/hostlibs/common/WorkbenchApi.h"
#include "workbench/hostlibs/fileDialog/CloudBrowser.h"
#include "workbench/hostlibs/fileDialog/FileFilter.h"
#include "zControl.h"

class QEventLoop;
class QLineEdit;
class QTreeView;

namespace workbench {

class FileListModel;
struct FileEntry;

/// What a caller of the file dialog asks for; see zFileDialog::getOpenFileName.
struct FileRequest {
    QString folder;
    QStringList filters;
    int mode = 0;
    QString caption;
    bool modal = true;
    QString selected;
    OpenFileType type = OpenFile;
};

/// What the user chose. An empty path means cancelled.
struct FileChoice {
    QString path;
    int place = 0;
    QString cloudPath;
    QString folderId;
    QString enterpriseId;
};

/// Shows local folders and, where the request allows it, both cloud disks. In folder mode the
/// folder selected is the choice, or the one shown when none is selected; cloud disks have only
/// files to choose. The object names of its widgets are "place1" to "place4", "upButton",
/// "pathField", "fileList", "nameField", "filterBox", "messageLabel", "openButton" and
/// "cancelButton".
class WORKBENCH_API OpenDialog : public zTitleModal {
    Q_OBJECT
  public:
    OpenDialog(QWidget* parent, const FileRequest& request);
    ~OpenDialog() override;

    /// Shows the dialog until it closes. @return the choice; a cancelled one when the dialog was
    ///         deleted with its parent meanwhile.
    static FileChoice ask(QWidget* parent, const FileRequest& request);

    const FileChoice& choice() const { return chosen; }
    void done(int result) override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void build();
    QWidget* placeColumn();
    QWidget* pathRow();
    QWidget* fileList();
    QWidget* nameRow();
    QWidget* buttonRow();
    void nameForReaders();
    void applyColours();
    void connectWidgets();

    void start();
    void goToPlace(int wanted);
    void showLocal(const QString& path);
    void showEntries(const QVector<FileEntry>& entries, const QString& path, bool canGoUp);
    void markPlace();
    void goUp();
    void goToTypedPath();
    void goToCloudPath(const QStringList& names);
    void enterFolder(const QString& name);
    void activate(int row);
    void confirm();
    void confirmEmpty();
    void confirmLocal(const QString& name);
    void confirmCloud(const QString& name);
    void download(const QJsonObject& node);
    void choose(const QString& path);
    void showSelection();
    void select(const QString& name);
    void selectRow(int row);
    int selectedRow() const;
    bool foldersWanted() const { return request.type == OpenFolder; }
    void tell(const QString& message, bool failure = true);
    /// The dialog may be gone after each of these two; they answer false then.
    template <typename Step>
    bool cloudStep(Step&& step);
    bool waitForCloud();
    void setBusy(bool busy);

    FileRequest request;
    FileChoice chosen;
    FileFilter filter;
    QString folder;  ///< The local folder shown last.
    int place = 0;   ///< The place shown.
    std::shared_ptr<CloudBrowser> cloud;
    QEventLoop* waiting = nullptr;  ///< While a cloud answer is on its way.

    FileListModel* model = nullptr;
    QVector<zBaseButton*> places;
    zBaseButton* upButton = nullptr;
    QLineEdit* pathField = nullptr;
    QTreeView* list = nullptr;
    zBaseLabel* nameLabel = nullptr;
    QLineEdit* nameField = nullptr;
    zBaseCombox* filterBox = nullptr;
    zBaseLabel* messageLabel = nullptr;
    zBaseButton* openButton = nullptr;
    zBaseButton* cancelButton = nullptr;
};

}  // namespace workbench
