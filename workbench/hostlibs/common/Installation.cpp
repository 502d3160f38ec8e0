#include "workbench/hostlibs/common/Installation.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <algorithm>

#include "workbench/base/FileLock.h"
#include "workbench/base/JsonReader.h"
#include "workbench/base/wholeFile.h"
#include "workbench/hostlibs/common/hostSwitches.h"

namespace workbench {

namespace {

using ProjectSettingSpace::PricingModelInfo;
using ProjectSettingSpace::ProTaxTemplateInfo;

// Stands in the installation's files for the folder that they lie in, wherever that is.
const QLatin1String placeholder("{installation}");

/// @return a member as `read` reads it; nothing where it is missing.
template <typename Value>
Value optional(const JsonPlace& object, const char* name, Value (JsonPlace::*read)() const) {
    return object.has(QLatin1String(name)) ? (object.member(name).*read)() : Value();
}

QString optionalText(const JsonPlace& object, const char* name) {
    return optional(object, name, &JsonPlace::text);
}

TaxTemplateInfo modelOf(const JsonPlace& object) {
    object.allowOnly(
        "name key description basis basisDocument carriedText feeMode alternativeFeeMode flag "
        "leadingBasisDocument feeModes defaultFeeMode normName quotaBooks specialities parameters");
    TaxTemplateInfo model;
    model.name = object.member("name").text();
    model.key = object.member("key").text();
    model.description = object.member("description").text();
    model.basis = object.member("basis").texts();
    model.basisDocument = optionalText(object, "basisDocument");
    model.carriedText = optionalText(object, "carriedText");
    model.feeMode = object.member("feeMode").text();
    model.alternativeFeeMode = optionalText(object, "alternativeFeeMode");
    model.flag = optional(object, "flag", &JsonPlace::integer);
    model.leadingBasisDocument = optionalText(object, "leadingBasisDocument");
    return model;
}

PricingModelInfo pricingOf(const JsonPlace& object) {
    PricingModelInfo pricing;
    pricing.key = object.member("key").text();
    pricing.feeModes = object.member("feeModes").texts();
    pricing.defaultFeeMode = object.member("defaultFeeMode").text();
    pricing.normName = optionalText(object, "normName");
    pricing.quotaBooks = optional(object, "quotaBooks", &JsonPlace::texts);
    pricing.specialities = optional(object, "specialities", &JsonPlace::textLists);
    pricing.parameters = optional(object, "parameters", &JsonPlace::textMaps);
    return pricing;
}

int taxModeOf(const JsonPlace& place) {
    if (place.raw().isDouble()) return place.integer();
    static const QStringList names = {QStringLiteral("一般计税"), QStringLiteral("简易计税"),
                                      QStringLiteral("营业税")};
    const int mode = names.indexOf(place.text());
    if (mode < 0) place.fail(QStringLiteral("must be one of ") + names.join(QStringLiteral("、")));
    return mode;
}

/// @return whether the model has a record of its fee modes: each of these is a part of it.
bool hasPricing(const JsonPlace& model) {
    for (const char* part :
         {"feeModes", "defaultFeeMode", "normName", "quotaBooks", "specialities", "parameters"})
        if (model.has(QLatin1String(part))) return true;
    return false;
}

void readModels(const QString& path, Installation& into) {
    const JsonFile file(path);
    const JsonPlace root(file);
    for (const QString& appType : root.memberNames()) {
        auto& modes = into.models[appType];
        // Models of one name, in other tax modes for example, each keep their record.
        QMultiMap<QString, PricingModelInfo> pricing;
        for (const JsonPlace& entry : root.member(appType).items()) {
            entry.allowOnly("taxMode models");
            ProTaxTemplateInfo mode;
            mode.taxMode = taxModeOf(entry.member("taxMode"));
            for (const JsonPlace& object : entry.member("models").items()) {
                mode.models.append(modelOf(object));
                if (hasPricing(object))
                    pricing.insert(mode.models.constLast().name, pricingOf(object));
            }
            modes.append(mode);
        }
        into.pricing.insert(appType, pricing);
    }
}

void readHostSettings(const JsonPlace& settings, Installation& into) {
    settings.member("area").allowOnly("prodAreaYN configuration");
    for (const HostSwitch& each : hostSwitches()) {
        if (!*each.setting) continue;
        JsonPlace place = settings;
        for (const QString& step : QString::fromUtf8(each.setting).split(QLatin1Char('.')))
            place = place.member(step);
        requireShape(place, each.field);
        into.hostSettings.insert(each.field.key, place.raw());
    }
}

void readSuffixes(const JsonPlace& suffixes, Installation& into) {
    for (const QString& kind : suffixes.memberNames()) {
        bool isNumber = false;
        const int number = kind.toInt(&isNumber);
        const JsonPlace list = suffixes.member(kind);
        if (!isNumber) list.fail(QStringLiteral("the key must be the number of a file kind"));
        into.suffixes.insert(number, list.texts());
    }
}

void readGroupedTemplates(const JsonPlace& groups, Installation& into) {
    for (const QString& name : groups.memberNames()) {
        auto& templates = into.groupedTemplates[name];
        for (const JsonPlace& object : groups.member(name).items()) {
            object.allowOnly("name file");
            templates.append({object.member("name").text(), object.member("file").filePath()});
        }
    }
}

void readSystemSettings(const JsonPlace& system, Installation& into) {
    system.allowOnly("modelName estimateTemplate settlementTemplate others");
    into.systemSettings.modelName = system.member("modelName").text();
    into.systemSettings.estimateTemplate = system.member("estimateTemplate").text();
    into.systemSettings.settlementTemplate = system.member("settlementTemplate").text();
    into.systemSettings.others = system.member("others").textMap();
}

void readSettings(const QString& path, Installation& into) {
    const JsonFile file(path);
    const JsonPlace root(file);
    root.allowOnly(
        "area firstOpenClose basicSettings systemSettings transactions suffixes groupedTemplates");
    readHostSettings(root, into);
    into.firstOpenClose = root.member("firstOpenClose").integer();
    const JsonPlace basic = root.member("basicSettings");
    basic.allowOnly("projectFolder others");
    into.basicSettings.projectFolder =
        basic.member("projectFolder").filePath().replace(placeholder, into.folder);
    into.basicSettings.others = basic.member("others").textMap();
    readSystemSettings(root.member("systemSettings"), into);
    readSuffixes(root.member("suffixes"), into);
    readGroupedTemplates(root.member("groupedTemplates"), into);
}

QStringList readHistory(const QString& path, const QString& folder) {
    const JsonFile file(path);
    const JsonPlace root(file);
    root.allowOnly("entries");
    QStringList history = root.member("entries").texts();
    // With the separator, as it is written: a file's own name may hold the placeholder's text.
    return history.replaceInStrings(placeholder + QLatin1Char('/'), folder + QLatin1Char('/'));
}

QByteArray historyText(QStringList history, const QString& folder) {
    history.replaceInStrings(folder + QLatin1Char('/'), placeholder + QLatin1Char('/'));
    const QJsonObject file{{QStringLiteral("entries"), QJsonArray::fromStringList(history)}};
    return QJsonDocument(file).toJson();
}

/// Reads a file and gives it the content that follows from what it holds, with nobody else writing
/// between the two. @param change throws JsonError for a file that it cannot read.
/// @return empty, or the error; the file then is as it was.
template <typename Change>
QString changed(const QString& path, Change&& change) {
    const auto failure = [&](const QString& reason) {
        return QDir::toNativeSeparators(path) + QLatin1String(": ") + reason;
    };
    FileLock lock(lockOfFolder(path));
    if (!lock.lock(writerPatience)) return failure(lock.error());
    try {
        const QString reason = replaceFile(path, change(path));
        return reason.isEmpty() ? reason : failure(reason);
    } catch (const JsonError& wrong) {
        return wrong.text;
    }
}

/// @return an entry with a large letter for its drive: to Windows "d:" and "D:" are one.
QString withLargeDrive(QString entry) {
    static const QRegularExpression small(QStringLiteral(R"((?:^|##)([a-z]):[/\\])"));
    const int letter = small.match(entry).capturedStart(1);
    if (letter >= 0) entry[letter] = entry[letter].toUpper();
    return entry;
}

void takeOut(const QString& entry, QStringList& history) {
    const auto isIt = [same = withLargeDrive(entry)](const QString& other) {
        return withLargeDrive(other) == same;
    };
    history.erase(std::remove_if(history.begin(), history.end(), isIt), history.end());
}

QStringList withAtHead(const QStringList& head, QStringList history) {
    for (const QString& entry : head) takeOut(entry, history);
    return head + history;
}

}  // namespace

QJsonObject toJson(const QMap<QString, QString>& texts) {
    QJsonObject object;
    for (auto it = texts.begin(); it != texts.end(); ++it) object.insert(it.key(), it.value());
    return object;
}

QJsonObject toJson(const ProjectSettingSpace::SysSettingInfo& info) {
    return {{QStringLiteral("modelName"), info.modelName},
            {QStringLiteral("estimateTemplate"), info.estimateTemplate},
            {QStringLiteral("settlementTemplate"), info.settlementTemplate},
            {QStringLiteral("others"), toJson(info.others)}};
}

bool Installation::load(const QString& folder, Installation& into, QString& error) {
    Installation read;
    // With its drive, as every path has it that the host gives or shows.
    read.folder = QDir::cleanPath(QFileInfo(QDir(folder).absolutePath()).absoluteFilePath());
    try {
        readModels(read.folder + QLatin1String("/models.json"), read);
        readSettings(read.folder + QLatin1String("/settings.json"), read);
        read.history = readHistory(read.folder + QLatin1String("/history.json"), read.folder);
    } catch (const JsonError& wrong) {
        error = wrong.text;
        return false;
    }
    into = read;
    return true;
}

QString Installation::projectFolder() const {
    return basicSettings.projectFolder.isEmpty() ? folder + QLatin1String("/ProjectFiles")
                                                 : basicSettings.projectFolder;
}

QString Installation::addToHistory(const QString& entry) {
    takeOut(entry, unwritten);
    unwritten.prepend(entry);
    history = withAtHead(unwritten, history);
    const auto merge = [this](const QString& path) {
        // What others have added since is kept, and what somebody has taken out stays out.
        if (QFileInfo::exists(path)) history = withAtHead(unwritten, readHistory(path, folder));
        return historyText(history, folder);
    };
    const QString error = changed(folder + QLatin1String("/history.json"), merge);
    if (error.isEmpty()) unwritten.clear();
    return error;
}

QString Installation::saveSystemSettings() {
    const QString path = folder + QLatin1String("/settings.json");
    return changed(path, [this](const QString& path) {
        const JsonFile file(path);
        JsonPlace(file).member("systemSettings");  // who has taken it out meant another file
        QJsonObject settings = file.root().toObject();
        settings.insert(QStringLiteral("systemSettings"), toJson(systemSettings));
        return QJsonDocument(settings).toJson();
    });
}

}  // namespace workbench
