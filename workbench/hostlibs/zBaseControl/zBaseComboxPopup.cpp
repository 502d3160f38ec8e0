#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "workbench/hostlibs/zBaseControl/Style.h"

using workbench::colour;
using workbench::scaled;
using workbench::Tint;

struct zBaseComboxPopup::Popup {
    QString text;
    QFrame* frame = nullptr;
};

zBaseComboxPopup::zBaseComboxPopup(QWidget* parent) : zBaseWidget(parent), popup(new Popup) {
    look->rest = Tint::Field;
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setMinimumHeight(scaled(workbench::kControlHeight));
    popup->frame = new QFrame(this, Qt::Popup);
    popup->frame->setObjectName(QStringLiteral("popup"));
    popup->frame->setFrameShape(QFrame::StyledPanel);
    // A click on the field while the pop-up is open closes it and does not open it again.
    popup->frame->setAttribute(Qt::WA_NoMouseReplay);
    auto* layout = new QVBoxLayout(popup->frame);
    layout->setContentsMargins(scaled(2), scaled(2), scaled(2), scaled(2));
}

zBaseComboxPopup::~zBaseComboxPopup() = default;

void zBaseComboxPopup::setDisplayText(const QString& text) {
    popup->text = text;
    setAccessibleName(text);
    update();
}

QString zBaseComboxPopup::displayText() const {
    return popup->text;
}

void zBaseComboxPopup::setPopupWidget(QWidget* widget) {
    popup->frame->layout()->addWidget(widget);
}

void zBaseComboxPopup::showDropDownPopup() {
    const int height = qBound(scaled(60), popup->frame->sizeHint().height(), scaled(300));
    popup->frame->setGeometry(
        QRect(mapToGlobal(QPoint(0, this->height() + scaled(1))), QSize(width(), height)));
    popup->frame->show();
}

void zBaseComboxPopup::hideDropDownPopup() {
    popup->frame->hide();
}

void zBaseComboxPopup::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyle::State state;
    state.setFlag(QStyle::State_Enabled, isEnabled());
    state.setFlag(QStyle::State_HasFocus, hasFocus());
    state.setFlag(QStyle::State_MouseOver, underMouse() || popup->frame->isVisible());
    workbench::drawField(painter, rect(), normalBackColor(), state);
    workbench::drawArrow(painter, QPoint(width() - workbench::roomFor(12), height() / 2),
                         isEnabled());
    const QRect place = rect().adjusted(scaled(8), 0, -workbench::roomFor(24), 0);
    painter.setPen(colour(isEnabled() ? Tint::Text : Tint::Faint));
    workbench::drawLine(painter, place, Qt::AlignLeft | Qt::AlignVCenter, popup->text);
}

void zBaseComboxPopup::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) showDropDownPopup();
}

void zBaseComboxPopup::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Space || key == Qt::Key_Down || key == Qt::Key_F4)
        showDropDownPopup();
    else
        zBaseWidget::keyPressEvent(event);
}
