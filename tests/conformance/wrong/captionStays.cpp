// a window shows its caption
#include <zControl.h>

void zTitleModal::SetCaption(const QString&) {}
