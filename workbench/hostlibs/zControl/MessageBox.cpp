#include "workbench/hostlibs/zControl/MessageBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "workbench/hostlibs/zBaseControl/Style.h"

namespace workbench {

namespace {

QWidget* pictureLabel(const char* name, QWidget* parent) {
    const QString file = QStringLiteral(":/Image/Workbench/%1.svg").arg(QLatin1String(name));
    const QSize size(scaled(32), scaled(32));
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setFixedSize(size);
    label->setPixmap(pixmapOf(skinPicture(file), size, parent->devicePixelRatioF()));
    return label;
}

/// @return a text, in what it is scrolled in if the box would leave the screen with it.
QWidget* scrolledIfLong(QLabel* text) {
    const QWidget* box = text->window();
    const int around = roomFor(160);
    const int room = qMax(scaled(40), box->screen()->availableSize().height() - around);
    if (text->minimumHeight() <= room) return text;
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(text);
    area->setFixedSize(text->width() + area->verticalScrollBar()->sizeHint().width(), room);
    return area;
}

}  // namespace

MessageBox::MessageBox(const QString& title, const QString& text, const QStringList& buttons,
                       const char* picture, QWidget* parent)
    : RoundedDialog(parent) {
    setObjectName(QStringLiteral("messageBox"));
    setWindowTitle(title);
    setModal(true);
    auto* caption = new zBaseLabel(title, this);
    caption->setObjectName(QStringLiteral("title"));
    caption->setFont(TBaseTool::GetDefFont(roomFor(14), QFont::Bold));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(20), scaled(16), scaled(20), scaled(16));
    layout->setSpacing(scaled(16));
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(caption);
    layout->addLayout(makeMessage(text, picture));
    layout->addLayout(makeButtons(buttons, text));
}

QLayout* MessageBox::makeMessage(const QString& text, const char* picture) {
    auto* label = new zBaseLabel(text, this);
    label->setObjectName(QStringLiteral("text"));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A short text keeps its line and a long one wraps, each in a box of its own size.
    label->setWordWrap(true);
    const int beside = scaled(96);  // of the text, in the box
    const int room = roomOnScreen(*this, 456, 0).width() - beside;
    const QRect needed = label->fontMetrics().boundingRect(
        QRect(0, 0, room, QWIDGETSIZE_MAX), Qt::TextWordWrap | Qt::TextWrapAnywhere, text);
    label->setFixedWidth(qMin(qMax(scaled(220), needed.width() + scaled(4)), room));
    label->setMinimumHeight(label->heightForWidth(label->width()));

    auto* row = new QHBoxLayout;
    row->setSpacing(scaled(12));
    row->addWidget(pictureLabel(picture, this), 0, Qt::AlignTop);
    row->addWidget(scrolledIfLong(label), 1, Qt::AlignVCenter);
    return row;
}

QLayout* MessageBox::makeButtons(const QStringList& buttons, const QString& text) {
    auto* row = new QHBoxLayout;
    row->setSpacing(scaled(8));
    row->addStretch();
    for (int i = 0; i < buttons.size(); ++i) {
        auto* button = new zBaseButton(buttons[i], this);
        button->setObjectName(QStringLiteral("button%1").arg(i));
        // What it answers: the keys are with it when the box comes up.
        button->setAccessibleDescription(text);
        button->setMinimumSize(scaled(76), scaled(kControlHeight));
        button->setControlType(i == 0 ? DefaultActionType : PlainType);
        button->setAutoDefault(false);
        button->setDefault(i == 0);
        if (i == 0) button->setFocus(Qt::TabFocusReason);
        connect(button, &QPushButton::clicked, this, [this, i] {
            choice = i;
            accept();
        });
        row->addWidget(button);
    }
    return row;
}

}  // namespace workbench
