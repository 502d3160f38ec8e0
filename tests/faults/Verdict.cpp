#include "tests/faults/Verdict.h"

#include <QHash>
#include <QRegularExpression>
#include <algorithm>

#include "tests/faults/Places.h"
#include "tests/faults/Symbols.h"

namespace faults {

namespace {

#ifdef GUARDS_ON_STACK
/// Who reports what goes wrong in a function that is no reporting operation itself.
QString reporterOf(const QString& function) {
    static const QHash<QString, QString> others = {
        {QStringLiteral("NewProCfgDialogPrivate::templateRow"),
         QStringLiteral("NewProCfgDialog::addOneRowItem")},
        {QStringLiteral("NewProCfgDialogPrivate::createTemplateTree"),
         QStringLiteral("NewProCfgDialog::addMoBanWidget")},
        {QStringLiteral("NewProCfgDialogPrivate::followSkin"),
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
///         guard stands on the stack.
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
#endif

QString textOf(Action action) {
    return action == Action::ThrowOther ? QStringLiteral("未知异常") : QLatin1String(thrownText);
}

bool escaped(const Record& record) {
    return record.ended.contains(QLatin1String("an exception escaped"));
}

/// @return whether no guard of the module can stand around the place in this flow.
bool isHostsOwn(const Place& place, const QStringList& reports) {
    return reports.isEmpty() &&
           makesBaseOfWindow(nameOf(place.operation), enclosing(functionAt(place.site)));
}

void judgeThrow(const Case& wanted, const Outcome& outcome, QStringList& faults) {
    const QStringList& reports = outcome.faulty.reports;
    if (isHostsOwn(wanted.place, reports)) {
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
    if (parts[2] != textOf(wanted.action)) faults += QStringLiteral("text: ") + reports[0];
#ifdef GUARDS_ON_STACK
    const QString reporter = reporterOn(outcome.stack);
    if (parts[1] != reporter)
        faults += QStringLiteral("reported by %1, not by %2").arg(parts[1], reporter);
#endif
}

/// What may differ between a message and the one that is sent without a fault.
struct Allowance {
    QRegularExpression what;
    QString instead;
};

/// What may differ in messages.
struct Allowances {
    QVector<Allowance> either;     ///< In both of them.
    QVector<Allowance> reference;  ///< The message without a fault may have become this.
};

/// @return the allowances of an action. Most have none: what a service answers decides whether a
///         message is sent, and not what it says.
Allowances allowancesOf(Action action, const QStringList& stack) {
    // Where there is no configuration service, the import goes to another plug-in.
    static const Allowance otherPlugIn = {
        QRegularExpression(QStringLiteral("\\[(4|16),107,(.*)\"client_pid\":\\1,")),
        QStringLiteral("[?,107,\\2\"client_pid\":?,")};
    // A service that throws is one that is there.
    static const Allowance budgetPlugIn = {
        QRegularExpression(QStringLiteral("\\[16,107,(.*)\"client_pid\":16,")),
        QStringLiteral("[4,107,\\1\"client_pid\":4,")};
    // The pricing model, which is then missing from the import dialog's list.
    static const Allowance noModel = {QRegularExpression(QStringLiteral("\"jjms\":\"[^\"]*\"")),
                                      QStringLiteral("\"jjms\":?")};
    // A plug-in that is not loaded is not named as the client of a page's data.
    static const Allowance noClient = {
        QRegularExpression(QStringLiteral("(\"apptype\":[^,}]*),\"client_pid\":\\d+")),
        QStringLiteral("\\1")};
    const bool choosing = std::any_of(stack.begin(), stack.end(), [](const QString& function) {
        return function.contains(QLatin1String("importExcelSelFile::loadJjms"));
    });
    if (action == Action::AnswerRefusing) return {{noClient}, {}};
    if (action == Action::AnswerMissing) return {{otherPlugIn, noModel}, {}};
    if (choosing && throws(action)) return {{noModel}, {budgetPlugIn}};
    if (choosing && !changesAnswers(action)) return {{noModel}, {}};
    return {};
}

QString allowing(QString message, const QVector<Allowance>& allowances) {
    for (const Allowance& one : allowances) message.replace(one.what, one.instead);
    return message;
}

bool mayStandFor(const QString& found, const QString& reference, const Allowances& allowances) {
    const QString general = allowing(found, allowances.either);
    return general == allowing(reference, allowances.either) ||
           general == allowing(allowing(reference, allowances.reference), allowances.either);
}

/// Whatever happens, nothing is sent that would not have been without a fault, nor twice.
void judgeMessages(const QStringList& found, QStringList reference, const Allowances& allowances,
                   const char* what, QStringList& faults) {
    for (const QString& message : found) {
        const auto match = std::find_if(
            reference.begin(), reference.end(),
            [&](const QString& wanted) { return mayStandFor(message, wanted, allowances); });
        if (match == reference.end())
            faults += QLatin1String(what) + message;
        else
            reference.erase(match);
    }
}

bool walksCloudDisk(const Outcome& reference) {
    return std::any_of(reference.places.begin(), reference.places.end(), [](const Place& place) {
        return faults::nameOf(place.operation).startsWith(QLatin1String("zFileDialog::Load"));
    });
}

/// Nor is anything said. But a walk through a cloud disk that answers otherwise ends with one box:
/// that it cannot be reached, or the service's own reason.
void judgeBoxes(Action action, const QStringList& found, const Outcome& reference,
                QStringList& faults) {
    static const QString reasons[] = {QStringLiteral("\"无法连接到原云盘地址\""),
                                      QStringLiteral("\"云盘服务拒绝了请求，请稍后再试\""),
                                      QStringLiteral("\"云盘目录不存在或已被移动\"")};
    const auto isReason = [&](const QString& reason) { return found.value(0).contains(reason); };
    const bool walkEnded = changesAnswers(action) && action != Action::AnswerMissing &&
                           walksCloudDisk(reference) && found.size() == 1 &&
                           std::any_of(std::begin(reasons), std::end(reasons), isReason);
    if (!walkEnded) judgeMessages(found, reference.faulty.boxes, {}, "said: ", faults);
}

/// A host that only takes its time changes nothing.
void judgeDelay(const Record& played, const Record& reference, QStringList& faults) {
    if (played.ended != reference.ended) faults += QStringLiteral("ended: ") + played.ended;
    if (played.messages != reference.messages || played.boxes != reference.boxes)
        faults += QStringLiteral("sends or says less");
    if (played.closedAt != reference.closedAt) faults += QStringLiteral("closed elsewhere");
}

/// The dialog closes where it would have closed without a fault, and nowhere else.
void judgeDialog(const Outcome& outcome, const Outcome& reference, QStringList& faults) {
    const Record& played = outcome.faulty;
    if (played.closedAt >= 0 && played.closedAt != reference.faulty.closedAt)
        faults += QStringLiteral("the dialog closed at step %1, not %2")
                      .arg(played.closedAt)
                      .arg(reference.faulty.closedAt);
    if (played.closedAt < 0 && played.openedAt >= 0 && !outcome.dialogLeft)
        faults += QStringLiteral("the dialog has gone without being closed");
    // Behind a chooser that is not whole there may be none.
    if (played.openedAt < 0 && reference.faulty.openedAt == 0 && !escaped(played))
        faults += QStringLiteral("no dialog: ") + played.ended;
}

void judgeSecondTry(const Record& again, const Record& reference, QStringList& faults) {
    if (!again.ended.isEmpty() && again.ended != reference.ended)
        faults += QStringLiteral("second try: ") + again.ended;
    if (!again.reports.isEmpty())
        faults += QStringLiteral("second try reports: ") + again.reports.join(QLatin1Char(' '));
    const auto compare = [&](const char* verb, const QStringList& found,
                             const QStringList& wanted) {
        if (found != wanted)
            faults += QStringLiteral("second try %1 %2, not %3")
                          .arg(QLatin1String(verb), found.join(QLatin1Char(' ')),
                               wanted.join(QLatin1Char(' ')));
    };
    compare("sends", again.messages, reference.messages);
    compare("says", again.boxes, reference.boxes);
}

/// A dialog that has lost its cards is whole again with the next kind; one that has lost its pages
/// may not have what a step needs, and is only quiet.
void judgeFurtherUse(Action action, const Record& goneOn, QStringList& faults) {
    if (!goneOn.ended.isEmpty() && (action == Action::DeleteCards || escaped(goneOn)))
        faults += QStringLiteral("used on: ") + goneOn.ended;
    for (const QStringList& said : {goneOn.reports, goneOn.messages, goneOn.boxes}) {
        if (!said.isEmpty()) faults += QStringLiteral("used on: ") + said.join(QLatin1Char(' '));
    }
}

}  // namespace

QStringList judge(const Case& wanted, const Outcome& outcome, const Outcome& reference) {
    QStringList faults;
    if (!outcome.fired) {
        if (isEvent(wanted.place.operation)) return {};  // how many come is a matter of time
        return {QStringLiteral("the place was not reached again")};
    }
    if (!outcome.acted) faults += QStringLiteral("nothing was done at the place");
    if (throws(wanted.action)) {
        judgeThrow(wanted, outcome, faults);
    } else {
        if (!outcome.faulty.reports.isEmpty())
            faults += QStringLiteral("reports: ") + outcome.faulty.reports.join(QLatin1Char(' '));
        if (escaped(outcome.faulty)) faults += outcome.faulty.ended;
    }
    judgeMessages(outcome.faulty.messages, reference.faulty.messages,
                  allowancesOf(wanted.action, outcome.stack), "sent: ", faults);
    judgeBoxes(wanted.action, outcome.faulty.boxes, reference, faults);
    judgeSecondTry(outcome.again, reference.again, faults);
    if (deletes(wanted.action)) {
        judgeFurtherUse(wanted.action, outcome.goneOn, faults);
    } else {
        judgeDialog(outcome, reference, faults);
    }
    if (onlyDelays(wanted.action)) judgeDelay(outcome.faulty, reference.faulty, faults);
    if (!outcome.broken.isEmpty())
        faults += QStringLiteral("broken: ") + outcome.broken.join(QLatin1String("; "));
    if (!outcome.warnings.isEmpty())
        faults += QStringLiteral("warnings: ") + outcome.warnings.join(QLatin1String("; "));
    if (!outcome.strays.isEmpty())
        faults += QStringLiteral("left behind: ") + outcome.strays.join(QLatin1Char(' '));
    return faults;
}

}  // namespace faults
