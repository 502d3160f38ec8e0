// Stands for the host's sources. What the module calls is in the complete library beside it; the
// headers of host/ come from the module.
#include "kvcore.h"

Q_DECL_EXPORT bool isSomebodyLoggedIn() {
    return Users::Instance()->Kvy()->IsLogin();
}
