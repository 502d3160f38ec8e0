// basic settings and templates are answered
#include <SharedInterface.h>

#include <stdexcept>

QMap<QString, QList<JLTaxTemplateInfo>> ProjectSettingHelper::getJiLinMoBanList() {
    throw std::runtime_error("not of this province");
}
