#include "tests/monkey/invariants.h"

#include <QDialog>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

namespace monkey {

namespace {

QString text(const QJsonObject& entry, const char* key) {
    return entry.value(QLatin1String(key)).toString();
}

QString whole(const QJsonObject& entry) {
    return QString::fromUtf8(QJsonDocument(entry).toJson(QJsonDocument::Compact));
}

enum class Request { None, Whole, First, Second };  ///< First and second of two that are one.

Request requestOf(const QJsonObject& entry) {
    static const QSet<int> pluginCodes = {100, 101, 102, 103, 104, 105, 107, 108, 114};
    const QString name = text(entry, "name");
    const int code = entry.value(QLatin1String("args")).toArray().at(1).toInt(-1);
    if (name == QLatin1String("SignalCreatePro")) return Request::Whole;
    if (name == QLatin1String("SignalCreateMB")) return Request::Second;
    if (name == QLatin1String("Communication::SendMsg") && code == 44) return Request::First;
    if (name == QLatin1String("Communication::SendMsgToPlugin") && pluginCodes.contains(code))
        return Request::Whole;
    return Request::None;
}

/// Counts requests entry by entry.
class Counter {
  public:
    /// @return whether the entry begins a request.
    bool take(const QJsonObject& entry) {
        const Request request = requestOf(entry);
        if (request == Request::None) return false;
        const bool ends = half && request == Request::Second;
        half = request == Request::First;
        return !ends;
    }

  private:
    bool half = false;
};

QString creationFault(const QJsonObject& entry, const char* what) {
    return QStringLiteral("creations: %1: %2: %3")
        .arg(text(entry, "name"), QLatin1String(what), whole(entry));
}

struct Kind {
    QStringList needed;
    QStringList possible;
};

const Kind* kindOf(const QString& name) {
    const QString args = QStringLiteral("args");
    static const QHash<QString, Kind> kinds = {
        {QStringLiteral("call"), {{args}, {QStringLiteral("answer")}}},
        {QStringLiteral("signal"), {{args}, {}}},
        {QStringLiteral("dialog"), {{QStringLiteral("event")}, {QStringLiteral("result")}}},
        {QStringLiteral("box"), {{args}, {}}},
        {QStringLiteral("exception"), {{args}, {}}},
        {QStringLiteral("project"), {{}, {}}}};
    const auto found = kinds.constFind(name);
    return found == kinds.constEnd() ? nullptr : &*found;
}

bool hasItsMembers(const QJsonObject& entry) {
    const Kind* kind = kindOf(text(entry, "kind"));
    if (!kind || text(entry, "name").isEmpty()) return false;
    const QStringList common = {QStringLiteral("seq"), QStringLiteral("ms"), QStringLiteral("kind"),
                                QStringLiteral("name")};
    for (const QString& key : common + kind->needed)
        if (!entry.contains(key)) return false;
    for (const QString& key : entry.keys())
        if (!(common + kind->needed + kind->possible).contains(key)) return false;
    return !entry.contains(QStringLiteral("args")) || entry.value(QStringLiteral("args")).isArray();
}

bool isArgsOfItsKind(const QJsonObject& entry) {
    const QString kind = text(entry, "kind");
    const QJsonArray args = entry.value(QLatin1String("args")).toArray();
    if (kind == QLatin1String("box"))
        return args.size() == 3 && args[0].isString() && args[1].isString() && args[2].isArray();
    if (kind == QLatin1String("exception"))
        return args.size() == 4 && args[0].isString() && args[1].isDouble() &&
               args[2].toString() == text(entry, "name") && args[3].isString();
    if (kind != QLatin1String("dialog")) return true;
    const bool done = text(entry, "event") == QLatin1String("done");
    return (done || text(entry, "event") == QLatin1String("opened")) &&
           done == entry.value(QLatin1String("result")).isDouble();
}

}  // namespace

int creationRequests(const Entries& journal) {
    int count = 0;
    Counter counter;
    for (const QJsonObject& entry : journal) count += counter.take(entry) ? 1 : 0;
    return count;
}

QStringList creationFaults(const Entries& journal) {
    int allowed = 0;
    bool isOpen = false;
    const QJsonObject* unproven = nullptr;  ///< A request beside a dialog that was open.
    Counter counter;
    for (const QJsonObject& entry : journal) {
        // An exception may well keep the dialog that has asked from closing.
        if (text(entry, "kind") == QLatin1String("exception")) unproven = nullptr;
        if (text(entry, "name") == QLatin1String("NewProCfgDialog")) {
            if (unproven && entry.value(QLatin1String("result")).toInt() != QDialog::Accepted)
                return {creationFault(*unproven, "not by the dialog that is open")};
            unproven = nullptr;
            isOpen = text(entry, "event") == QLatin1String("opened");
            if (isOpen) allowed = 1;
        }
        if (!counter.take(entry)) continue;
        if (--allowed < 0) return {creationFault(entry, "one too many")};
        if (isOpen) unproven = &entry;
    }
    return {};
}

QStringList journalFaults(const Entries& journal) {
    QStringList faults;
    int seq = 0;
    double ms = 0;
    QHash<QString, int> open;
    for (const QJsonObject& entry : journal) {
        const double now = entry.value(QLatin1String("ms")).toDouble(-1);
        if (entry.value(QLatin1String("seq")).toInt() != ++seq || now < ms ||
            !hasItsMembers(entry) || !isArgsOfItsKind(entry))
            return {QStringLiteral("journal: a wrong entry: ") + whole(entry)};
        ms = now;
        if (text(entry, "kind") != QLatin1String("dialog")) continue;
        int& windows = open[text(entry, "name")];
        const bool opened = text(entry, "event") == QLatin1String("opened");
        // A dialog that a flow closes once more is done once more.
        windows = qMax(0, windows + (opened ? 1 : -1));
    }
    for (auto it = open.constBegin(); it != open.constEnd(); ++it)
        if (it.value() != 0)
            faults.append(QStringLiteral("balance: %1 was opened and not done").arg(it.key()));
    return faults;
}

QStringList exceptionFaults(const Entries& journal, bool hostThrows) {
    if (hostThrows) return {};
    for (const QJsonObject& entry : journal)
        if (text(entry, "kind") == QLatin1String("exception"))
            return {QStringLiteral("exception: nothing was thrown: ") + whole(entry)};
    return {};
}

}  // namespace monkey
