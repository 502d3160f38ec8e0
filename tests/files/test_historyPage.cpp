#include <QFile>
#include <QRegularExpression>

#include "files/cloudDisk.h"
#include "files/historyEntry.h"
#include "tests/support/TestSupport.h"

namespace {

using newpro::HistoryLayout;

/// The examples of docs/writing-a-host.md by the name of their layout.
QMap<QString, QString> examplesOfThePage() {
    QFile page(QStringLiteral(REPOSITORY "/docs/writing-a-host.md"));
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    const QString section = QString::fromUtf8(page.readAll())
                                .section(QStringLiteral("\n## The history\n"), 1)
                                .section(QStringLiteral("\n## "), 0, 0);
    const QRegularExpression row(QStringLiteral("^\\| ([^|]+) \\| `([^`]+)` \\|$"),
                                 QRegularExpression::MultilineOption);
    QMap<QString, QString> examples;
    for (auto found = row.globalMatch(section); found.hasNext();) {
        const auto cells = found.next();
        examples.insert(cells.captured(1), cells.captured(2));
    }
    return examples;
}

const struct {
    const char* name;
    HistoryLayout layout;
    const char* path;
    const char* suffix;  ///< Of cloud entries alone.
} layouts[] = {
    {"local, marked", HistoryLayout::MarkedLocal, "C:/工程/a.GCFX", ""},
    {"cloud disk, marked", HistoryLayout::MarkedCloud, "个人云盘/练习/b.GCF", "GCF"},
    {"local record, seven fields", HistoryLayout::LocalRecord, "C:/工程/a.GCFX", ""},
    {"cloud record, fifteen fields", HistoryLayout::CloudRecord, "企业云盘/造价一部/c.GCFX",
     "GCFX"},
};

TEST(HistoryPage, ItsExamplesAreReadAsTheLayoutsThatTheyAreCalled) {
    const QMap<QString, QString> examples = examplesOfThePage();
    EXPECT_EQ(examples.size(), int(std::size(layouts)));
    for (const auto& row : layouts) {
        const auto entry = newpro::parseHistoryEntry(examples.value(QLatin1String(row.name)));
        ASSERT_TRUE(entry) << row.name;
        EXPECT_EQ(entry->layout, row.layout) << row.name;
        EXPECT_EQ(entry->path, QString::fromUtf8(row.path)) << row.name;
        EXPECT_EQ(entry->suffix, QLatin1String(row.suffix)) << row.name;
    }
}

TEST(HistoryPage, ItsOtherSeparatorSplitsWhatHasNineFieldsOrMore) {
    const QMap<QString, QString> examples = examplesOfThePage();
    for (const auto& row : layouts) {
        QString text = examples.value(QLatin1String(row.name));
        text.replace(QStringLiteral("##"), QString(QChar(0x1F)));
        const auto entry = newpro::parseHistoryEntry(text);
        const bool longEnough = row.layout == HistoryLayout::CloudRecord;
        ASSERT_EQ(bool(entry), longEnough) << row.name;
        EXPECT_EQ(entry ? entry->path : QString(),
                  longEnough ? QString::fromUtf8(row.path) : QString())
            << row.name;
    }
}

/// FileList.Ini is written like the history, and read for who owns a cloud file.
TEST(HistoryPage, ItsCloudRecordNamesAnOwner) {
    const QString record =
        examplesOfThePage().value(QStringLiteral("cloud record, fifteen fields"));
    const QString path = QStringLiteral("企业云盘/造价一部/c.GCFX");
    EXPECT_FALSE(newpro::belongsToAnother({record}, path, QStringLiteral("u1")));
    EXPECT_TRUE(newpro::belongsToAnother({record}, path, QStringLiteral("u2")));
}

}  // namespace
