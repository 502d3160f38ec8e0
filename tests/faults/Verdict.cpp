#include "tests/faults/Verdict.h"

#include <QHash>
#include <QRegularExpression>
#include <algorithm>

#include "tests/faults/Places.h"
#include "tests/faults/Symbols.h"

namespace faults {

namespace {

/// Who reports what goes wrong in a function that is no reporting operation itself.
QString reporterOf(const QString& function) {
    static const QHash<QString, QString> others = {
        {QStringLiteral("NewProCfgDialogPrivate::templateRow"),
         QStringLiteral("NewProCfgDialog::addOneRowItem")},
        {QStringLiteral("NewProCfgDialogPrivate::createTemplateTree"),
         QStringLiteral("NewProCfgDialog::addMoBanWidget")},
        {QStringLiteral("newpro::fillTemplateList"),
         QStringLiteral("NewProCfgDialog::LoadTemplateProInfo")},
        {QStringLiteral("ProModelItemForm::splitButton"),
         QStringLiteral("ProModelItemForm::initXjButton")},
        {QStringLiteral("ProModelItemForm::feeModeMenu"),
         QStringLiteral("ProModelItemForm::initXjButton")},
    };
    return others.value(function, function);
}

bool isGuard(const QString& function) {
    return function.contains(QLatin1String("newpro::guarded")) ||
           function.contains(QLatin1String(" operate"));
}

/// @return the function that has to report: the one whose guard is the innermost. Empty where no
///         guard stands on the stack: then the exception is the host's own and goes back to it.
QString reporterOn(const QStringList& stack) {
    for (int i = 0; i + 1 < stack.size(); ++i) {
        if (!isGuard(stack[i])) continue;
        int outside = i + 1;
        while (outside < stack.size() && isGuard(stack[outside])) ++outside;
        const QString function = outside < stack.size() ? enclosing(stack[outside]) : QString();
        // Every answer of the chooser goes through one function.
        if (function == QLatin1String("xzGcLxDialog::answer") && outside + 1 < stack.size())
            return enclosing(stack[outside + 1]);
        return reporterOf(function);
    }
    return {};
}

QString textOf(Action action) {
    return action == Action::ThrowOther ? QStringLiteral("未知异常") : QLatin1String(thrownText);
}

bool escaped(const Record& record) {
    return record.ended.contains(QLatin1String("an exception escaped"));
}

void judgeThrow(Action action, const Outcome& outcome, QStringList& faults) {
    const QStringList& reports = outcome.faulty.reports;
    const QString reporter = reporterOn(outcome.stack);
    const bool hostsOwn = reporter.isEmpty() && reports.isEmpty();
    if (hostsOwn) {
        if (!escaped(outcome.faulty)) faults += QStringLiteral("no report and no exception");
        return;
    }
    if (escaped(outcome.faulty)) faults += QStringLiteral("escaped: ") + outcome.faulty.ended;
    if (reports.size() != 1) {
        faults += QStringLiteral("%1 reports: %2")
                      .arg(reports.size())
                      .arg(reports.join(QLatin1Char(' ')));
        return;
    }
    const QStringList parts = reports[0].split(QLatin1Char('|'));
    if (!parts[1].startsWith(parts[0] + QLatin1String("::")))
        faults += QStringLiteral("source and function differ: ") + reports[0];
    if (parts[2] != textOf(action)) faults += QStringLiteral("text: ") + reports[0];
#ifdef GUARDS_ON_STACK
    if (parts[1] != reporter)
        faults += QStringLiteral("reported by %1, not by %2").arg(parts[1], reporter);
#endif
}

/// Whatever happens, nothing is sent or said that would not have been without a fault, nor twice.
void judgeMessages(const QStringList& found, QStringList allowed, const char* what,
                   QStringList& faults) {
    for (const QString& message : found) {
        if (!allowed.removeOne(message)) faults += QLatin1String(what) + message;
    }
}

bool changesAnswers(Action action) {
    return action >= Action::AnswerMissing && action <= Action::AnswerBroken;
}

bool whileChoosing(const QStringList& stack) {
    return std::any_of(stack.begin(), stack.end(), [](const QString& function) {
        return function.contains(QLatin1String("importExcelSelFile::loadJjms"));
    });
}

/// Where the import dialog was kept from asking for the configuration, the import goes to the
/// budget's plug-in; where there is none, to the other.
QStringList orToBudget(const QStringList& messages) {
    QStringList both = messages;
    for (QString message : messages) {
        message.replace(QLatin1String("[16,107"), QLatin1String("[4,107"));
        message.replace(QLatin1String("\"client_pid\":16"), QLatin1String("\"client_pid\":4"));
        both += message;
    }
    return both;
}

/// The import dialog's messages without the pricing model, which a fault may have kept from its
/// list.
QStringList withoutModel(QStringList messages) {
    return messages.replaceInStrings(QRegularExpression(QStringLiteral("\"jjms\":\"[^\"]*\"")),
                                     QStringLiteral("\"jjms\":\"\""));
}

}  // namespace

QStringList judge(const Case& wanted, const Outcome& outcome, const Outcome& reference) {
    QStringList faults;
    if (!outcome.fired) {
        if (isEvent(wanted.place.operation)) return {};  // how many come is a matter of time
        return {QStringLiteral("the place was not reached again")};
    }
    if (throws(wanted.action)) {
        judgeThrow(wanted.action, outcome, faults);
    } else {
        if (!outcome.faulty.reports.isEmpty())
            faults += QStringLiteral("reports: ") + outcome.faulty.reports.join(QLatin1Char(' '));
        if (escaped(outcome.faulty)) faults += outcome.faulty.ended;
    }
    if (changesAnswers(wanted.action)) {
        // Other answers may well make another message or box of it; never more of them.
        if (outcome.faulty.messages.size() > qMax(1, reference.faulty.messages.size()))
            faults += QStringLiteral("messages: ") + outcome.faulty.messages.join(QLatin1Char(' '));
    } else {
        const bool choosing = whileChoosing(outcome.stack);
        if (outcome.faulty.messages.size() > reference.faulty.messages.size())
            faults += QStringLiteral("messages: ") + outcome.faulty.messages.join(QLatin1Char(' '));
        judgeMessages(choosing ? withoutModel(outcome.faulty.messages) : outcome.faulty.messages,
                      choosing ? orToBudget(withoutModel(reference.faulty.messages))
                               : reference.faulty.messages,
                      "sent: ", faults);
        judgeMessages(outcome.faulty.boxes, reference.faulty.boxes, "said: ", faults);
    }
    if (!outcome.again.ended.isEmpty() && outcome.again.ended != reference.again.ended)
        faults += QStringLiteral("second try: ") + outcome.again.ended;
    if (!outcome.again.reports.isEmpty())
        faults +=
            QStringLiteral("second try reports: ") + outcome.again.reports.join(QLatin1Char(' '));
    if (outcome.again.messages != reference.again.messages)
        faults += QStringLiteral("second try sends %1, not %2")
                      .arg(outcome.again.messages.join(QLatin1Char(' ')),
                           reference.again.messages.join(QLatin1Char(' ')));
    if (!outcome.broken.isEmpty())
        faults += QStringLiteral("broken: ") + outcome.broken.join(QLatin1String("; "));
    if (!outcome.warnings.isEmpty())
        faults += QStringLiteral("warnings: ") + outcome.warnings.join(QLatin1String("; "));
    if (!outcome.strays.isEmpty())
        faults += QStringLiteral("left behind: ") + outcome.strays.join(QLatin1Char(' '));
    return faults;
}

}  // namespace faults
