/// What the display-less platform and the hands of the tests say of themselves, not of the program.
#pragma once

#include <QString>

namespace testing_support {

inline bool isOfPlatform(const QString& message) {
    return message.startsWith(QLatin1String("This plugin does not support")) ||
           message.contains(QLatin1String("XDG_RUNTIME_DIR")) ||
           // Qt 6, of a key that has closed its window: nobody is there when it is let go.
           message == QLatin1String("Keyboard event not accepted by receiving widget");
}

}  // namespace testing_support
