#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include "tests/support/TestSupport.h"

namespace testing_support {

namespace {

const QDir repository(QStringLiteral(REPOSITORY));

const QString any = QStringLiteral("any");

/// The table of docs/rooms.md.
struct Rooms {
    QStringList names;                  ///< From the bottom up.
    QMap<QString, QStringList> arrows;  ///< The rooms that a room may include.

    /// @return the innermost room that a file lies in; empty for none.
    QString roomOf(const QString& file) const {
        QString found;
        for (const QString& name : names)
            if (file.startsWith(name + QLatin1Char('/')) && name.size() > found.size())
                found = name;
        return found;
    }
    /// "any" stands for every room above in the table.
    bool allows(const QString& from, const QString& to) const {
        const QStringList allowed = arrows.value(from);
        if (from == to || allowed.contains(to)) return true;
        return allowed.contains(any) && names.mid(0, names.indexOf(from)).contains(to);
    }
};

Rooms readRooms() {
    Rooms rooms;
    for (const QString& line :
         textOf(repository.filePath(QStringLiteral("docs/rooms.md"))).split(QLatin1Char('\n'))) {
        if (!line.startsWith(QLatin1String("| `"))) continue;
        const QStringList cells = line.split(QLatin1Char('|'));
        const QString name = cells.at(1).simplified().remove(QLatin1Char('`'));
        rooms.names.append(name);
        rooms.arrows[name] = cells.at(3)
                                 .simplified()
                                 .remove(QLatin1Char('`'))
                                 .split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }
    return rooms;
}

/// @param names wildcards.
/// @return the files of such names in folders of the repository, relative to it. A build tree has
/// generated ones.
QStringList sources(const QStringList& names) {
    QStringList found;
    for (const QString& top : repository.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (top == QLatin1String("build") ||
            QFileInfo::exists(repository.filePath(top + QLatin1String("/CMakeCache.txt"))))
            continue;
        QDirIterator files(repository.filePath(top), names, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) found.append(repository.relativeFilePath(files.next()));
    }
    return found;
}

/// @return the file of the repository that an include line of `file` means; empty for one that is
///         generated.
QString included(const QString& file, const QString& name) {
    for (const QString& folder :
         {QFileInfo(file).path(), QStringLiteral("."), QStringLiteral("host"),
          QStringLiteral("dialog"), QStringLiteral("import")}) {
        const QString path = QDir::cleanPath(folder + QLatin1Char('/') + name);
        if (repository.exists(path)) return path;
    }
    return {};
}

/// Holds the include lines of a source against the table.
/// @param used takes the arrows that they need, as "room to room".
/// @return the lines that have no arrow, with their places.
Lines offences(const Rooms& rooms, const QString& file, const QString& text, QSet<QString>& used) {
    static const QRegularExpression include(
        QStringLiteral("^\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"]"));
    static const QSet<QString> generated{QStringLiteral("newProDialog_export.h"),
                                         QStringLiteral("pageData.inc"),
                                         QStringLiteral("places.inc"), QStringLiteral("readme.h")};
    const QString room = rooms.roomOf(file);
    if (room.isEmpty()) return {file.toStdString() + ": stands in no room"};
    Lines found;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString name = include.match(lines[i]).captured(1);
        if (name.isEmpty() || generated.contains(name)) continue;
        const QString target = included(file, name);
        if (target.isEmpty() && lines[i].contains(QLatin1Char('<'))) continue;  // of a library
        const QString other = rooms.roomOf(target);
        used.insert(room + QLatin1String(" to ") + other);
        if (!rooms.allows(room, other))
            found.push_back(QStringLiteral("%1:%2: %3 may not include %4")
                                .arg(file)
                                .arg(i + 1)
                                .arg(room, name)
                                .toStdString());
    }
    return found;
}

/// The places in build files that name one Qt, whose names are those of no other.
const QSet<QString> placesOfOneQt{QStringLiteral("cmake/qt.cmake"),
                                  QStringLiteral("tests/package/support.cmake")};

/// @return the lines of a build file that another Qt would not build with: targets, commands and
///         packages of a version, such as Qt5::Widgets.
Lines namesOfOneQt(const QString& file, const QString& text) {
    static const QRegularExpression name(QStringLiteral("\\b[Qq][Tt][4-9]"));
    Lines found;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size() && !placesOfOneQt.contains(file); ++i)
        if (lines[i].section(QLatin1Char('#'), 0, 0).contains(name))
            found.push_back(
                QStringLiteral("%1:%2: names one Qt").arg(file).arg(i + 1).toStdString());
    return found;
}

}  // namespace

TEST(Rooms, EveryRowNamesRoomsAboveItAlone) {
    const Rooms rooms = readRooms();
    ASSERT_GT(rooms.names.size(), 20);
    EXPECT_EQ(rooms.names.size(), rooms.arrows.size()) << "a room has two rows";
    for (const QString& from : rooms.names)
        for (const QString& to : rooms.arrows[from])
            EXPECT_TRUE(to == any || rooms.names.mid(0, rooms.names.indexOf(from)).contains(to))
                << from.toStdString() << " to " << to.toStdString();
}

TEST(Rooms, EveryIncludeHasItsArrowAndEveryArrowItsInclude) {
    const Rooms rooms = readRooms();
    QSet<QString> used;
    Lines wrong;
    int count = 0;
    for (const QString& file : sources({QStringLiteral("*.h"), QStringLiteral("*.cpp")})) {
        const Lines found = offences(rooms, file, textOf(repository.filePath(file)), used);
        wrong.insert(wrong.end(), found.begin(), found.end());
        ++count;
    }
    EXPECT_EQ(wrong, Lines());
    EXPECT_GT(count, 300) << "the sources were not found";
    for (const QString& from : rooms.names)
        for (const QString& to : rooms.arrows[from])
            EXPECT_TRUE(to == any || used.contains(from + QLatin1String(" to ") + to))
                << "nothing in " << from.toStdString() << " includes " << to.toStdString();
}

TEST(Rooms, AnIncludeAgainstTheArrowsIsNamedWithItsLine) {
    const Rooms rooms = readRooms();
    const struct {
        const char* file;
        const char* line;
        Lines offence;
    } rows[] = {
        {"core/a.cpp", "#include \"host/zCpf.h\"", {}},
        {"core/a.cpp", "#include \"zCpf.h\"", {}},
        {"core/a.cpp", "#include <zCpf.h>", {}},
        {"host/a.h",
         "#include \"core/guard.h\"",
         {"host/a.h:2: host may not include core/guard.h"}},
        {"files/a.cpp",
         "  # include  \"dialog/NewProCfgDialog.h\"",
         {"files/a.cpp:2: files may not include dialog/NewProCfgDialog.h"}},
        {"files/a.cpp",
         "#include \"../models/usageCodes.h\"",
         {"files/a.cpp:2: files may not include ../models/usageCodes.h"}},
        {"dialog/a.cpp",
         "#include \"workbench/journal/Journal.h\"",
         {"dialog/a.cpp:2: dialog may not include workbench/journal/Journal.h"}},
        {"workbench/journal/a.cpp",
         "#include \"workbench/hostlibs/common/Host.h\"",
         {"workbench/journal/a.cpp:2: workbench/journal may not include "
          "workbench/hostlibs/common/Host.h"}},
        {"tests/support/a.cpp",
         "#include \"tests/files/NewFromFileStage.h\"",
         {"tests/support/a.cpp:2: tests/support may not include tests/files/NewFromFileStage.h"}},
        {"core/a.cpp", "#include \"nowhere.h\"", {"core/a.cpp:2: core may not include nowhere.h"}},
        {"cellar/a.cpp", "", {"cellar/a.cpp: stands in no room"}},
    };
    for (const auto& row : rows) {
        QSet<QString> used;
        EXPECT_EQ(offences(rooms, QLatin1String(row.file),
                           QLatin1String("#pragma once\n") + QLatin1String(row.line), used),
                  row.offence)
            << row.file << " " << row.line;
    }
}

TEST(BuildFiles, NameNoQtOfOneVersion) {
    QStringList files = sources(
        {QStringLiteral("CMakeLists.txt"), QStringLiteral("*.cmake"), QStringLiteral("*.in")});
    files.append(QStringLiteral("CMakeLists.txt"));
    Lines wrong;
    for (const QString& file : files) {
        const Lines found = namesOfOneQt(file, textOf(repository.filePath(file)));
        wrong.insert(wrong.end(), found.begin(), found.end());
    }
    EXPECT_EQ(wrong, Lines());
    EXPECT_GT(files.size(), 30) << "the build files were not found";
    for (const QString& file : placesOfOneQt)
        EXPECT_TRUE(files.contains(file)) << file.toStdString() << " is not there";
}

TEST(BuildFiles, ANameOfOneQtIsToldWithItsLine) {
    const QString file = QStringLiteral("core/CMakeLists.txt");
    const Lines wrong{"core/CMakeLists.txt:2: names one Qt"};
    for (const char* line :
         {"target_link_libraries(a Qt5::Widgets)", "find_package(Qt6 6.4)", "qt5_wrap_cpp(a b.h)",
          "set(dependency \"Qt5Svg\")", "list(APPEND all Qt6::Svg)  # a comment"})
        EXPECT_EQ(namesOfOneQt(file, QLatin1String("\n") + QLatin1String(line)), wrong) << line;
    for (const char* line : {"target_link_libraries(a Qt${NEWPRO_QT}::Widgets)",
                             "target_link_libraries(a Qt::Widgets)", "# not with Qt5::Widgets"})
        EXPECT_EQ(namesOfOneQt(file, QLatin1String("\n") + QLatin1String(line)), Lines()) << line;
}

}  // namespace testing_support
