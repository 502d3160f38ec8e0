#include <QHBoxLayout>
#include <QWidgetAction>

#include "workbench/hostlibs/zBaseControl/Style.h"
#include "zControl.h"

using workbench::scaled;

namespace {

const char exclusiveProperty[] = "exclusive";

zBaseButton* buttonOf(const RibbonTab* tab) {
    return tab->findChild<zBaseButton*>(QStringLiteral("curText"));
}

QList<RibbonTab*> tabsOf(const RibbonNavigationBar* bar) {
    return bar->findChildren<RibbonTab*>(QString(), Qt::FindDirectChildrenOnly);
}

}  // namespace

RibbonTab::RibbonTab(const RIBBON::CentralTab& tab, QWidget* parent) : zBaseWidget(parent) {
    setProperty("name", tab.text);
    setAccessibleName(tab.text);
    auto* button = new zBaseButton(tab.text, this);
    button->setObjectName(QStringLiteral("curText"));
    button->setControlType(workbench::RibbonTabType);
    button->setIcon(tab.icon);
    button->setIconSize({scaled(18), scaled(18)});
    button->setCheckable(true);
    button->setAutoDefault(false);
    // The ribbon belongs to the mouse: with the focus it would only be a place where keys end.
    button->setFocusPolicy(Qt::NoFocus);
    // With a large font the entries give way, and cut their texts.
    button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Expanding);
    button->setMinimumWidth(scaled(40));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(button);
}

void RibbonTab::setChecked(bool checked) {
    buttonOf(this)->setChecked(checked);
}

RibbonNavigationBar::RibbonNavigationBar(int style, int alignment, int exclusive, QWidget* parent)
    : zBasePanelH(parent) {
    // This ribbon has one look; what it was asked for can be seen in tests.
    setProperty("style", style);
    setProperty("alignment", alignment);
    setProperty(exclusiveProperty, exclusive == 1);
    panelLayout()->addSpacing(scaled(40));  // the cross of its window lies there
}

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    auto* entry = new RibbonTab(tab, this);
    auto* action = new QWidgetAction(this);
    action->setText(tab.text);
    action->setProperty("name", tab.text);
    action->setDefaultWidget(entry);

    const auto select = [this, entry] {
        entry->setChecked(true);
        if (!property(exclusiveProperty).toBool()) return;
        for (RibbonTab* other : tabsOf(this)) other->setChecked(other == entry);
    };
    // Connected before anybody else can: receivers of `triggered` find the entry checked.
    connect(action, &QAction::triggered, this, select);
    connect(buttonOf(entry), &QPushButton::clicked, action, [select, action] {
        select();
        action->trigger();
    });

    // Entries that come after the closing stretch was added still stand beside the others.
    QList<RibbonTab*> tabs = tabsOf(this);
    const int last = tabs.isEmpty() ? -1 : panelLayout()->indexOf(tabs.last());
    panelLayout()->insertWidget(last + 1, entry);  // takes the widget back from the action
    entry->show();
    return action;
}
