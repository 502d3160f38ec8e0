/// The look of text fields and buttons in the workbench's own windows.
#pragma once

#include <QString>

class QProgressBar;
class QWidget;
class zBaseButton;

namespace workbench {

/// @return a style sheet for the window that holds the fields, in the current skin and scale.
QString fieldSheet();

/// @return a button of the one size that these windows use. @param description for screen readers.
zBaseButton* windowButton(const char* name, const QString& text, const QString& description,
                          QWidget* parent);

/// @return a flat bar without text, and the style sheet for the window that holds it.
QProgressBar* makeProgressBar(QWidget* parent);
QString progressBarSheet();

}  // namespace workbench
