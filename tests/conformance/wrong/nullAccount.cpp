// what may not be null is there
#include <kvcore.h>

UserInfo* Users::Kvy() {
    return nullptr;
}
