#include "files/filePages.h"

#include "files/fileFlow.h"

namespace newpro {

bool FilePage::select(const QString& path) const {
    const int index =
        fileCombo ? fileCombo->findText(path, Qt::MatchExactly | Qt::MatchCaseSensitive) : -1;
    if (index < 0) return false;
    fileCombo->setCurrentIndex(index);
    return true;
}

const FilePage& FilePages::of(FileFlow flow) const {
    return this->*traitsOf(flow).page;
}

}  // namespace newpro
