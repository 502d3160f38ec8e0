// a message that nobody knows is taken
// the process ends with code 0
// hold, 1 differ, 4 not reached
#include <SharedInterface.h>

#include <cstdlib>

void Communication::SendMsg(int target, int, const QVariant&) {
    if (target == 0) std::exit(0);
}
