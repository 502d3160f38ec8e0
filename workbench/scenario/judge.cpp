#include "workbench/scenario/judge.h"

#include <QJsonArray>
#include <QRegularExpression>

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

QVector<QJsonObject> filtered(const QVector<QJsonObject>& journal, const Expectations& expect) {
    if (!expect.onlyNames) return journal;
    QVector<QJsonObject> kept;
    for (const QJsonObject& entry : journal)
        if (expect.onlyNames->contains(entry.value(QStringLiteral("name")).toString()))
            kept.append(entry);
    return kept;
}

/// @return how many entries from `from` on stand before the first that this one, or that this
///         pattern, agrees with; -1 if none agrees.
template <typename Agrees>
int distance(int from, int size, Agrees agrees) {
    for (int at = from; at < size; ++at)
        if (agrees(at)) return at - from;
    return -1;
}

/// Where the two part, they come together again by the shortest way: one entry that is too many
/// does not make every later one differ.
QStringList onlyDifferences(const QVector<QJsonObject>& journal, const Expectations& expect) {
    const QVector<QJsonObject> kept = filtered(journal, expect);
    const QVector<QJsonObject>& list = expect.onlyList;
    QStringList found;
    int i = 0;
    int j = 0;
    const auto tell = [&](const QString& what) {
        found.append(QStringLiteral("only.list[%1]: ").arg(j) + what);
    };
    while (i < kept.size() || j < list.size()) {
        if (i < kept.size() && j < list.size() && matches(kept[i], list[j])) {
            ++i, ++j;
            continue;
        }
        const int more = j == list.size() ? kept.size() - i : distance(i, kept.size(), [&](int at) {
            return matches(kept[at], list[j]);
        });
        const int fewer =
            i == kept.size()
                ? list.size() - j
                : distance(j, list.size(), [&](int at) { return matches(kept[i], list[at]); });
        if (more < 0 && fewer < 0) {
            tell(QStringLiteral("differs\n    expected: %1\n    found:    %2\n    differs:  %3")
                     .arg(patternText(list[j]), numbered(kept[i]), difference(kept[i], list[j])));
            ++i, ++j;
        } else if (fewer < 0 || (more >= 0 && more <= fewer)) {
            for (const int end = i + more; i < end; ++i)
                tell(QStringLiteral("one too many\n    found:    ") + numbered(kept[i]));
        } else {
            for (const int end = j + fewer; j < end; ++j)
                tell(QStringLiteral("missing\n    expected: ") + patternText(list[j]));
        }
    }
    return found;
}

QVector<QJsonObject> allFilledIn(const QVector<QJsonObject>& patterns, const QString& folder) {
    QVector<QJsonObject> filled;
    for (const QJsonObject& pattern : patterns)
        filled.append(filledIn(QJsonValue(pattern), folder).toObject());
    return filled;
}

/// @return whether a text is as wanted, where any day may stand for the placeholder.
bool isText(const QString& text, const QString& wanted) {
    QString pattern = QRegularExpression::escape(wanted);
    pattern.replace(QRegularExpression::escape(dayPlaceholder), QStringLiteral("[0-9]{8}"));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
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
    const QString text = wanted.toString();
    if (value.isString() && text.contains(dayPlaceholder) && isText(value.toString(), text))
        return {};
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
