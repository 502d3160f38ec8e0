/// The recently used files in the file combo boxes of the pages.
#pragma once

#include <QStringList>

#include "files/filePages.h"

namespace newpro {

/// Which pages to refill.
struct HistoryFlags {
    bool audit = false;
    bool contracting = false;
    bool settlement = false;
    bool estimate = false;
};

/// Refills the file combo boxes whose flag is set and that exist with the entries whose suffix
/// suits the page, in the order of the history. The texts that stood in the boxes stand there
/// again.
/// @param history the host's list, most recent first; a copy, as its owner may go meanwhile.
/// If the host throws at one of its files, every box is left as it was.
void refillHistory(QStringList history, const FilePages& pages, HistoryFlags flags);

}  // namespace newpro
