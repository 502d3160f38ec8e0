/// What is asked about places in every window, skin and scale.
#pragma once

#include "tests/looks/EveryWindow.h"
#include "tests/support/Looks.h"

namespace looks_tests {

class Geometry : public testing::TestWithParam<testing_support::Look> {
  protected:
    Geometry() { testing_support::wear(GetParam()); }
    /// Keeps a picture in the folder that NEWPRO_PICTURES names, if it does.
    static void keepPicture(QWidget* window, const char* page, const char* what = "");

    SampleHost host;
};

/// What has measures has the same ones in every skin.
bool isMeasured(const testing_support::Look& look);

/// @return the widgets that reach beyond their parents, for no reason.
QStringList outsiders(const QWidget* window);

/// @param reachable whether to count those that have a bar for it.
/// @return scroll areas whose content is wider than what they show.
QStringList sideways(const QWidget* window, bool reachable);

/// @return buttons, ticks and fields without a tip whose text is surely cut, and those with one
///         whose text is surely whole.
QStringList untold(const QWidget* window);

}  // namespace looks_tests
