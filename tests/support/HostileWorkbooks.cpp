#include "tests/support/HostileWorkbooks.h"

#include <gtest/gtest.h>
#include <zip.h>
#include <zlib.h>

#include <QRandomGenerator>
#include <QtEndian>
#include <memory>

namespace testing_support {

namespace {

/// A part as it lies in the package: one packed copy, repeated.
struct Packed {
    QByteArray head;
    QByteArray block;
    QByteArray tail;
    qint64 repeat = 0;
    qint64 at = 0;
    zip_uint64_t size = 0;
    zip_uint32_t crc = 0;
    bool compressed = false;

    qint64 length() const { return repeat * block.size() + tail.size(); }

    qint64 read(char* into, qint64 room) {
        qint64 done = 0;
        while (done < room && at < length()) {
            const bool inBlocks = at < repeat * block.size();
            const QByteArray& from = inBlocks ? block : tail;
            const qint64 offset = inBlocks ? at % block.size() : at - repeat * block.size();
            const qint64 n = qMin(room - done, from.size() - offset);
            memcpy(into + done, from.constData() + offset, size_t(n));
            done += n;
            at += n;
        }
        return done;
    }
};

/// A deflate stream that ends on a full flush can be repeated: the copies make one valid stream.
QByteArray deflated(const QByteArray& content) {
    z_stream stream{};
    deflateInit2(&stream, 9, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
    QByteArray out(int(deflateBound(&stream, uLong(content.size()))) + 64, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.constData()));
    stream.avail_in = uInt(content.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = uInt(out.size());
    deflate(&stream, Z_FULL_FLUSH);
    out.truncate(int(stream.total_out));
    deflateEnd(&stream);
    return out;
}

Packed packed(const Part& part) {
    Packed result;
    result.block = part.compressed ? deflated(part.content) : part.content;
    if (part.compressed) result.tail = QByteArray("\x03\x00", 2);  // the empty last block
    result.repeat = part.content.isEmpty() ? 0 : part.repeat;
    result.compressed = part.compressed;
    result.size = zip_uint64_t(part.content.size()) * zip_uint64_t(part.repeat);
    const uLong one = crc32(0, reinterpret_cast<const Bytef*>(part.content.constData()),
                            uInt(part.content.size()));
    uLong all = crc32(0, nullptr, 0);
    for (qint64 i = 0; i < part.repeat; ++i) all = crc32_combine(all, one, part.content.size());
    result.crc = zip_uint32_t(all);
    return result;
}

zip_int64_t feed(void* user, void* data, zip_uint64_t length, zip_source_cmd_t command) {
    auto* part = static_cast<Packed*>(user);
    switch (command) {
        case ZIP_SOURCE_OPEN:
            part->at = 0;
            return 0;
        case ZIP_SOURCE_READ:
            return part->read(static_cast<char*>(data), qint64(length));
        case ZIP_SOURCE_STAT: {
            auto* state = static_cast<zip_stat_t*>(data);
            zip_stat_init(state);
            state->size = part->size;
            state->comp_size = zip_uint64_t(part->length());
            state->crc = part->crc;
            state->comp_method = part->compressed ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
            state->valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC | ZIP_STAT_COMP_METHOD;
            return sizeof(zip_stat_t);
        }
        case ZIP_SOURCE_FREE:
            delete part;
            return 0;
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ,
                                                  ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                                  ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
        default:
            return 0;
    }
}

void put16(QByteArray& bytes, int at, quint16 value) {
    qToLittleEndian(value, bytes.data() + at);
}
void put32(QByteArray& bytes, int at, quint32 value) {
    qToLittleEndian(value, bytes.data() + at);
}

constexpr quint32 listMark = 0xFFFFFFFC;
constexpr quint32 tableMark = 0xFFFFFFFD;
constexpr quint32 endOfChain = 0xFFFFFFFE;
constexpr quint32 unused = 0xFFFFFFFF;
constexpr quint32 tablesInHeader = 109;

/// Directory entry of 128 bytes; an empty name for an unused one.
QByteArray directoryEntry(const QString& name, char type, quint32 child, quint32 start, int size) {
    QByteArray entry(128, '\0');
    for (int i = 0; i < name.size(); ++i) put16(entry, 2 * i, name.at(i).unicode());
    put16(entry, 64, name.isEmpty() ? 0 : quint16(2 * name.size() + 2));
    entry[66] = type;
    entry[67] = 1;
    for (int at : {68, 72}) put32(entry, at, unused);
    put32(entry, 76, child);
    put32(entry, 116, start);
    put32(entry, 120, quint32(size));
    return entry;
}

QByteArray record(quint16 type, const QByteArray& content) {
    QByteArray head(4, '\0');
    put16(head, 0, type);
    put16(head, 2, quint16(content.size()));
    return head + content;
}

/// First record of a part of a binary workbook. @param kind 5 for the workbook, 16 for a sheet.
QByteArray beginning(quint16 kind) {
    QByteArray content = QByteArray::fromHex("00060000bb0dcc0700000000060000");
    content.append('\0');
    put16(content, 2, kind);
    return record(0x0809, content);
}

/// Entry in the list of sheets. @param offset of the sheet in the stream.
QByteArray sheetEntry(const QString& name, int offset) {
    QByteArray content(8 + 2 * name.size(), '\0');
    put32(content, 0, quint32(offset));
    content[6] = char(name.size());
    content[7] = 1;  // two bytes a character
    for (int i = 0; i < name.size(); ++i) put16(content, 8 + 2 * i, name.at(i).unicode());
    return record(0x0085, content);
}

}  // namespace

void writePackage(const QString& path, const QVector<Part>& parts) {
    zip_t* package = zip_open(path.toUtf8().constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    ASSERT_TRUE(package);
    for (const Part& part : parts) {
        zip_source_t* source = zip_source_function(package, feed, new Packed(packed(part)));
        const zip_int64_t index =
            zip_file_add(package, part.name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
        ASSERT_GE(index, 0);
        zip_set_file_compression(package, zip_uint64_t(index),
                                 part.compressed ? ZIP_CM_DEFLATE : ZIP_CM_STORE, 0);
    }
    ASSERT_EQ(zip_close(package), 0) << zip_strerror(package);
}

QStringList sheetNames(int count) {
    QStringList names;
    for (int i = 1; i <= count; ++i) names += QStringLiteral("Sheet%1").arg(i);
    return names;
}

QVector<Part> workbookParts(const QStringList& sheets) {
    QByteArray list;
    QVector<Part> parts;
    for (int i = 1; i <= sheets.size(); ++i) {
        list += "<sheet name=\"" + sheets.at(i - 1).toUtf8() + "\" sheetId=\"" +
                QByteArray::number(i) + "\"/>";
        parts.append({QStringLiteral("xl/worksheets/sheet%1.xml").arg(i), "<worksheet/>"});
    }
    parts.prepend({QStringLiteral("xl/workbook.xml"),
                   "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
                   "<sheets>" +
                       list + "</sheets></workbook>"});
    parts.prepend({QStringLiteral("[Content_Types].xml"),
                   "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                   "<Override PartName=\"/xl/workbook.xml\" ContentType=\"application/"
                   "vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/></Types>"});
    return parts;
}

void writeLargePackage(const QString& path, qint64 sheetBytes) {
    QByteArray noise(1024 * 1024, Qt::Uninitialized);
    QRandomGenerator random(1);
    random.fillRange(reinterpret_cast<quint32*>(noise.data()), noise.size() / 4);
    QVector<Part> parts = workbookParts();
    parts.last().content = noise;
    parts.last().repeat = sheetBytes / noise.size() + 1;
    parts.last().compressed = false;
    writePackage(path, parts);
}

QByteArray workbookStream(const QStringList& sheets, int sheetBytes, const QByteArray& more) {
    const QByteArray end = record(0x000A, {});
    QByteArray globals = beginning(0x0005) + record(0x0042, QByteArray::fromHex("b004"));
    int length = globals.size() + more.size() + end.size();
    for (const QString& sheet : sheets) length += sheetEntry(sheet, 0).size();
    const QByteArray emptySheet = beginning(0x0010) + record(0x0200, QByteArray(14, '\0'));
    for (const QString& sheet : sheets) {
        globals += sheetEntry(sheet, length);
        length += emptySheet.size() + end.size();
    }
    QByteArray stream = globals + more + end + (emptySheet + end).repeated(sheets.size());
    stream.chop(end.size());
    const QByteArray cell = record(0x0203, QByteArray(14, '\0'));
    return stream + cell.repeated(sheetBytes / cell.size()) + end;
}

QByteArray withPassword(QByteArray stream) {
    return stream.insert(beginning(0).size(), record(0x002F, QByteArray::fromHex("000034127856")));
}

QByteArray compoundFile(const QString& stream, const QByteArray& content) {
    const quint32 length = quint32(qMax(4096, content.size()));
    const quint32 sectors = (length + 511) / 512;
    quint32 tables = 0, lists = 0;  // the sectors of the tables have entries themselves
    for (; tables * 128 < sectors + 1 + tables + lists; ++tables) {
        lists = tables < tablesInHeader ? 0 : (tables + 1 - tablesInHeader + 126) / 127;
    }
    const quint32 firstTable = sectors + 1, firstList = firstTable + tables;

    QByteArray table(int(tables) * 512, '\xFF');
    for (quint32 i = 0; i < firstTable; ++i) put32(table, int(4 * i), i - 1);
    put32(table, 0, endOfChain);
    put32(table, int(4 * sectors), endOfChain);
    for (quint32 i = 0; i < tables; ++i) put32(table, int(4 * (firstTable + i)), tableMark);
    for (quint32 i = 0; i < lists; ++i) put32(table, int(4 * (firstList + i)), listMark);

    QByteArray header(512, '\xFF');
    header.replace(0, 76, QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray(68, '\0'));
    put16(header, 24, 0x3E);
    put16(header, 26, 3);
    put16(header, 28, 0xFFFE);
    put16(header, 30, 9);
    put16(header, 32, 6);
    put32(header, 44, tables);
    put32(header, 48, sectors);
    put32(header, 56, 4096);
    put32(header, 60, endOfChain);
    put32(header, 68, lists > 0 ? firstList : endOfChain);
    put32(header, 72, lists);
    QByteArray list(int(lists) * 512, '\xFF');
    for (quint32 i = 0; i < tables; ++i) {
        const quint32 inList = i - tablesInHeader;
        if (i < tablesInHeader)
            put32(header, int(76 + 4 * i), firstTable + i);
        else
            put32(list, int(512 * (inList / 127) + 4 * (inList % 127)), firstTable + i);
    }
    for (quint32 i = 0; i < lists; ++i) {
        put32(list, int(512 * i + 508), i + 1 < lists ? firstList + i + 1 : endOfChain);
    }

    const QByteArray directory = directoryEntry(QStringLiteral("Root Entry"), 5, 1, endOfChain, 0) +
                                 directoryEntry(stream, 2, unused, sectors - 1, int(length)) +
                                 directoryEntry(QString(), 0, unused, 0, 0) +
                                 directoryEntry(QString(), 0, unused, 0, 0);
    const QByteArray padded = content.leftJustified(int(sectors) * 512, '\0');
    QByteArray backward;
    for (int i = int(sectors) - 1; i >= 0; --i) backward += padded.mid(i * 512, 512);
    return header + backward + directory + table + list;
}

QByteArray smallCompoundFile(const QByteArray& content) {
    const int sectors = (content.size() + 63) / 64;
    QByteArray table(512, '\xFF');
    for (int i = 0; i < sectors; ++i) put32(table, 4 * i, i == 0 ? endOfChain : quint32(i - 1));
    const QByteArray padded = content.leftJustified(sectors * 64, '\0');
    QByteArray backward;
    for (int i = sectors - 1; i >= 0; --i) backward += padded.mid(i * 64, 64);

    // Seven large sectors hold the small ones, the eighth their table; it is the file's first.
    constexpr int large = 7 * 512;
    QByteArray file =
        compoundFile(QStringLiteral("Workbook"), backward.leftJustified(large, '\0') + table);
    const int directory = 9 * 512;
    put32(file, 60, 0);
    put32(file, 64, 1);
    put32(file, directory + 116, 7);
    put32(file, directory + 120, large);
    put32(file, directory + 128 + 116, quint32(sectors - 1));
    put32(file, directory + 128 + 120, quint32(content.size()));
    return file;
}

}  // namespace testing_support
