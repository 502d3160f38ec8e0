// the Excel import can be cancelled
#include <zBaseControl.h>

#include <stdexcept>

void InterfaceAdaptation::openMaxDialogMode(int width, int) {
    if (width != 860) throw std::out_of_range("no such dialog");
}
