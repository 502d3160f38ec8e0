// the ribbon takes no keys
// the current ribbon entry is bold
#include <zControl.h>

#include <QHBoxLayout>

// The button that is seen is not the one that the dialog looks for.
RibbonTab::RibbonTab(const RIBBON::CentralTab& tab, QWidget* parent) : zBaseWidget(parent) {
    auto* seen = new QPushButton(tab.text, this);
    auto* found = new zBaseButton(tab.text, this);
    (new QHBoxLayout(this))->addWidget(seen);
    for (QPushButton* button : {seen, static_cast<QPushButton*>(found)}) {
        button->setObjectName(QStringLiteral("curText"));
        button->setCheckable(true);
    }
    found->hide();
    connect(seen, &QPushButton::clicked, found, &QPushButton::click);
}

void RibbonTab::setChecked(bool checked) {
    for (auto* button : findChildren<QPushButton*>()) button->setChecked(checked);
}
