// fonts have the size and weight asked for
#include <zBaseControl.h>

QFont TBaseTool::GetDefFont(int, int) {
    return QFont();
}
