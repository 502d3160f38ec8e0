#include <QCache>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMenu>
#include <QtMath>

#include "workbench/hostlibs/zBaseControl/Style.h"
#include "workbench/hostlibs/zBaseControl/cutTips.h"

using workbench::colour;
using workbench::scaled;
using workbench::Tint;

namespace {

enum State { Rest, Hovered, Pressed, Checked, Disabled, StateCount };

struct Tints {
    Tint fill, border, text;
};

/// How a kind of button looks. Padding and radius in design pixels.
struct Face {
    struct {
        int type;
        double padding, height, radius;
    } body;
    Tints states[StateCount];
};

constexpr int kPill = -1;  // a checkable button with the checked background

constexpr Face faces[] = {
    {{workbench::PlainType, 12, 24, 4},
     {{Tint::Card, Tint::Border, Tint::Text},
      {Tint::Hover, Tint::AccentLine, Tint::AccentLine},
      {Tint::Pressed, Tint::AccentLine, Tint::Text},
      {Tint::Selected, Tint::AccentLine, Tint::AccentLine},
      {Tint::Disabled, Tint::Border, Tint::Faint}}},
    {{kPill, 14, 28, 4},
     {{Tint::Card, Tint::Border, Tint::Text},
      {Tint::Hover, Tint::AccentLine, Tint::AccentLine},
      {Tint::Pressed, Tint::AccentLine, Tint::Text},
      {Tint::Accent, Tint::AccentLine, Tint::OnAccent},
      {Tint::Disabled, Tint::Border, Tint::Faint}}},
    {{workbench::DefaultActionType, 12, 28, 4},
     {{Tint::Accent, Tint::AccentLine, Tint::OnAccent},
      {Tint::AccentHover, Tint::AccentLine, Tint::OnAccent},
      {Tint::AccentPressed, Tint::AccentLine, Tint::OnAccent},
      {Tint::AccentHover, Tint::AccentLine, Tint::OnAccent},
      {Tint::Disabled, Tint::Border, Tint::Faint}}},
    {{workbench::NewButtonType, 10, workbench::kRowButtonHeight, 4},
     {{Tint::None, Tint::AccentLine, Tint::AccentLine},
      {Tint::Accent, Tint::AccentLine, Tint::OnAccent},
      {Tint::AccentPressed, Tint::AccentLine, Tint::OnAccent},
      {Tint::AccentHover, Tint::AccentLine, Tint::OnAccent},
      {Tint::Disabled, Tint::Border, Tint::Faint}}},
    {{workbench::SplitPartType, 2, 22, 3},
     {{Tint::None, Tint::None, Tint::AccentLine},
      {Tint::Selected, Tint::None, Tint::AccentLine},
      {Tint::Pressed, Tint::None, Tint::Text},
      {Tint::Selected, Tint::None, Tint::AccentLine},
      {Tint::Disabled, Tint::None, Tint::Faint}}},
    {{workbench::RibbonTabType, 14, 34, 6},
     {{Tint::None, Tint::None, Tint::Text},
      {Tint::Surface, Tint::AccentLine, Tint::AccentLine},
      {Tint::Pressed, Tint::AccentLine, Tint::Text},
      {Tint::None, Tint::None, Tint::AccentLine},
      {Tint::None, Tint::None, Tint::Faint}}},
};

const Face& faceOf(int type, bool pill) {
    if (pill && type == workbench::PlainType) type = kPill;
    for (const Face& face : faces)
        if (face.body.type == type) return face;
    return faces[0];
}

State stateOf(const QPushButton& button) {
    if (!button.isEnabled()) return Disabled;
    if (button.layout()) return Rest;  // the parts of a split button answer the mouse themselves
    if (button.isDown()) return Pressed;
    if (button.isChecked()) return Checked;
    return button.underMouse() ? Hovered : Rest;
}

Qt::Alignment centredUnlessSaid(int flags) {
    Qt::Alignment alignment(flags);
    if (!(alignment & Qt::AlignHorizontal_Mask)) alignment |= Qt::AlignHCenter;
    if (!(alignment & Qt::AlignVertical_Mask)) alignment |= Qt::AlignVCenter;
    return alignment;
}

/// @return what a text covers. Measured once: every card has the same button.
int widthOf(const QFont& font, const QString& text) {
    static QCache<QPair<QFont, QString>, int> known(1000);
    const auto key = qMakePair(font, text);
    if (const int* width = known.object(key)) return *width;
    const int width = qCeil(QFontMetricsF(font).horizontalAdvance(text)) + 1;
    known.insert(key, new int(width));
    return width;
}

// The width for bold text is kept free, so that nothing moves when an entry is chosen.
int textWidth(const QPushButton& button, bool roomForBold) {
    if (button.text().isEmpty()) return 0;
    const int now = widthOf(button.font(), button.text());
    if (!roomForBold) return now;
    QFont bold = button.font();
    bold.setWeight(QFont::Bold);
    return qMax(widthOf(bold, button.text()), now);
}

/// @return the picture as one of something that cannot be used: paler it could not be made out.
QPixmap greyed(const QPixmap& picture) {
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grey = qGray(line[x]);
            line[x] = qRgba(grey, grey, grey, qAlpha(line[x]) * 85 / 100);
        }
    }
    return QPixmap::fromImage(image);
}

/// Where picture and text of a button stand.
struct Content {
    QRect all, text;
    QFont font;  ///< Smaller than the button's where the text would not fit.
};

/// @param iconWidth 0 without a picture. @param edge what stays free beside the content, pixels.
Content contentOf(const QPushButton& button, int iconWidth, int edge, Qt::Alignment alignment) {
    const QRect inside = button.rect().adjusted(edge, 0, -edge, 0);
    const QFont low =
        workbench::fitting(button.font(), workbench::heightOfSigns(button.font()), inside.height());
    const int wanted = button.text().isEmpty() ? 0 : widthOf(low, button.text());
    const int gap = iconWidth > 0 && wanted > 0 ? scaled(6) : 0;
    const QSize size(qMin(iconWidth + gap + wanted, inside.width()), inside.height());
    const QRect all = QStyle::alignedRect(button.layoutDirection(), alignment, size, inside);
    const QRect text = all.adjusted(iconWidth + gap, 0, 0, 0);
    return {all, text, workbench::fitting(low, wanted, text.width())};
}

void drawUnderline(QPainter& painter, const QRect& rect, const QRect& content) {
    const int height = scaled(3);
    workbench::drawBox(painter,
                       {content.left(), rect.bottom() + 1 - height, content.width(), height},
                       colour(Tint::AccentLine), Qt::transparent, 1.5);
}

}  // namespace

zBaseButton::zBaseButton(QWidget* parent) : zBaseButton(QString(), parent) {}

zBaseButton::zBaseButton(const QString& text, QWidget* parent) : QPushButton(parent) {
    setAttribute(Qt::WA_Hover);
    setIconSize({scaled(16), scaled(16)});
    SetText(text);
}

zBaseButton::~zBaseButton() = default;

void zBaseButton::SetText(const QString& text) {
    setText(text);
    // A split button gives its text to its left part and is still called by it.
    if (!text.isEmpty()) setAccessibleName(text);
}

void zBaseButton::setIcon(const QString& normal, const QString& hover, const QString& pressed,
                          const QString& disabled) {
    const QString paths[] = {normal, hover, pressed, disabled};
    for (int i = 0; i < 4; ++i) look->icons[i] = paths[i].isEmpty() ? normal : paths[i];
    updateGeometry();
    update();
}

void zBaseButton::setControlType(int type) {
    look->type = type;
    look->rest = faceOf(type, look->checkedBackground).states[Rest].fill;
    if (type == workbench::SplitPartType) setIconSize({scaled(10), scaled(10)});
    updateGeometry();
    update();
}

QSize zBaseButton::sizeHint() const {
    const Face& face = faceOf(look->type, look->checkedBackground);
    const int height = workbench::heightWithText(fontMetrics(), face.body.height);
    if (layout()) return layout()->totalSizeHint().expandedTo({0, height});
    int width = textWidth(*this, look->type == workbench::RibbonTabType);
    if (!look->icons[0].isEmpty()) width += iconSize().width() + (text().isEmpty() ? 0 : scaled(6));
    return {width + 2 * scaled(face.body.padding), qMax(height, iconSize().height() + scaled(4))};
}

QSize zBaseButton::minimumSizeHint() const {
    return sizeHint();
}

void zBaseButton::paintEvent(QPaintEvent*) {
    const Face& face = faceOf(look->type, look->checkedBackground);
    const State state = stateOf(*this);
    const Tints& tints = face.states[state];
    QPainter painter(this);
    const bool own = state == Rest && look->background.isValid();
    workbench::drawBox(painter, rect(), own ? look->background : colour(tints.fill),
                       colour(tints.border), face.body.radius);
    if (look->type == workbench::SplitPartType && menu())
        painter.fillRect(0, scaled(6), qMax(1, scaled(1)), height() - 2 * scaled(6),
                         colour(Tint::Border));

    const bool icon = !look->icons[0].isEmpty();
    const auto alignment =
        centredUnlessSaid(text().isEmpty() ? look->iconAlignment : look->textAlignment);
    const Content content = contentOf(*this, icon ? iconSize().width() : 0,
                                      qMin(scaled(face.body.padding), scaled(2)), alignment);
    const auto vertical = Qt::AlignLeft | (alignment & Qt::AlignVertical_Mask);
    if (icon) {
        const int index = state == Disabled ? 3 : state == Pressed ? 2 : state == Hovered ? 1 : 0;
        const QRect iconPlace =
            QStyle::alignedRect(layoutDirection(), vertical, iconSize(), content.all);
        const bool drawnDisabled = look->icons[3] != look->icons[0];
        QPixmap picture = workbench::pixmapOf(look->icons[index], iconSize(), devicePixelRatioF());
        if (state == Disabled && !drawnDisabled) picture = greyed(picture);
        painter.drawPixmap(iconPlace.topLeft(), picture);
    }
    painter.setPen(colour(tints.text));
    painter.setFont(content.font);
    look->cut = workbench::drawLine(painter, content.text, vertical, text());
    if (look->type == workbench::RibbonTabType && isChecked())
        drawUnderline(painter, rect(), content.all);
    if (look->keyboardFocus && hasFocus()) {
        const int inset = scaled(2);
        const Tint ring = tints.text == Tint::Text ? Tint::AccentLine : tints.text;
        workbench::drawBox(painter, rect().adjusted(inset, inset, -inset, -inset), Qt::transparent,
                           colour(ring), face.body.radius);
    }
}

bool zBaseButton::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn: {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            // From another window or a menu it comes back as it went.
            const bool back = reason == Qt::ActiveWindowFocusReason ||
                              reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
            if (!back) look->keyboardFocus = reason != Qt::MouseFocusReason;
            break;
        }
        case QEvent::KeyPress: {
            const auto* pressed = static_cast<QKeyEvent*>(event);
            if (pressed->key() != Qt::Key_Return && pressed->key() != Qt::Key_Enter) break;
            if (!pressed->isAutoRepeat()) click();
            return true;
        }
        case QEvent::ToolTip:
            if (!look->cut) break;
            workbench::tellWhole(*this, *static_cast<QHelpEvent*>(event), text());
            return true;
        case QEvent::Polish:
            if (accessibleName().isEmpty() && text().isEmpty() && menu())
                setAccessibleName(QStringLiteral("更多"));
            break;
        default:
            break;
    }
    return QPushButton::event(event);
}
