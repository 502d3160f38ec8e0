#include "fuzz/support.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>

namespace fuzzing {

const char soundSettings[] = R"({
    "area": {"prodAreaYN": false, "configuration": {}}, "firstOpenClose": 0,
    "basicSettings": {"projectFolder": "", "others": {}},
    "systemSettings": {"modelName": "", "estimateTemplate": "", "settlementTemplate": "",
                       "others": {}},
    "transactions": {}, "suffixes": {}, "groupedTemplates": {}})";
const char soundHistory[] = R"({"entries": []})";

void require(bool kept, const char* promise) {
    if (kept) return;
    std::fprintf(stderr, "Broken promise: %s\n", promise);
    std::abort();
}

QString folder() {
    static const QTemporaryDir directory;
    require(directory.isValid(), "a folder for temporary files can be made");
    return directory.path();
}

QString write(const QString& name, const QByteArray& content) {
    const QString path = folder() + QLatin1Char('/') + name;
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                         file.write(content) == content.size();
    require(written, "a temporary file can be written");
    return path;
}

QString textOf(const QByteArray& utf8) {
    return QString::fromUtf8(utf8.constData(), utf8.size());
}

QByteArray takeLine(QByteArray& text) {
    // The last line need not end.
    const int end = text.contains('\n') ? text.indexOf('\n') : text.size();
    const QByteArray line = text.left(end);
    text.remove(0, end + 1);
    return line;
}

void requirePlaced(const QString& error, const QString& path, const QByteArray& content) {
    const QString file = QDir::toNativeSeparators(path) + QLatin1Char(':');
    require(error.startsWith(file), "an error begins with the file");
    const QString rest = error.mid(file.size());
    bool isNumber = false;
    const int line = rest.section(QLatin1Char(':'), 0, 0).toInt(&isNumber);
    require(isNumber && line >= 1 && line <= content.count('\n') + 1, "an error names a line");
    require(rest.count(QLatin1String(": ")) >= 2,
            "an error names the place and says what is wrong");
}

}  // namespace fuzzing
