/// Recognising project files by their suffix.
#pragma once

#include <QString>

namespace newpro {

/// Type codes. What the names mean by "prefixed" is an "S" before the suffix.
enum ProjectFileType {
    UnknownFile = 0,
    GroupFile = 2,
    ProjectFile = 4,
    PrefixedProjectFile = 5,
    PackedFile = 16,
    PrefixedPackedFile = 17,
};

/// @param suffix without the dot, in any letter case; blanks around it do not count.
/// @return the type code; UnknownFile for a suffix of no known kind, among them "GCF".
ProjectFileType projectFileType(QString suffix);

}  // namespace newpro
