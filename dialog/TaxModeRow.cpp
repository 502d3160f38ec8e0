#include "dialog/TaxModeRow.h"

#include <QHBoxLayout>

#include "core/scale.h"

namespace newpro {

namespace {

struct ButtonText {
    const char* objectName;
    QString text;
    QString description;  ///< For screen readers.
};

const std::array<ButtonText, taxPageCount>& buttonTexts() {
    static const std::array<ButtonText, taxPageCount> table = {{
        {"generalTaxButton", QStringLiteral("一般计税"), QStringLiteral("列出一般计税的计价模型")},
        {"simpleTaxButton", QStringLiteral("简易计税"), QStringLiteral("列出简易计税的计价模型")},
        {"businessTaxButton", QStringLiteral("营业税"), QStringLiteral("列出营业税的计价模型")},
        {"templateButton", QStringLiteral("模板工程"),
         QStringLiteral("列出可用来新建的模板工程文件")},
        {"budgetButton", QStringLiteral("预算工程"),
         QStringLiteral("由已有的预算工程文件新建总承包")},
    }};
    return table;
}

zBaseButton* rowButton(const ButtonText& text, QWidget* row) {
    auto* button = new zBaseButton(text.text, row);
    button->setObjectName(QLatin1String(text.objectName));
    button->setAccessibleDescription(text.description);
    button->setAutoDefault(false);
    button->setCheckable(true);
    button->setCheckedBackColorEnabled(true);
    return button;
}

}  // namespace

TaxModeRow::TaxModeRow(QWidget* parent) : zBasePanelH(parent), importTender(new zBaseButton(this)) {
    setFixedHeight(scaled(30));
    panelLayout()->setContentsMargins(0, 0, 0, 0);
    panelLayout()->setSpacing(scaled(5));
    for (int page = 0; page < taxPageCount; ++page) {
        buttons[size_t(page)] = rowButton(buttonTexts()[size_t(page)], this);
        panelLayout()->addWidget(button(page));
    }
    const int margin = scaled(6);
    button(ContractingPage)->setCursor(Qt::PointingHandCursor);
    button(ContractingPage)->setContentsMargins(margin, margin, margin, margin);
    button(ContractingPage)->hide();

    panelLayout()->addStretch();
    importTender->setObjectName(QStringLiteral("importTenderButton"));
    importTender->setAutoDefault(false);
    importTender->setIcon(QStringLiteral(":/Image/Home/DaoRuCJZXinJian1.4.svg"));
    importTender->setIconSize(QSize(scaled(14), scaled(14)));
    importTender->setFixedWidth(scaled(120));
    importTender->hide();
    panelLayout()->addWidget(importTender);
}

void TaxModeRow::check(int page) {
    for (int other : {GeneralPage, SimplePage, BusinessPage, TemplatePage}) {
        setChecked(other, other == page);
    }
}

}  // namespace newpro
