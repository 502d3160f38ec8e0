// a layout stays clear of the title bar
#include <zControl.h>

zTitleModal::zTitleModal(QWidget* parent) : zBaseModal(parent) {
    setWindowFlag(Qt::FramelessWindowHint);
    auto* bar = new QLabel(this);
    bar->setObjectName(QStringLiteral("bar"));
    auto* button = new QPushButton(bar);
    button->setGeometry(0, 0, 32, 28);
    connect(button, &QPushButton::clicked, this, &QWidget::close);
}

void zTitleModal::SetCaption(const QString& caption) {
    findChild<QLabel*>(QStringLiteral("bar"))->setText(caption);
}

void zTitleModal::resizeEvent(QResizeEvent* event) {
    zBaseModal::resizeEvent(event);
    auto* bar = findChild<QLabel*>(QStringLiteral("bar"));
    bar->setGeometry(0, 0, width(), 28);
    bar->raise();
}
