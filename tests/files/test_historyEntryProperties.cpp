#include "files/historyEntry.h"
#include "tests/files/historyRecords.h"
#include "tests/support/properties.h"

namespace {

using newpro::HistoryEntry;
using newpro::HistoryLayout;
using newpro::parseHistoryEntry;
using namespace files_tests;

RC_GTEST_PROP(HistoryEntryParser, IsTotalAndAnswersOnlyWhatStandsInTheText, ()) {
    const QString text = *testing_support::anyText(QStringLiteral("##\x1f\x1f\x1f.bdyp"));
    const std::optional<HistoryEntry> entry = parseHistoryEntry(text);
    if (!entry) return;
    const QStringList fields = newpro::historyFields(text);
    const bool record =
        entry->layout == HistoryLayout::LocalRecord || entry->layout == HistoryLayout::CloudRecord;
    const int count = entry->isLocal() ? 7 : 15;
    RC_ASSERT(record == (fields.size() == count));
    RC_ASSERT(!entry->path.isEmpty());
    RC_ASSERT(fields.value(record ? 0 : 1) == entry->path);
    RC_ASSERT(entry->suffix.isEmpty() == entry->isLocal());
    RC_ASSERT(!entry->suffix.contains(QLatin1Char('.')));
    RC_ASSERT(entry->suffix == entry->suffix.toUpper());
}

RC_GTEST_PROP(HistoryEntryParser, FindsEveryPathThatWasWritten, ()) {
    const bool cloud = *rc::gen::arbitrary<bool>();
    const bool marked = *rc::gen::arbitrary<bool>();
    const bool units = *rc::gen::arbitrary<bool>();
    QString path = *testing_support::anyText(QStringLiteral("/.#工程")) + QLatin1Char('x');
    path.remove(QChar(0x1F)).remove(QChar::Null);
    if (!units) path.remove(QLatin1Char('#'));
    if (cloud) path += QLatin1String(".Gcf");
    const QString separator = units ? unit : hashes;
    // A local record of 7 fields cannot be written with U+001F, which takes 9.
    RC_PRE(cloud || marked || !units);
    const QString entry = marked
                              ? text(cloud ? "yp" : "bd") + separator + record(path, 8, separator)
                              : record(path, cloud ? 15 : 7, separator);
    const std::optional<HistoryEntry> read = parseHistoryEntry(entry);
    RC_ASSERT(bool(read));
    RC_ASSERT(read->path == path);
    RC_ASSERT(read->isLocal() == !cloud);
    RC_ASSERT(read->suffix == (cloud ? text("GCF") : QString()));
}

}  // namespace
