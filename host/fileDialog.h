/// The host's file dialog and its cloud disks.
#pragma once

#include <QJsonObject>
#include <QStringList>

#include "kvcore.h"

class QWidget;

enum OpenFileType { OpenFile = 1, OpenFolder = 2 };

/// Open dialog over local folders and both cloud disks. Everything is static: the host keeps one
/// record of the last choice.
class NEWPRO_HOST_API zFileDialog {
  public:
    /// Separator of cloud paths. Never assume a value.
    static QString pathFgf;
    /// The place of the last choice; 3 and 4 are the personal and the enterprise cloud disk.
    static int iClickedBtn;
    /// State of the last cloud choice.
    static QString userName;
    static QString yunpanFile;
    static QString userId;

    /// Shows the dialog modally.
    /// @param folder the folder to start in.
    /// @param filter suffixes without dot; a first entry that is no suffix is their description.
    /// @param mode 0 local folders only, 1 and 2 cloud disks as well.
    /// @param caption title; empty for the host's own.
    /// @return the chosen local path (for a cloud file: of its downloaded copy); empty if
    /// cancelled.
    static QString getOpenFileName(QWidget* parent, QString folder, QStringList* filter, int mode,
                                   QString caption, bool modal, QString selected, bool remember,
                                   OpenFileType type);
    /// @return the folder in which the dialog was used last; empty if never.
    static QString getCurrentPath();
    /// @return the cloud path of the last choice; empty for a local one.
    static QString GetFilePath();
    static void SetFilePath(const QString& cloudPath);
    static void SetFilePid(const QString& folderId);
    static void SetQyid(const QString& enterpriseId);
    /// Tells the cloud service that the dialog has closed. @param path the choice; may be empty.
    static void TbServerMsg(const QString& path);

    /// @return the personal disk's whole tree: {"data": {…: [root]}}.
    static QJsonObject LoadGrypData();
    /// @return the enterprise disk's top level: {"data": [node …]}.
    static QJsonObject LoadQyypData();
    /// @return content of one enterprise folder: {"code", "msg", "data": [node …]}.
    static QJsonObject LoadQyypMlData(const QString& folderId, const QString& enterpriseId);
    /// @return {"data": {"filPath", "isExist"}}: an earlier download of the file.
    static QJsonObject IsExistDownLoadfile(const QString& fileName, const QString& folderPath);
    /// Downloads a file. @param link the node's "xzlj". @param localPath where an earlier copy
    /// lies.
    /// @param isExist "1" if that copy exists, else "0".
    /// @return {"code", "msg", "data": local path}; any "code" but 0 is a refusal, and none, too.
    static QJsonObject downLoadYunpanFile(const QString& fileName, const QString& link,
                                          const QString& localPath, const QString& isExist);
};
