#include "files/projectFileType.h"

namespace newpro {

ProjectFileType projectFileType(QString suffix) {
    // "SBAK" goes with the unprefixed files, "SBAKZ" with the prefixed ones: deliberate, hosts ask
    // for the codes of their backups and know them so.
    static const struct {
        QLatin1String suffix;
        ProjectFileType code;
    } table[] = {
        {QLatin1String("GCFX"), ProjectFile},         {QLatin1String("PMW"), ProjectFile},
        {QLatin1String("BAK"), ProjectFile},          {QLatin1String("SBAK"), ProjectFile},
        {QLatin1String("GCFZ"), PackedFile},          {QLatin1String("BAKZ"), PackedFile},
        {QLatin1String("GCFG"), GroupFile},           {QLatin1String("SGCFZ"), PrefixedPackedFile},
        {QLatin1String("SBAKZ"), PrefixedPackedFile}, {QLatin1String("SGCFX"), PrefixedProjectFile},
        {QLatin1String("SPMW"), PrefixedProjectFile}, {QLatin1String("SGCFJ"), PrefixedProjectFile},
        {QLatin1String("SGCF"), PrefixedProjectFile}, {QLatin1String("SGCFG"), PrefixedProjectFile},
    };
    suffix = suffix.toUpper().trimmed();
    for (const auto& row : table) {
        if (suffix == row.suffix) return row.code;
    }
    return UnknownFile;
}

}  // namespace newpro
