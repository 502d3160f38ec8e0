/// The way of the file dialog through a cloud disk.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QVector>
#include <functional>

#include "workbench/base/WorkbenchApi.h"
#include "workbench/hostlibs/common/Switches.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"

namespace workbench {

/// Asks the cloud service folder by folder and keeps what it has answered on the way down, so that
/// going up asks nothing. A failed step leaves the place as it was.
class WORKBENCH_API CloudBrowser {
  public:
    /// @param wait lets the time of one answer pass; false when the user gave up waiting.
    /// @param progress as cloud::download asks it, and lets the time of a download pass; none:
    /// `wait`
    ///        does.
    explicit CloudBrowser(std::function<bool()> wait, cloud::Progress progress = {});

    /// Goes to a folder of a disk, from its top.
    /// @param place PersonalPlace or CompanyPlace. @param folders names of the folders on the way.
    /// @return false when the service refused or the user gave up; see `error`.
    bool goTo(int place, const QStringList& folders = {});
    /// Goes into a folder of the present one.
    bool enter(const QString& name);
    /// @return false at the top of the disk.
    bool up();
    /// Copies a file of the present folder to its local place.
    /// @return false when the service refused or the user gave up; see `error`.
    bool download(const QString& name, FileAnswer& into);
    bool canGoUp() const { return levels.size() > 1; }

    /// @return the nodes of the present folder as the service sent them.
    QJsonArray nodes() const { return here().nodes; }
    /// @return the node of this name in the present folder; empty where there is none.
    QJsonObject find(const QString& name) const;
    /// @return the name of the present folder; at the top, of the disk.
    QString name() const { return here().name; }
    /// @return disk and folders joined by the host's separator.
    QString path() const;
    int place() const { return disk; }
    QString folderId() const { return here().folderId; }
    /// @return what the service said of the last failure; empty when the user gave up.
    QString error() const { return message; }

  private:
    struct Level {
        QString name;
        QJsonArray nodes;
        QString folderId;
        QString enterpriseId;
    };
    Level here() const { return levels.value(levels.size() - 1); }
    bool open(int place);
    bool ask(const std::function<QJsonObject()>& request, QJsonObject& answer);

    std::function<bool()> wait;
    cloud::Progress progress;
    int disk = 0;
    QVector<Level> levels;
    QString message;
};

}  // namespace workbench
