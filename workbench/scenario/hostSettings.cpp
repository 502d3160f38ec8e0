#include "workbench/scenario/hostSettings.h"

#include <QDir>
#include <QJsonArray>

#include "workbench/hostlibs/common/Host.h"

namespace workbench {

namespace {

/// The last place of the host's file dialog, the enterprise cloud disk.
const int lastPlace = 4;

QString key(const char* ascii) {
    return QLatin1String(ascii);
}

QString scaleFault(const QJsonValue& scale) {
    if (scaleFactor(scale.toDouble()) > 0) return {};
    return QStringLiteral("must be a factor from 1 to 3 or a percentage from 100 to 300");
}

QString placeFault(const QJsonValue& place) {
    if (place.toInt() >= 0 && place.toInt() <= lastPlace) return {};
    return QStringLiteral("must be from 0 to %1").arg(lastPlace);
}

QString countFault(const QJsonValue& count) {
    return count.toInt() >= 1 ? QString() : QStringLiteral("must be 1 or more");
}

/// An answer either cancels or chooses.
QString answerFault(const QJsonValue& answer) {
    const bool cancels = answer[key("cancel")].toBool();
    const bool chooses = !answer[key("path")].toString().isEmpty();
    if (cancels && answer.toObject().size() == 1) return {};
    if (chooses && !answer.toObject().contains(key("cancel"))) return {};
    return QStringLiteral("must be {\"cancel\": true} or have a \"path\" and no \"cancel\"");
}

/// A field of one of the words or an array of them.
Field someOf(const char* key, const char* words) {
    Field field = word(key, words);
    field.shape = Shape::Words;
    return field;
}

void applyFirstPage(const QJsonObject& settings, Switches& switches) {
    const QString word = settings.value(key("firstPage")).toString();
    if (word == QLatin1String("ready")) switches.firstPage = FirstPage::Ready;
    if (word == QLatin1String("busy")) switches.firstPage = FirstPage::Busy;
    if (word == QLatin1String("absent")) switches.firstPage = FirstPage::Absent;
}

void applyTexts(const QJsonObject& settings, const char* name, QMap<QString, QString>& into) {
    const QJsonObject texts = settings.value(key(name)).toObject();
    for (auto it = texts.begin(); it != texts.end(); ++it)
        into.insert(it.key(), it.value().toString());
}

void applyAccount(const QJsonObject& json, Account& account) {
    account.loggedIn = json.value(key("loggedIn")).toBool(account.loggedIn);
    account.userId = json.value(key("userId")).toString(account.userId);
    const QString login = json.value(key("login")).toString();
    if (login == QLatin1String("accepted")) account.login = Login::Accepted;
    if (login == QLatin1String("cancelled")) account.login = Login::Cancelled;
    if (login == QLatin1String("ask")) account.login = Login::Ask;
}

void applyPlugins(const QJsonObject& json, QMap<int, bool>& plugins) {
    for (auto it = json.begin(); it != json.end(); ++it)
        plugins.insert(it.key().toInt(), it.value().toBool());
}

void applyFileAnswers(const QJsonArray& json, const QString& folder, Switches& switches) {
    switches.fileAnswers.clear();
    for (const QJsonValue& value : json) {
        FileAnswer answer;
        answer.cancel = value[key("cancel")].toBool();
        answer.path = value[key("path")].toString();
        if (!answer.path.isEmpty()) answer.path = QDir(folder).absoluteFilePath(answer.path);
        answer.place = value[key("place")].toInt();
        answer.cloudPath = value[key("cloudPath")].toString();
        switches.fileAnswers.append(answer);
    }
}

void applyCloud(const QJsonValue& json, CloudMode& cloud) {
    const QStringList words =
        json.isString() ? QStringList(json.toString()) : json.toVariant().toStringList();
    cloud.slow = words.contains(QLatin1String("slow"));
    cloud.refused = words.contains(QLatin1String("refused"));
    cloud.broken = words.contains(QLatin1String("broken"));
}

ThrowRule::As thrownAs(const QString& word) {
    if (word == QLatin1String("literal")) return ThrowRule::As::Literal;
    if (word == QLatin1String("QString")) return ThrowRule::As::String;
    if (word == QLatin1String("other")) return ThrowRule::As::Other;
    return ThrowRule::As::StdException;
}

void applyThrows(const QJsonArray& json, QVector<ThrowRule>& rules) {
    rules.clear();
    for (const QJsonValue& value : json) {
        ThrowRule rule;
        rule.call = value[key("call")].toString();
        rule.nth = value[key("nth")].toInt(1);
        rule.as = thrownAs(value[key("as")].toString());
        rule.text = value[key("text")].toString();
        rules.append(rule);
    }
}

}  // namespace

const Fields& hostFields() {
    static const Fields fields = {
        word("firstPage", "ready busy absent"),
        word("configuration", "present absent"),
        field("prodAreaYN", Shape::Truth),
        field("openVersion", Shape::Number),
        field("areaConfig", Shape::TextMap),
        field("transactions", Shape::TextMap),
        {key("account"),
         Shape::Object,
         false,
         {},
         {field("loggedIn", Shape::Truth), field("userId", Shape::Text),
          word("login", "accepted cancelled ask")}},
        field("plugins", Shape::TruthMap),
        {key("fileDialog"),
         Shape::Objects,
         false,
         {},
         {field("path", Shape::Path), sound(field("place", Shape::Whole), placeFault),
          field("cloudPath", Shape::Path), field("cancel", Shape::Truth)},
         answerFault},
        someOf("cloud", "slow refused broken"),
        sound(field("scale", Shape::Number), scaleFault),
        word("skin", "light dark"),
        {key("throw"),
         Shape::Objects,
         false,
         {},
         {field("call", Shape::Text, true), sound(field("nth", Shape::Whole), countFault),
          word("as", "literal QString std::exception other", true), field("text", Shape::Text)}}};
    return fields;
}

double scaleFactor(double number) {
    if (number >= 100) number /= 100;
    return number >= 1 && number <= 3 ? number : 0;
}

void applyHostSettings(const QJsonObject& settings, const QString& folder) {
    Host& host = Host::instance();
    Switches& switches = host.switches();
    const auto has = [&](const char* name) { return settings.contains(key(name)); };
    applyFirstPage(settings, switches);
    if (has("configuration"))
        switches.configurationPresent =
            settings.value(key("configuration")) == QLatin1String("present");
    if (has("prodAreaYN")) switches.prodAreaYN = settings.value(key("prodAreaYN")).toBool();
    if (has("openVersion")) switches.openVersion = settings.value(key("openVersion")).toDouble();
    applyTexts(settings, "areaConfig", switches.areaConfig);
    applyTexts(settings, "transactions", switches.transactions);
    applyAccount(settings.value(key("account")).toObject(), switches.account);
    applyPlugins(settings.value(key("plugins")).toObject(), switches.plugins);
    if (has("fileDialog"))
        applyFileAnswers(settings.value(key("fileDialog")).toArray(), folder, switches);
    if (has("cloud")) applyCloud(settings.value(key("cloud")), switches.cloud);
    if (has("throw")) applyThrows(settings.value(key("throw")).toArray(), switches.throws);
    if (has("scale")) host.setScale(scaleFactor(settings.value(key("scale")).toDouble()));
    if (has("skin")) host.setSkin(settings.value(key("skin")).toString());
}

}  // namespace workbench
