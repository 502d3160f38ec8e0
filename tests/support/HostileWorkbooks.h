/// Workbooks that a careless or malicious sender might hand over.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace testing_support {

/// One part of a package. `repeat` copies of `content` make up the part.
struct Part {
    QString name;
    QByteArray content;
    qint64 repeat = 1;
    bool compressed = true;
};

/// Writes a package. A part of many gigabytes costs no more time or memory than one copy of its
/// content. Fails the test when the file cannot be written.
void writePackage(const QString& path, const QVector<Part>& parts);

/// @return so many different names of sheets.
QStringList sheetNames(int count);

/// @return the parts of a workbook with empty sheets of these names.
QVector<Part> workbookParts(const QStringList& sheets = sheetNames(1));

/// Writes a workbook whose only sheet has so many bytes, which do not compress.
void writeLargePackage(const QString& path, qint64 sheetBytes);

/// @return the stream of a binary workbook with sheets of these names, empty but for the last one,
///         which has about so many bytes. @param more records that stand before the sheets.
QByteArray workbookStream(const QStringList& sheets = sheetNames(1), int sheetBytes = 0,
                          const QByteArray& more = {});

/// @return the stream of a binary workbook, asking for a password.
QByteArray withPassword(QByteArray stream);

/// @return a compound file with one stream, as the binary workbook format is kept in one. The
///         sectors of the stream lie in it from the last to the first: their order is free.
QByteArray compoundFile(const QString& stream, const QByteArray& content);

/// @param content up to 3584 bytes of a workbook. @return a compound file that keeps them in small
///         sectors, as it keeps every stream below 4096 bytes; they lie from the last to the first.
QByteArray smallCompoundFile(const QByteArray& content);

}  // namespace testing_support
