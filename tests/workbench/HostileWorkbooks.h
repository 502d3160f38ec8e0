/// Workbooks that a careless or malicious sender might hand over.
#pragma once

#include <QByteArray>
#include <QString>
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

/// @return the parts of a workbook with so many empty sheets.
QVector<Part> workbookParts(int sheets = 1);

/// @return a compound file with one stream, as the binary workbook format is kept in one.
QByteArray compoundFile(const QString& stream, const QByteArray& content);

}  // namespace testing_support
