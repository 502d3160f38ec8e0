// the ribbon takes no keys
#include <zControl.h>

#include <QHBoxLayout>
#include <QPushButton>
#include <QWidgetAction>

RibbonTab::RibbonTab(const RIBBON::CentralTab& tab, QWidget* parent) : zBaseWidget(parent) {
    auto* button = new QPushButton(tab.text, this);
    button->setObjectName(QStringLiteral("curText"));
    button->setCheckable(true);
    (new QHBoxLayout(this))->addWidget(button);
}

void RibbonTab::setChecked(bool checked) {
    findChild<QPushButton*>()->setChecked(checked);
}

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    auto* entry = new RibbonTab(tab);
    auto* action = new QWidgetAction(this);
    entry->setProperty("name", tab.text);
    action->setProperty("name", tab.text);
    action->setDefaultWidget(entry);
    panelLayout()->addWidget(entry);
    entry->show();
    connect(entry->findChild<QPushButton*>(), &QPushButton::clicked, action, &QAction::trigger);
    return action;
}
