// ribbon entries are named and have their button
#include <zControl.h>

#include <QAction>

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    return new QAction(tab.text, this);
}
