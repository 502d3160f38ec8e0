#include "workbench/hostlibs/SharedInterface/Workbook.h"

#include <freexl.h>
#include <zip.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QXmlStreamReader>
#include <memory>

#include "workbench/base/fileSystem.h"
#include "workbench/hostlibs/SharedInterface/WorkbookGlobals.h"

namespace workbench {

namespace {

// What is read of one part of a package at most. The list of parts of a workbook with thousands of
// sheets is far smaller; a part that unpacks to more is none.
constexpr zip_uint64_t largestPart = 8 * 1024 * 1024;

bool freexlOpens(const QString& path) {
    const void* handle = nullptr;
    bool opened = freexl_open_info(QFile::encodeName(path).constData(), &handle) == FREEXL_OK;
    const auto fact = [&](unsigned short what) {
        unsigned int value = 0;
        return opened && freexl_get_info(handle, what, &value) == FREEXL_OK ? value : 0;
    };
    // For FreeXL a stream without any record is a workbook as well.
    opened = fact(FREEXL_BIFF_PASSWORD) == FREEXL_BIFF_PLAIN && fact(FREEXL_BIFF_SHEET_COUNT) > 0;
    if (handle) freexl_close(handle);
    return opened;
}

// FreeXL believes what a file says of lengths, places and counts, and steps over the records of
// every sheet: it gets nothing but a small file that is written here.
bool isBinaryWorkbook(QFile& file) {
    const QByteArray globals = globalsAlone(file);
    QTemporaryFile copy;
    return !globals.isEmpty() && copy.open() && copy.write(globals) == globals.size() &&
           copy.flush() && freexlOpens(copy.fileName());
}

// Reads the central directory alone. A reader that walks from entry to entry would read through the
// whole file wherever a writer streamed its sheets, since their sizes then stand behind the data.
using Package = std::unique_ptr<zip_t, decltype(&zip_discard)>;
using Part = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;

/// @return the part's content; empty if it is missing, unreadable, encrypted or too large.
QByteArray partOf(zip_t* package, const QString& name) {
    const zip_int64_t index = zip_name_locate(package, name.toUtf8().constData(), ZIP_FL_NOCASE);
    zip_stat_t state;
    if (index < 0 || zip_stat_index(package, index, 0, &state) != 0) return {};
    if (!(state.valid & ZIP_STAT_SIZE) || state.size > largestPart) return {};
    const Part part(zip_fopen_index(package, index, 0), &zip_fclose);
    if (!part) return {};
    // One byte more than declared: a part that unpacks to more than it says is no honest one.
    QByteArray content(int(state.size) + 1, Qt::Uninitialized);
    const zip_int64_t length = zip_fread(part.get(), content.data(), content.size());
    if (length != zip_int64_t(state.size)) return {};
    content.chop(1);
    return content;
}

bool isWorkbookType(QStringView contentType) {
    return contentType.endsWith(QLatin1String(".main+xml")) &&
           (contentType.contains(QLatin1String("spreadsheetml")) ||
            contentType.contains(QLatin1String("ms-excel")));
}

/// @param types content of "[Content_Types].xml". @return name of the workbook's main part; empty
///         where the package is no workbook.
QString mainPartOf(const QByteArray& types) {
    QXmlStreamReader xml(types);
    QString main;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        const QXmlStreamAttributes attributes = xml.attributes();
        if (!isWorkbookType(attributes.value(QLatin1String("ContentType")))) continue;
        if (xml.name() == QLatin1String("Override")) {
            main = attributes.value(QLatin1String("PartName")).toString();
        } else if (main.isEmpty()) {
            // Some writers declare the type for every part with the suffix "xml".
            main = QStringLiteral("/xl/workbook.xml");
        }
    }
    return xml.hasError() ? QString() : main.mid(1);
}

bool isWorkbookPart(const QByteArray& part) {
    QXmlStreamReader xml(part);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("workbook")) return false;
    while (!xml.atEnd()) xml.readNext();
    return !xml.hasError();
}

/// @return the path as libzip takes it.
QByteArray nameOf(const QString& path) {
#ifdef Q_OS_WIN
    return QString::fromStdWString(systemPath(path).native()).toUtf8();
#else
    return QFile::encodeName(path);
#endif
}

bool isPackageWorkbook(const QString& path) {
    const Package package(zip_open(nameOf(path).constData(), ZIP_RDONLY, nullptr), &zip_discard);
    if (!package) return false;
    const QByteArray types = partOf(package.get(), QStringLiteral("[Content_Types].xml"));
    const QString main = mainPartOf(types);
    return !main.isEmpty() && isWorkbookPart(partOf(package.get(), main));
}

}  // namespace

bool isWorkbook(const QString& path) {
    const QFileInfo info(path);
    // The office programs keep "~$name" beside a workbook that is open: never a workbook itself.
    if (!info.isFile() || info.fileName().startsWith(QLatin1String("~$"))) return false;
    QFile file(path);
    // A buffer would be filled anew at every jump.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return false;
    const QByteArray magic = file.read(8);
    if (magic == QByteArray::fromHex("d0cf11e0a1b11ae1")) return isBinaryWorkbook(file);
    if (magic.startsWith("PK\x03\x04")) return isPackageWorkbook(path);
    return false;
}

QVector<QPair<QString, QString>> workbookReaderVersions() {
    return {{QStringLiteral("FreeXL"), QLatin1String(freexl_version())},
            {QStringLiteral("libzip"), QLatin1String(zip_libzip_version())}};
}

}  // namespace workbench
