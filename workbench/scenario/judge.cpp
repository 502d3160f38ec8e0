#include "workbench/scenario/judge.h"

#include <QJsonArray>

#include "workbench/scenario/journalText.h"

namespace workbench {

namespace {

QString below(const QString& step, const QString& inner) {
    if (inner.startsWith(QLatin1Char(':')) || inner.startsWith(QLatin1Char('[')))
        return step + inner;
    return step + QLatin1Char('.') + inner;
}

bool matches(const QJsonObject& entry, const QJsonObject& wanted) {
    return difference(entry, wanted).isEmpty();
}

QString numbered(const QJsonObject& entry) {
    return QStringLiteral("#%1 %2")
        .arg(entry.value(QStringLiteral("seq")).toInt())
        .arg(entryText(entry));
}

/// The entry that was most likely meant: one of the same name.
QString nearest(const QVector<QJsonObject>& journal, int from, const QJsonObject& wanted) {
    const QJsonValue name = wanted.value(QStringLiteral("name"));
    for (int i = from; i < journal.size(); ++i)
        if (name.isString() && journal[i].value(QStringLiteral("name")) == name)
            return QStringLiteral("\n    nearest:  %1\n    differs:  %2")
                .arg(numbered(journal[i]), difference(journal[i], wanted));
    return {};
}

QStringList orderDifferences(const QVector<QJsonObject>& journal,
                             const QVector<QJsonObject>& wanted) {
    QStringList list;
    int from = 0;
    for (int i = 0; i < wanted.size(); ++i) {
        int at = from;
        while (at < journal.size() && !matches(journal[at], wanted[i])) ++at;
        if (at < journal.size()) {
            from = at + 1;
            continue;
        }
        const QString after =
            from ? QStringLiteral(" after ") + numbered(journal[from - 1]) : QString();
        list.append(QStringLiteral("inOrder[%1]: not found%2\n    expected: %3%4")
                        .arg(i)
                        .arg(after, patternText(wanted[i]), nearest(journal, from, wanted[i])));
    }
    return list;
}

QStringList neverDifferences(const QVector<QJsonObject>& journal,
                             const QVector<QJsonObject>& unwanted) {
    QStringList list;
    for (int i = 0; i < unwanted.size(); ++i)
        for (const QJsonObject& entry : journal)
            if (matches(entry, unwanted[i]))
                list.append(QStringLiteral("never[%1]: found\n    unwanted: %2\n    found:    %3")
                                .arg(i)
                                .arg(patternText(unwanted[i]), numbered(entry)));
    return list;
}

QStringList onlyDifferences(const QVector<QJsonObject>& journal, const Expectations& expect) {
    QVector<QJsonObject> kept;
    for (const QJsonObject& entry : journal)
        if (expect.onlyNames.contains(entry.value(QStringLiteral("name")).toString()))
            kept.append(entry);
    QStringList list;
    const int most = qMax(kept.size(), expect.onlyList.size());
    for (int i = 0; i < most; ++i) {
        const QString place = QStringLiteral("only.list[%1]: ").arg(i);
        if (i >= kept.size()) {
            list.append(place + QStringLiteral("missing\n    expected: ") +
                        patternText(expect.onlyList[i]));
        } else if (i >= expect.onlyList.size()) {
            list.append(place + QStringLiteral("one too many\n    found:    ") + numbered(kept[i]));
        } else if (!matches(kept[i], expect.onlyList[i])) {
            list.append(place + QStringLiteral("differs\n    expected: %1\n    found:    %2\n"
                                               "    differs:  %3")
                                    .arg(patternText(expect.onlyList[i]), numbered(kept[i]),
                                         difference(kept[i], expect.onlyList[i])));
        }
    }
    return list;
}

QVector<QJsonObject> allFilledIn(const QVector<QJsonObject>& patterns, const QString& folder) {
    QVector<QJsonObject> filled;
    for (const QJsonObject& pattern : patterns)
        filled.append(filledIn(QJsonValue(pattern), folder).toObject());
    return filled;
}

}  // namespace

QString difference(const QJsonValue& value, const QJsonValue& wanted) {
    if (wanted.isObject() && value.isObject()) {
        const QJsonObject members = wanted.toObject();
        for (auto it = members.begin(); it != members.end(); ++it) {
            const QString inner = difference(value[it.key()], it.value());
            if (!inner.isEmpty()) return below(it.key(), inner);
        }
        return {};
    }
    const QJsonArray have = value.toArray();
    const QJsonArray want = wanted.toArray();
    if (value.isArray() && wanted.isArray() && have.size() == want.size()) {
        for (int i = 0; i < want.size(); ++i) {
            const QString inner = difference(have[i], want[i]);
            if (!inner.isEmpty()) return below(QStringLiteral("[%1]").arg(i), inner);
        }
        return {};
    }
    if (value == wanted) return {};
    return QStringLiteral(": %1, expected %2").arg(valueText(value), valueText(wanted));
}

QStringList differences(const QVector<QJsonObject>& journal, const Expectations& expect,
                        const QString& folder) {
    QStringList list = orderDifferences(journal, allFilledIn(expect.inOrder, folder));
    list += neverDifferences(journal, allFilledIn(expect.never, folder));
    if (!expect.hasOnly) return list;
    Expectations only = expect;
    only.onlyList = allFilledIn(expect.onlyList, folder);
    return list + onlyDifferences(journal, only);
}

}  // namespace workbench
