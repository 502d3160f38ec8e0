/// Screen scaling of design sizes.
#pragma once

namespace newpro {

/// @param designPixels a size of the design at 100 %. @return the size on this screen, in pixels.
int scaled(double designPixels);

}  // namespace newpro
