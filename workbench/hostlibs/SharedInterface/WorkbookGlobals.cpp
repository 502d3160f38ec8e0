#include "workbench/hostlibs/SharedInterface/WorkbookGlobals.h"

#include <QFile>
#include <QVector>
#include <QtEndian>

namespace workbench {

namespace {

constexpr int sectorSize = 512;
constexpr int largeSectorSize = 4096;
constexpr quint32 tablesInHeader = 109;
constexpr quint32 none = 0xFFFFFFFF;
constexpr quint32 endOfChain = 0xFFFFFFFE;
constexpr quint32 tableMark = 0xFFFFFFFD;
constexpr int smallestStream = 4096;  // a smaller one lies inside another stream
constexpr int largestGlobals = 1024 * 1024;
enum Record : quint16 { End = 0x000A, SheetEntry = 0x0085, Texts = 0x00FC };
const char emptySheet[] = "09081000000610000000000000000000060000000a000000";

/// @return the number at `at`; 0xFFFF… outside.
template <typename T>
T number(const QByteArray& bytes, int at) {
    return at + int(sizeof(T)) <= bytes.size() ? qFromLittleEndian<T>(bytes.data() + at) : T(~T(0));
}

/// The sectors of a compound file. Nothing is read ahead: the table alone has a megabyte in a large
/// file. Whatever lies outside the file is empty, or no sector at all.
class Sectors {
  public:
    explicit Sectors(QFile& file) : file(file), header(at(-1)) {
        if (number<quint16>(header, 30) == 12) size = largeSectorSize;
    }
    /// @return whether the sectors are of the usual size.
    bool isValid() const { return number<quint16>(header, 30) == 9; }
    quint32 directory() const { return number<quint32>(header, 48); }
    /// @return whether the file can hold all of a stream beside header, directory and tables.
    bool hold(qint64 length) const {
        const qint64 beside = 2 + qint64(number<quint32>(header, 44)) + number<quint32>(header, 72);
        return beside + (length + sectorSize - 1) / sectorSize <= file.size() / sectorSize;
    }
    QByteArray at(qint64 sector) {
        const qint64 offset = (sector + 1) * size;  // behind the header
        if (offset + size > file.size() || !file.seek(offset)) return {};
        return file.read(size);
    }
    quint32 after(quint32 sector) {
        // Bounds the walk along a forged list of tables as well.
        if (sector >= file.size() / size) return endOfChain;
        const quint32 index = sector / perSector();
        if (index != tableIndex) table = at(tableOf(tableIndex = index));
        return number<quint32>(table, int(4 * (sector % perSector())));
    }

  private:
    /// @return how many numbers a sector of a table has.
    quint32 perSector() const { return quint32(size) / 4; }
    quint32 tableOf(quint32 index) {
        if (index < tablesInHeader) return number<quint32>(header, int(76 + 4 * index));
        const quint32 perList = perSector() - 1;  // the last number leads to the next list
        index -= tablesInHeader;
        quint32 list = number<quint32>(header, 68);
        for (; index >= perList; index -= perList)
            list = number<quint32>(at(list), int(4 * perList));
        return number<quint32>(at(list), int(4 * index));
    }

    QFile& file;
    int size = sectorSize;
    QByteArray header;
    QByteArray table;
    quint32 tableIndex = none;
};

constexpr int entrySize = 128;
constexpr int nameSizeAt = 64;  // behind the name itself; in bytes, with the name's end
const QByteArray workbookName("W\0o\0r\0k\0b\0o\0o\0k\0\0\0", 18);
const QByteArray oldWorkbookName("B\0o\0o\0k\0\0\0", 10);

/// Calls `visit` with each entry of the directory until it returns true.
/// @return false where the directory does not end: a damaged chain may lead back into itself.
template <typename Visit>
bool walkDirectory(Sectors& sectors, Visit visit) {
    quint32 sector = sectors.directory();
    for (int walked = 0; walked < 64; ++walked, sector = sectors.after(sector)) {
        if (sector >= endOfChain) return true;
        const QByteArray entries = sectors.at(sector);
        for (int at = 0; at < entries.size(); at += entrySize) {
            if (visit(entries.mid(at, entrySize))) return true;
        }
    }
    return false;
}

/// @return the directory's entry for the stream of a workbook; empty where there is none. FreeXL
///         gets it as it stands, and believes the size that it gives its name.
QByteArray workbookEntry(Sectors& sectors) {
    QByteArray found;
    walkDirectory(sectors, [&](const QByteArray& entry) {
        const bool honest = number<quint16>(entry, nameSizeAt) == workbookName.size();
        if (honest && entry.startsWith(workbookName)) found = entry;
        return !found.isEmpty();
    });
    return found;
}

/// @param length of the stream. @return the records from `sector` on up to the texts, ended, and an
///         empty sheet for each entry in the list of sheets; empty where an entry leads outside.
QByteArray recordsFrom(Sectors& sectors, quint32 sector, qint64 length) {
    QByteArray records;
    QVector<int> offsets;
    for (int at = 0; records.size() < largestGlobals; sector = sectors.after(sector)) {
        const QByteArray more = sectors.at(sector);
        if (more.isEmpty()) return {};
        records += more;
        for (; at + 8 <= records.size(); at += 4 + number<quint16>(records, at + 2)) {
            const quint16 type = number<quint16>(records, at);
            if (type == SheetEntry) offsets += at + 4;
            if (type == SheetEntry && number<quint32>(records, at + 4) >= length) return {};
            if (type != End && type != Texts) continue;
            records = records.left(at) + QByteArray("\x0A\0\0\0", 4);
            for (int offset : offsets) {
                qToLittleEndian(quint32(records.size()), records.data() + offset);
                records += QByteArray::fromHex(emptySheet);
            }
            return records;
        }
    }
    return {};
}

void append(QByteArray& bytes, std::initializer_list<quint32> numbers) {
    for (quint32 number : numbers) {
        number = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&number), 4);
    }
}

/// @return a compound file of tables, directory and one stream, in this order.
QByteArray compoundFileOf(const QByteArray& directoryEntry, const QByteArray& stream) {
    const int length =
        qMax(smallestStream, (stream.size() + sectorSize - 1) / sectorSize * sectorSize);
    const quint32 sectors = quint32(length / sectorSize);
    constexpr quint32 perTable = sectorSize / 4;
    const quint32 tables = (sectors + 1 + perTable - 2) / (perTable - 1);
    QByteArray file = QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray(16, '\0');
    append(file, {0x0003003E, 0x0009FFFE, 6, 0, 0, tables, tables, 0, smallestStream, endOfChain, 0,
                  endOfChain, 0});
    for (quint32 table = 0; table < tables; ++table) append(file, {table});
    file = file.leftJustified(sectorSize, '\xFF');
    for (quint32 table = 0; table < tables; ++table) append(file, {tableMark});
    append(file, {endOfChain});
    for (quint32 i = 1; i < sectors; ++i) append(file, {tables + 1 + i});
    append(file, {endOfChain});
    file = file.leftJustified(sectorSize * int(1 + tables), '\xFF');

    QByteArray root = QByteArray("R\0o\0o\0t\0 \0E\0n\0t\0r\0y\0\0\0", 22).leftJustified(64, '\0');
    append(root, {0x01050016, none, none, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, endOfChain, 0, 0});
    QByteArray entry = directoryEntry.left(68);
    append(entry, {none, none, none, 0, 0, 0, 0, 0, 0, 0, 0, 0, tables + 1, quint32(length), 0});
    return file + (root + entry).leftJustified(sectorSize, '\0') +
           stream.leftJustified(length, '\0');
}

}  // namespace

bool hasSoundDirectory(QFile& file) {
    constexpr quint16 longestName = 64;
    Sectors sectors(file);
    bool found = false;
    bool sound = true;
    const bool ends = walkDirectory(sectors, [&](const QByteArray& entry) {
        sound = number<quint16>(entry, nameSizeAt) <= longestName;
        found |= entry.startsWith(workbookName) || entry.startsWith(oldWorkbookName);
        return !sound;
    });
    return ends && sound && found;
}

QByteArray globalsAlone(QFile& file) {
    Sectors sectors(file);
    if (!sectors.isValid()) return {};
    const QByteArray entry = workbookEntry(sectors);
    const qint64 length = number<quint32>(entry, 120);
    if (entry.isEmpty() || length < smallestStream || !sectors.hold(length)) return {};
    const QByteArray records = recordsFrom(sectors, number<quint32>(entry, 116), length);
    return records.isEmpty() ? QByteArray() : compoundFileOf(entry, records);
}

}  // namespace workbench
