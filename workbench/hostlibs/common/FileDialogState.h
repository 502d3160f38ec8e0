/// What the host's file dialog remembers between two uses.
#pragma once

#include <QString>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// The places of the dialog, numbered as zFileDialog::iClickedBtn has them.
enum Place {
    NoPlace = 0,
    ProjectPlace = 1,
    ComputerPlace = 2,
    PersonalPlace = 3,
    CompanyPlace = 4
};

/// @return whether a place lies on a cloud disk.
inline bool isCloudPlace(int place) {
    return place == PersonalPlace || place == CompanyPlace;
}

struct FileDialogState {
    QString currentPath;   ///< Local folder of the last choice; empty if never used.
    QString cloudPath;     ///< Cloud path of the last choice; empty for a local one.
    QString folderId;      ///< Cloud folder of the last choice.
    QString enterpriseId;  ///< Enterprise that owns that folder.
};

/// @return the process-wide record beside the public members of zFileDialog.
FileDialogState& fileDialogState();

/// Puts the file dialog back to never used, the public members of zFileDialog included.
WORKBENCH_API void resetFileDialog();

}  // namespace workbench
