#include "files/browse.h"

#include <QFileInfo>

#include "SharedInterface.h"
#include "core/boxes.h"
#include "core/fileDialogCodes.h"
#include "core/part.h"
#include "fileDialog.h"
#include "files/fileFlow.h"

namespace newpro {

namespace {

QString projectFolder() {
    ProjectSettingHelper* settings = ProjectSettingHelper::GetProjectSettingHelper();
    if (!settings) return SharedInterface::GetAppPath();
    const QString folder = settings->getCurModeBasicSettings().projectFolder;
    return folder.isEmpty() ? SharedInterface::GetAppPath() + QLatin1String("/ProjectFiles")
                            : folder;
}

/// @return the path of the host's last choice as the pages know it, and forgets its place.
QString chosenPath(const QFileInfo& file) {
    const int place = zFileDialog::iClickedBtn;
    const bool cloud = place == PersonalDiskPlace || place == EnterpriseDiskPlace;
    const QString path = cloud ? zFileDialog::GetFilePath() : file.absoluteFilePath();
    zFileDialog::iClickedBtn = NoPlace;
    return path;
}

}  // namespace

void browseForFile(CreationDialog& dialog, const FilePages& pages, FileFlow flow) {
    const FilePage page = pages.of(flow);
    const ChoiceTraits& traits = choiceOf(flow);
    const Part<QWidget> window(dialog.widget());

    QString folder = projectFolder();
    QStringList suffixes;
    SharedInterface::GetSuffix(traits.suffixKind, &suffixes, 0);
    const QString lastFolder = zFileDialog::getCurrentPath();
    if (!lastFolder.isEmpty()) folder = lastFolder;
    const QString path =
        zFileDialog::getOpenFileName(window->window(), folder, &suffixes, traits.browseMode,
                                     QString(), true, QString(), true, OpenFile);
    zFileDialog::TbServerMsg(QString());

    const QFileInfo file(path);
    if (path.isEmpty() || !window || !file.exists()) return;
    if (traits.notBrowsed.contains(file.suffix().toUpper())) {
        refuse(QStringLiteral("请选择预算工程文件"));
        return;
    }
    const QString shown = chosenPath(file);
    if (page.fileCombo && !page.select(shown)) page.fileCombo->setCurrentText(shown);
}

}  // namespace newpro
