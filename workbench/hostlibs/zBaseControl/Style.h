/// What the styled widgets share behind their public faces.
#pragma once

#include <QPainter>
#include <QStyle>

#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace workbench {

/// Control and widget types of the host's style codes.
enum ControlType {
    PlainType = 0,
    DefaultActionType = 1,  ///< The button that Enter presses in a message box.
    CardTextType = 2,
    CardType = 9,
    RowType = 10,
    DividerType = 13,
    SplitPartType = 18,
    MessageTextType = 20,  ///< A text that is cut with dots before it is drawn smaller.
    NewButtonType = 88,
    RibbonTabType = 89,
};

/// Fills and outlines a rounded rectangle whose outline lies inside `rect`, on whole pixels.
/// @param radius in design pixels.
void drawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& border,
             double radius);

/// Fills and outlines a field that takes input or opens a list: doubly while the keys go to it.
void drawField(QPainter& painter, const QRect& rect, const QColor& fill, QStyle::State state);

/// Draws a text on one line, cut with dots where it is too long for `place`. The dots look the same
/// behind every script. @return whether it was cut.
bool drawLine(QPainter& painter, const QRect& place, Qt::Alignment alignment, const QString& text,
              Qt::TextElideMode dots = Qt::ElideRight);
/// @return the font, smaller where the text would not fit: some widgets have a given size, whatever
///         the font of the application. Too small to read it does not get.
/// @param needed what the text covers in this font, pixels.
QFont fitting(QFont font, int needed, int room);
/// @return what a line of signs covers at most, pixels: a font's own height has room for other
///         scripts too.
int heightOfSigns(const QFont& font);
/// @param design in design pixels; the least height.
/// @return how high something with a line of text in it has to be, pixels.
int heightWithText(const QFontMetrics& font, double design);
/// Draws a text that is cut already. @param place where the base line begins.
void drawWithDots(QPainter& painter, QPointF place, const QString& text);

/// @return the picture as one of something that cannot be used: paler it could not be made out.
QPixmap greyed(const QPixmap& picture);

/// The arrow of a field that drops something down, or of a column that is sorted.
void drawArrow(QPainter& painter, const QPoint& centre, bool enabled, bool up = false);

/// @param radius in design pixels. @return what a window with rounded corners covers.
QRegion roundedRegion(const QRect& rect, double radius);

/// Cuts the corners off a window. A mask instead of a translucent window: without a compositor
/// translucent corners would turn black. @param radius in design pixels.
void roundCorners(QWidget* window, double radius);

constexpr double kMenuRadius = 6;
constexpr double kRowButtonHeight = 24;
constexpr double kRowHeight = 28;  // of every list and tree
constexpr double kFieldRadius = 4;

}  // namespace workbench

struct ComStyleOption::Style {
    int type = workbench::PlainType;
    workbench::Tint rest = workbench::Tint::Surface;  ///< Background while none is set.
    QColor background;                                ///< Set by the caller; invalid: the skin's.
    QString picture;  ///< Of a container: its background. Of a label: what it shows.
    QSize pictureSize;
    QString icons[4];  ///< Of a button: at rest, hovered, pressed, disabled.
    int textAlignment = Qt::AlignCenter;
    int iconAlignment = Qt::AlignCenter;
    bool checkedBackground = false;
    bool cut = false;            ///< The text of a button ends in dots, as it was drawn last.
    bool keyboardFocus = false;  ///< The focus came by key, so that it has to be seen.
};
