// the ribbon changes the page
#include <SharedInterface.h>

#include <stdexcept>

QString TranMiUtilAction::JudageValue(const QString& key, const QString& fallback) {
    if (key.startsWith(QLatin1String("CJZ"))) throw std::out_of_range("no such entry");
    return fallback;
}
