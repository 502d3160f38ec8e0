/// What is each system's own: its words for what went wrong, the names that files may
/// have, and how lines end.
#pragma once

#include <QByteArray>
#include <QString>

namespace testing_support {

#ifdef Q_OS_WIN
/// @return what the system says of a file that is not there, in a folder that is.
inline QString noSuchFile() {
    return qt_error_string(2);  // ERROR_FILE_NOT_FOUND
}
/// @return what it says of a file whose folder is not there.
inline QString noSuchFolder() {
    return qt_error_string(3);  // ERROR_PATH_NOT_FOUND
}
/// @return what it says of a folder that is to be written as a file.
inline QString isFolder() {
    return qt_error_string(5);  // ERROR_ACCESS_DENIED
}
/// @return what it says of a folder that is to be read as a file.
inline QString isFolderToRead() {
    return isFolder();
}
#else
inline QString noSuchFile() {
    return QStringLiteral("No such file or directory");
}
inline QString noSuchFolder() {
    return noSuchFile();
}
inline QString isFolder() {
    return QStringLiteral("Is a directory");
}
inline QString isFolderToRead() {
    return QStringLiteral("file to open is a directory");
}
#endif

/// @return a name without the signs that no name has on Windows.
inline QString allowedName(QString name) {
#ifdef Q_OS_WIN
    for (const char sign : {'"', '<', '>', '|', '?', '*', ':'}) name.remove(QLatin1Char(sign));
#endif
    return name;
}

/// @param utf8 what a program has written; it may hold a NUL.
/// @return the text, its lines ending as they do in it.
inline QString outputText(const QByteArray& utf8) {
    return QString::fromUtf8(utf8.constData(), utf8.size())
        .replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

}  // namespace testing_support
