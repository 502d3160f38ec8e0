#include "tests/monkey/sequence.h"

#include <QJsonArray>
#include <QVector>

#include "tests/monkey/Dice.h"
#include "tests/monkey/places.h"
#include "tests/monkey/words.h"
#include "workbench/journal/hostOperations.h"

namespace monkey {

namespace {

using Args = QJsonObject;

QString among(Dice& dice, const char* blankSeparated) {
    return dice.among(QString::fromLatin1(blankSeparated).split(QLatin1Char(' ')));
}

/// @return a few of the words, none too, and some of them more than once.
QJsonArray some(Dice& dice, const QStringList& words, int most) {
    QJsonArray array;
    for (int left = dice.below(most + 1); left > 0; --left) array.append(dice.among(words));
    return array;
}

/// A host throws in what it is asked as well as in the widgets that it makes. Without places the
/// dice fall as they do with them, so that a seed differs in nothing but the names.
QJsonObject throwRule(Dice& dice) {
    static const QStringList operations = workbench::hostOperations();
    static const QStringList places = placeNames().isEmpty() ? operations : placeNames();
    const bool atPlace = dice.onceIn(2);
    const QString call = dice.among(atPlace ? places : operations);
    int most = busyOperations().contains(call) ? 2000 : 4;
    if (atPlace) most = 1 << dice.below(7);  // the first ones, or deep in the cards
    return {{key("call"), call},
            {key("nth"), dice.from(1, most)},
            {key("as"), among(dice, "literal QString std::exception other")},
            {key("text"), QStringLiteral("坏了")}};
}

QJsonObject fileAnswer(Dice& dice) {
    if (dice.onceIn(5)) return {{key("cancel"), true}};
    return {{key("path"), dice.among(choices())},
            {key("place"), dice.below(5)},
            {key("cloudPath"), dice.onceIn(3) ? QString() : dice.among(cloudFiles())}};
}

template <typename Make>
QJsonArray list(Dice& dice, int most, Make make) {
    QJsonArray array;
    for (int left = dice.below(most + 1); left > 0; --left) array.append(make(dice));
    return array;
}

QJsonValue account(Dice& dice) {
    QJsonObject account{{key("loggedIn"), dice.onceIn(2)}};
    if (dice.onceIn(2)) account.insert(key("userId"), among(dice, "u1 u2"));
    if (dice.onceIn(2)) account.insert(key("login"), among(dice, "accepted cancelled ask"));
    return account;
}

/// A slow cloud disk takes seconds for each answer, so that it is a rare one.
QJsonValue cloud(Dice& dice) {
    if (dice.onceIn(40)) return key("slow");
    return some(dice, {key("refused"), key("broken"), key("foldersRefused")}, 1);
}

QJsonValue areaConfig(Dice& dice) {
    return QJsonObject{{key("AreaVer"), among(dice, "SC JL jl YN")}};
}

QJsonValue transactions(Dice& dice) {
    return QJsonObject{{QStringLiteral("CJZ新建"), dice.onceIn(2) ? key("1") : QString()}};
}

QJsonValue plugins(Dice& dice) {
    return QJsonObject{{key("4"), dice.onceIn(2)}, {key("16"), dice.onceIn(2)}};
}

struct Setting {
    const char* key;
    QJsonValue (*value)(Dice&);
};

const QVector<Setting>& settings() {
    static const QVector<Setting> table = {
        {"firstPage", [](Dice& d) -> QJsonValue { return among(d, "ready ready busy absent"); }},
        {"configuration", [](Dice& d) -> QJsonValue { return among(d, "present absent"); }},
        {"prodAreaYN", [](Dice& d) -> QJsonValue { return d.onceIn(2); }},
        {"openVersion", [](Dice& d) -> QJsonValue { return d.onceIn(2) ? 1.2 : 1.3; }},
        {"areaConfig", areaConfig},
        {"transactions", transactions},
        {"account", account},
        {"plugins", plugins},
        {"fileDialog", [](Dice& d) -> QJsonValue { return list(d, 4, fileAnswer); }},
        {"cloud", cloud},
        {"scale", [](Dice& d) -> QJsonValue { return d.from(4, 12) * 25; }},
        {"skin", [](Dice& d) -> QJsonValue { return among(d, "light dark contrast"); }},
        {"throw", [](Dice& d) -> QJsonValue { return list(d, 3, throwRule); }}};
    return table;
}

/// @param onceIn how rarely each setting is made.
Args host(Dice& dice, int onceIn) {
    Args args;
    for (const Setting& setting : settings())
        if (dice.onceIn(onceIn)) args.insert(key(setting.key), setting.value(dice));
    return args;
}

Args named(Dice& dice, const char* as, const QStringList& words) {
    return {{key(as), dice.among(words)}};
}

Args model(Dice& dice) {
    Args args = named(dice, "name", models());
    args.insert(key("use"), among(dice, "new double-click menu"));
    if (args.value(key("use")) == key("menu")) args.insert(key("mode"), dice.among(feeModes()));
    return args;
}

Args templateUse(Dice& dice) {
    Args args = named(dice, "name", templates());
    args.insert(key("from"), among(dice, "cards tree"));
    args.insert(key("use"), among(dice, "new double-click"));
    return args;
}

Args open(Dice& dice) {
    if (dice.onceIn(8)) return {{key("dialog"), key("xzGcLxDialog")}};
    if (dice.onceIn(8)) return named(dice, "entry", ribbonEntries());
    return {};
}

Args keyPress(Dice& dice) {
    Args args = named(dice, "key", keys());
    if (dice.onceIn(3)) args.insert(key("on"), dice.among(widgets()));
    return args;
}

Args click(Dice& dice) {
    Args args = named(dice, "on", widgets());
    if (dice.onceIn(3)) args.insert(key("twice"), true);
    return args;
}

/// Two or three clicks at once: often the same one again, or the window's close button.
Args clicks(Dice& dice) {
    QJsonArray on{dice.among(widgets())};
    for (int left = dice.from(1, 2); left > 0; --left) {
        const int kind = dice.below(3);
        if (kind == 0) on.append(on.last());
        if (kind == 1) on.append(key("closeButton"));
        if (kind == 2) on.prepend(dice.among(widgets()));
    }
    return {{key("on"), on}};
}

Args call(Dice& dice) {
    if (dice.onceIn(6))
        return {{key("slot"), key("loadYunPanPath")},
                {key("args"), QJsonArray{QString(), dice.among(cloudFiles()), dice.onceIn(2)}}};
    if (dice.onceIn(6))
        return {{key("slot"), key("slotCalculationTaxClicked")},
                {key("args"), QJsonArray{dice.from(-1, 6)}}};
    if (dice.onceIn(6))
        return {{key("slot"), key("getDkType")},
                {key("args"), QJsonArray{among(dice, "GCFX gcfz GCFG SGCF x")}}};
    if (dice.onceIn(6))
        return {{key("slot"), key("initLsjl")},
                {key("args"), QJsonArray{dice.onceIn(2), dice.onceIn(2), dice.onceIn(2), true}}};
    return {{key("slot"), dice.among(harmlessSlots())}, {key("args"), QJsonArray()}};
}

Args check(Dice& dice) {
    return {{key("on"), dice.among(widgets())},
            {key("property"), among(dice, "text visible enabled currentIndex nothing")},
            {key("is"), true}};
}

struct Action {
    const char* verb;
    int weight;
    Args (*args)(Dice&);
};

const QVector<Action>& actions() {
    static const QVector<Action> table = {
        {"open", 24, open},
        {"ribbon", 16, [](Dice& d) { return named(d, "entry", ribbonEntries()); }},
        {"taxMode", 10, [](Dice& d) { return named(d, "entry", taxModes()); }},
        {"model", 9, model},
        {"template", 8, templateUse},
        {"file", 9, [](Dice& d) { return named(d, "text", files()); }},
        {"pick", 4, [](Dice& d) { return named(d, "text", files()); }},
        {"browse", 7, [](Dice&) { return Args(); }},
        {"create", 9, [](Dice&) { return Args(); }},
        {"excel", 7,
         [](Dice& d) {
             return Args{{key("choose"), among(d, "file folder close")}};
         }},
        {"history", 3,
         [](Dice& d) {
             return Args{{key("entries"), some(d, historyEntries(), 6)}};
         }},
        {"call", 6, call},
        {"key", 14, keyPress},
        {"click", 16, click},
        {"clicks", 12, clicks},
        {"check", 1, check},
        {"picture", 1,
         [](Dice&) {
             return Args{{key("file"), key("p.png")}};
         }},
        {"close", 4, [](Dice&) { return Args(); }},
        {"host", 10, [](Dice& d) { return host(d, 5); }}};
    return table;
}

QJsonObject step(Dice& dice) {
    int total = 0;
    for (const Action& action : actions()) total += action.weight;
    int ticket = dice.below(total);
    const Action* drawn = actions().constData();
    while (ticket >= drawn->weight) ticket -= (drawn++)->weight;
    QJsonObject step = drawn->args(dice);
    step.insert(key("do"), key(drawn->verb));
    return step;
}

QJsonObject done(const char* verb, Args args = {}) {
    args.insert(key("do"), key(verb));
    return args;
}

/// Names a file on the page in front in one of the ways there are, and goes on with it.
void startFromFile(Dice& dice, QJsonArray& steps) {
    const int way = dice.below(3);
    if (way == 0) steps.append(done("file", named(dice, "text", files())));
    if (way == 1) steps.append(done("pick", named(dice, "text", files())));
    if (way == 2) {
        const QJsonArray answers{fileAnswer(dice), fileAnswer(dice)};
        steps.append(done("host", {{key("fileDialog"), answers}}));
        steps.append(done("browse"));
    }
    steps.append(dice.onceIn(3) ? done("clicks", clicks(dice)) : done("create"));
}

void audit(Dice& dice, QJsonArray& steps) {
    steps.append(done("ribbon", {{key("entry"), QStringLiteral("审核工程")}}));
    startFromFile(dice, steps);
}

void contracting(Dice& dice, QJsonArray& steps) {
    steps.append(done("ribbon", {{key("entry"), QStringLiteral("总承包工程")}}));
    steps.append(done("taxMode", {{key("entry"), QStringLiteral("预算工程")}}));
    startFromFile(dice, steps);
}

void excel(Dice& dice, QJsonArray& steps) {
    steps.append(done("host", {{key("fileDialog"), list(dice, 3, fileAnswer)}}));
    steps.append(done("ribbon", {{key("entry"), QStringLiteral("导入Excel新建")}}));
    for (int left = dice.from(1, 3); left > 0; --left)
        steps.append(done("excel", {{key("choose"), among(dice, "file folder close")}}));
}

void tender(Dice& dice, QJsonArray& steps) {
    steps.append(done("host", {{key("fileDialog"), list(dice, 2, fileAnswer)}}));
    steps.append(done("ribbon", {{key("entry"), QStringLiteral("导入YFJZ新建")}}));
}

void templateProject(Dice& dice, QJsonArray& steps) {
    steps.append(done("taxMode", {{key("entry"), QStringLiteral("模板工程")}}));
    steps.append(done("template", templateUse(dice)));
}

/// What people do with a purpose; chance alone seldom gets that far.
const QVector<void (*)(Dice&, QJsonArray&)>& habits() {
    static const QVector<void (*)(Dice&, QJsonArray&)> table = {audit, contracting, excel, tender,
                                                                templateProject};
    return table;
}

/// A purpose is followed in a dialog, and not without distraction.
void follow(Dice& dice, QJsonArray& steps) {
    QJsonArray purpose;
    dice.among(habits())(dice, purpose);
    steps.append(done("open"));
    for (const QJsonValue& action : qAsConst(purpose)) {
        if (dice.onceIn(4)) steps.append(step(dice));
        steps.append(action);
    }
}

QJsonObject dialog(Dice& dice) {
    QJsonObject dialog{{key("hostMode"), dice.below(3)},
                       {key("showImportTender"), !dice.onceIn(4)}};
    if (dice.onceIn(2)) dialog.insert(key("history"), some(dice, historyEntries(), 8));
    return dialog;
}

}  // namespace

QJsonObject sequence(quint32 seed) {
    Dice dice(seed);
    QJsonArray steps;
    if (!dice.onceIn(10)) steps.append(QJsonObject{{key("do"), key("open")}});
    for (int left = dice.from(5, 30); left > 0; --left) {
        if (dice.onceIn(7)) follow(dice, steps);
        steps.append(step(dice));
    }
    QJsonObject settings = host(dice, 4);
    if (dice.onceIn(2)) settings.insert(key("throw"), list(dice, 4, throwRule));
    return {{key("title"), QStringLiteral("Random user %1").arg(seed)},
            {key("installation"), QStringLiteral(MONKEY_INSTALLATION)},
            {key("host"), settings},
            {key("dialog"), dialog(dice)},
            {key("steps"), steps}};
}

QStringList sequenceVerbs() {
    QStringList verbs;
    for (const Action& action : actions()) verbs.append(key(action.verb));
    return verbs;
}

}  // namespace monkey
