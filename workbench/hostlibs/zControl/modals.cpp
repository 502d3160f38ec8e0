#include <QAbstractButton>
#include <QEvent>

#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/common/hostTexts.h"
#include "workbench/hostlibs/zBaseControl/Style.h"
#include "workbench/hostlibs/zControl/Outline.h"
#include "zControl.h"

using workbench::colour;
using workbench::hostText;
using workbench::scaled;
using workbench::Tint;

namespace {

constexpr int kTitleHeight = 40;

const QLatin1String closeName("closeButton");
const QLatin1String titleName("titleBar");
const QLatin1String captionName("caption");

class CloseButton : public QAbstractButton {
  public:
    explicit CloseButton(QWidget* parent) : QAbstractButton(parent) {
        setObjectName(closeName);
        setAccessibleName(hostText(QStringLiteral("关闭")));
        setAccessibleDescription(hostText(QStringLiteral("关闭此窗口，不作选择")));
        setToolTip(hostText(QStringLiteral("关闭")));
        setAttribute(Qt::WA_Hover);
        setFocusPolicy(Qt::NoFocus);  // Esc closes; the first tab stop belongs to the content
    }

    void place() {
        const int edge = scaled(6);
        setGeometry(parentWidget()->width() - edge - scaled(32), edge, scaled(32), scaled(28));
        raise();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const bool hovered = underMouse();
        const QColor danger = colour(Tint::Danger);
        if (hovered)
            workbench::drawBox(painter, rect(), isDown() ? danger.darker(120) : danger,
                               Qt::transparent, 4);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(colour(hovered ? Tint::Surface : Tint::Muted), scaled(15) / 10.0,
                            Qt::SolidLine, Qt::RoundCap));
        const QPointF centre(width() / 2.0, height() / 2.0);
        const QPointF arm(scaled(45) / 10.0, scaled(45) / 10.0);
        const QPointF other(arm.x(), -arm.y());
        painter.drawLine(centre - arm, centre + arm);
        painter.drawLine(centre - other, centre + other);
    }
};

CloseButton* closeButton(const QWidget* dialog) {
    return static_cast<CloseButton*>(
        dialog->findChild<QAbstractButton*>(closeName, Qt::FindDirectChildrenOnly));
}

class TitleBar : public QWidget {
  public:
    explicit TitleBar(QWidget* parent) : QWidget(parent) {
        setObjectName(titleName);
        auto* caption = new zBaseLabel(this);
        caption->setObjectName(captionName);
        caption->setFont(TBaseTool::GetDefFont(workbench::roomFor(14), QFont::Bold));
    }

  protected:
    void resizeEvent(QResizeEvent*) override {
        findChild<zBaseLabel*>(captionName)
            ->setGeometry(scaled(16), 0, width() - scaled(64), height());
    }
    void paintEvent(QPaintEvent*) override {
        const int line = qMax(1, scaled(1));
        QPainter(this).fillRect(0, height() - line, width(), line, colour(Tint::Divider));
    }
};

}  // namespace

zBaseModal::zBaseModal(QWidget* parent) : KVBaseDialog(parent) {
    connect(new CloseButton(this), &QAbstractButton::clicked, this, &QWidget::close);
}

void zBaseModal::resizeEvent(QResizeEvent* event) {
    KVBaseDialog::resizeEvent(event);
    closeButton(this)->place();
}

void zBaseModal::showEvent(QShowEvent* event) {
    KVBaseDialog::showEvent(event);
    closeButton(this)->place();
}

zTitleModal::zTitleModal(QWidget* parent) : zBaseModal(parent) {
    new TitleBar(this);
    setContentsMargins(0, scaled(kTitleHeight), 0, 0);
}

void zTitleModal::SetCaption(const QString& caption) {
    setWindowTitle(caption);
}

// The title bar never has other buttons, and its caption stays.
void zTitleModal::OnlyClose() {}

int zTitleModal::ShowModal() {
    return exec() == Accepted ? 0 : 1;
}

void zTitleModal::resizeEvent(QResizeEvent* event) {
    zBaseModal::resizeEvent(event);
    findChild<QWidget*>(titleName)->setGeometry(0, 0, width(), scaled(kTitleHeight));
    closeButton(this)->raise();
}

void zTitleModal::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowTitleChange)
        if (auto* caption = findChild<zBaseLabel*>(captionName)) caption->setText(windowTitle());
    zBaseModal::changeEvent(event);
}
