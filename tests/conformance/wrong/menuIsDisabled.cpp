// a fee mode that is picked asks for one project
#include <zBaseControl.h>

zBaseMenu::zBaseMenu(QWidget* parent) : QMenu(parent) {
    setEnabled(false);
}
