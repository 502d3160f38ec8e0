#include "workbench/record/Recorder.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <iterator>

#include "tests/workbench/ScenarioFixture.h"
#include "workbench/record/scenarioText.h"
#include "workbench/scenario/journalDiff.h"

namespace {

using workbench::Host;
using workbench::PlayResult;
using workbench::Recorder;
using workbench::Scenario;

const char* const slotCalls = "it calls slots and signals";
const char* const hiddenCards = "it uses the list of template cards, which no mouse reaches";

/// The scenarios that do what no hand can, and why: the recorder cannot see it.
const struct {
    const char* name;
    const char* reason;
} beyondHands[] = {{"calls-browse", slotCalls},
                   {"calls-creation", slotCalls},
                   {"calls-history", slotCalls},
                   {"calls-models", slotCalls},
                   {"calls-pages", slotCalls},
                   {"calls-plug-in-manager", slotCalls},
                   {"cloud-broken", slotCalls},
                   {"cloud-disk-alone", slotCalls},
                   {"cloud-download-cancelled", slotCalls},
                   {"cloud-folders-refused", slotCalls},
                   {"cloud-other-user", slotCalls},
                   {"cloud-path-resolved", slotCalls},
                   {"cloud-personal-resolved", slotCalls},
                   {"cloud-refused", slotCalls},
                   {"cloud-slow", slotCalls},
                   {"create-from-page-data", slotCalls},
                   {"flow-template-card-is-listed-next", hiddenCards},
                   {"history-layouts", "the host hands the open dialog another history"},
                   {"page-data-audit", slotCalls},
                   {"page-data-budget", slotCalls},
                   {"page-data-contracting", slotCalls},
                   {"page-data-estimate", slotCalls},
                   {"page-data-of-no-case", slotCalls},
                   {"page-data-settlement", slotCalls},
                   {"signals-never-sent", slotCalls},
                   {"slots-without-page", slotCalls},
                   {"template-card-double-click", hiddenCards},
                   {"template-card-host-absent", hiddenCards},
                   {"template-card-host-busy", hiddenCards},
                   {"tour-3-template-card", hiddenCards}};
/// More than these are a hole in the recorder.
static_assert(std::size(beyondHands) <= 30);

/// @return why no hand can do what a scenario does; null if one can.
const char* beyondHand(const std::string& name) {
    for (const auto& row : beyondHands)
        if (name == row.name) return row.reason;
    return nullptr;
}

class EveryScenario : public testing::TestWithParam<std::string> {};

std::vector<std::string> names() {
    std::vector<std::string> found;
    const QDir folder(QStringLiteral(REPOSITORY "/tests/scenarios"));
    for (const QString& file : folder.entryList({QStringLiteral("*.json")}, QDir::Files))
        found.push_back(QFileInfo(file).completeBaseName().toStdString());
    return found;
}

/// @return the host's members that no switch of the panel shows.
QJsonObject unseen(const QJsonObject& host) {
    QJsonObject kept;
    for (const char* key : {"throw", "areaConfig", "transactions"})
        if (host.contains(QLatin1String(key)))
            kept.insert(QLatin1String(key), host.value(QLatin1String(key)));
    return kept;
}

TEST_P(EveryScenario, RecordedWhileItPlaysPlaysTheSame) {
    const QString name = QString::fromStdString(GetParam());
    Scenario original;
    QString error;
    ASSERT_TRUE(workbench::readScenario(
        QStringLiteral(REPOSITORY "/tests/scenarios/%1.json").arg(name), original, error));
    ASSERT_EQ(Host::instance().loadInstallation(original.installation), QString());
    const char* reason = beyondHand(GetParam());
    workbench::PlayOptions options;
    PlayResult first;
    Scenario recorded;
    QVector<QJsonObject> journal;
    QStringList lost;
    {
        const Recorder recorder;
        first = workbench::play(original, options);
        recorded = recorder.scenario(name);
        journal = recorder.journal();
        lost = recorder.unsaid();
    }
    ASSERT_TRUE(first.asExpected());
    // The player has closed what was left open.
    if (journal.size() > first.journal.size()) recorded.steps.append({QStringLiteral("close"), {}});

    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("s.json")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(workbench::scenarioText(recorded));
    file.close();
    Scenario again;
    ASSERT_TRUE(workbench::readScenario(file.fileName(), again, error)) << error.toStdString();
    again.installation = original.installation;
    again.dialog = original.dialog;
    const QJsonObject more = unseen(original.host);
    for (auto it = more.begin(); it != more.end(); ++it) again.host.insert(it.key(), it.value());
    if (reason) options.stepLimit = 300;  // what is missing will not come
    const PlayResult second = workbench::play(again, options);
    const QStringList differs = workbench::journalDifference(journal, second.journal);
    EXPECT_EQ(second.asExpected() && differs.isEmpty(), !reason)
        << (reason ? reason : "") << "\n"
        << second.ended.toStdString() << "\n"
        << second.differences.join(QLatin1Char('\n')).toStdString() << "\n"
        << workbench::scenarioText(recorded).left(1500).toStdString() << "\n"
        << differs.join(QLatin1Char('\n')).toStdString() << "\n"
        << lost.join(QLatin1Char('\n')).toStdString();
}

std::string nameOfRow(const testing::TestParamInfo<std::string>& row) {
    std::string name = row.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

TEST(BeyondHands, NamesScenariosThatAreThere) {
    const std::vector<std::string> all = names();
    for (const auto& row : beyondHands)
        EXPECT_EQ(std::count(all.begin(), all.end(), row.name), 1) << row.name;
}

INSTANTIATE_TEST_SUITE_P(Recorder, EveryScenario, testing::ValuesIn(names()), nameOfRow);

}  // namespace
