#include "core/boxes.h"

#include "SharedInterface.h"
#include "zControl.h"

namespace newpro {

namespace {

const QString& title() {
    static const QString text = QStringLiteral("提示");
    return text;
}

QStringList buttons() {
    return {QStringLiteral("确定")};
}

}  // namespace

void refuse(const QString& text) {
    showInformation(title(), Communication::GetInstance()->GetMainWindow(), text, buttons());
}

void refuseCritically(const QString& text) {
    showCritical(title(), Communication::GetInstance()->GetMainWindow(), text, buttons());
}

}  // namespace newpro
