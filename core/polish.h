/// When widgets get their style. Qt asks each new widget for it twice: when it is first shown, and
/// by an event posted at its birth. What this brings stands in docs/measures.md.
#pragma once

class QWidget;

namespace newpro {

/// Styles `widget` and what is in it now, and takes the posted requests back: each would lengthen
/// the search that every layout request makes through the queue, and the time for thousands of
/// widgets would grow with the square of their number.
void polishNow(QWidget* widget);

/// Lets `widget` and what is in it wait for its style until it is shown, if ever.
void polishWhenShown(QWidget* widget);

/// @return whether somebody has hidden the widget; a new one is merely not shown yet.
bool isKeptHidden(const QWidget* widget);

}  // namespace newpro
