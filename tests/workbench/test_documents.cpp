#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "tests/support/TestSupport.h"

namespace {

using testing_support::textOf;

const QDir repository(QStringLiteral(REPOSITORY));

/// Adds the Markdown files below a folder, but for what is built.
void collectPages(const QDir& folder, QFileInfoList& pages) {
    const auto kinds = QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QFileInfo& entry : folder.entryInfoList(kinds)) {
        const QString name = entry.fileName();
        if (entry.isDir() && name != QLatin1String(".git") && name != QLatin1String("build"))
            collectPages(QDir(entry.filePath()), pages);
        else if (entry.suffix() == QLatin1String("md"))
            pages.append(entry);
    }
}

QFileInfoList allPages() {
    QFileInfoList pages;
    collectPages(repository, pages);
    return pages;
}

/// @return what the first group of the pattern finds in the text.
QStringList found(const QString& text, const QString& pattern) {
    QStringList all;
    auto match = QRegularExpression(pattern).globalMatch(text);
    while (match.hasNext()) all.append(match.next().captured(1));
    return all;
}

TEST(Documents, EveryRelativeLinkLeadsToAFile) {
    int links = 0;
    for (const QFileInfo& page : allPages()) {
        const QString text = textOf(page.filePath());
        for (const QString& link : found(text, QStringLiteral("\\]\\(([^)#\\s]+)"))) {
            if (link.contains(QLatin1String("://"))) continue;
            EXPECT_TRUE(page.dir().exists(link))
                << page.filePath().toStdString() << ": " << link.toStdString();
            ++links;
        }
    }
    EXPECT_GT(links, 30);
}

/// What stands in backticks and begins like a path of this repository is one, but for what is
/// built.
TEST(Documents, EveryPathOfTheGuidesIsThere) {
    for (const char* name : {"CONTRIBUTING.md", "docs/architecture.md", "docs/third-party.md"}) {
        int paths = 0;
        const QString text = textOf(repository.filePath(QLatin1String(name)));
        for (const QString& path :
             found(text, QStringLiteral("`([\\w.-]+/[\\w./-]*)(?: [^`]*)?`"))) {
            if (path.startsWith(QLatin1String("build/"))) continue;
            EXPECT_TRUE(repository.exists(path)) << name << ": " << path.toStdString();
            ++paths;
        }
        EXPECT_GT(paths, 3) << name;
    }
}

TEST(Documents, TheChangelogTellsOfTheProjectsVersion) {
    const QStringList version = found(textOf(repository.filePath(QStringLiteral("CMakeLists.txt"))),
                                      QStringLiteral("VERSION (\\d+\\.\\d+\\.\\d+)"));
    ASSERT_EQ(version.size(), 1);
    const QStringList dated =
        found(textOf(repository.filePath(QStringLiteral("CHANGELOG.md"))),
              QStringLiteral("\n## (\\d+\\.\\d+\\.\\d+) — \\d{4}-\\d{2}-\\d{2}\n"));
    EXPECT_TRUE(dated.contains(version.constFirst())) << version.constFirst().toStdString();
}

TEST(Documents, TheSkeletonOfAHostIsAsShortAsItsGuideSays) {
    const QStringList said =
        found(textOf(repository.filePath(QStringLiteral("docs/writing-a-host.md"))),
              QStringLiteral("in less\\s+than (\\d+) lines"));
    ASSERT_EQ(said.size(), 1);
    const QDir skeleton(repository.filePath(QStringLiteral("examples/host")));
    int lines = 0;
    for (const QString& file : skeleton.entryList(QDir::Files))
        lines += textOf(skeleton.filePath(file)).count(QLatin1Char('\n'));
    EXPECT_LT(lines, said.constFirst().toInt());
    EXPECT_GT(lines, said.constFirst().toInt() - 30);
}

/// @return the pictures that a text names, sorted.
QStringList pictures(const QString& text) {
    QStringList names = found(text, QStringLiteral("(:/Image/[^\")`]+)"));
    names.removeDuplicates();
    names.sort();
    return names;
}

TEST(Documents, ThePicturesThatTheModuleNamesAreListedForHosts) {
    QString sources;
    for (const char* room : {"core", "models", "files", "import", "dialog"}) {
        const QDir folder(repository.filePath(QLatin1String(room)));
        for (const QString& file : folder.entryList({QStringLiteral("*.cpp")}))
            sources += textOf(folder.filePath(file));
    }
    EXPECT_GE(pictures(sources).size(), 21);
    for (const char* list : {"docs/writing-a-host.md", "conformance/pictures.cpp"})
        EXPECT_EQ(pictures(textOf(repository.filePath(QLatin1String(list)))), pictures(sources))
            << list;
}

}  // namespace
