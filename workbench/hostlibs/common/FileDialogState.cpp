#include "workbench/hostlibs/common/FileDialogState.h"

#include "fileDialog.h"

QString zFileDialog::pathFgf = QStringLiteral("/");
int zFileDialog::iClickedBtn = workbench::NoPlace;
QString zFileDialog::userName;
QString zFileDialog::yunpanFile;
QString zFileDialog::userId;

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
