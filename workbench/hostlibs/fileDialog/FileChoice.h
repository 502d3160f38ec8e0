/// What the file dialog is asked for, and what it answers.
#pragma once

#include <QStringList>

#include "fileDialog.h"

namespace workbench {

/// What a caller of the file dialog asks for; see zFileDialog::getOpenFileName.
struct FileRequest {
    QString folder;
    QStringList filters;
    int mode = 0;
    QString caption;
    bool modal = true;
    QString selected;
    OpenFileType type = OpenFile;

    bool wantsFolder() const { return type == OpenFolder; }
    bool allowsClouds() const { return mode != 0; }
};

/// What the user chose. An empty path means cancelled.
struct FileChoice {
    QString path;
    int place = 0;
    QString cloudPath;
    QString folderId;
    QString enterpriseId;
};

}  // namespace workbench
