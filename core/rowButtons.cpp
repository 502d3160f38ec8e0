#include "core/rowButtons.h"

#include <QAbstractButton>

namespace newpro {

QVector<QAbstractButton*> rowButtons(const QWidget* row) {
    QVector<QAbstractButton*> buttons;
    if (!row) return buttons;
    for (QAbstractButton* button : row->findChildren<QAbstractButton*>()) {
        if (!button->layout()) buttons.append(button);
    }
    return buttons;
}

void offerToTab(const QWidget* row, bool offered) {
    for (QAbstractButton* button : rowButtons(row)) {
        button->setFocusPolicy(offered ? Qt::TabFocus : Qt::NoFocus);
    }
}

}  // namespace newpro
