#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <algorithm>

#include "SharedInterface.h"
#include "tests/support/TestSupport.h"
#include "tests/workbench/HostileWorkbooks.h"

namespace testing_support {

namespace {

const QString smallXls = QStringLiteral(SAMPLE_INSTALLATION "/Workbooks/教学楼安装清单.xls");
const QString smallXlsx = QStringLiteral(SAMPLE_INSTALLATION "/Workbooks/教学楼分部分项清单.xlsx");

bool opens(const QString& path) {
    return LibXLExcel::Open(path) != nullptr;
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// The stream of a binary workbook, from the sample: behind header, table and directory.
QByteArray workbookStream() {
    return contentOf(smallXls).mid(1536);
}

/// @return the peak of the process's memory so far, in bytes; 0 where the system does not tell.
qint64 peakMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').at(0).toLongLong() * 1024;
    }
    return 0;
}

/// @return the shortest of several openings, in nanoseconds.
qint64 timeToOpen(const QString& path) {
    qint64 best = std::numeric_limits<qint64>::max();
    for (int i = 0; i < 30; ++i) {
        QElapsedTimer timer;
        timer.start();
        EXPECT_TRUE(opens(path));
        best = std::min(best, timer.nsecsElapsed());
    }
    return best;
}

QVector<Part> withSheet(const QByteArray& content, qint64 repeat, bool compressed) {
    QVector<Part> parts = workbookParts();
    parts.last() = {QStringLiteral("xl/worksheets/sheet1.xml"), content, repeat, compressed};
    return parts;
}

}  // namespace

TEST(Workbook, BothFormatsOpenWhateverTheirNames) {
    TemporaryInstallation installation;
    for (const QString& sample : {smallXls, smallXlsx}) {
        EXPECT_TRUE(opens(sample)) << sample.toStdString();
        for (const char* name : {"a.xls", "b.xlsx", "c.txt", "清单 😀.xlsx", "无后缀"}) {
            EXPECT_TRUE(opens(installation.write(QString::fromUtf8(name), contentOf(sample))))
                << name;
        }
    }
    EXPECT_EQ(answered("LibXLExcel::Open"), QJsonValue(true));
}

TEST(Workbook, WhatIsNoWorkbookDoesNotOpen) {
    TemporaryInstallation installation;
    const QByteArray xls = contentOf(smallXls);
    const QByteArray xlsx = contentOf(smallXlsx);
    QByteArray locked = workbookStream();
    locked.insert(20, QByteArray::fromHex("2f0006000000341278560000").left(10));
    const struct {
        const char* title;
        const char* name;
        QByteArray content;
    } rows[] = {
        {"empty", "a.xlsx", ""},
        {"text", "a.xlsx", "序号,项目编码\n"},
        {"a package cut in the middle", "a.xlsx", xlsx.left(xlsx.size() / 2)},
        {"a package without its last bytes", "a.xlsx", xlsx.left(xlsx.size() - 10)},
        {"only the magic of a package", "a.xlsx", QByteArray("PK\x03\x04", 4)},
        {"a binary workbook cut in the middle", "a.xls", xls.left(1500)},
        {"only the magic of a binary workbook", "a.xls", xls.left(8)},
        {"an encrypted package", "a.xlsx",
         compoundFile(QStringLiteral("EncryptedPackage"), QByteArray(8000, 'Z'))},
        {"a binary workbook with a password", "a.xls",
         compoundFile(QStringLiteral("Workbook"), locked)},
        {"another document", "a.doc",
         compoundFile(QStringLiteral("WordDocument"), QByteArray(8000, 'W'))},
        {"a lock file", "~$a.xlsx", xlsx},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(opens(installation.write(QString::fromUtf8(row.name), row.content)))
            << row.title;
    }
    EXPECT_FALSE(opens(installation.path(QStringLiteral("missing.xlsx"))));
    EXPECT_FALSE(opens(installation.folder()));
    EXPECT_TRUE(answered("LibXLExcel::Open").isNull());
}

TEST(Workbook, TheCompoundFilesOfTheseTestsAreWorkbooksWhereTheyHoldOne) {
    TemporaryInstallation installation;
    EXPECT_TRUE(opens(installation.write(
        QStringLiteral("a.xls"), compoundFile(QStringLiteral("Workbook"), workbookStream()))));
}

TEST(Workbook, APackageOpensOnlyWithAWorkbookInIt) {
    const QVector<Part> whole = workbookParts();
    const struct {
        const char* title;
        QVector<Part> parts;
        bool opens;
    } rows[] = {
        {"a workbook", whole, true},
        {"300 sheets", workbookParts(300), true},
        {"no workbook at all", {{QStringLiteral("a.txt"), "a"}}, false},
        {"no list of parts", whole.mid(1), false},
        {"a list of parts without its workbook", whole.mid(0, 1), false},
        {"a broken list of parts", {{whole[0].name, "<Types"}, whole[1]}, false},
        {"a workbook part that is none", {whole[0], {whole[1].name, "<document/>"}}, false},
        {"a broken workbook part", {whole[0], {whole[1].name, "<workbook><sheets>"}}, false},
        {"a part name in other letters",
         {whole[0], {QStringLiteral("XL/Workbook.xml"), "<workbook/>"}},
         true},
    };
    for (const auto& row : rows) {
        TemporaryInstallation installation;
        const QString path = installation.path(QStringLiteral("a.xlsx"));
        writePackage(path, row.parts);
        EXPECT_EQ(opens(path), row.opens) << row.title;
    }
}

TEST(Workbook, APackageThatUnpacksToTenGigabytesCostsNeitherTimeNorMemory) {
    TemporaryInstallation installation;
    const QByteArray block(16 * 1024 * 1024, ' ');
    const QString sheetBomb = installation.path(QStringLiteral("sheet.xlsx"));
    const QString bookBomb = installation.path(QStringLiteral("book.xlsx"));
    writePackage(sheetBomb, withSheet(block, 640, true));
    QVector<Part> book = workbookParts();
    book[1] = {book[1].name, block, 640, true};
    writePackage(bookBomb, book);
    ASSERT_LT(QFileInfo(sheetBomb).size(), 64 * 1024 * 1024);

    const qint64 before = peakMemory();
    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(opens(sheetBomb)) << "the sheets are not read";
    EXPECT_FALSE(opens(bookBomb)) << "no list of sheets is that long";
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_LT(peakMemory() - before, 200LL * 1024 * 1024);
}

TEST(Workbook, FiftyMegabytesOpenAboutAsFastAsTheSmallest) {
    TemporaryInstallation installation;
    QByteArray noise(1024 * 1024, Qt::Uninitialized);
    QRandomGenerator random(1);
    random.fillRange(reinterpret_cast<quint32*>(noise.data()), noise.size() / 4);
    const QString small = installation.path(QStringLiteral("small.xlsx"));
    const QString big = installation.path(QStringLiteral("big.xlsx"));
    writePackage(small, workbookParts());
    writePackage(big, withSheet(noise, 50, false));
    ASSERT_GT(QFileInfo(big).size(), 50 * 1024 * 1024);

    const qint64 before = peakMemory();
    EXPECT_LE(timeToOpen(big), 5 * timeToOpen(small));
    EXPECT_LT(peakMemory() - before, 200LL * 1024 * 1024);
}

TEST(Workbook, AFileWithoutReadPermissionDoesNotOpen) {
    TemporaryInstallation installation;
    const QString path = installation.write(QStringLiteral("a.xlsx"), contentOf(smallXlsx));
    QFile file(path);
    ASSERT_TRUE(file.setPermissions(QFile::WriteOwner));
    if (file.open(QIODevice::ReadOnly)) GTEST_SKIP() << "this user may read every file";
    EXPECT_FALSE(opens(path));
}

TEST(Workbook, DamagedBytesNeverCrash) {
    TemporaryInstallation installation;
    QRandomGenerator random(7);
    for (const QString& sample : {smallXls, smallXlsx}) {
        const QByteArray whole = contentOf(sample);
        for (int round = 0; round < 200; ++round) {
            QByteArray damaged = whole;
            for (int i = random.bounded(1, 30); i > 0; --i) {
                damaged[random.bounded(damaged.size())] = char(random.bounded(256));
            }
            opens(installation.write(QStringLiteral("damaged"), damaged));
        }
    }
    EXPECT_EQ(countOf("LibXLExcel::Open"), 400);
}

}  // namespace testing_support
