#include "tests/faults/Sites.h"

#include <QProcess>
#include <QRegularExpression>
#include <algorithm>

#include "tests/faults/Symbols.h"
#include "tests/faults/interposer/places.h"

namespace faults {

namespace {

/// What no flow can reach without a fault, and docs/trust.md says why. An empty text stands for
/// any.
struct Known {
    QString caller;     ///< How a function of the module begins.
    QString operation;  ///< Of the host.
};

const QVector<Known>& knownOnes() {
    static const QString any;
    static const QVector<Known> table = {
        // It is the report of a fault.
        {any, QStringLiteral("ProcExceptionNew")},
        // The dialog's layout has no template chooser.
        {any, QStringLiteral("ProjectSettingHelper::getJiLinMoBanList")},
        {any, QStringLiteral("zBaseComboxPopup::setDisplayText")},
        {any, QStringLiteral("zBaseComboxPopup::hideDropDownPopup")},
        {QStringLiteral("importExcelSelFile::loadGcmb("), any},
        {QStringLiteral("importExcelSelFile::slotGcmbTreeItemClicked("), any},
        // Nor has it an estimate page.
        {any, QStringLiteral("SharedInterface::getInstance")},
        {any, QStringLiteral("GetProgramTypeByFile")},
        {QStringLiteral("newpro::templateFiles()"), QStringLiteral("SharedInterface::GetAppPath")},
        {QStringLiteral("newpro::defaultTemplate("), any},
        {QStringLiteral("newpro::fillEstimateTemplates("), any},
        // It makes template cards by their path alone.
        {QStringLiteral("TemplateProListItem::TemplateProListItem(QString const&, QString const&"),
         any},
        {QStringLiteral("TemplateProListItem::Form::dressFullCard("), any}};
    return table;
}

bool isKnown(const QString& caller, int operation) {
    const QVector<Known>& table = knownOnes();
    const QString name = nameOf(operation);
    return isEvent(operation) || std::any_of(table.begin(), table.end(), [&](const Known& one) {
               return caller.startsWith(one.caller) &&
                      (one.operation.isEmpty() || one.operation == name);
           });
}

/// @param callee a symbol of the module's code. @return the operation that it stands for; -1 for
///        none.
int operationOf(const QString& callee) {
    static const QHash<QString, int> operations = [] {
        QHash<QString, int> all;
        for (int i = 0; i < operationCount(); ++i) {
            all.insert(QStringLiteral("fault_") + QLatin1String(operationName(i)), i);
            // Every size goes to the host through one function: the places are its callers.
            if (isSize(i)) all.insert(QStringLiteral("_ZN6newpro6scaledEd"), i);
        }
        return all;
    }();
    return operations.value(callee, -1);
}

QVector<Place> readSites() {
    QProcess disassembler;
    disassembler.start(QStringLiteral(DISASSEMBLER),
                       {QStringLiteral("-d"), QStringLiteral("--no-show-raw-insn"),
                        QStringLiteral(FAULTY_MODULE)});
    disassembler.waitForFinished(-1);
    // "   12345:	call   23456 <symbol>", also by way of "symbol@plt"; jumps end a function.
    // LLVM's writes "callq" and puts the spaces elsewhere.
    static const QRegularExpression call(
        QStringLiteral("^ *[0-9a-f]+:\\s+(?:call|jmp)q?\\s.*<([A-Za-z0-9_]+)(?:@plt)?>"));
    static const QRegularExpression instruction(QStringLiteral("^ *([0-9a-f]+):\\s"));
    QVector<Place> sites;
    int called = -1;
    for (const QByteArray& line : disassembler.readAllStandardOutput().split('\n')) {
        const QString text = QString::fromLatin1(line);
        const auto at = instruction.match(text);
        if (!at.hasMatch()) continue;
        const quintptr address = at.captured(1).toULongLong(nullptr, 16);
        if (called >= 0) sites.append({called, address, 1, {}});
        called = line.contains('<') ? operationOf(call.match(text).captured(1)) : -1;
    }
    return sites;
}

/// @return the calls in the module's code, each by the address that it returns to.
const QVector<Place>& sites() {
    static const QVector<Place> all = readSites();
    return all;
}

#ifdef GUARDS_ON_STACK
/// @return the function that a call stands in, with its arguments.
QString functionOf(const Place& site) {
    return functionAt(site.site).remove(QLatin1String("(anonymous namespace)::"));
}
#endif

}  // namespace

int siteCount() {
    return sites().size();
}

QStringList unreached(const QVector<Place>& reached) {
    QStringList missing;
    if (sites().isEmpty()) missing += QStringLiteral("no call found in the module's code");
    for (int i = 0; i < operationCount(); ++i) {
        const auto isOfIt = [i](const Place& place) { return place.operation == i; };
        if (!isKnown({}, i) && std::none_of(reached.begin(), reached.end(), isOfIt))
            missing += demangled(operationName(i));
    }
#ifdef GUARDS_ON_STACK
    for (const Place& site : sites()) {
        const QString caller = functionOf(site);
        const auto isIt = [&](const Place& place) { return place.sameCall(site); };
        if (isKnown(caller, site.operation) ||
            caller.startsWith(QLatin1String("newpro::scaled(")) ||
            std::any_of(reached.begin(), reached.end(), isIt))
            continue;
        missing += QStringLiteral("%1 of %2, before %3")
                       .arg(demangled(operationName(site.operation)), caller)
                       .arg(site.site, 0, 16);
    }
#endif
    return missing;
}

}  // namespace faults
