#include "core/scale.h"

#include "zBaseControl.h"

namespace newpro {

int scaled(double designPixels) {
    return InterfaceAdaptation::getInstance()->getResolutionRatioH(designPixels);
}

}  // namespace newpro
