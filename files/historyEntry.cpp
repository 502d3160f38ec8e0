#include "files/historyEntry.h"

#include <QStringView>

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

/// The fields as far as an entry is read. Nothing is copied: a history may have many entries.
struct Fields {
    int count = 0;
    QStringView first;
    QStringView second;
};

Fields fieldsOf(const QString& text) {
    const QStringView view(text);
    const bool units = isUnitSeparated(text);
    Fields fields;
    for (qsizetype from = 0; from >= 0; ++fields.count) {
        const qsizetype at = units ? view.indexOf(unitSeparator, from) : indexOfHashes(view, from);
        const QStringView field = view.mid(from, at < 0 ? -1 : at - from);
        if (fields.count == 0) fields.first = field;
        if (fields.count == 1) fields.second = field;
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
    const QStringView suffix = path.mid(at + 1);
    // Nearly every entry has one of these. Sharing them spares a long history as many copies.
    static const QString usual[] = {QStringLiteral("GCFX"), QStringLiteral("GCFZ"),
                                    QStringLiteral("GCFG"), QStringLiteral("SGCFX"),
                                    QStringLiteral("GCF"),  QStringLiteral("SGCF")};
    for (const QString& known : usual) {
        if (suffix == known) return known;
    }
    return suffix.toString().toUpper();
}

std::optional<HistoryEntry> entryOf(HistoryLayout layout, QStringView path) {
    if (path.isEmpty()) return std::nullopt;
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
    return isUnitSeparated(text) ? text.split(unitSeparator) : text.split(QStringLiteral("##"));
}

std::optional<HistoryEntry> parseHistoryEntry(const QString& text) {
    const Fields fields = fieldsOf(text);
    // The counts go first: a record may well begin with a file called "bd".
    if (fields.count == localRecordFields) {
        return entryOf(HistoryLayout::LocalRecord, fields.first);
    }
    if (fields.count == cloudRecordFields) {
        return entryOf(HistoryLayout::CloudRecord, fields.first);
    }
    if (fields.first == QLatin1String("bd")) {
        return entryOf(HistoryLayout::MarkedLocal, fields.second);
    }
    if (fields.first == QLatin1String("yp")) {
        return entryOf(HistoryLayout::MarkedCloud, fields.second);
    }
    return std::nullopt;
}

}  // namespace newpro
