// What the host's file dialog lists, and in which order.
#include <QElapsedTimer>

#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/fileDialog/FileFilter.h"
#include "workbench/hostlibs/fileDialog/FileListModel.h"

using namespace testing_support;
using workbench::FileListModel;

TEST(FileFilter, ReadsDescriptionAndSuffixes) {
    struct Case {
        QStringList entries;
        const char* text;
        const char* accepted;
        const char* refused;
    };
    const auto s = [](const char* text) { return QString::fromUtf8(text); };
    const Case cases[] = {
        {{}, "所有文件 (*.*)", "a.x", nullptr},
        {{s("GCFX")}, "支持的文件 (*.GCFX)", "a.gcfx", "a.GCF"},
        {{s("Excel文件"), s("xls"), s("xlsx")}, "Excel文件 (*.xls; *.xlsx)", "a.b.XLSX", "xls"},
        {{s("*.xls"), s(".XLS")}, "支持的文件 (*.xls)", "A.xls", "a.xlsx"},
        {{s("全部"), s("*.*")}, "全部 (*.*)", "no suffix", nullptr},
        {{s("工程文件")}, "工程文件 (*.*)", "a", nullptr},
    };
    for (const Case& each : cases) {
        const auto filter = workbench::FileFilter::fromList(each.entries);
        EXPECT_EQ(filter.text(), s(each.text));
        EXPECT_TRUE(filter.accepts(s(each.accepted))) << each.text;
        if (each.refused) {
            EXPECT_FALSE(filter.accepts(s(each.refused))) << each.text;
        }
    }
}

TEST(FileList, ShowsFoldersFirstAndComparesNamesWithoutCaseAndByNumber) {
    FileListModel model;
    model.setEntries({{QStringLiteral("b10.x"), false, 1, {}},
                      {QStringLiteral("B2.x"), false, 3, {}},
                      {QStringLiteral("a.y"), false, 2, {}},
                      {QStringLiteral("z"), true, 0, {}},
                      {QStringLiteral("Y"), true, 0, {}}});
    const auto names = [&model] {
        Lines lines;
        for (int row = 0; row < model.rowCount(); ++row)
            lines.push_back(model.entry(row).name.toStdString());
        return lines;
    };
    EXPECT_EQ(names(), (Lines{"Y", "z", "a.y", "B2.x", "b10.x"}));
    model.sort(FileListModel::NameColumn, Qt::DescendingOrder);
    EXPECT_EQ(names(), (Lines{"z", "Y", "b10.x", "B2.x", "a.y"}));
    model.sort(FileListModel::SizeColumn, Qt::AscendingOrder);
    EXPECT_EQ(names(), (Lines{"Y", "z", "b10.x", "a.y", "B2.x"}));
    model.sort(FileListModel::TypeColumn, Qt::AscendingOrder);
    EXPECT_EQ(names(), (Lines{"Y", "z", "B2.x", "b10.x", "a.y"}));
    model.setFilter(workbench::FileFilter::fromList({QStringLiteral("Y")}), false);
    EXPECT_EQ(names(), (Lines{"Y", "z", "a.y"}));
}

TEST(FileList, FiveThousandEntriesAreThereAtOnce) {
    QVector<workbench::FileEntry> entries;
    for (int i = 0; i < 5000; ++i)
        entries.append({QStringLiteral("工程文件%1.GCFX").arg(i * 7919 % 5000), false, i, {}});
    QElapsedTimer clock;
    clock.start();
    FileListModel model;
    model.setEntries(entries);
    EXPECT_LT(clock.elapsed(), 1500);
    EXPECT_EQ(model.entry(10).name, QStringLiteral("工程文件10.GCFX"));
}
