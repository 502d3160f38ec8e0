// constants have their form
#include <fileDialog.h>

static void clear() {
    zFileDialog::pathFgf.clear();
}
Q_CONSTRUCTOR_FUNCTION(clear)
