#include "workbench/scenario/Coverage.h"

#include <QJsonArray>

#include "core/hostContract.h"
#include "workbench/journal/hostOperations.h"
#include "workbench/scenario/judge.h"

namespace workbench {

namespace {

constexpr char notJournalled[] = "asked for every size: not journalled";
constexpr char askedByAll[] = "asked by all that has a skin: not journalled";
constexpr char noTemplateChooser[] =
    "only with the import dialog's template chooser, which the "
    "dialog is laid out without";
constexpr char noEstimateButton[] =
    "only with the chooser's button for estimates, which stays hidden";
constexpr char noEstimatePage[] =
    "only with a page for estimates, which the dialog is laid out "
    "without";

const struct {
    const char* operation;
    const char* why;
} beyondReach[] = {
    {"GetProgramTypeByFile", noEstimatePage},
    {"InterfaceAdaptation::getInstance", notJournalled},
    {"InterfaceAdaptation::getResolutionRatioH", notJournalled},
    {"ProjectSettingHelper::getJiLinMoBanList", noTemplateChooser},
    {"SharedInterface::getInstance", noEstimatePage},
    {"SkinManager::instance", askedByAll},
};

constexpr int anyPlugin = -1;

/// A case of a signal or message. Both of message 103 are told apart by their plug-in.
const struct {
    const char* name;
    int plugin;
    int code;
} messages[] = {
    {"SignalCreatePro", anyPlugin, newpro::CreateFromModel},
    {"SignalCreateMB", anyPlugin, newpro::CreateFromTemplate},
    {"Communication::SendMsg", newpro::BudgetProgram, newpro::CreateFromTemplate},
    {"Communication::SendMsgToPlugin", anyPlugin, newpro::NoMessageCode},
    {"Communication::SendMsgToPlugin", anyPlugin, newpro::CreateBudget},
    {"Communication::SendMsgToPlugin", anyPlugin, newpro::CreateEstimate},
    {"Communication::SendMsgToPlugin", newpro::BudgetProgram, newpro::CreateFromFile},
    {"Communication::SendMsgToPlugin", newpro::ContractingProgram, newpro::CreateFromFile},
    {"Communication::SendMsgToPlugin", newpro::SettlementProgram, newpro::CreateSettlement},
    {"Communication::SendMsgToPlugin", anyPlugin, newpro::CreateContracting},
    {"Communication::SendMsgToPlugin", newpro::BudgetProgram, newpro::ImportExcel},
    {"Communication::SendMsgToPlugin", newpro::ContractingProgram, newpro::ImportExcel},
    {"Communication::SendMsgToPlugin", newpro::BudgetProgram, newpro::ImportTender},
    {"Communication::SendMsgToPlugin", newpro::ContractingProgram, newpro::ContractingFromFile},
};

// Signals that the dialog keeps for hosts: a host sends them on by itself.
const char* const signalsOfHosts[] = {"SignalCreateCJZInt", "SignalCreateCJZString"};

const struct {
    const char* dialog;
    int result;
    const char* meaning;
    const char* whyNever = nullptr;
} exits[] = {
    {"NewProCfgDialog", 0, "closed, or a page's flow goes on"},
    {"NewProCfgDialog", 1, "accepted, a card or an import goes on"},
    {"importExcelSelFile", 0, "closed"},
    {"importExcelSelFile", 1, "a workbook or folder is chosen"},
    {"xzGcLxDialog", 0, "closed"},
    {"xzGcLxDialog", newpro::BudgetProgram, "budget"},
    {"xzGcLxDialog", newpro::EstimateProgram, "estimate", noEstimateButton},
    {"xzGcLxDialog", newpro::ContractingProgram, "general contract"},
};

// What the dialog says when it refuses.
const struct {
    const char* text;
    const char* whyNever;
} refusals[] = {
    {"请选择预算工程文件", nullptr},
    {"请选择预算/概算/总承包工程文件", nullptr},
    {"请选择工程文件", nullptr},
    {"找不到该文件，请检查文件路径是否正确", nullptr},
    {"工程文件打开失败。您试图打开一个非工程文件", noEstimatePage},
    {"无法连接到原云盘地址", nullptr},
    {"未找到该工程文件", nullptr},
    {"请选择工程模板！", noTemplateChooser},
    {"文件打开失败！\r\n①请检查excel文件是否被占用\r\n②请检查是否为正确的excel文件\r\n"
     "完成上述操作后重新打开。如果仍然提示该错误，请联系开发商协助解决问题",
     nullptr},
};

QString textOf(const QJsonObject& entry, const char* key) {
    return entry.value(QLatin1String(key)).toString();
}

auto shownBy(const QJsonObject& pattern) {
    return [pattern](const QVector<QJsonObject>& journal, int at) {
        return difference(journal.at(at), pattern).isEmpty();
    };
}

CoverageRow operationRow(const QString& operation) {
    CoverageRow row{QStringLiteral("operations"), operation,
                    shownBy({{QStringLiteral("name"), operation}})};
    for (const auto& each : beyondReach)
        if (operation == QLatin1String(each.operation)) row.whyNever = each.why;
    return row;
}

CoverageRow messageRow(const QString& name, int plugin, int code) {
    QString text = QStringLiteral("%1 %2").arg(name).arg(code);
    if (plugin != anyPlugin) text += QStringLiteral(" to plug-in %1").arg(plugin);
    return {QStringLiteral("messages"), text, [=](const QVector<QJsonObject>& journal, int at) {
                const QJsonObject& entry = journal.at(at);
                const QJsonArray args = entry.value(QLatin1String("args")).toArray();
                return textOf(entry, "name") == name && args.at(1).toInt(-1) == code &&
                       (plugin == anyPlugin || args.at(0).toInt() == plugin);
            }};
}

CoverageRow exitRow(const QString& dialog, int result, const QString& meaning) {
    return {QStringLiteral("exits"),
            QStringLiteral("%1 → %2: %3").arg(dialog).arg(result).arg(meaning),
            shownBy({{QStringLiteral("kind"), QStringLiteral("dialog")},
                     {QStringLiteral("event"), QStringLiteral("done")},
                     {QStringLiteral("name"), dialog},
                     {QStringLiteral("result"), result}})};
}

/// @return what a box says; null for an entry of another kind.
QString saidBy(const QJsonObject& entry) {
    if (textOf(entry, "kind") != QLatin1String("box")) return {};
    return entry.value(QLatin1String("args")).toArray().at(1).toString();
}

CoverageRow refusalRow(const QString& text, const char* whyNever) {
    return {QStringLiteral("refusals"), text.section(QLatin1Char('\r'), 0, 0),
            [text](const QVector<QJsonObject>& journal, int at) {
                return saidBy(journal.at(at)) == text;
            },
            whyNever};
}

/// @return what the cloud service said to the last folder that was asked for before a place.
QString lastFolderRefusal(const QVector<QJsonObject>& journal, int at) {
    while (--at >= 0) {
        if (textOf(journal.at(at), "name") != QLatin1String("zFileDialog::LoadQyypMlData"))
            continue;
        return textOf(journal.at(at).value(QLatin1String("answer")).toObject(), "msg");
    }
    return {};
}

/// The one refusal whose text is the host's own.
CoverageRow cloudRefusalRow() {
    return {QStringLiteral("refusals"), QStringLiteral("what the cloud service says"),
            [](const QVector<QJsonObject>& journal, int at) {
                const QString said = saidBy(journal.at(at));
                return !said.isEmpty() && said == lastFolderRefusal(journal, at);
            }};
}

QString reached(const QVector<CoverageRow>& rows, const QString& group) {
    int count = 0;
    int all = 0;
    int never = 0;
    for (const CoverageRow& row : rows) {
        if (row.group != group) continue;
        ++all;
        if (row.count > 0)
            ++count;
        else if (row.whyNever)
            ++never;
    }
    QString head = QStringLiteral("%1: %2 of %3").arg(group).arg(count).arg(all);
    return never ? head + QStringLiteral(", %1 cannot be").arg(never) : head;
}

}  // namespace

Coverage::Coverage() {
    for (const QString& operation : hostOperations()) all.append(operationRow(operation));
    for (const auto& message : messages)
        all.append(messageRow(QLatin1String(message.name), message.plugin, message.code));
    for (const char* signal : signalsOfHosts) {
        all.append(operationRow(QLatin1String(signal)));
        all.last().group = QStringLiteral("messages");
    }
    for (const auto& exit : exits) {
        all.append(exitRow(QLatin1String(exit.dialog), exit.result, QLatin1String(exit.meaning)));
        all.last().whyNever = exit.whyNever;
    }
    all.append({QStringLiteral("exits"), QStringLiteral("an exception, reported to the host"),
                shownBy({{QStringLiteral("kind"), QStringLiteral("exception")}})});
    for (const auto& refusal : refusals)
        all.append(refusalRow(QString::fromUtf8(refusal.text), refusal.whyNever));
    all.append(cloudRefusalRow());
}

void Coverage::add(const QVector<QJsonObject>& journal) {
    for (CoverageRow& row : all)
        for (int at = 0; at < journal.size(); ++at)
            if (row.isShownBy(journal, at)) ++row.count;
}

QStringList Coverage::missing() const {
    QStringList list;
    for (const CoverageRow& row : all)
        if (row.count == 0 && !row.whyNever)
            list.append(row.group + QStringLiteral(": ") + row.text);
    return list;
}

QStringList Coverage::table() const {
    QStringList lines;
    QString group;
    for (const CoverageRow& row : all) {
        if (row.group != group) lines.append(reached(all, group = row.group));
        QString line = QStringLiteral("%1  %2").arg(row.count, 8).arg(row.text);
        if (row.count == 0)
            line += row.whyNever ? QStringLiteral("  (%1)").arg(QLatin1String(row.whyNever))
                                 : QStringLiteral("  NEVER");
        lines.append(line);
    }
    return lines;
}

}  // namespace workbench
