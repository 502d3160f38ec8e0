/// Any bytes as a scenario file. What passes is applied to the host and judged as a journal.
#include <QJsonArray>
#include <algorithm>

#include "fuzz/support.h"
#include "fuzz/targets.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/Scenario.h"
#include "workbench/scenario/judge.h"
#include "workbench/scenario/verbs.h"

namespace fuzzing {

using workbench::Host;

namespace {

const QString placeholder = QStringLiteral("{installation}");

void requireKnownSteps(const QVector<workbench::Step>& steps) {
    for (const workbench::Step& step : steps) {
        const workbench::Verb* verb = workbench::verbNamed(step.verb);
        require(verb, "a step has a known verb");
        for (const QString& key : step.args.keys()) {
            const auto names = [&](const workbench::Field& field) { return field.key == key; };
            require(std::any_of(verb->fields.begin(), verb->fields.end(), names),
                    "a step has the members of its verb");
        }
    }
}

/// A journal made of what is expected is as expected.
void requireMet(const workbench::Expectations& expect) {
    workbench::Expectations inOrder;
    inOrder.inOrder = expect.inOrder;
    require(workbench::differences(expect.inOrder, inOrder, placeholder).isEmpty(),
            "what is expected in order is found in order");
    workbench::Expectations never;
    never.never = expect.never;
    require(workbench::differences({}, never, placeholder).isEmpty(), "nothing holds nothing");
    workbench::differences(expect.inOrder, expect, placeholder);
}

void requireApplied(const QJsonObject& settings) {
    require(workbench::difference(settings, settings).isEmpty(), "a value does not differ");
    require(workbench::filledIn(settings, placeholder) == settings, "texts are left as they are");
    workbench::applyHostSettings(settings);
    const Host& host = Host::instance();
    require(host.scale() >= 1 && host.scale() <= 3, "the scale is one that the host has");
    for (const auto& answer : Host::instance().switches().fileAnswers) {
        const bool chooses = answer.place != 0 || !answer.cloudPath.isEmpty();
        require(!chooses || !answer.path.isEmpty(), "an answer cancels or chooses");
    }
    Host::instance().reset();
    workbench::Journal::instance().clear();
}

}  // namespace

void fuzzScenario(const QByteArray& input) {
    const QString path = write(QStringLiteral("any.json"), input);
    workbench::Scenario scenario;
    QString error;
    if (!workbench::readScenario(path, scenario, error)) {
        requirePlaced(error, path, input);
        require(scenario.file.isEmpty() && scenario.steps.isEmpty(), "a failure changes nothing");
        return;
    }
    require(error.isEmpty() && scenario.file == path, "the file was read");
    requireKnownSteps(scenario.steps);
    requireApplied(scenario.host);
    requireMet(scenario.expect);
}

}  // namespace fuzzing
