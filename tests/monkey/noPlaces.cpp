#include "tests/monkey/places.h"

namespace monkey {

const QStringList& placeNames() {
    static const QStringList none;
    return none;
}

PlaceThrows::PlaceThrows() = default;
PlaceThrows::~PlaceThrows() = default;

int PlaceThrows::count() const {
    return 0;
}

bool PlaceThrows::lastGoesBack() const {
    return false;
}

}  // namespace monkey
