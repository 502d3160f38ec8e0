#include "files/browse.h"

#include <QFileInfo>

#include "SharedInterface.h"
#include "core/boxes.h"
#include "fileDialog.h"

namespace newpro {

namespace {

/// What sets the browse button of a page apart.
struct Browse {
    int suffixKind;       ///< Kind of project file whose suffixes the host is asked for.
    int mode;             ///< Mode of the file dialog.
    QStringList refused;  ///< Suffixes that the page does not take.
};

const Browse& browseOf(FileFlow flow) {
    static const QString grouped = QStringLiteral("GCFG");
    static const QString prefixed = QStringLiteral("SGCFG");
    static const Browse estimate{2, 2, {grouped, prefixed}};
    static const Browse settlement{8, 2, {grouped, prefixed}};
    static const Browse audit{1, 2, {}};
    static const Browse contracting{16, 1, {prefixed}};
    switch (flow) {
        case FileFlow::Estimate:
            return estimate;
        case FileFlow::Settlement:
            return settlement;
        case FileFlow::Audit:
            return audit;
        case FileFlow::Contracting:
            break;
    }
    return contracting;
}

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
    const bool cloud = place == 3 || place == 4;
    const QString path = cloud ? zFileDialog::GetFilePath() : file.absoluteFilePath();
    zFileDialog::iClickedBtn = 0;
    return path;
}

}  // namespace

void browseForFile(CreationDialog& dialog, const FilePages& pages, FileFlow flow) {
    const FilePage page = pages.of(flow);
    const Browse& browse = browseOf(flow);
    const QPointer<QWidget> alive(dialog.widget());

    QString folder = projectFolder();
    QStringList suffixes;
    SharedInterface::GetSuffix(browse.suffixKind, &suffixes, 0);
    const QString lastFolder = zFileDialog::getCurrentPath();
    if (!lastFolder.isEmpty()) folder = lastFolder;
    const QString path =
        zFileDialog::getOpenFileName(alive->window(), folder, &suffixes, browse.mode, QString(),
                                     true, QString(), true, OpenFile);
    zFileDialog::TbServerMsg(QString());

    const QFileInfo file(path);
    if (path.isEmpty() || !alive || !file.exists()) return;
    if (browse.refused.contains(file.suffix().toUpper())) {
        refuse(QStringLiteral("请选择预算工程文件"));
        return;
    }
    const QString shown = chosenPath(file);
    if (page.fileCombo && !page.select(shown)) page.fileCombo->setCurrentText(shown);
}

}  // namespace newpro
