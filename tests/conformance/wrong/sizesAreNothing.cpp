// sizes are scaled, and larger ones stay larger
#include <zBaseControl.h>

int InterfaceAdaptation::getResolutionRatioH(double) const {
    return 0;
}
