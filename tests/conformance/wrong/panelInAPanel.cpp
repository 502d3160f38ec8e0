// panels are laid out by panelLayout
#include <zBaseControl.h>

#include <QVBoxLayout>

zBasePanelV::zBasePanelV(QWidget* parent) : zBaseWidget(parent) {
    (new QVBoxLayout(this))->addLayout(new QVBoxLayout);
}

QVBoxLayout* zBasePanelV::panelLayout() const {
    return findChildren<QVBoxLayout*>().constLast();
}
