#include "workbench/hostlibs/common/hostSwitches.h"

#include <QDir>
#include <QJsonArray>
#include <algorithm>

#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/common/Host.h"

namespace workbench {

namespace {

QString key(const char* ascii) {
    return QLatin1String(ascii);
}

double scaleFactor(const QJsonValue& scale) {
    return scale.toDouble() >= 100 ? scale.toDouble() / 100 : scale.toDouble();
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

Fields answerFields() {
    return {field("path", Shape::Path), sound(field("place", Shape::Whole), placeFault),
            field("cloudPath", Shape::Path), field("cancel", Shape::Truth)};
}

// In the order of ThrowRule::As.
const char* const thrownWords = "literal QString std::exception other";

Fields throwFields() {
    return {field("call", Shape::Text, true), sound(field("nth", Shape::Whole), countFault),
            word("as", thrownWords, true), field("text", Shape::Text)};
}

// In the order of the words of "cloud".
constexpr bool CloudMode::*cloudParts[] = {&CloudMode::slow, &CloudMode::refused,
                                           &CloudMode::broken};

// The values of the host as JSON. The words of an enumeration stand in the order of its values.

QJsonValue read(bool value, const Field&) {
    return value;
}

QJsonValue read(double value, const Field&) {
    return value;
}

QJsonValue read(const QString& value, const Field&) {
    return value;
}

template <typename Enumeration>
auto read(Enumeration value, const Field& field) -> decltype(field.words.at(int(value))) {
    return field.words.at(int(value));
}

QJsonValue read(const QMap<int, bool>& map, const Field&) {
    QJsonObject object;
    for (auto it = map.begin(); it != map.end(); ++it)
        object.insert(QString::number(it.key()), it.value());
    return object;
}

QJsonValue read(const CloudMode& mode, const Field& field) {
    QJsonObject object;
    for (int i = 0; i < field.words.size(); ++i) object.insert(field.words[i], mode.*cloudParts[i]);
    return object;
}

// And JSON as values of the host. Of two words, the first stands for true.

void write(bool& value, const QJsonValue& json, const Field& field) {
    value = json.isBool() ? json.toBool() : json == field.words.value(0);
}

void write(double& value, const QJsonValue& json, const Field&) {
    value = json.toDouble();
}

void write(QString& value, const QJsonValue& json, const Field&) {
    value = json.toString();
}

template <typename Enumeration>
auto write(Enumeration& value, const QJsonValue& json, const Field& field)
    -> std::enable_if_t<std::is_enum_v<Enumeration>> {
    value = Enumeration(field.words.indexOf(json.toString()));
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
    for (int i = 0; i < field.words.size(); ++i) {
        bool& part = mode.*cloudParts[i];
        part = json.isObject() ? json[field.words[i]].toBool(part) : set.contains(field.words[i]);
    }
}

void write(QVector<FileAnswer>& answers, const QJsonValue& json, const Field&) {
    answers.clear();
    const QDir folder(Host::instance().installation().folder);
    for (const QJsonValue& value : json.toArray()) {
        FileAnswer answer;
        answer.cancel = value[key("cancel")].toBool();
        answer.path = value[key("path")].toString();
        if (!answer.path.isEmpty()) answer.path = folder.absoluteFilePath(answer.path);
        answer.place = value[key("place")].toInt();
        answer.cloudPath = value[key("cloudPath")].toString();
        answers.append(answer);
    }
}

void write(QVector<ThrowRule>& rules, const QJsonValue& json, const Field&) {
    rules.clear();
    for (const QJsonValue& value : json.toArray()) {
        ThrowRule rule;
        rule.call = value[key("call")].toString();
        rule.nth = value[key("nth")].toInt(1);
        write(rule.as, value[key("as")], word("as", thrownWords));
        rule.text = value[key("text")].toString();
        rules.append(rule);
    }
}

/// How a switch is got from the host and set there.
struct Access {
    std::function<QJsonValue(const Field&)> get;
    std::function<void(const QJsonValue&, const Field&)> set;
};

/// @param members the way into the host's switches.
template <typename... Member>
Access writing(Member... members) {
    return {nullptr, [=](const QJsonValue& json, const Field& field) {
                write((Host::instance().switches().*....*members), json, field);
            }};
}

template <typename... Member>
Access at(Member... members) {
    Access access = writing(members...);
    access.get = [=](const Field& field) {
        return QJsonValue(read((Host::instance().switches().*....*members), field));
    };
    return access;
}

Access scale() {
    return {
        [](const Field&) { return qRound(Host::instance().scale() * 100); },
        [](const QJsonValue& json, const Field&) { Host::instance().setScale(scaleFactor(json)); }};
}

Access skin() {
    return {
        [](const Field&) { return Host::instance().skin(); },
        [](const QJsonValue& json, const Field&) { Host::instance().setSkin(json.toString()); }};
}

/// A row as it is written down. Its choices are "value=caption", with "|" between them; where the
/// values are words, they are the field's.
struct Row {
    const char* key;
    Shape shape;
    Access access;
    const char* caption;
    QString choices;
    const char* text;
    const char* heading = "";
    const char* setting = "";
    Fields members = {};
    QString (*fault)(const QJsonValue&) = nullptr;
};

HostSwitch made(const Row& row) {
    HostSwitch made;
    made.key = key(row.key);
    made.field = {
        made.key.section(QLatin1Char('.'), -1), row.shape, false, {}, row.members, row.fault};
    for (const QString& choice : row.choices.split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
        const QString value = choice.section(QLatin1Char('='), 0, 0);
        made.choices.append({value, choice.section(QLatin1Char('='), 1)});
        if (row.shape == Shape::Word || row.shape == Shape::Words) made.field.words.append(value);
    }
    if (row.access.get)
        made.get = [get = row.access.get, field = made.field] { return get(field); };
    made.set = [set = row.access.set, field = made.field](const QJsonValue& v) { set(v, field); };
    made.text = QString::fromUtf8(row.text);
    made.caption = QString::fromUtf8(row.caption);
    made.heading = QString::fromUtf8(row.heading);
    made.setting = key(row.setting);
    return made;
}

/// @return "`a`, `b` or `c`".
QString listed(const QStringList& words) {
    QString list = QLatin1Char('`') + words.join(QLatin1String("`, `")) + QLatin1Char('`');
    const int last = list.lastIndexOf(QLatin1String(", "));
    return last < 0 ? list : list.replace(last, 2, QLatin1String(" or "));
}

}  // namespace

const QVector<HostSwitch>& hostSwitches() {
    const auto text = [](const char* utf8) { return QString::fromUtf8(utf8); };
    static const Row rows[] = {
        {"firstPage", Shape::Word, at(&Switches::firstPage), "首页插件",
         text("ready=就绪|busy=忙|absent=不存在"), "", "主程序"},
        {"prodAreaYN", Shape::Truth, at(&Switches::prodAreaYN), "地区",
         text("false=四川|true=云南"), "`true`: the Yunnan area", "", "area.prodAreaYN"},
        {"openVersion", Shape::Number, at(&Switches::openVersion), "开放版本",
         text("1.3=1.3|1.2=1.2"), "number: features up to this version are open"},
        {"configuration", Shape::Word, at(&Switches::configurationPresent), "计价配置已加载",
         text("present|absent"), ": whether the host has a pricing configuration"},
        {"areaConfig",
         Shape::TextMap,
         writing(&Switches::areaConfig),
         "",
         {},
         "object of texts: the area's configuration, key to value",
         "",
         "area.configuration"},
        {"transactions",
         Shape::TextMap,
         writing(&Switches::transactions),
         "",
         {},
         "object of texts: the configured transactions, key to value",
         "",
         "transactions"},
        {"account.userId",
         Shape::Text,
         at(&Switches::account, &Account::userId),
         "账号",
         {},
         "text: who is logged in, or would be",
         "云账号与云盘"},
        {"account.loggedIn",
         Shape::Truth,
         at(&Switches::account, &Account::loggedIn),
         "已登录",
         {},
         "`true`: somebody is logged in to the cloud account"},
        {"account.login", Shape::Word, at(&Switches::account, &Account::login), "登录窗口",
         text("ask=由我回答|accepted=自动登录|cancelled=自动取消"),
         ": what the log-in window does"},
        {"cloud", Shape::Words, at(&Switches::cloud), "",
         text("slow=云盘应答缓慢|refused=云盘拒绝请求|broken=云盘数据损坏"),
         ", or an array of them"},
        {"fileDialog",
         Shape::Objects,
         writing(&Switches::fileAnswers),
         "",
         {},
         "answers used in turn, `{\"path\", \"place\", \"cloudPath\"}` with at least a path, or "
         "`{\"cancel\": true}`; after the last: cancel. The folder choice of the Excel import "
         "takes "
         "one too. Relative paths start at the installation; `place` is from 0 to 4, of which 3 "
         "and 4 are the personal and the enterprise cloud disk",
         "",
         "",
         answerFields(),
         answerFault},
        {"pluginManager",
         Shape::Truth,
         at(&Switches::pluginManagerPresent),
         "插件管理器可用",
         {},
         nullptr,
         "插件"},
        {"plugins", Shape::TruthMap, at(&Switches::plugins), "",
         text("%1=预算插件已加载|%2=结算插件已加载|%3=总承包插件已加载")
             .arg(BudgetProgram)
             .arg(SettlementProgram)
             .arg(ContractingProgram),
         "program type to whether its plug-in is loaded"},
        {"throw",
         Shape::Objects,
         writing(&Switches::throws),
         "",
         {},
         "list of `{\"call\", \"nth\", \"as\", \"text\"}`: the `nth` call (from 1, the default) of "
         "the operation throws `as` a %1",
         "",
         "",
         throwFields()},
        {"skin", Shape::Word, skin(), "皮肤", lightSkin + text("=浅色|") + darkSkin + text("=深色"),
         "", "外观"},
        {"scale",
         Shape::Number,
         scale(),
         "缩放",
         text("100=100 %|125=125 %|150=150 %|200=200 %|300=300 %"),
         "factor from 1 to 3, or percentage from 100 to 300",
         "",
         "",
         {},
         scaleFault}};
    static const QVector<HostSwitch> table = [] {
        QVector<HostSwitch> table;
        for (const Row& row : rows) table.append(made(row));
        return table;
    }();
    return table;
}

const Field& hostField(const char* key) {
    const auto& table = hostSwitches();
    return std::find_if(table.begin(), table.end(),
                        [key](const HostSwitch& each) { return each.key == QLatin1String(key); })
        ->field;
}

const Fields& hostFields() {
    static const Fields fields = [] {
        Fields fields;
        for (const HostSwitch& each : hostSwitches()) {
            if (each.text.isNull()) continue;
            const QString object = each.key.section(QLatin1Char('.'), 0, -2);
            if (object.isEmpty())
                fields.append(each.field);
            else if (fields.last().key == object)
                fields.last().members.append(each.field);
            else
                fields.append({object, Shape::Object, false, {}, {each.field}});
        }
        return fields;
    }();
    return fields;
}

void applyHostSettings(const QJsonObject& settings) {
    for (const HostSwitch& each : hostSwitches()) {
        QJsonValue value = settings;
        for (const QString& step : each.key.split(QLatin1Char('.'))) value = value[step];
        if (!value.isUndefined()) each.set(value);
    }
}

QStringList hostPageRows() {
    QStringList rows;
    for (const HostSwitch& each : hostSwitches()) {
        if (each.text.isNull()) continue;
        QString text = each.text;
        text.replace(QLatin1String("%1"), listed(key(thrownWords).split(QLatin1Char(' '))));
        if (!each.field.words.isEmpty()) text.prepend(listed(each.field.words));
        rows.append(QStringLiteral("| `%1` | %2 |").arg(each.key, text));
    }
    return rows;
}

}  // namespace workbench
