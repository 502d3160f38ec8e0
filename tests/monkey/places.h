/// Where the module calls its host beyond what a journal tells of: constructors and setters of
/// widgets. Known where the module can be linked with places (tests/faults/interposer), elsewhere
/// there are none.
#pragma once

#include <QStringList>

namespace monkey {

/// @return the operations at such places, as throw rules name them.
const QStringList& placeNames();

/// From here to the end of the scope, the host's throw rules hold at the places as well. One at a
/// time.
class PlaceThrows {
  public:
    PlaceThrows();
    ~PlaceThrows();
    PlaceThrows(const PlaceThrows&) = delete;
    PlaceThrows& operator=(const PlaceThrows&) = delete;

    /// @return how many exceptions were thrown at places.
    int count() const;
    /// @return whether the last of them came out of the base of a window that the host itself
    /// makes:
    ///         such a one is the host's own and goes back to it.
    bool lastGoesBack() const;
};

}  // namespace monkey
