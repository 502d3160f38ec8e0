// the ribbon goes to general contracting and back
#include <SharedInterface.h>

#include <QApplication>
#include <QWidget>
#include <stdexcept>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString&) {
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> none;
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && appType == QLatin1String("Kvzcb"))
            throw std::logic_error("not while a window is open");
    return none;
}
