#include "files/historyLists.h"

#include <QSet>
#include <QVector>
#include <vector>

#include "SharedInterface.h"
#include "core/guard.h"
#include "core/part.h"
#include "files/historyEntry.h"

namespace newpro {

namespace {

/// What a page takes from the history.
struct Filter {
    bool HistoryFlags::*flag;
    FilePage FilePages::*page;
    QStringList accepted;  ///< Suffixes; empty: every entry.
};

const QVector<Filter>& filters() {
    static const QStringList projects = {QStringLiteral("SGCFX"), QStringLiteral("SGCF"),
                                         QStringLiteral("GCFX"), QStringLiteral("GCF")};
    static const QVector<Filter> table = {
        {&HistoryFlags::audit, &FilePages::audit, {}},
        {&HistoryFlags::contracting, &FilePages::contracting, {QStringLiteral("GCFX")}},
        {&HistoryFlags::settlement, &FilePages::settlement, projects},
        {&HistoryFlags::estimate, &FilePages::estimate, projects},
    };
    return table;
}

/// A box to refill, and what it will hold.
struct Box {
    Part<zBaseCombox> combo;
    const QStringList& accepted;
    QStringList paths;

    bool accepts(const QString& suffix) const {
        return accepted.isEmpty() || accepted.contains(suffix);
    }
};

std::vector<Box> boxesOf(const FilePages& pages, HistoryFlags flags) {
    std::vector<Box> boxes;
    for (const Filter& filter : filters()) {
        zBaseCombox* combo = (pages.*filter.page).fileCombo;
        if (!(flags.*filter.flag) || !combo) continue;
        boxes.push_back({combo, filter.accepted, {}});
    }
    return boxes;
}

/// Asks the host for the suffix of a local file.
/// @param seen paths of the local files so far, in upper case. @return whether this one is new.
bool addLocal(HistoryEntry& entry, QSet<QString>& seen) {
    QString name, kind, detail;
    SharedInterface::GetFileInfo(entry.path, name, kind, entry.suffix, detail);
    const int known = seen.size();
    seen.insert(entry.path.toUpper());
    return seen.size() > known;
}

/// Through the host's own operation, which does more for an entry than Qt's.
void refill(const Part<zBaseCombox>& combo, const QStringList& paths) {
    const QString text = combo->currentText();
    combo->clear();
    withEnd(
        [&] {
            for (const QString& path : paths) combo->addItem(path, QVariant());
        },
        [&] {
            if (combo) combo->setCurrentText(text);
        });
}

}  // namespace

void refillHistory(QStringList history, const FilePages& pages, HistoryFlags flags) {
    std::vector<Box> boxes = boxesOf(pages, flags);
    QSet<QString> seen;
    for (const QString& text : history) {
        std::optional<HistoryEntry> entry = parseHistoryEntry(text);
        if (!entry || (entry->isLocal() && !addLocal(*entry, seen))) continue;
        for (Box& box : boxes) {
            if (box.accepts(entry->suffix)) box.paths.append(entry->path);
        }
    }
    for (const Box& box : boxes) {
        if (box.combo) refill(box.combo, box.paths);
    }
}

}  // namespace newpro
