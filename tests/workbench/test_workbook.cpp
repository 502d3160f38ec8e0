#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QtEndian>
#include <algorithm>

#include "SharedInterface.h"
#include "tests/support/HostileWorkbooks.h"
#include "tests/support/TestSupport.h"
#include "tests/support/UnprivilegedUser.h"

namespace testing_support {

namespace {

const QString smallXls = QStringLiteral(SAMPLE_INSTALLATION "/Workbooks/教学楼安装清单.xls");
const QString smallXlsx = QStringLiteral(SAMPLE_INSTALLATION "/Workbooks/教学楼分部分项清单.xlsx");

bool opens(const QString& path) {
    return LibXLExcel::Open(path) != nullptr;
}

/// @return the median of several openings, in nanoseconds.
qint64 timeToOpen(const QString& path) {
    std::vector<qint64> times(31);
    for (qint64& time : times) {
        QElapsedTimer timer;
        timer.start();
        EXPECT_TRUE(opens(path));
        time = timer.nsecsElapsed();
    }
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

QString writeBinary(TemporaryInstallation& installation, const char* name,
                    const QByteArray& stream) {
    return installation.write(QString::fromUtf8(name),
                              compoundFile(QStringLiteral("Workbook"), stream));
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

TEST(Workbook, BothFormatsOpenHoweverLongTheirPathsAre) {
    TemporaryInstallation installation;
    const QString folder =
        QStringLiteral("工程资料/").repeated(60);  // Windows' old limit is 260 signs
    for (const QString& sample : {smallXls, smallXlsx})
        EXPECT_TRUE(opens(installation.write(folder + QStringLiteral("清单"), contentOf(sample))))
            << sample.toStdString();
}

TEST(Workbook, WhatIsNoWorkbookDoesNotOpen) {
    TemporaryInstallation installation;
    const QByteArray xls = contentOf(smallXls);
    const QByteArray xlsx = contentOf(smallXlsx);
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
         compoundFile(QStringLiteral("Workbook"), withPassword(workbookStream()))},
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

TEST(Workbook, ABinaryWorkbookOpensByWhatStandsBeforeItsSheets) {
    const QByteArray whole = workbookStream();
    const QByteArray texts = QByteArray::fromHex("fc000800") + QByteArray(8, '\xFF');
    const QByteArray manyGlobals =
        (QByteArray::fromHex("31000020") + QByteArray(0x2000, '\0')).repeated(200);
    const struct {
        const char* title;
        QByteArray stream;
        bool opens;
    } rows[] = {
        {"a workbook", whole, true},
        {"300 sheets", workbookStream(sheetNames(300)), true},
        {"no record at all", QByteArray(5000, '\0'), false},
        {"no beginning", whole.mid(20), false},
        {"no sheet's end", whole.left(whole.size() - 4), true},
        {"broken texts", workbookStream(sheetNames(2), 0, texts), true},
        {"more than a megabyte before the sheets", workbookStream(sheetNames(2), 0, manyGlobals),
         true},
        {"a password, and more than a megabyte",
         withPassword(workbookStream(sheetNames(2), 0, manyGlobals)), false},
    };
    TemporaryInstallation installation;
    for (const auto& row : rows) {
        EXPECT_EQ(opens(writeBinary(installation, "a.xls", row.stream)), row.opens) << row.title;
    }
}

TEST(Workbook, ACutBinaryWorkbookDoesNotOpenWhereverItIsCut) {
    TemporaryInstallation installation;
    const QByteArray whole =
        compoundFile(QStringLiteral("Workbook"), workbookStream(sheetNames(3), 9 * 1024 * 1024));
    const int size = int(whole.size());
    for (int kept : {100, 512, 1000, 5000, 1 << 20, size - 100000, size - 512}) {
        EXPECT_FALSE(opens(installation.write(QStringLiteral("a.xls"), whole.left(kept)))) << kept;
    }
}

TEST(Workbook, ASmallWorkbookLiesInsideAnotherStream) {
    TemporaryInstallation installation;
    const QByteArray stream = workbookStream(sheetNames(3));
    ASSERT_LT(stream.size(), 3584);
    const QByteArray whole = smallCompoundFile(stream);
    const auto opensWith = [&](int at, quint32 value) {
        QByteArray forged = whole;
        if (at >= 0) qToLittleEndian(value, forged.data() + at);
        return opens(installation.write(QStringLiteral("a.xls"), forged));
    };
    const int root = 9 * 512, entry = root + 128;
    EXPECT_TRUE(opensWith(-1, 0));
    EXPECT_FALSE(opensWith(60, 8)) << "the directory in place of the table";
    EXPECT_FALSE(opensWith(60, 0xFFFFFFF0)) << "the table lies outside";
    EXPECT_FALSE(opensWith(root + 116, 1)) << "the small sectors lie elsewhere";
    EXPECT_FALSE(opensWith(root + 120, 1 << 20)) << "more of them than the file holds";
    EXPECT_FALSE(opensWith(entry + 116, 0xFFFFFFF0)) << "begins outside";
    EXPECT_FALSE(opensWith(entry + 120, 30)) << "ends before its sheets";
    EXPECT_FALSE(opens(
        installation.write(QStringLiteral("a.xls"), smallCompoundFile(withPassword(stream)))));
}

TEST(Workbook, AnOldWorkbookHasAnotherName) {
    TemporaryInstallation installation;
    QByteArray stream = workbookStream();
    stream[5] = 5;  // the version of 1995
    const QByteArray whole = compoundFile(QStringLiteral("Book"), stream);
    EXPECT_TRUE(opens(installation.write(QStringLiteral("a.xls"), whole)));
    EXPECT_FALSE(opens(installation.write(
        QStringLiteral("b.xls"), compoundFile(QStringLiteral("Book"), withPassword(stream)))));
}

/// FreeXL would read as many bytes behind the name as the entry says.
TEST(Workbook, ANameOfImpossibleLengthIsNotHandedToTheReader) {
    const QByteArray globals =
        (QByteArray::fromHex("31000020") + QByteArray(0x2000, '\0')).repeated(200);
    TemporaryInstallation installation;
    for (const QByteArray& before : {QByteArray(), globals}) {
        const QByteArray whole =
            compoundFile(QStringLiteral("Workbook"), workbookStream(sheetNames(2), 0, before));
        const int directory = int(qFromLittleEndian<quint32>(whole.constData() + 48) + 1) * 512;
        for (const int entry : {0, 1, 2}) {  // the second is the workbook's own
            for (const quint16 length : {16, 18, 22, 64, 65, 1000, 32768, 65535}) {
                QByteArray forged = whole;
                qToLittleEndian(length, forged.data() + directory + 128 * entry + 64);
                // Of the others the copy keeps nothing.
                EXPECT_EQ(opens(installation.write(QStringLiteral("a.xls"), forged)),
                          entry != 1 || length == 18)
                    << before.size() << " " << entry << " " << length;
            }
        }
    }
}

/// With each of these FreeXL loses memory, or reads and writes where nothing is its own.
TEST(Workbook, WhatTheReaderWouldBelieveIsNotHandedToIt) {
    const auto forged = [](const QByteArray& stream, int at, const QByteArray& bytes) {
        QByteArray file = compoundFile(QStringLiteral("Workbook"), stream);
        const int directory = int(qFromLittleEndian<quint32>(file.constData() + 48) + 1) * 512;
        return file.replace(directory + at, bytes.size(), bytes);
    };
    constexpr int ownLength = 128 + 120;
    const QByteArray whole = workbookStream();
    const QByteArray size = QByteArray::fromHex("00020e000000000003000000000006000000");
    const QByteArray sizedTwice = whole.chopped(4) + size + size;
    const QByteArray impossibleFormat = QByteArray::fromHex("1e0406000000ffff0141");
    const struct {
        const char* title;
        QByteArray file;
        bool opens;
    } rows[] = {
        {"a sheet whose size comes twice", forged(sizedTwice, 0, {}), true},
        {"a stream longer than the file", forged(sizedTwice, ownLength, {"\0\0\x10\0", 4}), false},
        {"a format longer than its record",
         forged(workbookStream(sheetNames(1), 0, impossibleFormat), 0, {}), true},
    };
    TemporaryInstallation installation;
    for (const auto& row : rows) {
        EXPECT_EQ(opens(installation.write(QStringLiteral("a.xls"), row.file)), row.opens)
            << row.title;
    }
}

TEST(Workbook, AForgedFileIsNotReadForLong) {
    constexpr int size = 50 * 1024 * 1024;
    const QByteArray beginning = workbookStream().left(20);
    const QByteArray sheet = workbookStream().mid(26, 26);
    const QByteArray empty("\x01\0\0\0", 4);
    TemporaryInstallation installation;
    for (const QByteArray& record : {empty, sheet}) {
        const QString path =
            writeBinary(installation, "a.xls", beginning + record.repeated(size / record.size()));
        QElapsedTimer timer;
        timer.start();
        opens(path);
        EXPECT_LT(timer.elapsed(), 3000) << record.size();
    }
}

TEST(Workbook, APackageOpensOnlyWithAWorkbookInIt) {
    const QVector<Part> whole = workbookParts();
    const struct {
        const char* title;
        QVector<Part> parts;
        bool opens;
    } rows[] = {
        {"a workbook", whole, true},
        {"300 sheets", workbookParts(sheetNames(300)), true},
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

TEST(Workbook, FiftyMegabytesOpenAboutAsFastAsTheSmallest) {
    TemporaryInstallation installation;
    constexpr int size = 50 * 1024 * 1024;
    const QString small = installation.path(QStringLiteral("small.xlsx"));
    const QString big = installation.path(QStringLiteral("big.xlsx"));
    writePackage(small, workbookParts());
    writeLargePackage(big, size);
    ASSERT_GT(QFileInfo(big).size(), size);
    EXPECT_LE(timeToOpen(big), 5 * timeToOpen(small));

    const QString smallBinary = writeBinary(installation, "small.xls", workbookStream());
    const QString bigBinary =
        writeBinary(installation, "big.xls", workbookStream(sheetNames(1), size));
    ASSERT_GT(QFileInfo(bigBinary).size(), size);
    EXPECT_LE(timeToOpen(bigBinary), 5 * timeToOpen(smallBinary));
}

#ifdef Q_OS_UNIX
TEST(Workbook, AFileWithoutReadPermissionDoesNotOpen) {
    TemporaryInstallation installation;
    const QString path = installation.write(QStringLiteral("a.xlsx"), contentOf(smallXlsx));
    const QString open = installation.write(QStringLiteral("b.xlsx"), contentOf(smallXlsx));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::WriteOwner));
    ASSERT_TRUE(QFile::setPermissions(open, QFile::ReadOwner | QFile::ReadOther));
    const UnprivilegedUser user(installation.folder());
    EXPECT_FALSE(opens(path));
    EXPECT_TRUE(opens(open)) << "what others may read";
}
#endif

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
