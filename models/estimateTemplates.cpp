#include "models/estimateTemplates.h"

#include <QDir>

#include "SharedInterface.h"
#include "zBaseControl.h"

namespace newpro {

namespace {

QFileInfoList templateFiles() {
    const QDir folder(SharedInterface::getInstance()->GetAppPath() + GCSZDir +
                      QStringLiteral("GcszYs/"));
    return folder.entryInfoList({QLatin1Char('*') + GSMBSuffix},
                                QDir::Files | QDir::NoSymLinks | QDir::Hidden, QDir::Name);
}

QString defaultTemplate() {
    ProjectSettingHelper* helper = ProjectSettingHelper::GetProjectSettingHelper();
    return helper ? helper->GetSysSettingInfo().estimateTemplate : QString();
}

}  // namespace

void fillEstimateTemplates(const Part<zBaseCombox>& combo) {
    if (!combo) return;
    combo->clear();
    const QFileInfoList files = templateFiles();
    const QString chosen = defaultTemplate();
    int chosenIndex = -1;
    int generalIndex = -1;
    for (int i = 0; i < files.size(); ++i) {
        const QString name = files.at(i).completeBaseName();
        if (name == chosen) chosenIndex = i;
        if (name == QStringLiteral("通用概算模板")) generalIndex = i;
        combo->addItemState(QStringLiteral(":/Image/Home/mb.svg"), true, name, QVariant());
    }
    const int current = chosenIndex >= 0 ? chosenIndex : generalIndex;
    if (current >= 0) combo->setCurrentIndex(current);
}

}  // namespace newpro
