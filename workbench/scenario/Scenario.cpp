#include "workbench/scenario/Scenario.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include "workbench/base/Schema.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/scenario/verbs.h"

namespace workbench {

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

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
    static const Fields only = {field("names", Shape::Texts, true),
                                {text("list"), Shape::Objects, true, {}, entryFields()}};
    static const Fields fields = {
        field("title", Shape::Text, true),
        field("installation", Shape::Path),
        {text("host"), Shape::Object, false, {}, hostFields()},
        {text("dialog"),
         Shape::Object,
         false,
         {},
         {field("hostMode", Shape::Whole), field("showImportTender", Shape::Truth),
          field("history", Shape::Texts)}},
        field("steps", Shape::Array, true),
        {text("expect"),
         Shape::Object,
         false,
         {},
         {{text("inOrder"), Shape::Objects, false, {}, entryFields()},
          {text("never"), Shape::Objects, false, {}, entryFields()},
          {text("only"), Shape::Object, false, {}, only}}}};
    return fields;
}

Step readStep(const JsonPlace& place) {
    const JsonPlace name = place.member("do");
    const Verb* verb = verbNamed(name.text());
    if (!verb) name.fail(QStringLiteral("unknown verb \"%1\"").arg(name.text()));
    requireFields(place, Fields{field("do", Shape::Text, true)} + verb->fields);
    Step step{verb->name, place.raw().toObject()};
    step.args.remove(text("do"));
    // The one member that another one calls for.
    if (step.args.value(text("use")) == QLatin1String("menu")) place.member("mode");
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
    expect.inOrder = objects(json[text("inOrder")]);
    expect.never = objects(json[text("never")]);
    const QJsonValue only = json[text("only")];
    expect.hasOnly = only.isObject();
    expect.onlyNames = texts(only[text("names")]);
    expect.onlyList = objects(only[text("list")]);
    return expect;
}

DialogSetup readDialog(const QJsonObject& json) {
    DialogSetup setup;
    setup.hostMode = json[text("hostMode")].toInt(0);
    setup.showImportTender = json[text("showImportTender")].toBool(true);
    if (json.contains(text("history"))) setup.history = texts(json[text("history")]);
    return setup;
}

Scenario scenarioFrom(const JsonPlace& root) {
    requireFields(root, scenarioFields());
    const QJsonObject json = root.raw().toObject();
    Scenario scenario;
    scenario.title = json[text("title")].toString();
    scenario.installation = json[text("installation")].toString();
    scenario.host = json[text("host")].toObject();
    scenario.dialog = readDialog(json[text("dialog")].toObject());
    scenario.expect = readExpectations(json[text("expect")].toObject());
    for (const JsonPlace& step : root.member("steps").items())
        scenario.steps.append(readStep(step));
    return scenario;
}

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

QJsonValue filledIn(const QJsonValue& value, const QString& folder) {
    if (value.isString()) return value.toString().replace(QLatin1String("{installation}"), folder);
    if (value.isArray()) {
        QJsonArray filled;
        const QJsonArray array = value.toArray();
        for (const QJsonValue& each : array) filled.append(filledIn(each, folder));
        return filled;
    }
    if (!value.isObject()) return value;
    QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) *it = filledIn(*it, folder);
    return object;
}

}  // namespace workbench
