// pop-ups show and hide their widget
#include <zBaseControl.h>

void zBaseComboxPopup::hideDropDownPopup() {}
