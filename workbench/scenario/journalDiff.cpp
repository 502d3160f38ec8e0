#include "workbench/scenario/journalDiff.h"

#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QRegularExpression>
#include <algorithm>
#include <unordered_map>
#include <vector>

#include "workbench/journal/Journal.h"
#include "workbench/scenario/journalText.h"

namespace workbench {

namespace {

constexpr int contextLines = 3;

/// The members of a line, and whether each has to be there.
const struct {
    QLatin1String key;
    QJsonValue::Type type;
    bool needed;
    const char* description;
} members[] = {{QLatin1String("seq"), QJsonValue::Double, true, "a number"},
               {QLatin1String("ms"), QJsonValue::Double, true, "a number"},
               {QLatin1String("kind"), QJsonValue::String, true, "a text"},
               {QLatin1String("name"), QJsonValue::String, true, "a text"},
               {QLatin1String("args"), QJsonValue::Array, false, "an array"},
               {QLatin1String("event"), QJsonValue::String, false, "a text"},
               {QLatin1String("result"), QJsonValue::Double, false, "a number"}};

/// @return what keeps an object from being a line of a journal; empty if nothing does.
QString faultOf(const QJsonObject& entry) {
    int known = entry.contains(QLatin1String("answer")) ? 1 : 0;
    for (const auto& member : members) {
        const QJsonValue value = entry.value(member.key);
        if (!value.isUndefined()) ++known;
        if (value.type() == member.type || (value.isUndefined() && !member.needed)) continue;
        return QStringLiteral("%1: must be %2").arg(member.key, QLatin1String(member.description));
    }
    const QString kind = entry.value(QLatin1String("kind")).toString();
    if (kindText(kind) == kind) return QStringLiteral("kind: unknown kind \"%1\"").arg(kind);
    return known == entry.size() ? QString() : QStringLiteral("it has a member of no journal");
}

QString faultOf(const QByteArray& line, QJsonObject& entry) {
    QJsonParseError wrong;
    const QJsonDocument json = QJsonDocument::fromJson(line, &wrong);
    if (wrong.error != QJsonParseError::NoError)
        return QStringLiteral("no JSON: ") + wrong.errorString();
    entry = json.object();
    return json.isObject() ? faultOf(entry) : QStringLiteral("must be an object");
}

/// A line of one of the journals, or of both.
struct Line {
    char sign;
    int left;  ///< Entries before it.
    int right;
    const QJsonObject* entry;
};

/// Finds what two sequences of numbers have in common, by Hirschberg: the middle of the one belongs
/// to that place of the other where both halves have most in common. Memory grows with the length
/// alone, time with the product of what is left between equal heads and tails.
class CommonSequence {
  public:
    CommonSequence(const std::vector<int>& left, const std::vector<int>& right)
        : partner(left.size(), -1), leftAt(left.data()), rightAt(right.data()) {
        search(0, int(left.size()), 0, int(right.size()));
    }

    std::vector<int> partner;  ///< Of each on the left: its place on the right, or -1.

  private:
    void search(int from, int to, int rightFrom, int rightTo) {
        for (; from < to && rightFrom < rightTo && leftAt[from] == rightAt[rightFrom]; ++from)
            partner[size_t(from)] = rightFrom++;
        while (from < to && rightFrom < rightTo && leftAt[to - 1] == rightAt[rightTo - 1])
            partner[size_t(--to)] = --rightTo;
        if (from == to || rightFrom == rightTo) return;
        if (to - from == 1) {
            const int* end = rightAt + rightTo;
            const int* found = std::find(rightAt + rightFrom, end, leftAt[from]);
            if (found != end) partner[size_t(from)] = int(found - rightAt);
            return;
        }
        const int middle = from + (to - from) / 2;
        const int split = rightFrom + bestSplit(from, middle, to, rightFrom, rightTo);
        search(from, middle, rightFrom, split);
        search(middle, to, split, rightTo);
    }

    int bestSplit(int from, int middle, int to, int rightFrom, int rightTo) const {
        const int width = rightTo - rightFrom;
        const std::vector<int> before =
            lengths(leftAt + from, middle - from, 1, rightAt + rightFrom, width);
        const std::vector<int> after =
            lengths(leftAt + to - 1, to - middle, -1, rightAt + rightTo - 1, width);
        int best = 0;
        const auto common = [&](int at) { return before[size_t(at)] + after[size_t(width - at)]; };
        for (int at = 1; at <= width; ++at)
            if (common(at) > common(best)) best = at;
        return best;
    }

    /// Sixty-four items of the right side at a time: a bit is cleared where what is in common
    /// grows.
    /// @param step 1 to go forward, -1 backward.
    /// @return for each number of items on the right: how many are in common with all on the left.
    static std::vector<int> lengths(const int* left, int height, int step, const int* right,
                                    int width) {
        using Bits = std::vector<quint64>;
        const size_t words = size_t(width) / 64 + 1;
        std::unordered_map<int, Bits> places;
        for (int j = 0; j < width; ++j) {
            Bits& bits = places[right[j * step]];
            bits.resize(words);
            bits[size_t(j) / 64] |= quint64(1) << (j % 64);
        }
        Bits row(words, ~quint64(0));
        for (int i = 0; i < height; ++i) {
            const auto found = places.find(left[i * step]);
            if (found != places.end()) grow(row.data(), found->second.data(), words);
        }
        std::vector<int> counts(1, 0);
        for (int j = 0; j < width; ++j)
            counts.push_back(counts.back() + (row[size_t(j) / 64] >> (j % 64) & 1 ? 0 : 1));
        return counts;
    }

    static void grow(quint64* row, const quint64* places, size_t words) {
        quint64 carry = 0;
        for (size_t i = 0; i < words; ++i) {
            const quint64 matched = row[i] + (row[i] & places[i]);
            const quint64 sum = matched + carry;
            carry = matched < row[i] || sum < matched ? 1 : 0;
            row[i] = sum | (row[i] & ~places[i]);
        }
    }

    const int* leftAt;
    const int* rightAt;
};

/// @return a number for each entry, the same for entries that say the same.
std::vector<int> numbers(const QVector<QJsonObject>& journal, QHash<QString, int>& known) {
    std::vector<int> list;
    for (const QJsonObject& entry : journal) {
        const QString text = lastingText(entry);
        list.push_back(known.value(text, known.size()));
        known.insert(text, list.back());
    }
    return list;
}

std::vector<Line> allLines(const QVector<QJsonObject>& left, const QVector<QJsonObject>& right) {
    QHash<QString, int> known;
    const std::vector<int> leftNumbers = numbers(left, known);
    const CommonSequence common(leftNumbers, numbers(right, known));
    std::vector<Line> lines;
    int j = 0;
    for (int i = 0; i < left.size(); ++i) {
        const int partner = common.partner[size_t(i)];
        for (; j < partner; ++j) lines.push_back({'+', i, j, &right[j]});
        lines.push_back({partner < 0 ? '-' : ' ', i, j, &left[i]});
        if (partner >= 0) ++j;
    }
    for (; j < right.size(); ++j) lines.push_back({'+', int(left.size()), j, &right[j]});
    return lines;
}

QString withoutFolder(QString text) {
    static const QRegularExpression copy(
        QStringLiteral("(?:[A-Za-z]:)?/(?:[^\"]*?/)?newpro-workbench-[0-9a-f]{16}"));
    if (!text.contains(QLatin1String("newpro-workbench-"))) return text;
    return text.replace(copy, QStringLiteral("{installation}"));
}

/// The part of the lines from `first` up to `last`, under its heading.
void print(const std::vector<Line>& lines, size_t first, size_t last, QStringList& into) {
    QStringList part;
    int leftCount = 0;
    int rightCount = 0;
    for (size_t i = first; i < last; ++i) {
        if (lines[i].sign != '+') ++leftCount;
        if (lines[i].sign != '-') ++rightCount;
        part.append(QLatin1Char(lines[i].sign) + withoutFolder(entryLine(*lines[i].entry)));
    }
    // A part of no line stands behind the line of its number.
    into.append(QStringLiteral("@@ -%1,%2 +%3,%4 @@")
                    .arg(lines[first].left + (leftCount ? 1 : 0))
                    .arg(leftCount)
                    .arg(lines[first].right + (rightCount ? 1 : 0))
                    .arg(rightCount));
    into += part;
}

}  // namespace

bool readJournal(const QString& file, QVector<QJsonObject>& into, QString& error) {
    QFile text(file);
    if (!text.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("%1: %2").arg(file, text.errorString());
        return false;
    }
    QVector<QJsonObject> entries;
    while (!text.atEnd()) {
        entries.append(QJsonObject());
        const QString fault = faultOf(text.readLine(), entries.last());
        if (fault.isEmpty()) continue;
        error = QStringLiteral("%1:%2: %3").arg(file).arg(entries.size()).arg(fault);
        return false;
    }
    into = entries;
    return true;
}

QString lastingText(const QJsonObject& entry) {
    static const QRegularExpression day(QStringLiteral("-\\d{8}-(\\d{3})(?=\\.)"));
    QJsonObject lasting = entry;
    lasting.remove(QStringLiteral("seq"));
    lasting.remove(QStringLiteral("ms"));
    return withoutFolder(QString::fromUtf8(Journal::line(lasting)))
        .replace(day, QStringLiteral("-{day}-\\1"));
}

QStringList journalDifference(const QVector<QJsonObject>& left, const QVector<QJsonObject>& right) {
    const std::vector<Line> lines = allLines(left, right);
    QStringList printed;
    const size_t context = contextLines;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].sign == ' ') continue;
        const size_t first = i < context ? 0 : i - context;
        size_t last = i;  // the last line that differs, as long as their contexts touch
        for (size_t j = i; j < lines.size() && j <= last + 2 * context + 1; ++j)
            if (lines[j].sign != ' ') last = j;
        i = std::min(last + context, lines.size() - 1);
        print(lines, first, i + 1, printed);
    }
    return printed;
}

}  // namespace workbench
