/// What the file dialog is asked for.
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

}  // namespace workbench
