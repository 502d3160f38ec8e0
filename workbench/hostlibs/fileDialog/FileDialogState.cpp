#include "workbench/hostlibs/fileDialog/FileDialogState.h"

#include "fileDialog.h"

namespace workbench {

FileDialogState& fileDialogState() {
    static FileDialogState state;
    return state;
}

void resetFileDialog() {
    fileDialogState() = {};
    zFileDialog::pathFgf = QStringLiteral("/");
    zFileDialog::iClickedBtn = NoPlace;
    zFileDialog::userName.clear();
    zFileDialog::yunpanFile.clear();
    zFileDialog::userId.clear();
}

}  // namespace workbench
