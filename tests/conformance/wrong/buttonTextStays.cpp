// buttons take text, picture and clicks
#include <zBaseControl.h>

void zBaseButton::SetText(const QString&) {}
