#include "files/filePages.h"

namespace newpro {

bool FilePage::select(const QString& path) const {
    const int index =
        fileCombo ? fileCombo->findText(path, Qt::MatchExactly | Qt::MatchCaseSensitive) : -1;
    if (index < 0) return false;
    fileCombo->setCurrentIndex(index);
    return true;
}

const FilePage& FilePages::of(FileFlow flow) const {
    switch (flow) {
        case FileFlow::Estimate:
            return estimate;
        case FileFlow::Settlement:
            return settlement;
        case FileFlow::Audit:
            return audit;
        case FileFlow::Contracting:
            break;
    }
    return contracting;
}

}  // namespace newpro
