/// Any bytes as a workbook. So that input can be read and reaches what lies behind check sums and
/// sector tables, it may also be told part by part; see corpus/workbook.
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QtEndian>
#include <algorithm>

#include "SharedInterface.h"
#include "fuzz/support.h"
#include "fuzz/targets.h"
#include "tests/support/HostileWorkbooks.h"
#include "workbench/journal/Journal.h"

namespace fuzzing {

using testing_support::Part;

namespace {

/// "=== NAME" begins a compressed part of a package, "--- NAME" one that is not.
QString writeParts(QByteArray text) {
    QVector<Part> parts;
    QSet<QByteArray> names;  // a package can only be written with names that differ and are plain
    while (!text.isEmpty()) {
        const QByteArray line = takeLine(text);
        const QByteArray name = textOf(line.mid(4)).toUtf8();
        if (line.startsWith("=== ") || line.startsWith("--- ")) {
            const bool plain = std::none_of(name.begin(), name.end(),
                                            [](char c) { return (c >= 0 && c < ' ') || c == 127; });
            if (!plain || names.contains(name)) continue;
            names.insert(name);
            parts.append({QString::fromUtf8(name), {}, 1, line.startsWith('=')});
        } else if (!parts.isEmpty()) {
            parts.last().content += line + '\n';
        }
    }
    const QString path = folder() + QStringLiteral("/any.xlsx");
    testing_support::writePackage(path, parts);
    return path;
}

/// Puts bytes over those of the directory of a compound file. @param patch "@OFFSET BYTES".
void patchDirectory(QByteArray& file, const QByteArray& patch) {
    const int begin = int(qFromLittleEndian<quint32>(file.constData() + 48) + 1) * 512;
    const int offset = patch.mid(1, patch.indexOf(' ') - 1).toInt();
    const QByteArray bytes = QByteArray::fromHex(patch.mid(patch.indexOf(' ') + 1));
    if (offset >= 0 && offset + bytes.size() <= 512)
        file.replace(begin + offset, bytes.size(), bytes);
}

/// A line "TYPE CONTENT", both in hexadecimal digits, is a record; "= BYTES" stands as it is, and
/// "@OFFSET BYTES" in the directory.
/// @param name of the stream that holds the records.
QString writeRecords(const QString& name, QByteArray text) {
    QByteArray stream;
    QList<QByteArray> patches;
    while (!text.isEmpty()) {
        const QByteArray line = takeLine(text);
        const QByteArray content = QByteArray::fromHex(line.mid(line.indexOf(' ') + 1));
        if (line.startsWith("= ")) {
            stream += content;
        } else if (line.startsWith('@')) {
            patches.append(line);
        } else if (!line.startsWith('#')) {
            char head[4];
            qToLittleEndian(quint16(line.left(4).toUShort(nullptr, 16)), head);
            qToLittleEndian(quint16(content.size()), head + 2);
            stream += QByteArray(head, 4) + content;
        }
    }
    QByteArray file = testing_support::compoundFile(name, stream);
    for (const QByteArray& patch : patches) patchDirectory(file, patch);
    return write(QStringLiteral("any.xls"), file);
}

}  // namespace

void fuzzWorkbook(const QByteArray& input) {
    QByteArray rest = input;
    const QByteArray first = takeLine(rest);
    const bool records =
        first.startsWith("records ") && first.size() < 39;  // names have 31 at most
    const QString path = first == "parts" ? writeParts(rest)
                         : records        ? writeRecords(textOf(first.mid(8)), rest)
                                          : write(QStringLiteral("any.xlsx"), input);
    const bool opened = LibXLExcel::Open(path) != nullptr;
    require(!opened || QFileInfo(path).size() > 100, "nothing small is a workbook");
    QFile::remove(path);
    workbench::Journal::instance().clear();
}

}  // namespace fuzzing
