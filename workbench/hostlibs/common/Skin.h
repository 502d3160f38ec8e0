/// Colours, pictures and sizes of the workbench's skins.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>
#include <QString>

#include "workbench/base/WorkbenchApi.h"

class QWidget;

namespace workbench {

/// Every colour that a widget uses, by what it is for.
enum class Tint {
    None,
    Surface,
    Card,
    CardHover,
    Field,
    Disabled,  ///< The ground of what cannot be used.
    Border,    ///< Around what takes input.
    Line,      ///< Around cards, windows and menus.
    Divider,
    Text,
    Muted,
    Faint,
    Accent,
    AccentHover,
    AccentPressed,
    OnAccent,
    AccentLine,
    Hover,
    Pressed,
    Selected,
    Danger,
    Handle,  ///< Of scroll bars.
    HandleHover,
    Count
};

/// Of buttons, fields and lists of choice, in design pixels.
constexpr double kControlHeight = 28;

/// @return the colour in the current skin.
WORKBENCH_API QColor colour(Tint tint);

/// @param designPixels a size of the design at 100 %. @return the size on this screen, in pixels.
WORKBENCH_API int scaled(double designPixels);
/// @return the height of the application's own font, in pixels: 13 in the design. Rounded down, so
///         that a text never takes more of its room than at 100 %, and breaks where it does there.
WORKBENCH_API int fontSize();
/// @return the size where it holds text: it grows with an application's font that is larger than
///         the host's own.
WORKBENCH_API int roomFor(double designPixels);
/// @return the same in both directions, no larger than the screen that the window is on.
WORKBENCH_API QSize roomOnScreen(const QWidget& window, double width, double height);

/// @param path a picture of the light skin.
/// @return the picture of the current skin: the file with "-dark" or "-contrast" before its suffix,
///         where there is one.
WORKBENCH_API QString skinPicture(const QString& path);

/// Draws a picture of the current skin at exactly the device pixels that it will cover.
/// @param size in widget pixels. @param ratio device pixels per widget pixel.
/// @return a null pixmap when there is no such picture.
WORKBENCH_API QPixmap pixmapOf(const QString& path, const QSize& size, qreal ratio,
                               Qt::AspectRatioMode mode = Qt::KeepAspectRatio);

}  // namespace workbench
