#include "files/historyEntry.h"

#include "tests/files/historyRecords.h"
#include "tests/support/TestSupport.h"

namespace {

using newpro::HistoryEntry;
using newpro::HistoryLayout;
using newpro::parseHistoryEntry;
using namespace files_tests;

TEST(HistoryEntryParser, EveryLayoutIsRecognised) {
    const QString path = text("/工程/a##b.gcfx");
    const struct {
        const char* name;
        QString entry;
        HistoryLayout layout;
        QString path;
        QString suffix;
    } rows[] = {
        {"7 fields",
         record(text("/a/b.GCFX"), 7, hashes),
         HistoryLayout::LocalRecord,
         text("/a/b.GCFX"),
         {}},
        {"15 hash fields", record(text("企业云盘/b.gcfx"), 15, hashes), HistoryLayout::CloudRecord,
         text("企业云盘/b.gcfx"), text("GCFX")},
        {"15 unit fields, hashes in the path", record(path, 15, unit), HistoryLayout::CloudRecord,
         path, text("GCFX")},
        {"a hash of its own at the beginning",
         record(text("#1楼.GCFX"), 7, hashes),
         HistoryLayout::LocalRecord,
         text("#1楼.GCFX"),
         {}},
        {"marked local", text("bd##/a/b"), HistoryLayout::MarkedLocal, text("/a/b"), {}},
        {"marked cloud", text("yp##x.y.GCF"), HistoryLayout::MarkedCloud, text("x.y.GCF"),
         text("GCF")},
        {"marked local, 9 unit fields",
         text("bd") + unit + record(text("/a"), 8, unit),
         HistoryLayout::MarkedLocal,
         text("/a"),
         {}},
        {"marked cloud, 3 fields", text("yp##/a.b##c"), HistoryLayout::MarkedCloud, text("/a.b"),
         text("B")},
        {"7 fields named bd: a path all the same",
         record(text("bd"), 7, hashes),
         HistoryLayout::LocalRecord,
         text("bd"),
         {}},
        {"15 fields named yp.x: a path all the same", record(text("yp.x"), 15, hashes),
         HistoryLayout::CloudRecord, text("yp.x"), text("X")},
        {"a dot at the end does not count", text("yp##a.gcf."), HistoryLayout::MarkedCloud,
         text("a.gcf."), text("GCF")},
        {"the only dot at the end", text("yp##gcf."), HistoryLayout::MarkedCloud, text("gcf."),
         text("GCF")},
        {"blanks belong to the path",
         text("bd## /a "),
         HistoryLayout::MarkedLocal,
         text(" /a "),
         {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<HistoryEntry> entry = parseHistoryEntry(row.entry);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->layout, row.layout);
        EXPECT_EQ(entry->path, row.path);
        EXPECT_EQ(entry->suffix, row.suffix);
    }
}

TEST(HistoryEntryParser, EverythingElseIsSkipped) {
    const QString rows[] = {
        QString(),
        text("/a/b.GCFX"),
        text("BD##/a/b.GCFX"),
        text(" bd##/a/b.GCFX"),
        text("bd"),
        text("bd##"),
        text("yp"),
        text("yp##"),
        text("yp##none"),
        text("yp##..."),
        text("bd") + unit + text("/a/b.GCFX"),
        record(text("/a/b.GCFX"), 6, hashes),
        record(text("/a/b.GCFX"), 8, hashes),
        record(text("/a/b.GCFX"), 7, unit),
        record(text("/a/b.GCFX"), 9, unit),
        record(text("none"), 15, unit),
        record(QString(), 7, hashes),
        record(QString(), 15, unit),
        text("bd##/a") + QChar(QChar::Null) + text("b.GCFX"),
        text("yp##企业云盘/a.GCFX") + QChar(QChar::Null),
        record(QString(QChar::Null), 7, hashes),
        record(text("企业云盘/a.GCFX") + QChar(QChar::Null), 15, unit),
    };
    for (const QString& row : rows) {
        EXPECT_FALSE(parseHistoryEntry(row)) << row.toStdString();
    }
}

TEST(HistoryEntryParser, OnlyThePathMayNotHaveANull) {
    const QString rest = QString(QChar::Null);
    EXPECT_TRUE(parseHistoryEntry(text("bd##/a.GCFX##") + rest));
    EXPECT_TRUE(parseHistoryEntry(record(text("/a.GCFX"), 6, hashes) + hashes + rest));
}

TEST(HistoryEntryParser, LongAndStrangeNamesComeThrough) {
    const QString names[] = {QString(255, QLatin1Char('n')),
                             text("锦江区第三中学").repeated(36),
                             text("😀👨‍👩‍👧.x"),
                             text("单引'双\" ` $(a) \\ #b%20c"),
                             text("a\tb\nc"),
                             QString(QChar(0xD800))};
    for (const QString& name : names) {
        const QString path = text("企业云盘/") + name + text(".gcfx");
        for (const QString& separator : {hashes, unit}) {
            const std::optional<HistoryEntry> entry =
                parseHistoryEntry(record(path, 15, separator));
            ASSERT_TRUE(entry);
            EXPECT_EQ(entry->path, path);
            EXPECT_EQ(entry->suffix, text("GCFX"));
        }
        EXPECT_EQ(parseHistoryEntry(text("bd##/") + name)->path, text("/") + name);
    }
}

TEST(HistoryEntryParser, NineUnitFieldsDecideTheSeparator) {
    EXPECT_EQ(newpro::historyFields(record(text("a##b"), 9, unit)).size(), 9);
    EXPECT_EQ(newpro::historyFields(record(text("a##b"), 8, unit)).size(), 2);
    EXPECT_EQ(newpro::historyFields(QString()).size(), 1);
}

}  // namespace
