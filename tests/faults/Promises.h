/// What a window promises a user, however little of it was built.
#pragma once

#include <QStringList>

class QWidget;

namespace faults {

/// Looks at a window without touching it or asking the host: every button that can be clicked does
/// something, every page stands where its number says, nothing lies loose over a page, no card
/// stands twice, the chooser hides its estimate button.
/// @return what does not hold, for people.
QStringList brokenPromises(const QWidget* window);

}  // namespace faults
