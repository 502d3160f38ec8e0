// widgets take a picture as background
#include <zBaseControl.h>

void zBaseWidget::setBackgroundIcon(const QString&) {}
