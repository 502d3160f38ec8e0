// the project type chooser answers
#include <zControl.h>

void KVBaseDialog::done(int result) {
    QDialog::done(qMin(result, 8));
}
