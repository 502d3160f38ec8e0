#include "workbench/hostlibs/zControl/MessageBox.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "workbench/hostlibs/zBaseControl/Style.h"

namespace workbench {

namespace {

class Picture : public QWidget {
  public:
    Picture(BoxPicture which, QWidget* parent) : QWidget(parent), picture(which) {
        setFixedSize(scaled(32), scaled(32));
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const bool critical = picture == BoxPicture::Critical;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(width() / 32.0, height() / 32.0);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour(critical ? Tint::Danger : Tint::Accent));
        painter.drawEllipse(QRectF(1, 1, 30, 30));
        painter.setPen(QPen(colour(Tint::OnAccent), 3, Qt::SolidLine, Qt::RoundCap));
        if (critical) {
            painter.drawLine(QPointF(11, 11), QPointF(21, 21));
            painter.drawLine(QPointF(21, 11), QPointF(11, 21));
        } else {
            painter.drawLine(QPointF(16, 15), QPointF(16, 23));
            painter.drawPoint(QPointF(16, 9.5));
        }
    }

  private:
    BoxPicture picture;
};

}  // namespace

MessageBox::MessageBox(const QString& title, const QString& text, const QStringList& buttons,
                       BoxPicture picture, QWidget* parent)
    : RoundedDialog(parent) {
    setObjectName(QStringLiteral("messageBox"));
    setWindowTitle(title);
    setModal(true);
    auto* caption = new zBaseLabel(title, this);
    caption->setObjectName(QStringLiteral("title"));
    caption->setFont(TBaseTool::GetDefFont(scaled(14), QFont::Bold));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(20), scaled(16), scaled(20), scaled(16));
    layout->setSpacing(scaled(16));
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(caption);
    layout->addLayout(makeMessage(text, picture));
    layout->addLayout(makeButtons(buttons));
}

QLayout* MessageBox::makeMessage(const QString& text, BoxPicture picture) {
    auto* label = new zBaseLabel(text, this);
    label->setObjectName(QStringLiteral("text"));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A short text keeps its line and a long one wraps, each in a box of its own size.
    label->setWordWrap(true);
    const int room = scaled(360);
    const QRect needed = label->fontMetrics().boundingRect(
        QRect(0, 0, room, QWIDGETSIZE_MAX), Qt::TextWordWrap | Qt::TextWrapAnywhere, text);
    label->setFixedWidth(qBound(scaled(220), needed.width() + scaled(4), room));
    label->setMinimumHeight(label->heightForWidth(label->width()));

    auto* row = new QHBoxLayout;
    row->setSpacing(scaled(14));
    row->addWidget(new Picture(picture, this), 0, Qt::AlignTop);
    row->addWidget(label, 1, Qt::AlignVCenter);
    return row;
}

QLayout* MessageBox::makeButtons(const QStringList& buttons) {
    auto* row = new QHBoxLayout;
    row->setSpacing(scaled(10));
    row->addStretch();
    for (int i = 0; i < buttons.size(); ++i) {
        auto* button = new zBaseButton(buttons[i], this);
        button->setObjectName(QStringLiteral("button%1").arg(i));
        button->setMinimumSize(scaled(76), scaled(28));
        button->setControlType(i == 0 ? DefaultActionType : PlainType);
        button->setDefault(i == 0);
        connect(button, &QPushButton::clicked, this, [this, i] {
            choice = i;
            accept();
        });
        row->addWidget(button);
    }
    return row;
}

}  // namespace workbench
