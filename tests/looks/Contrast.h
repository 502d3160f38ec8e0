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
/// @return how far what stands on the ground of `place` is from it: the largest contrast. At large
///         scales strokes have pixels of their pure colour.
double contrastIn(const QImage& picture, const QRect& place);
/// @return the contrast between the outline of a box and what lies around it, or between its fill
///         and that, whichever is larger. @param box in the picture.
double edgeContrast(const QImage& picture, const QRect& box);

/// What was measured, and where.
struct Measured {
    QString what;
    double contrast;
};

/// @return the texts that can be seen in a window: labels, buttons, fields, rows of lists.
QVector<Measured> textsOf(QWidget* window);
/// @return the edges of what takes input: fields, lists of choice, ticks, buttons with a frame.
QVector<Measured> edgesOf(QWidget* window);
/// @return the pictures on buttons and labels.
QVector<Measured> iconsOf(QWidget* window);

}  // namespace looks_tests
