#include "workbench/scenario/Scenario.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include "workbench/base/Schema.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/scenario/verbs.h"

namespace workbench {

namespace {

const Fields& entryFields() {
    static const Fields fields = {field("seq", Shape::Whole),
                                  field("ms", Shape::Whole),
                                  word("kind", "call signal dialog box exception project"),
                                  field("name", Shape::Text),
                                  field("args", Shape::Array),
                                  field("answer", Shape::Anything),
                                  word("event", "opened done"),
                                  field("result", Shape::Whole)};
    return fields;
}

const Fields& scenarioFields() {
    static const Fields only = {field("names", Shape::Texts),
                                field("list", Shape::Objects, true, entryFields())};
    static const Fields fields = {
        field("title", Shape::Text, true),
        field("installation", Shape::Path),
        field("host", Shape::Object, false, hostFields()),
        field("dialog", Shape::Object, false,
              {field("hostMode", Shape::Whole), field("showImportTender", Shape::Truth),
               field("history", Shape::Texts)}),
        field("steps", Shape::Array, true),
        field("expect", Shape::Object, false,
              {field("inOrder", Shape::Objects, false, entryFields()),
               field("never", Shape::Objects, false, entryFields()),
               field("only", Shape::Object, false, only)})};
    return fields;
}

Step readStep(const JsonPlace& place) {
    const JsonPlace name = place.member("do");
    const Verb* verb = verbNamed(name.text());
    if (!verb) name.fail(QStringLiteral("unknown verb \"%1\"").arg(name.text()));
    requireFields(place, Fields{field("do", Shape::Text, true)} + verb->fields);
    Step step{verb->name, place.raw().toObject()};
    step.args.remove(QLatin1String("do"));
    // The one member that another one calls for.
    if (step.args.value(QLatin1String("use")) == QLatin1String("menu")) place.member("mode");
    return step;
}

QVector<QJsonObject> objects(const QJsonValue& array) {
    QVector<QJsonObject> list;
    const QJsonArray values = array.toArray();
    for (const QJsonValue& value : values) list.append(value.toObject());
    return list;
}

QStringList texts(const QJsonValue& array) {
    return array.toVariant().toStringList();
}

Expectations readExpectations(const QJsonObject& json) {
    Expectations expect;
    expect.inOrder = objects(json[u"inOrder"]);
    expect.never = objects(json[u"never"]);
    const QJsonValue only = json[u"only"];
    expect.hasOnly = only.isObject();
    if (only[u"names"].isArray()) expect.onlyNames = texts(only[u"names"]);
    expect.onlyList = objects(only[u"list"]);
    return expect;
}

DialogSetup readDialog(const QJsonObject& json) {
    DialogSetup setup;
    setup.hostMode = json[u"hostMode"].toInt(0);
    setup.showImportTender = json[u"showImportTender"].toBool(true);
    if (json.contains(QLatin1String("history"))) setup.history = texts(json[u"history"]);
    return setup;
}

Scenario scenarioFrom(const JsonPlace& root) {
    requireFields(root, scenarioFields());
    const QJsonObject json = root.raw().toObject();
    Scenario scenario;
    scenario.title = json[u"title"].toString();
    scenario.installation = json[u"installation"].toString();
    scenario.host = json[u"host"].toObject();
    scenario.dialog = readDialog(json[u"dialog"].toObject());
    scenario.expect = readExpectations(json[u"expect"].toObject());
    for (const JsonPlace& step : root.member("steps").items())
        scenario.steps.append(readStep(step));
    return scenario;
}

const QString placeholder = QStringLiteral("{installation}");

}  // namespace

bool readScenario(const QString& file, Scenario& into, QString& error) {
    try {
        const JsonFile json(file);
        Scenario scenario = scenarioFrom(JsonPlace(json));
        scenario.file = file;
        const QDir folder = QFileInfo(file).absoluteDir();
        if (!scenario.installation.isEmpty())
            scenario.installation = QDir::cleanPath(folder.absoluteFilePath(scenario.installation));
        into = scenario;
        return true;
    } catch (const JsonError& wrong) {
        error = wrong.text;
        return false;
    }
}

const QString dayPlaceholder = QStringLiteral("{day}");

QJsonValue withTexts(const QJsonValue& value, const QString& from, const QString& to) {
    if (value.isString()) return value.toString().replace(from, to);
    if (value.isArray()) {
        QJsonArray array = value.toArray();
        for (auto it = array.begin(); it != array.end(); ++it) *it = withTexts(*it, from, to);
        return array;
    }
    if (!value.isObject()) return value;
    QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) *it = withTexts(*it, from, to);
    return object;
}

QJsonValue filledIn(const QJsonValue& value, const QString& folder) {
    return withTexts(value, placeholder, folder);
}

QJsonValue withPlaceholder(const QJsonValue& value, const QString& folder) {
    return folder.isEmpty() ? value : withTexts(value, folder, placeholder);
}

}  // namespace workbench
