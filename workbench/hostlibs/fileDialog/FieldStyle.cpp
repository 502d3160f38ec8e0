#include "workbench/hostlibs/fileDialog/FieldStyle.h"

#include <QProgressBar>

#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/common/hostTexts.h"
#include "zBaseControl.h"

namespace workbench {

QString fieldSheet() {
    return QStringLiteral(
               "QLineEdit{background:%1;color:%2;border:%13px solid %3;border-radius:%6px;"
               "padding:0 %7px;selection-background-color:%4;selection-color:%5}"
               "QLineEdit:hover{border-color:%9}"
               "QLineEdit:focus{border:%10px solid %9;padding:0 %12px}"
               "QLineEdit:disabled{color:%8;background:%11}")
        .arg(colour(Tint::Field).name(), colour(Tint::Text).name(), colour(Tint::Border).name(),
             colour(Tint::Accent).name(), colour(Tint::OnAccent).name())
        .arg(scaled(3))
        .arg(scaled(6))
        .arg(colour(Tint::Faint).name(), colour(Tint::AccentLine).name())
        .arg(2 * qMax(1, scaled(1)))
        .arg(colour(Tint::Disabled).name())
        .arg(scaled(6) - qMax(1, scaled(1)))
        .arg(qMax(1, scaled(1)));
}

zBaseButton* windowButton(const char* name, const QString& text, const QString& description,
                          QWidget* parent) {
    auto* button = new zBaseButton(text, parent);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(text);
    button->setAccessibleDescription(description);
    button->setAutoDefault(false);
    button->setFixedSize(roomFor(88), roomFor(kControlHeight));
    return button;
}

QProgressBar* makeProgressBar(QWidget* parent) {
    auto* bar = new QProgressBar(parent);
    bar->setAccessibleName(hostText(QStringLiteral("下载进度")));
    bar->setFixedHeight(scaled(8));
    bar->setTextVisible(false);
    return bar;
}

QString progressBarSheet() {
    return QStringLiteral(
               "QProgressBar{background:%1;border:1px solid %2;border-radius:%3px}"
               "QProgressBar::chunk{background:%4;border-radius:%3px}")
        .arg(colour(Tint::Field).name(), colour(Tint::Line).name())
        .arg(scaled(3))
        .arg(colour(Tint::Accent).name());
}

}  // namespace workbench
