#include "models/feeRecords.h"

#include <QElapsedTimer>
#include <algorithm>

#include "tests/support/TestSupport.h"

namespace {

using newpro::RecordIndex;
using newpro::recordOf;
using ProjectSettingSpace::PricingModelInfoMap;

/// @param mode tells the record apart from others of its key.
void add(PricingModelInfoMap& records, const char* name, const char* key, const char* mode) {
    records.insert(QString::fromUtf8(name),
                   testing_support::pricing(QString::fromUtf8(key), {}, QString::fromUtf8(mode)));
}

PricingModelInfoMap someRecords() {
    PricingModelInfoMap records;
    add(records, "丙", "k1", "later");
    add(records, "甲", "k2", "of k2");
    add(records, "丁", "k1", "first");
    return records;
}

QString modeOf(const PricingModelInfoMap& records, const char* key) {
    const auto* record = recordOf(records, QString::fromUtf8(key));
    return record ? record->defaultFeeMode : QStringLiteral("none");
}

/// Of two with one key the one whose name comes first.
void expectFound(const PricingModelInfoMap& records) {
    EXPECT_EQ(modeOf(records, "k1"), QStringLiteral("first"));
    EXPECT_EQ(modeOf(records, "k2"), QStringLiteral("of k2"));
    EXPECT_EQ(modeOf(records, "k3"), QStringLiteral("none"));
}

TEST(FeeRecords, AreFoundByTheirKeyWithAndWithoutAnIndex) {
    const PricingModelInfoMap records = someRecords();
    expectFound(records);
    const RecordIndex index;
    for (int again = 0; again < 3; ++again) expectFound(records);
    expectFound(someRecords());
    EXPECT_EQ(modeOf({}, "k1"), QStringLiteral("none"));
}

TEST(FeeRecords, ThatTheHostChangesAreFoundAsTheyAreNow) {
    const RecordIndex index;
    PricingModelInfoMap host = someRecords();
    for (int again = 0; again < 3; ++again) expectFound(PricingModelInfoMap(host));
    host.begin()->key = QStringLiteral("k3");
    add(host, "戊", "k4", "of k4");
    for (int again = 0; again < 3; ++again) {
        const PricingModelInfoMap answer = host;
        EXPECT_EQ(modeOf(answer, "k4"), QStringLiteral("of k4"));
        EXPECT_EQ(modeOf(answer, "k3"), QStringLiteral("first"));
        EXPECT_EQ(modeOf(answer, "k1"), QStringLiteral("later"));
    }
}

TEST(FeeRecords, AnIndexOfAFillingInsideAnotherLeavesItAlone) {
    const PricingModelInfoMap records = someRecords();
    const RecordIndex outer;
    expectFound(records);
    expectFound(records);
    {
        const RecordIndex inner;
        PricingModelInfoMap others;
        add(others, "甲", "k1", "other");
        for (int again = 0; again < 3; ++again)
            EXPECT_EQ(modeOf(others, "k1"), QStringLiteral("other"));
    }
    expectFound(records);
}

TEST(FeeRecords, OfOneFillingAreGoneThroughOnce) {
    PricingModelInfoMap records;
    const int count = 2000;
    for (int i = 0; i < count; ++i)
        add(records, qPrintable(QString::number(i)), qPrintable(QString::number(i)), "whole");
    const RecordIndex index;
    // The index stands as soon as a second record is asked for.
    for (int again = 0; again < 3; ++again)
        EXPECT_NE(recordOf(records, QStringLiteral("0")), nullptr);
    const auto timeToFind = [&](int key) {
        std::vector<qint64> times(31);
        for (qint64& time : times) {
            QElapsedTimer clock;
            clock.start();
            for (int i = 0; i < 100; ++i)
                EXPECT_NE(recordOf(records, QString::number(key)), nullptr);
            time = clock.nsecsElapsed();
        }
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    };
    // Without an index the last is searched behind all others.
    EXPECT_LT(timeToFind(count - 1), 20 * timeToFind(0));
}

}  // namespace
