#include "workbench/hostlibs/common/hostSwitches.h"

#include <QDir>
#include <QJsonArray>
#include <iterator>
#include <type_traits>

#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/common/Host.h"

namespace workbench {

namespace {

QString key(const char* ascii) {
    return QLatin1String(ascii);
}

double scaleFactor(const QJsonValue& scale) {
    const double number = scale.toVariant().toDouble();
    return number >= 100 ? number / 100 : number;
}

QString scaleFault(const QJsonValue& scale) {
    if (scaleFactor(scale) >= 1 && scaleFactor(scale) <= 3) return {};
    return QStringLiteral("must be a factor from 1 to 3 or a percentage from 100 to 300");
}

QString placeFault(const QJsonValue& place) {
    if (place.toInt() >= NoPlace && place.toInt() <= CompanyPlace) return {};
    return QStringLiteral("must be from %1 to %2").arg(NoPlace).arg(CompanyPlace);
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

// In the order of ThrowRule::As.
const char* const thrownWords = "literal QString std::exception other";

// In the order of the words of "cloud".
constexpr bool CloudMode::*cloudParts[] = {&CloudMode::slow, &CloudMode::refused,
                                           &CloudMode::broken, &CloudMode::foldersRefused};

// The values of the host as JSON. The words of an enumeration stand in the order of its values.

template <typename Value>
QJsonValue read(const Value& value, const Field& field) {
    if constexpr (std::is_enum_v<Value>)
        return field.words.at(int(value));
    else
        return value;
}

QJsonValue read(const QMap<int, bool>& map, const Field&) {
    QJsonObject object;
    for (auto it = map.begin(); it != map.end(); ++it)
        object.insert(QString::number(it.key()), it.value());
    return object;
}

QJsonValue read(const CloudMode& mode, const Field& field) {
    QJsonObject object;
    for (int i = 0; i < int(std::size(cloudParts)); ++i)
        object.insert(field.words.at(i), mode.*cloudParts[i]);
    return object;
}

// And JSON as values of the host, from the panel in words. Of two, the second stands for true.

void write(bool& value, const QJsonValue& json, const Field& field) {
    value = json.isBool() ? json.toBool() : json == field.words.value(1);
}

template <typename Value>
void write(Value& value, const QJsonValue& json, const Field& field) {
    if constexpr (std::is_enum_v<Value>)
        value = Value(field.words.indexOf(json.toString()));
    else
        value = json.toVariant().value<Value>();
}

void write(QMap<QString, QString>& map, const QJsonValue& json, const Field&) {
    const QJsonObject object = json.toObject();
    for (auto it = object.begin(); it != object.end(); ++it)
        map.insert(it.key(), it.value().toString());
}

void write(QMap<int, bool>& map, const QJsonValue& json, const Field&) {
    const QJsonObject object = json.toObject();
    for (auto it = object.begin(); it != object.end(); ++it)
        map.insert(it.key().toInt(), it.value().toBool());
}

/// The panel gives one word with its truth, a scenario all words that are true.
void write(CloudMode& mode, const QJsonValue& json, const Field& field) {
    const QStringList set =
        json.isString() ? QStringList(json.toString()) : json.toVariant().toStringList();
    for (int i = 0; i < int(std::size(cloudParts)); ++i) {
        bool& part = mode.*cloudParts[i];
        const QString& word = field.words.at(i);
        part = json.isObject() ? json[word].toBool(part) : set.contains(word);
    }
}

void write(QVector<FileAnswer>& answers, const QJsonValue& json, const Field&) {
    answers.clear();
    const QDir folder(Host::instance().installation().folder);
    const QJsonArray array = json.toArray();
    for (const QJsonValue& value : array) {
        FileAnswer answer;
        answer.path = value[key("path")].toString();
        if (!answer.path.isEmpty()) answer.path = folder.absoluteFilePath(answer.path);
        answer.place = value[key("place")].toInt();
        answer.cloudPath = value[key("cloudPath")].toString();
        answers.append(answer);
    }
}

void write(QVector<ThrowRule>& rules, const QJsonValue& json, const Field&) {
    rules.clear();
    const QJsonArray array = json.toArray();
    for (const QJsonValue& value : array) {
        ThrowRule rule;
        rule.call = value[key("call")].toString();
        rule.nth = value[key("nth")].toInt(1);
        write(rule.as, value[key("as")], word("as", thrownWords));
        rule.text = value[key("text")].toString();
        rules.append(rule);
    }
}

using Access = HostSwitch::Access;

/// @param way a member of the switches, or what else leads from them to a value.
template <typename Way>
Access writing(Way way) {
    return {nullptr, [way](const QJsonValue& json, const Field& field) {
                write(std::invoke(way, Host::instance().switches()), json, field);
            }};
}

template <typename Way>
Access at(Way way) {
    Access access = writing(way);
    access.get = [way](const Field& field) {
        return read(std::invoke(way, Host::instance().switches()), field);
    };
    return access;
}

template <typename Member>
Access ofAccount(Member member) {
    return at([member](Switches & switches) -> auto& { return switches.account.*member; });
}

const Access scale = {
    [](const Field&) { return qRound(Host::instance().scale() * 100); },
    [](const QJsonValue& json, const Field&) { Host::instance().setScale(scaleFactor(json)); }};

const Access skin = {
    [](const Field&) { return Host::instance().skin(); },
    [](const QJsonValue& json, const Field&) { Host::instance().setSkin(json.toString()); }};

/// @return the field with the values that the panel offers for it.
Field offering(Field field, const QStringList& words) {
    field.words = words;
    return field;
}

}  // namespace

const QVector<HostSwitch>& hostSwitches() {
    const auto number = [](auto value) { return QString::number(value); };
    static const QVector<HostSwitch> table = {
        {word("firstPage", "ready busy absent"), at(&Switches::firstPage), "", "", "首页插件",
         "对话框询问时首页插件的状态", "就绪|忙|不存在", "主程序"},
        {offering(field("prodAreaYN", Shape::Truth), {key("false"), key("true")}),
         at(&Switches::prodAreaYN), "`true`: the Yunnan area", "area.prodAreaYN", "地区",
         "主程序所在的地区", "四川|云南"},
        {offering(field("openVersion", Shape::Number), {number(1.3), number(1.2)}),
         at(&Switches::openVersion), "number: features up to this version are open", "", "开放版本",
         "此版本及以前的功能可用", "1.3|1.2"},
        {word("configuration", "absent present"), at(&Switches::configurationPresent),
         ": whether the host has a pricing configuration", "", "计价配置已加载",
         "主程序是否有计价配置"},
        {field("areaConfig", Shape::TextMap), writing(&Switches::areaConfig),
         "object of texts, key to value: the configuration of the area", "area.configuration"},
        {field("transactions", Shape::TextMap), writing(&Switches::transactions),
         "object of texts, key to value", "transactions"},
        {field("account.userId", Shape::Text), ofAccount(&Account::userId),
         "text: whose cloud account it is", "", "账号", "云账号的用户名", "", "云账号与云盘"},
        {field("account.loggedIn", Shape::Truth), ofAccount(&Account::loggedIn),
         "`true`: the account is logged in", "", "已登录", "云账号是否已登录"},
        {word("account.login", "ask accepted cancelled"), ofAccount(&Account::login),
         ": what the log-in window does", "", "登录窗口", "登录窗口如何回答",
         "由我回答|自动登录|自动取消"},
        {offering(field("cloud", Shape::Words),
                  {key("slow"), key("refused"), key("broken"), key("foldersRefused")}),
         at(&Switches::cloud), ", or an array of them", "", "",
         "云盘过一会儿才应答|云盘对每个请求都拒绝|云盘的应答无法读懂|云盘不列出文件夹",
         "云盘应答缓慢|云盘拒绝请求|云盘数据损坏|云盘拒绝列出目录"},
        {sound(field("fileDialog", Shape::Objects, false,
                     {field("path", Shape::Path), sound(field("place", Shape::Whole), placeFault),
                      field("cloudPath", Shape::Path), field("cancel", Shape::Truth)}),
               answerFault),
         writing(&Switches::fileAnswers),
         "answers used in turn, `{\"path\", \"place\", \"cloudPath\"}` with at least a path, or "
         "`{\"cancel\": true}`; after the last: cancel. The folder choice of the Excel import takes"
         " one too. Relative paths start at the installation; `place` is from 0 to 4, of which 3 "
         "and 4 are the personal and the enterprise cloud disk"},
        {field("pluginManager", Shape::Truth), at(&Switches::pluginManagerPresent), nullptr, "",
         "插件管理器可用", "主程序是否有插件管理器", "", "插件"},
        {offering(field("plugins", Shape::TruthMap),
                  {number(BudgetProgram), number(SettlementProgram), number(ContractingProgram)}),
         at(&Switches::plugins), "program type to whether its plug-in is loaded", "", "",
         "对话框不必再加载预算插件|对话框不必再加载结算插件|对话框不必再加载总承包插件",
         "预算插件已加载|结算插件已加载|总承包插件已加载"},
        {field("throw", Shape::Objects, false,
               {needed("call"), sound(field("nth", Shape::Whole), countFault),
                word("as", thrownWords, true), field("text")}),
         writing(&Switches::throws),
         "list of `{\"call\", \"nth\", \"as\", \"text\"}`: the `nth` call (from 1, the default) of "
         "the operation throws `as` a %1"},
        {offering(field("skin", Shape::Word), {lightSkin, darkSkin, contrastSkin}), skin, "", "",
         "皮肤", "窗口和对话框的颜色", "浅色|深色|高对比度", "外观"},
        {sound(offering(field("scale", Shape::Number),
                        {number(100), number(125), number(150), number(200), number(300)}),
               scaleFault),
         scale, "factor from 1 to 3, or percentage from 100 to 300", "", "缩放",
         "窗口和对话框的大小", "100 %|125 %|150 %|200 %|300 %"}};
    return table;
}

const Fields& hostFields() {
    static const Fields fields = [] {
        Fields fields;
        for (const HostSwitch& each : hostSwitches()) {
            if (!each.text) continue;
            Field field = each.field;
            const QString object = field.key.section(QLatin1Char('.'), 0, -2);
            field.key = field.key.section(QLatin1Char('.'), -1);
            if (object.isEmpty())
                fields.append(field);
            else if (fields.last().key == object)
                fields.last().members.append(field);
            else
                fields.append({object, Shape::Object, false, {}, {field}});
        }
        return fields;
    }();
    return fields;
}

void applyHostSettings(const QJsonObject& settings) {
    for (const HostSwitch& each : hostSwitches()) {
        QJsonValue value = settings;
        for (const QString& step : each.field.key.split(QLatin1Char('.'))) value = value[step];
        if (!value.isUndefined()) each.set(value);
    }
}

}  // namespace workbench
