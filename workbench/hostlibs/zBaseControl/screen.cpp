#include <QJsonArray>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/SkinStyle.h"
#include "workbench/journal/Journal.h"
#include "zBaseControl.h"

namespace {

/// Geometry and skins are not journalled, but they can fail like every other host operation.
void throwIfAsked(const char* name, const QJsonArray& args = {}) {
    if (workbench::Host::instance().switches().throws.isEmpty()) return;
    workbench::Journal::instance().throwIfAsked(name, args);
}

}  // namespace

InterfaceAdaptation* InterfaceAdaptation::getInstance() {
    throwIfAsked("InterfaceAdaptation::getInstance");
    static InterfaceAdaptation adaptation;
    return &adaptation;
}

int InterfaceAdaptation::getResolutionRatioH(double designPixels) const {
    throwIfAsked("InterfaceAdaptation::getResolutionRatioH", {designPixels});
    return workbench::scaled(designPixels);
}

void InterfaceAdaptation::openMaxDialogMode(int width, int height) {
    workbench::Journal::instance().call("InterfaceAdaptation::openMaxDialogMode", {width, height});
}

void InterfaceAdaptation::closeMaxDialogMode() {
    workbench::Journal::instance().call("InterfaceAdaptation::closeMaxDialogMode");
}

SkinManager* SkinManager::instance() {
    throwIfAsked("SkinManager::instance");
    static SkinManager manager;
    return &manager;
}

// The application has its new colours before anybody hears of the change.
SkinManager::SkinManager() {
    workbench::followHost();
    connect(&workbench::Host::instance(), &workbench::Host::skinChanged, this,
            &SkinManager::signalSkinChanged);
}

QFont TBaseTool::GetDefFont(int size, int weight) {
    static const QStringList families = {
#ifdef Q_OS_WIN  // its own one, though another may be installed
        QStringLiteral("Microsoft YaHei UI"), QStringLiteral("Microsoft YaHei"),
#endif
        QStringLiteral("Noto Sans CJK SC"),   QStringLiteral("Source Han Sans SC"),
        QStringLiteral("PingFang SC"),        QStringLiteral("WenQuanYi Micro Hei"),
        QStringLiteral("sans-serif")};
    QFont font;
    font.setFamily(families.first());
    font.setFamilies(families);
    font.setPixelSize(qMax(1, size));
    font.setWeight(QFont::Weight(weight));
    return font;
}
