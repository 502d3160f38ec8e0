/// Records of the history, as hosts write them.
#pragma once

#include <QStringList>

namespace files_tests {

inline const QString unit = QString(QChar(0x1F));
inline const QString hashes = QStringLiteral("##");

/// @return a record of `count` fields, `first` the first and the others numbered.
inline QString record(const QString& first, int count, const QString& separator) {
    QStringList fields{first};
    for (int i = 1; i < count; ++i) fields.append(QString::number(i));
    return fields.join(separator);
}

inline QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

}  // namespace files_tests
