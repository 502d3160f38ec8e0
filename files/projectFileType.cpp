#include "files/projectFileType.h"

namespace newpro {

int projectFileType(QString suffix) {
    // "SBAK" goes with the unprefixed files, "SBAKZ" with the prefixed ones: deliberate.
    static const struct {
        QLatin1String suffix;
        int code;
    } table[] = {
        {QLatin1String("GCFX"), 4},  {QLatin1String("PMW"), 4},    {QLatin1String("BAK"), 4},
        {QLatin1String("SBAK"), 4},  {QLatin1String("GCFZ"), 16},  {QLatin1String("BAKZ"), 16},
        {QLatin1String("GCFG"), 2},  {QLatin1String("SGCFZ"), 17}, {QLatin1String("SBAKZ"), 17},
        {QLatin1String("SGCFX"), 5}, {QLatin1String("SPMW"), 5},   {QLatin1String("SGCFJ"), 5},
        {QLatin1String("SGCF"), 5},  {QLatin1String("SGCFG"), 5},
    };
    suffix = suffix.toUpper().trimmed();
    for (const auto& row : table) {
        if (suffix == row.suffix) return row.code;
    }
    return 0;
}

}  // namespace newpro
