/// Where the file dialog is, and its ways from there.
#pragma once

#include "workbench/base/WorkbenchApi.h"
#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/fileDialog/CloudBrowser.h"
#include "workbench/hostlibs/fileDialog/FileListModel.h"

namespace workbench {

/// What there is to see at a place.
struct Listing {
    QVector<FileEntry> entries;
    QString path;  ///< For the user.
    bool canGoUp = false;
    QString selected;  ///< Name of the entry that one came from or asked for; may be empty.
};

/// A local folder, or a folder of a cloud disk. Every step answers whether it led somewhere; if
/// not, the place stays as it was and `error` says why, empty where the user knows.
class WORKBENCH_API FileLocation {
  public:
    /// @param withClouds whether the cloud disks may be entered.
    /// @param wait lets the time of one cloud answer pass; false when the user gave up waiting.
    /// @param progress of a download; see CloudBrowser.
    FileLocation(bool withClouds, std::function<bool()> wait, cloud::Progress progress = {});

    /// Goes to the top of a place. A cloud disk asks for the log-in where nobody is logged in.
    bool goTo(int place);
    bool goToFolder(const QString& path);
    /// Goes to where a text leads: to a local folder, beside a local file, which is then selected,
    /// or into a cloud disk.
    bool goToTyped(const QString& text);
    bool enter(const QString& name);
    bool up();
    /// Brings a file of the present cloud folder here.
    bool download(const QString& name, FileAnswer& into);

    /// @return what there is to see since the last step.
    Listing listing() const;
    QString error() const { return message; }
    int place() const { return shown; }
    bool isCloud() const { return isCloudPlace(shown); }
    /// @return the local folder shown last.
    QString folder() const { return local; }
    /// @return the node of this name in the present cloud folder; empty where there is none.
    QJsonObject cloudNode(const QString& name) const { return cloud.find(name); }

  private:
    bool fail(const QString& why);
    bool goToCloud(int place, const QStringList& folders = {});
    bool atCloud(bool arrived);

    const bool withClouds;
    CloudBrowser cloud;
    QString local;
    int shown = 0;
    QString selected;
    QString message;
};

/// @return the folder that the installation keeps its projects in.
QString projectFolder();

}  // namespace workbench
