/// Texts that have too little room, as they are seen.
#pragma once

#include <QWidget>

namespace looks_tests {

/// @return whether dots stand in a place of a widget, side by side and alike.
bool hasDots(QWidget* widget, const QRect& place);

/// @return labels, buttons, ticks and fields whose text is surely cut and which do not end in dots
///         or do not tell it by their tips, and labels of several lines that have lost some.
QStringList cutWithoutDots(QWidget* window);

}  // namespace looks_tests
