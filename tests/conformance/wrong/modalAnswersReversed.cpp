// ShowModal answers 0 and 1
#include <zControl.h>

int zTitleModal::ShowModal() {
    return exec();
}
