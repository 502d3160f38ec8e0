// a dialog closes and tells its result
#include <zControl.h>

void KVBaseDialog::done(int) {}
