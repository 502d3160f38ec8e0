// labels keep their text and take pictures
#include <zBaseControl.h>

void zBaseLabel::setControlType(int type) {
    if (type == 13) clear();
}
