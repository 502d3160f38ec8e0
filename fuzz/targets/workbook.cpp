/// Any bytes as a workbook. So that input can be read and reaches what lies behind check sums and
/// sector tables, it may also be told part by part; see corpus/workbook.
#include <QFile>
#include <QtEndian>

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
    while (!text.isEmpty()) {
        const QByteArray line = takeLine(text);
        if (line.startsWith("=== ") || line.startsWith("--- ")) {
            parts.append({QString::fromUtf8(line.mid(4)), {}, 1, line.startsWith('=')});
        } else if (!parts.isEmpty()) {
            parts.last().content += line + '\n';
        }
    }
    const QString path = folder() + QStringLiteral("/any.xlsx");
    testing_support::writePackage(path, parts);
    return path;
}

/// A line "TYPE CONTENT", both in hexadecimal digits, is a record; "= BYTES" stands as it is.
QString writeRecords(QByteArray text) {
    QByteArray stream;
    while (!text.isEmpty()) {
        const QByteArray line = takeLine(text);
        const QByteArray content = QByteArray::fromHex(line.mid(line.indexOf(' ') + 1));
        if (line.startsWith("= ")) {
            stream += content;
        } else if (!line.startsWith('#')) {
            char head[4];
            qToLittleEndian(quint16(line.left(4).toUShort(nullptr, 16)), head);
            qToLittleEndian(quint16(content.size()), head + 2);
            stream += QByteArray(head, 4) + content;
        }
    }
    return write(QStringLiteral("any.xls"),
                 testing_support::compoundFile(QStringLiteral("Workbook"), stream));
}

}  // namespace

void fuzzWorkbook(const QByteArray& input) {
    QByteArray rest = input;
    const QByteArray first = takeLine(rest);
    const QString path = first == "parts"     ? writeParts(rest)
                         : first == "records" ? writeRecords(rest)
                                              : write(QStringLiteral("any.xlsx"), input);
    const bool opened = LibXLExcel::Open(path) != nullptr;
    require(!opened || input.size() > 100, "nothing small is a workbook");
    QFile::remove(path);
    workbench::Journal::instance().clear();
}

}  // namespace fuzzing
