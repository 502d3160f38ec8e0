#include "workbench/hostlibs/SharedInterface/WorkbookGlobals.h"

#include <QFile>
#include <QVector>
#include <QtEndian>

namespace workbench {

namespace {

constexpr int sectorSize = 512;
constexpr int largeSectorSize = 4096;
constexpr int readAhead = 16 * 1024;
constexpr int smallSectorSize = 64;  // of streams in the small one
constexpr quint32 tablesInHeader = 109;
constexpr quint32 none = 0xFFFFFFFF;
constexpr quint32 endOfChain = 0xFFFFFFFE;
constexpr quint32 tableMark = 0xFFFFFFFD;
constexpr int smallestStream = 4096;  // a smaller one lies inside another stream
constexpr quint32 mostSmallSectors = 16384;
constexpr int largestRecord = 8224;
constexpr int enoughRecords = 64 * 1024;  // bytes; 800 sheets with the longest names
constexpr int mostRecords = 1 << 20;
enum Record : quint16 {
    Beginning = 0x0809,
    End = 0x000A,
    Password = 0x002F,
    CodePage = 0x0042,
    SheetEntry = 0x0085,
    Texts = 0x00FC
};
const char emptySheet[] = "09081000000610000000000000000000060000000a000000";

/// @return the number at `at`; 0xFFFF… outside.
template <typename T>
T number(const QByteArray& bytes, int at) {
    return at + int(sizeof(T)) <= bytes.size() ? qFromLittleEndian<T>(bytes.data() + at) : T(~T(0));
}

/// The sectors of a compound file. Little is read ahead: the table alone has a megabyte in a large
/// file. Whatever lies outside the file is empty, or no sector at all.
class Sectors {
  public:
    explicit Sectors(QFile& file) : file(file), length(file.size()), header(at(-1)) {
        if (number<quint16>(header, 30) == 12) bytes = largeSectorSize;
    }
    /// @return whether the sectors have a size that sectors may have.
    bool isValid() const { return number<quint16>(header, 30) == (bytes == sectorSize ? 9 : 12); }
    int size() const { return bytes; }
    quint32 directory() const { return number<quint32>(header, 48); }
    /// @return where the table of the small sectors begins.
    quint32 smallTable() const { return number<quint32>(header, 60); }
    /// @return whether the file can hold all of a stream beside header, directory and tables.
    bool hold(qint64 stream) const {
        const qint64 beside = 2 + qint64(number<quint32>(header, 44)) + number<quint32>(header, 72);
        return beside + (stream + bytes - 1) / bytes <= length / bytes;
    }
    QByteArray at(qint64 sector) {
        const qint64 offset = (sector + 1) * bytes;  // behind the header
        if (offset + bytes > length) return {};
        if (offset < aheadFrom || offset + bytes > aheadFrom + ahead.size()) {
            if (!file.seek(offset)) return {};
            ahead = file.read(readAhead);
            aheadFrom = offset;
        }
        const QByteArray content = ahead.mid(int(offset - aheadFrom), bytes);
        return content.size() == bytes ? content : QByteArray();
    }
    quint32 after(quint32 sector) {
        // Bounds the walk along a forged list of tables as well.
        if (sector >= length / bytes) return endOfChain;
        const quint32 index = sector / perSector();
        if (index != tableIndex) table = at(tableOf(tableIndex = index));
        return number<quint32>(table, int(4 * (sector % perSector())));
    }

  private:
    /// @return how many numbers a sector of a table has.
    quint32 perSector() const { return quint32(bytes) / 4; }
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
    const qint64 length;
    int bytes = sectorSize;
    QByteArray ahead;
    qint64 aheadFrom = 0;
    QByteArray header;
    QByteArray table;
    quint32 tableIndex = none;
};

/// A stream: sectors of one kind, one after the other. Quick to read forwards.
template <typename AnySectors>
class Stream {
  public:
    Stream(AnySectors& sectors, quint32 first) : sectors(sectors), first(first), sector(first) {}

    /// @param at, size in bytes. @return fewer bytes where the stream ends, or leads outside.
    QByteArray read(qint64 at, int size) {
        QByteArray bytes = inSector(at, size);
        while (bytes.size() < size) {
            const QByteArray more = inSector(at + bytes.size(), size - bytes.size());
            if (more.isEmpty()) break;
            bytes += more;
        }
        return bytes;
    }

  private:
    /// @return what of it stands in the sector where it begins.
    QByteArray inSector(qint64 at, int size) {
        return content(at / sectors.size()).mid(int(at % sectors.size()), size);
    }
    const QByteArray& content(qint64 wanted) {
        if (wanted < index) {
            sector = first;
            index = 0;
            kept = -1;
        }
        for (; index < wanted && sector < endOfChain; ++index) sector = sectors.after(sector);
        if (kept != index) here = sector < endOfChain ? sectors.at(sector) : QByteArray();
        kept = index;
        return here;
    }

    AnySectors& sectors;
    quint32 first, sector;
    qint64 index = 0;  // of the sector
    qint64 kept = -1;  // whose content is here
    QByteArray here;
};

/// The small sectors, which lie in a stream of the large ones. A small workbook lies among the
/// first megabyte of them; the walk through a forged file is kept short.
class SmallSectors {
  public:
    /// @param stream first sector of theirs.
    SmallSectors(Sectors& sectors, quint32 stream)
        : content(sectors, stream), table(sectors, sectors.smallTable()) {}
    int size() const { return smallSectorSize; }
    QByteArray at(quint32 sector) {
        if (sector >= mostSmallSectors) return {};
        const QByteArray bytes = content.read(qint64(sector) * size(), size());
        return bytes.size() == size() ? bytes : QByteArray();
    }
    quint32 after(quint32 sector) {
        if (sector >= mostSmallSectors) return endOfChain;
        return number<quint32>(table.read(qint64(sector) * 4, 4), 0);
    }

  private:
    Stream<Sectors> content;
    Stream<Sectors> table;
};

constexpr int entrySize = 128;
constexpr int nameSizeAt = 64;  // behind the name itself; in bytes, with the name's end
constexpr int mostDirectorySectors = 64;
const QByteArray workbookNames[] = {QByteArray("W\0o\0r\0k\0b\0o\0o\0k\0\0\0", 18),
                                    QByteArray("B\0o\0o\0k\0\0\0", 10)};  // until 1996

/// An entry of the directory.
struct Entry {
    QByteArray bytes;

    quint32 first() const { return number<quint32>(bytes, 116); }
    qint64 length() const { return bytes.isEmpty() ? 0 : number<quint32>(bytes, 120); }
    bool isNamed(const QByteArray& name) const {
        return number<quint16>(bytes, nameSizeAt) == name.size() && bytes.startsWith(name);
    }
};

/// @return the entries of the directory. A damaged chain may lead back into itself: it is cut.
QVector<Entry> directoryOf(Sectors& sectors) {
    QVector<Entry> directory;
    Stream<Sectors> stream(sectors, sectors.directory());
    const QByteArray bytes = stream.read(0, mostDirectorySectors * sectors.size());
    for (int at = 0; at + entrySize <= bytes.size(); at += entrySize)
        directory.append(Entry{bytes.mid(at, entrySize)});
    return directory;
}

/// @return the entry for the stream of a workbook; an empty one where there is none.
Entry workbookEntry(const QVector<Entry>& directory) {
    for (const QByteArray& name : workbookNames) {
        for (const Entry& entry : directory) {
            if (entry.isNamed(name)) return entry;
        }
    }
    return {};
}

bool tellsWhatItIs(quint16 record) {
    return record == Beginning || record == Password || record == CodePage || record == SheetEntry;
}

/// @param length of the stream, bytes.
/// @return the records before the texts that tell what the workbook is, ended, and an empty sheet
///         for each entry in the list of sheets; empty where a record or an entry leads outside.
template <typename AnySectors>
QByteArray recordsOf(Stream<AnySectors> stream, qint64 length) {
    QByteArray records;
    QVector<int> offsets;
    qint64 at = 0;
    for (int count = 0; count < mostRecords && records.size() < enoughRecords; ++count) {
        const QByteArray head = stream.read(at, 4);
        const quint16 type = number<quint16>(head, 0);
        const quint16 size = number<quint16>(head, 2);
        if (count == 0 && type != Beginning) return {};
        if (at >= length || head.size() < 4) return {};
        if (type == End || type == Texts) break;
        if (tellsWhatItIs(type)) {
            const QByteArray content = stream.read(at + 4, size);
            if (content.size() < size || size > largestRecord) return {};
            if (type == SheetEntry && number<quint32>(content, 0) >= length) return {};
            if (type == SheetEntry) offsets += records.size() + 4;
            records += head + content;
        }
        at += 4 + size;
    }
    records += QByteArray("\x0A\0\0\0", 4);
    for (int offset : offsets) {
        qToLittleEndian(quint32(records.size()), records.data() + offset);
        records += QByteArray::fromHex(emptySheet);
    }
    return offsets.isEmpty() ? QByteArray() : records;
}

void append(QByteArray& bytes, std::initializer_list<quint32> numbers) {
    for (quint32 number : numbers) {
        number = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&number), 4);
    }
}

/// @return a compound file of tables, directory and the stream of a workbook, in this order.
QByteArray compoundFileOf(const QByteArray& stream) {
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
    QByteArray entry = workbookNames[0].leftJustified(64, '\0');
    append(entry, {0x01020012, none, none, none, 0, 0, 0, 0, 0, 0, 0, 0, 0, tables + 1,
                   quint32(length), 0});
    return file + (root + entry).leftJustified(sectorSize, '\0') +
           stream.leftJustified(length, '\0');
}

}  // namespace

QByteArray globalsAlone(QFile& file) {
    Sectors sectors(file);
    if (!sectors.isValid()) return {};
    const QVector<Entry> directory = directoryOf(sectors);
    const Entry entry = workbookEntry(directory);
    const Entry root = directory.value(0);  // keeps the small sectors
    const bool isSmall = entry.length() < smallestStream;
    if (!sectors.hold(isSmall ? root.length() : entry.length())) return {};
    SmallSectors small(sectors, root.first());
    const QByteArray records =
        isSmall ? recordsOf(Stream<SmallSectors>(small, entry.first()), entry.length())
                : recordsOf(Stream<Sectors>(sectors, entry.first()), entry.length());
    return records.isEmpty() ? QByteArray() : compoundFileOf(records);
}

}  // namespace workbench
