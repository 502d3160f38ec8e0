// fonts have the size and weight asked for
#include <zBaseControl.h>

QFont TBaseTool::GetDefFont(int size, int) {
    QFont font;
    font.setPixelSize(size);
    font.setBold(true);
    return font;
}
