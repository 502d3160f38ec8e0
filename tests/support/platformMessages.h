/// What the display-less platform says of itself, not of the program.
#pragma once

#include <QString>

namespace testing_support {

inline bool isOfPlatform(const QString& message) {
    return message.startsWith(QLatin1String("This plugin does not support")) ||
           message.contains(QLatin1String("XDG_RUNTIME_DIR"));
}

}  // namespace testing_support
