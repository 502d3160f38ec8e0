// setChecked reaches the entry
#include <zControl.h>

void RibbonTab::setChecked(bool) {}
