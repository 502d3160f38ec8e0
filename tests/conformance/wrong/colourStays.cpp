// widgets have a colour and take one
#include <zBaseControl.h>

void ComStyleOption::setNormalBackColor(const QColor&) {}
