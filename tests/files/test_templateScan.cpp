#include "files/templateScan.h"

#include <QDir>
#include <QTreeWidget>
#include <algorithm>

#include "tests/support/TestSupport.h"
#include "tests/support/UnprivilegedUser.h"

namespace {

using testing_support::Lines;

class TemplateScan : public testing::Test {
  protected:
    QString make(const char* relative) {
        const QString file = folder.filePath(QString::fromUtf8(relative));
        EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        QFile out(file);
        EXPECT_TRUE(out.open(QIODevice::WriteOnly)) << relative;
        return file;
    }
    void makeFolder(const char* relative) {
        ASSERT_TRUE(QDir(folder.path()).mkpath(QString::fromUtf8(relative)));
    }
    void link(const QString& target, const char* relative) {
        ASSERT_TRUE(QFile::link(target, folder.filePath(QString::fromUtf8(relative))));
    }

    /// @return the rows as they were made: "depth text" and, for a file, its path below the folder.
    Lines scan(const QString& from = QString()) {
        Lines rows;
        const QString root = from.isNull() ? folder.path() : from;
        newpro::scanTemplateFolder(
            root, nullptr,
            [&](const QString& text, QTreeWidgetItem* parent, bool isFile, const QString& data) {
                auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(&tree);
                int depth = 0;
                for (; parent; parent = parent->parent()) ++depth;
                std::string row = std::to_string(depth) + " " + text.toStdString();
                if (isFile) row += " = " + data.mid(root.size()).toStdString();
                EXPECT_EQ(isFile, !data.isEmpty());
                EXPECT_TRUE(!isFile || data.startsWith(root));
                rows.push_back(row);
                return item;
            });
        return rows;
    }

    QTemporaryDir folder;
    QTreeWidget tree;
};

TEST_F(TemplateScan, ListsUpperCaseTemplatesThenFoldersDepthFirst) {
    for (const char* file : {"a.MODX", "b.txt", "c.modx", "x/d.MODX", "x/y/e.MODX", "w/f.MODX"}) {
        make(file);
    }
    EXPECT_EQ(scan(), (Lines{"0 a.MODX = /a.MODX", "0 w", "1 f.MODX = /w/f.MODX", "0 x",
                             "1 d.MODX = /x/d.MODX", "1 y", "2 e.MODX = /x/y/e.MODX"}));
}

TEST_F(TemplateScan, NamesAreSortedWithoutRegardToCase) {
    for (const char* file : {"B.MODX", "a.MODX", "c.MODX"}) make(file);
    for (const char* child : {"Z", "y"}) makeFolder(child);
    EXPECT_EQ(scan(), (Lines{"0 a.MODX = /a.MODX", "0 B.MODX = /B.MODX", "0 c.MODX = /c.MODX",
                             "0 y", "0 Z"}));
}

TEST_F(TemplateScan, AnEmptyFolderIsARowWithoutChildren) {
    makeFolder("空");
    EXPECT_EQ(scan(), Lines{"0 空"});
}

TEST_F(TemplateScan, HiddenEntriesAreLeftOut) {
    for (const char* file : {".a.MODX", ".h/b.MODX"}) make(file);
    EXPECT_EQ(scan(), Lines{});
}

TEST_F(TemplateScan, OnlyTheTextAfterTheLastDotCounts) {
    for (const char* file : {"MODX", "a.MODX.bak", "b.c.MODX", "d.MODX "}) make(file);
    makeFolder("e.MODX");
    EXPECT_EQ(scan(), (Lines{"0 b.c.MODX = /b.c.MODX", "0 e.MODX"}));
}

TEST_F(TemplateScan, AMissingFolderAndAFileMakeNoRows) {
    EXPECT_EQ(scan(folder.filePath(QStringLiteral("none"))), Lines{});
    EXPECT_EQ(scan(make("a.MODX")), Lines{});
    EXPECT_EQ(scan(QStringLiteral("")), Lines{});
}

#ifdef Q_OS_UNIX

TEST_F(TemplateScan, AnUnreadableFolderIsARowWithoutChildren) {
    make("x/d.MODX");
    const QString closed = folder.filePath(QStringLiteral("x"));
    ASSERT_TRUE(QFile::setPermissions(closed, QFile::Permissions()));
    {
        const testing_support::UnprivilegedUser user(folder.path());
        EXPECT_EQ(scan(), Lines{"0 x"});
    }
    QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(TemplateScan, AnUnreadableTopFolderMakesNoRows) {
    make("top/d.MODX");
    const QString top = folder.filePath(QStringLiteral("top"));
    EXPECT_EQ(scan(top), Lines{"0 d.MODX = /d.MODX"});
    ASSERT_TRUE(QFile::setPermissions(top, QFile::Permissions()));
    {
        const testing_support::UnprivilegedUser user(folder.path());
        EXPECT_EQ(scan(top), Lines{});
    }
    QFile::setPermissions(top, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

#endif

TEST_F(TemplateScan, AFolderWithoutARowIsNotEntered) {
    make("x/d.MODX");
    make("a.MODX");
    Lines asked;
    newpro::scanTemplateFolder(
        folder.path(), nullptr,
        [&](const QString& text, QTreeWidgetItem*, bool, const QString&) -> QTreeWidgetItem* {
            asked.push_back(text.toStdString());
            return nullptr;
        });
    EXPECT_EQ(asked, (Lines{"a.MODX", "x"}));
}

TEST_F(TemplateScan, NamesOfAnyCharactersComeThrough) {
    const std::string names[] = {
        testing_support::allowedName(QStringLiteral("单引'双\" .MODX")).toStdString(), "😀.MODX",
        "a b  c.MODX", std::string(250, 'n') + ".MODX"};
    for (const std::string& name : names) {
        make(name.c_str());
        EXPECT_EQ(scan(), Lines{"0 " + name + " = /" + name});
        ASSERT_TRUE(QFile::remove(folder.filePath(QString::fromStdString(name))));
    }
}

#ifdef Q_OS_UNIX

TEST_F(TemplateScan, ALinkToAnotherFolderIsEntered) {
    make("there/d.MODX");
    makeFolder("here");
    link(folder.filePath(QStringLiteral("there")), "here/link");
    EXPECT_EQ(scan(folder.filePath(QStringLiteral("here"))),
              (Lines{"0 link", "1 d.MODX = /link/d.MODX"}));
}

TEST_F(TemplateScan, ALinkBackToAnAncestorIsARowOnly) {
    make("x/y/d.MODX");
    link(folder.path(), "x/y/root");
    link(folder.filePath(QStringLiteral("x")), "x/y/x");
    link(folder.filePath(QStringLiteral("x/y")), "x/y/self");
    link(QFileInfo(folder.path()).path(), "x/above");
    EXPECT_EQ(scan(), (Lines{"0 x", "1 above", "1 y", "2 d.MODX = /x/y/d.MODX", "2 root", "2 self",
                             "2 x"}));
}

TEST_F(TemplateScan, TwoFoldersThatLinkToEachOtherEnd) {
    makeFolder("a");
    makeFolder("b");
    link(folder.filePath(QStringLiteral("b")), "a/toB");
    link(folder.filePath(QStringLiteral("a")), "b/toA");
    EXPECT_EQ(scan(), (Lines{"0 a", "1 toB", "2 toA", "0 b", "1 toA", "2 toB"}));
}

TEST_F(TemplateScan, ManyFoldersThatLinkToAllOthersMakeFewRows) {
    constexpr int count = 10;
    const auto name = [](int number) { return "f" + std::to_string(number); };
    for (int from = 0; from < count; ++from) {
        make((name(from) + "/d.MODX").c_str());
        for (int to = 0; to < count; ++to) {
            if (to == from) continue;
            link(folder.filePath(QString::fromStdString(name(to))),
                 (name(from) + "/to" + name(to)).c_str());
        }
    }
    const Lines rows = scan();
    // Each of the 10 folders, their 90 links and, below those, each folder once a scan: without
    // that, there would be millions of rows.
    EXPECT_LT(rows.size(), 2000u);
    for (int from = 0; from < count; ++from) {
        const std::string path = "/" + name(from) + "/d.MODX";
        EXPECT_EQ(std::count(rows.begin(), rows.end(), "1 d.MODX = " + path), 1) << path;
        for (int to = 0; to < count; ++to) {
            if (to == from) continue;
            const std::string linked = "/" + name(from) + "/to" + name(to) + "/d.MODX";
            EXPECT_EQ(std::count(rows.begin(), rows.end(), "2 d.MODX = " + linked), 1) << linked;
        }
    }
}

TEST_F(TemplateScan, EveryLinkToAFolderOnNoLoopShowsItsContent) {
    make("real/d.MODX");
    make("shelf/e.MODX");
    link(folder.filePath(QStringLiteral("real")), "shelf/first");
    link(folder.filePath(QStringLiteral("real")), "shelf/second");
    makeFolder("top");
    link(folder.filePath(QStringLiteral("shelf")), "top/shelf");
    EXPECT_EQ(
        scan(folder.filePath(QStringLiteral("top"))),
        (Lines{"0 shelf", "1 e.MODX = /shelf/e.MODX", "1 first", "2 d.MODX = /shelf/first/d.MODX",
               "1 second", "2 d.MODX = /shelf/second/d.MODX"}));
}

TEST_F(TemplateScan, AShelfOfManyLinksIsShownToItsEnd) {
    makeFolder("shelf");
    for (int i = 0; i < 1000; ++i) {
        const std::string name = std::to_string(i);
        makeFolder(name.c_str());
        link(folder.filePath(QString::fromStdString(name)), ("shelf/" + name).c_str());
    }
    make("last/d.MODX");
    link(folder.filePath(QStringLiteral("last")), "shelf/last");
    makeFolder("top");
    link(folder.filePath(QStringLiteral("shelf")), "top/shelf");
    const Lines rows = scan(folder.filePath(QStringLiteral("top")));
    EXPECT_EQ(rows.size(), 1u + 1000u + 2u);
    EXPECT_EQ(rows.back(), "2 d.MODX = /shelf/last/d.MODX");
}

TEST_F(TemplateScan, FoldersThatLinkTwiceToTheNextStayBounded) {
    constexpr int depth = 40;  // 2^40 ways lead to the last
    const auto name = [](int number) { return "f" + std::to_string(number); };
    for (int i = 0; i <= depth; ++i) make((name(i) + "/d.MODX").c_str());
    for (int i = 0; i < depth; ++i) {
        const QString next = folder.filePath(QString::fromStdString(name(i + 1)));
        link(next, (name(i) + "/a").c_str());
        link(next, (name(i) + "/b").c_str());
    }
    const Lines rows = scan(folder.filePath(QStringLiteral("f0")));
    EXPECT_GT(rows.size(), size_t(2 * depth)) << "one way goes all the way down";
    const auto templates = [&rows](const std::string& depth) {
        return std::count_if(rows.begin(), rows.end(), [&](const std::string& row) {
            return row.find(depth + " d.MODX = ") != std::string::npos;
        });
    };
    const auto entered = templates("");
    // The first folder, by each of its two links the next, the others once, and a thousand again.
    EXPECT_EQ(entered, 1 + 2 + (depth - 1) + 1000);
    // Each shows its template and its two links, the last one none of these.
    EXPECT_EQ(long(rows.size()), 3 * entered - 2 * templates(std::to_string(depth)));
}

TEST_F(TemplateScan, AScanThroughALinkStillKnowsItsAncestors) {
    makeFolder("real/x");
    link(folder.filePath(QStringLiteral("real")), "alias");
    link(folder.filePath(QStringLiteral("real")), "real/x/back");
    EXPECT_EQ(scan(folder.filePath(QStringLiteral("alias"))), (Lines{"0 x", "1 back"}));
}

TEST_F(TemplateScan, ABrokenLinkIsNoFile) {
    link(folder.filePath(QStringLiteral("none.MODX")), "a.MODX");
    EXPECT_EQ(scan(), Lines{});
}

#endif

}  // namespace
