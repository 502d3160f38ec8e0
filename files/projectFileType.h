/// Recognising project files by their suffix.
#pragma once

#include <QString>

namespace newpro {

/// @param suffix without the dot, in any letter case; blanks around it do not count.
/// @return the type code: 2, 4, 5, 16 or 17; 0 for a suffix of no known kind, among them "GCF".
int projectFileType(QString suffix);

}  // namespace newpro
