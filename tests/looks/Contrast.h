/// Contrast as the Web Content Accessibility Guidelines define it, of colours and of pictures.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

namespace looks_tests {

/// @return from 1 (the same) to 21 (black and white).
double contrast(const QColor& one, const QColor& other);

/// @return the colour that most of `place` has.
QColor groundOf(const QImage& picture, const QRect& place);
/// @return how far what stands on the ground of `place` is from it: what the clearest quarter of
///         its ink has at least. At large scales strokes have so many pixels of their pure colour;
///         the largest contrast of any pixel would be that of a border or picture which reaches
///         into the place, and hide a weak text beside it.
double contrastIn(const QImage& picture, const QRect& place);
/// @return the contrast between the outline of a box and what lies around it, or between its fill
///         and that, whichever is larger. @param box in the picture.
double edgeContrast(const QImage& picture, const QRect& box);

/// @return the bounds of all that differs from the ground.
/// @param around what is left out beside it, which belongs to corners and borders, pixels.
QRect inkOf(const QImage& picture, const QSize& around);

/// What was measured, and where.
struct Measured {
    QString what;
    double contrast;
};

/// All that can be seen in a window.
struct Measures {
    QVector<Measured> texts;  ///< Of labels, buttons, fields, rows, heads, menus, titles.
    QVector<Measured> edges;  ///< Of what takes input: fields, lists of choice, ticks, buttons.
    QVector<Measured> icons;  ///< On buttons, labels and rows; arrows; handles of scroll bars.
};

Measures measuresOf(QWidget* window);

}  // namespace looks_tests
