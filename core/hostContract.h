/// What a host reads in the dialog's signals and messages: codes, program types, keys and values.
/// Each message is described, member by member, by a schema in docs/contract; this header has the
/// names that a receiver decodes it by. It needs Qt's core alone.
#pragma once

#include <QLatin1String>
#include <QString>

namespace newpro {

/// Length and text: measuring a text is a constant expression only with some compilers.
template <int Size>
constexpr QLatin1String latin1(const char (&text)[Size]) {
    return QLatin1String(text, Size - 1);
}

/// Bits that a program type may carry besides its own.
constexpr int fromFileBit = 1;
constexpr int estimateBit = 2;

/// Program types: the kind of a project, and the plug-in that creates it. The first argument of
/// every signal and plug-in message is one. The signals carry that of the application type, so that
/// the estimate and the audit arrive as 4. Messages 107, 108 and 114 go to 4 or 16, message 103 to
/// the plug-in of the file's kind, 4 or 16; messages 0, 100, 102, 104 and 105 to the kind asked
/// for, bits included. The kinds that exist are these; of any other int slotCreatePro looks at the
/// bits 4, 2, 1 and 16 all the same: 36 would send message 100 to 36, and -1 message 102 to -1.
enum ProgramType {
    BudgetProgram = 4,
    AuditProgram = BudgetProgram | fromFileBit,
    EstimateProgram = BudgetProgram | estimateBit,
    SettlementProgram = 8,
    ContractingProgram = 16,
    WholeProcessProgram = 32,
    UnknownProgram = -1,
};

/// The second argument of the signals and messages.
enum MessageCode {
    NoMessageCode = 0,          ///< SendMsgToPlugin: page data of a kind that has no case.
    CreateFromTemplate = 44,    ///< SignalCreateMB; before it SendMsg to 4, from a card alone.
    CreateFromModel = 95,       ///< SignalCreatePro.
    CreateBudget = 100,         ///< SendMsgToPlugin, as all that follow.
    CreateEstimate = 102,       ///< The only one of page data without "apptype".
    CreateFromFile = 103,       ///< An audit, of a budget or of a general contract.
    CreateSettlement = 104,     ///< Of page data.
    CreateContracting = 105,    ///< Of page data.
    ImportExcel = 107,          ///< A workbook, or a folder of them.
    ImportTender = 108,         ///< Tendering data; always to 4, and without "client_pid".
    ContractingFromFile = 114,  ///< Always to 16, and with "client_pid".
};

/// Application types: values of "apptype" in messages 100 and 103 to 105.
namespace applicationType {
inline constexpr auto budget = latin1("Kvys");        ///< In 100, and in 103 to plug-in 4.
inline constexpr auto contracting = latin1("Kvzcb");  ///< In 105, and in 103 to plug-in 16.
inline constexpr auto settlement = latin1("Kvjs");    ///< In 104.
}  // namespace applicationType

/// Keys of the JSON objects of SendMsgToPlugin.
namespace messageKey {
/// 0 and 100 to 105: name of the pricing model or template; empty where the page has none.
inline constexpr auto projectType = latin1("GcLx");
/// 100, 103, 104, 105: application type. Not in 102: the estimate's is the budget's, and would tell
/// the plug-in the wrong kind. Not in 0, where no kind is known.
inline constexpr auto appType = latin1("apptype");
/// 102, 103, 104: path of the project file to start from; in 102 and 104 empty where the page's
/// template is to be used alone. It may be the path of a cloud file: the disk's name first,
/// "个人云盘" or "企业云盘", and zFileDialog::pathFgf between the parts. The dialog has neither
/// looked for it nor downloaded it; the receiver fetches it.
inline constexpr auto projectFile = latin1("GcLj");
/// 102: name of the estimate's template.
inline constexpr auto estimateTemplate = latin1("GsMb");
/// 104: name of the settlement's template.
inline constexpr auto settlementTemplate = latin1("JsMb");
/// The number of the plug-in addressed, as in the first argument. 107 and 114: always, loaded or
/// not. 0 and 100 to 105: only where the plug-in manager answers that it is loaded. 108: never.
inline constexpr auto client = latin1("client_pid");
/// 107: true, the import starts a new project.
inline constexpr auto isNewProject = latin1("isnewapp");
/// 107: an ImportType.
inline constexpr auto importType = latin1("type");
/// 107: the workbook, or the folder.
inline constexpr auto importPath = latin1("path");
/// 107: text of the pricing model.
inline constexpr auto pricingModel = latin1("jjms");
/// 107: path of the project template; empty as the dialog is laid out.
inline constexpr auto projectTemplate = latin1("gcmb");
/// 108: path of the tendering-data file.
inline constexpr auto tenderFile = latin1("dzb_file");
/// 114: path of the project file to start from; like projectFile it may be that of a cloud file.
inline constexpr auto contractingFile = latin1("pro_file");
}  // namespace messageKey

/// Values of messageKey::importType.
enum ImportType { ImportWorkbook = 0, ImportFolder = 1 };

/// Keys of the map of SignalCreatePro. All thirteen stand in every map; only `projectType` and
/// `feeMode` differ between maps, the others are the start values of the host's own fields.
namespace projectKey {
inline constexpr auto appType = latin1("m_AppType");               ///< Text, empty.
inline constexpr auto projectType = latin1("m_strProjectType");    ///< Name of the pricing model.
inline constexpr auto ssgcId = latin1("m_nSsgcId");                ///< Integer, -1.
inline constexpr auto sjgcId = latin1("m_nSjgcId");                ///< Integer, 0.
inline constexpr auto auditMaxId = latin1("m_nAuditMaxId");        ///< Integer, 0.
inline constexpr auto zxgcMaxId = latin1("m_nZxgcMaxId");          ///< Integer, 0.
inline constexpr auto password = latin1("m_strPassWord");          ///< Text, empty.
inline constexpr auto editPassword = latin1("m_strEditPassWord");  ///< Text, empty.
inline constexpr auto fileVersion = latin1("m_dFileVersion");      ///< Double, 0.0.
inline constexpr auto zbqd = latin1("m_nZbqd");                    ///< Integer, 0.
inline constexpr auto isLocked = latin1("m_bFileLocked");          ///< Integer, 0; no boolean.
inline constexpr auto hasEstimate = latin1("m_bHaveEstimate");     ///< Integer, 0; no boolean.
inline constexpr auto feeMode = latin1("mJfms");                   ///< A FeeMode.
}  // namespace projectKey

/// Values of projectKey::feeMode. Any text but `wholeProjectFee` counts as `FeePerUnit`. What
/// counts is the mode that the card holds, not the one picked in its menu.
enum FeeMode { FeePerUnit = 0, FeeOfWholeProject = 1 };

/// The fee modes as they stand in the configuration that the host supplies: "整体计费" and
/// "单独计费". In this form whoever includes this header may compile it in any character set.
inline const QString wholeProjectFee = QStringLiteral(u"\u6574\u4F53\u8BA1\u8D39");
inline const QString perUnitFee = QStringLiteral(u"\u5355\u72EC\u8BA1\u8D39");

}  // namespace newpro
