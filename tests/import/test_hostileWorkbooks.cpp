#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <memory>

#include "tests/import/ExcelSelection.h"
#include "tests/support/HostileWorkbooks.h"
#include "tests/support/PeakMemory.h"
#include "tests/support/UnprivilegedUser.h"

namespace {

using namespace testing_support;

constexpr int megabyte = 1024 * 1024;
constexpr qint64 mostMemory = 200LL * megabyte;
const char refusal[] =
    "box showInforByOneBtn(\"提示\", \"文件打开失败！\\r\\n①请检查excel文件是否被占用\\r\\n"
    "②请检查是否为正确的excel文件\\r\\n完成上述操作后重新打开。如果仍然提示该错误，请联系开发商"
    "协助解决问题\", [\"确定\"])";

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(content), content.size());
}

QByteArray binaryWorkbook(const QStringList& sheets = sheetNames(1), int sheetBytes = 0) {
    return compoundFile(QStringLiteral("Workbook"), workbookStream(sheets, sheetBytes));
}

/// Ten gigabytes of blanks in place of one of the parts.
void writeTenGigabytes(const QString& path, int part) {
    QVector<Part> parts = workbookParts();
    parts[part].content = QByteArray(16 * megabyte, ' ');
    parts[part].repeat = 640;
    writePackage(path, parts);
    EXPECT_LT(QFileInfo(path).size(), 64 * megabyte);
}

struct Hostile {
    const char* title;
    const char* name;
    bool accepted;
    std::function<void(const QString& path)> write;
};

const QStringList wideNames{utf("分部分项清单"), utf("😀🏗️"), utf("안녕 日本")};

const Hostile table[] = {
    {"empty", "a.xlsx", false, [](const QString& path) { writeFile(path, {}); }},
    {"text", "a.xlsx", false, [](const QString& path) { writeFile(path, "序号,项目编码\n"); }},
    {"a package cut in the middle", "a.xlsx", false,
     [](const QString& path) {
         writePackage(path, workbookParts());
         ASSERT_TRUE(QFile::resize(path, QFileInfo(path).size() / 2));
     }},
    {"a binary workbook cut in the middle", "a.xls", false,
     [](const QString& path) { writeFile(path, binaryWorkbook().left(2000)); }},
    {"a large binary workbook cut in the middle", "a.xls", false,
     [](const QString& path) {
         writeFile(path, binaryWorkbook(sheetNames(1), 50 * megabyte).left(25 * megabyte));
     }},
    {"an encrypted package", "a.xlsx", false,
     [](const QString& path) {
         writeFile(path, compoundFile(QStringLiteral("EncryptedPackage"), QByteArray(80000, 'Z')));
     }},
    {"an encrypted binary workbook", "a.xls", false,
     [](const QString& path) {
         writeFile(path, compoundFile(QStringLiteral("Workbook"), withPassword(workbookStream())));
     }},
    {"an archive without workbook", "a.xlsx", false,
     [](const QString& path) {
         writePackage(path, {{QStringLiteral("a.txt"), "a"}});
     }},
    {"ten gigabytes in place of the list of sheets", "a.xlsx", false,
     [](const QString& path) { writeTenGigabytes(path, 1); }},
    {"a sheet of ten gigabytes", "a.xlsx", true,
     [](const QString& path) { writeTenGigabytes(path, 2); }},
    {"a lock file", "~$a.xlsx", false,
     [](const QString& path) { writePackage(path, workbookParts()); }},
#ifdef Q_OS_UNIX
    {"a file without read permission", "a.xlsx", false,
     [](const QString& path) {
         writePackage(path, workbookParts());
         ASSERT_TRUE(QFile::setPermissions(path, QFile::WriteOwner));
     }},
#endif
    {"50 MB in one sheet of a package", "a.xlsx", true,
     [](const QString& path) { writeLargePackage(path, 50 * megabyte); }},
    {"50 MB in one sheet of a binary workbook", "a.xls", true,
     [](const QString& path) { writeFile(path, binaryWorkbook(sheetNames(1), 50 * megabyte)); }},
    {"300 sheets of a package", "a.xlsx", true,
     [](const QString& path) { writePackage(path, workbookParts(sheetNames(300))); }},
    {"300 sheets of a binary workbook", "a.xls", true,
     [](const QString& path) { writeFile(path, binaryWorkbook(sheetNames(300))); }},
    {"wide names of a package", "清单 😀🏗️ 안녕.xlsx", true,
     [](const QString& path) { writePackage(path, workbookParts(wideNames)); }},
    {"wide names of a binary workbook", "清单 😀🏗️ 안녕.xls", true,
     [](const QString& path) { writeFile(path, binaryWorkbook(wideNames)); }},
};

struct HostileSelection : ExcelSelection {
    void choose(importExcelSelFile& dialog, const QString& path) {
        const UnprivilegedUser user(installation.folder());
        answerWith(path);
        press(dialog, "btnSelFile");
    }
    /// @return the median of the times that choosing the workbook takes, in nanoseconds.
    qint64 timeToChoose(const QString& path) {
        std::vector<qint64> times(21);
        for (qint64& time : times) {
            importExcelSelFile dialog(nullptr);
            answerWith(path);
            QElapsedTimer timer;
            timer.start();
            EXPECT_TRUE(QMetaObject::invokeMethod(&dialog, "slotClickedSelExcelFile"));
            time = timer.nsecsElapsed();
            EXPECT_EQ(dialog.GetPath(), path);
        }
        std::sort(times.begin(), times.end());
        return times.at(times.size() / 2);
    }
};

TEST_F(HostileSelection, accepts_what_opens_and_refuses_the_rest_within_the_memory) {
    for (const Hostile& row : table) {
        SCOPED_TRACE(row.title);
        const QString path = installation.path(utf(row.name));
        row.write(path);
        importExcelSelFile dialog(nullptr);
        clearJournal();
        const PeakMemory memory;
        choose(dialog, path);
        EXPECT_LT(memory.growth(), mostMemory);
        if (row.accepted) {
            EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
            EXPECT_FALSE(dialog.isVisible());
            EXPECT_EQ(dialog.GetImportType(), 0);
            EXPECT_EQ(dialog.GetPath(), path);
            EXPECT_EQ(dialog.GetJjms(), QStringLiteral("一般甲"));
        } else {
            expectNothingChosen(dialog);
        }
        EXPECT_EQ(journalLines({"box"}), row.accepted ? Lines() : Lines{refusal});
        ASSERT_TRUE(QFile::remove(path));
    }
}

TEST_F(HostileSelection, takes_a_large_workbook_about_as_fast_as_the_smallest) {
    const QString path = installation.path(QStringLiteral("a"));
    writePackage(path, workbookParts());
    const qint64 smallPackage = timeToChoose(path);
    writeLargePackage(path, 50 * megabyte);
    EXPECT_GT(QFileInfo(path).size(), 50 * megabyte);
    EXPECT_LE(timeToChoose(path), 5 * smallPackage);

    writeFile(path, binaryWorkbook());
    const qint64 smallBinary = timeToChoose(path);
    writeFile(path, binaryWorkbook(sheetNames(1), 50 * megabyte));
    EXPECT_GT(QFileInfo(path).size(), 50 * megabyte);
    EXPECT_LE(timeToChoose(path), 5 * smallBinary);
}

}  // namespace
