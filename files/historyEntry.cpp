#include "files/historyEntry.h"

#include <QStringView>
#include <QVarLengthArray>

namespace newpro {

namespace {

constexpr int localRecordFields = 7;
constexpr QChar unitSeparator(0x1F);
constexpr int unitSeparatedFields = 9;  ///< From this many on, U+001F is taken for the separator.

bool isUnitSeparated(const QString& text) {
    // Most entries have none at all, which is quickly seen.
    return text.contains(unitSeparator) && text.count(unitSeparator) + 1 >= unitSeparatedFields;
}

/// @return where "##" next stands; -1 if nowhere.
qsizetype indexOfHashes(QStringView text, qsizetype from) {
    constexpr QLatin1Char hash('#');
    // A search for one character is by far the faster one.
    qsizetype at = text.indexOf(hash, from);
    while (at >= 0 && (at + 1 == text.size() || text.at(at + 1) != hash)) {
        at = text.indexOf(hash, at + 1);
    }
    return at;
}

/// Nothing is copied, and nothing allocated for a usual entry: a history may have many.
using Fields = QVarLengthArray<QStringView, cloudRecordFields>;

Fields fieldsOf(const QString& text) {
    const QStringView view(text);
    const bool units = isUnitSeparated(text);
    Fields fields;
    for (qsizetype from = 0; from >= 0;) {
        const qsizetype at = units ? view.indexOf(unitSeparator, from) : indexOfHashes(view, from);
        fields.append(view.mid(from, at < 0 ? -1 : at - from));
        from = at < 0 ? -1 : at + (units ? 1 : 2);
    }
    return fields;
}

/// @return the text after the last dot in upper case, dots at the end not counted.
QString cloudSuffix(QStringView path) {
    constexpr QLatin1Char dot('.');
    const bool dotted = path.endsWith(dot);
    while (path.endsWith(dot)) path.chop(1);
    const qsizetype at = path.lastIndexOf(dot);
    if (at < 0 && !dotted) return {};
    return path.mid(at + 1).toString().toUpper();
}

std::optional<HistoryEntry> entryOf(HistoryLayout layout, QStringView path) {
    if (path.isEmpty() || path.contains(QChar::Null)) return std::nullopt;
    HistoryEntry entry{layout, {}, {}};
    if (!entry.isLocal()) {
        entry.suffix = cloudSuffix(path);
        if (entry.suffix.isEmpty()) return std::nullopt;
    }
    entry.path = path.toString();
    return entry;
}

}  // namespace

QStringList historyFields(const QString& text) {
    QStringList fields;
    for (const QStringView field : fieldsOf(text)) fields.append(field.toString());
    return fields;
}

std::optional<HistoryEntry> parseHistoryEntry(const QString& text) {
    const Fields fields = fieldsOf(text);
    const QStringView first = fields[0];
    // The counts go first: a record may well begin with a file called "bd".
    if (fields.size() == localRecordFields) return entryOf(HistoryLayout::LocalRecord, first);
    if (fields.size() == cloudRecordFields) return entryOf(HistoryLayout::CloudRecord, first);
    if (fields.size() < 2) return std::nullopt;
    if (first == QLatin1String("bd")) return entryOf(HistoryLayout::MarkedLocal, fields[1]);
    if (first == QLatin1String("yp")) return entryOf(HistoryLayout::MarkedCloud, fields[1]);
    return std::nullopt;
}

}  // namespace newpro
