/// One entry of the host's list of recently used project files.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace newpro {

/// The layouts of an entry.
enum class HistoryLayout {
    LocalRecord,  ///< 7 fields, the path first.
    CloudRecord,  ///< 15 fields, the path first.
    MarkedLocal,  ///< "bd", then the path.
    MarkedCloud,  ///< "yp", then the path.
};

/// An entry as far as it is read here.
struct HistoryEntry {
    HistoryLayout layout = HistoryLayout::LocalRecord;
    QString path;    ///< Never empty.
    QString suffix;  ///< Upper-case suffix of a cloud path. Of a local file the host is asked.

    bool isLocal() const {
        return layout == HistoryLayout::LocalRecord || layout == HistoryLayout::MarkedLocal;
    }
};

/// @return the fields of an entry, empty ones included, split at the separator that it uses.
QStringList historyFields(const QString& text);

/// @param text any text at all. @return the entry; none where the text has no known layout, no
///         path, or a cloud path without a suffix.
std::optional<HistoryEntry> parseHistoryEntry(const QString& text);

/// Number of fields of a cloud record.
constexpr int cloudRecordFields = 15;

}  // namespace newpro
