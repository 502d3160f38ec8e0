#include "workbench/scenario/journalDiff.h"

#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QRegularExpression>
#include <algorithm>
#include <unordered_map>
#include <vector>

#include "workbench/journal/Journal.h"
#include "workbench/scenario/Scenario.h"
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

/// The name of a temporary copy.
const QString copyPrefix = QStringLiteral("newpro-workbench-");
const QString copyName = copyPrefix + QStringLiteral("[0-9a-f]{16}");
/// What a path may begin with.
const QString drive = QStringLiteral("(?:(?<![A-Za-z0-9/])[A-Za-z]:)?");

/// Where the temporary copies of a journal lie, so that nothing else that stands before their name
/// is taken for their place. No entry says it: it is what the shortest of the texts that begin with
/// a path has before the name.
class CopyFolder {
  public:
    /// @param lines the entries of the journal.
    explicit CopyFolder(const QStringList& lines) {
        // Of a journal without such a text: a path without blanks and signs that part paths.
        static const QString anyPlace = drive + QStringLiteral("(?:/[^/\\s\"#:,;]+)*/");
        static const QRegularExpression first(QStringLiteral("\"(") + drive +
                                              QStringLiteral("/(?:(?! /)[^\"#:,;])*?)") + copyName);
        QString place;
        for (const QString& line : lines) {
            if (!line.contains(copyPrefix)) continue;
            auto found = first.globalMatch(line);
            while (found.hasNext()) {
                const QString next = found.next().captured(1);
                if (place.isEmpty() || next.size() < place.size()) place = next;
            }
        }
        folder.setPattern((place.isEmpty() ? anyPlace : QRegularExpression::escape(place)) +
                          copyName);
    }

    /// @return the text with a placeholder for the folder.
    QString hiddenIn(QString text) const {
        if (!text.contains(copyPrefix)) return text;
        return text.replace(folder, QStringLiteral("{installation}"));
    }

  private:
    QRegularExpression folder;
};

/// A line of one of the journals, or of both.
struct Line {
    char sign;
    int left;  ///< Entries before it.
    int right;
    const QJsonObject* entry;
};

QStringList linesOf(const QVector<QJsonObject>& journal) {
    QStringList lines;
    for (QJsonObject entry : journal) {
        entry.remove(QStringLiteral("seq"));
        entry.remove(QStringLiteral("ms"));
        lines.append(QString::fromUtf8(Journal::line(entry)));
    }
    return lines;
}

/// A journal, its entries as lines without number and time, and where the copies that they name
/// lie.
struct Side {
    const QVector<QJsonObject>& entries;
    const QStringList lines{linesOf(entries)};
    const CopyFolder folder{lines};

    /// @return the line without folder and day.
    QString lasting(const QString& line) const {
        static const QRegularExpression day(QStringLiteral("-\\d{8}-(\\d{3})(?=\\.)"));
        return folder.hiddenIn(line).replace(
            day, QLatin1Char('-') + dayPlaceholder + QStringLiteral("-\\1"));
    }
};

/// Finds what two sequences of numbers have in common, by Hirschberg: the middle of the one belongs
/// to that place of the other where both halves have most in common. Memory grows with the length
/// alone, whatever the items are; time with the product of what is left between equal heads and
/// tails, a sixty-fourth of it.
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

    /// Where an item stands on the right: in which word of sixty-four, and at which of its bits.
    struct Places {
        size_t word;
        quint64 bits;
    };

    /// Sixty-four items of the right side at a time: a bit is cleared where what is in common
    /// grows.
    /// @param step 1 to go forward, -1 backward.
    /// @return for each number of items on the right: how many are in common with all on the left.
    static std::vector<int> lengths(const int* left, int height, int step, const int* right,
                                    int width) {
        std::unordered_map<int, std::vector<Places>> places;
        for (int j = 0; j < width; ++j) {
            std::vector<Places>& list = places[right[j * step]];
            const size_t word = size_t(j) / 64;
            if (list.empty() || list.back().word != word) list.push_back({word, 0});
            list.back().bits |= quint64(1) << (j % 64);
        }
        std::vector<quint64> row(size_t(width) / 64 + 1, ~quint64(0));
        for (int i = 0; i < height; ++i) {
            const auto found = places.find(left[i * step]);
            if (found != places.end()) grow(row, found->second);
        }
        std::vector<int> counts(1, 0);
        for (int j = 0; j < width; ++j)
            counts.push_back(counts.back() + (row[size_t(j) / 64] >> (j % 64) & 1 ? 0 : 1));
        return counts;
    }

    /// Adds up the words with a match, and those that a carry goes through.
    static void grow(std::vector<quint64>& words, const std::vector<Places>& places) {
        quint64* row = words.data();
        quint64 carry = 0;
        const Places* place = places.data();
        const Places* end = place + places.size();
        for (size_t i = place->word, size = words.size(); i < size; ++i) {
            const bool here = place != end && place->word == i;
            if (!here && !carry) {
                if (place == end) return;
                i = place->word - 1;
                continue;
            }
            const quint64 bits = here ? (place++)->bits : 0;
            const quint64 matched = row[i] + (row[i] & bits);
            const quint64 sum = matched + carry;
            carry = matched < row[i] || sum < matched ? 1 : 0;
            row[i] = sum | (row[i] & ~bits);
        }
    }

    const int* leftAt;
    const int* rightAt;
};

/// @return a number for each entry, the same for entries that say the same.
std::vector<int> numbers(const Side& side, QHash<QString, int>& known) {
    std::vector<int> list;
    for (const QString& line : side.lines) {
        const QString text = side.lasting(line);
        list.push_back(known.value(text, known.size()));
        known.insert(text, list.back());
    }
    return list;
}

std::vector<Line> allLines(const Side& leftSide, const Side& rightSide) {
    const QVector<QJsonObject>& left = leftSide.entries;
    const QVector<QJsonObject>& right = rightSide.entries;
    QHash<QString, int> known;
    const std::vector<int> leftNumbers = numbers(leftSide, known);
    const CommonSequence common(leftNumbers, numbers(rightSide, known));
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

/// The part of the lines from `first` up to `last`, under its heading.
void print(const std::vector<Line>& lines, size_t first, size_t last, const Side& left,
           const Side& right, QStringList& into) {
    QStringList part;
    int leftCount = 0;
    int rightCount = 0;
    for (size_t i = first; i < last; ++i) {
        if (lines[i].sign != '+') ++leftCount;
        if (lines[i].sign != '-') ++rightCount;
        const CopyFolder& folder = (lines[i].sign == '+' ? right : left).folder;
        part.append(QLatin1Char(lines[i].sign) + folder.hiddenIn(entryLine(*lines[i].entry)));
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

QStringList journalDifference(const QVector<QJsonObject>& left, const QVector<QJsonObject>& right) {
    const Side sides[] = {{left}, {right}};
    const std::vector<Line> lines = allLines(sides[0], sides[1]);
    QStringList printed;
    const size_t context = contextLines;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].sign == ' ') continue;
        const size_t first = i < context ? 0 : i - context;
        size_t last = i;  // the last line that differs, as long as their contexts touch
        for (size_t j = i; j < lines.size() && j <= last + 2 * context + 1; ++j)
            if (lines[j].sign != ' ') last = j;
        i = std::min(last + context, lines.size() - 1);
        print(lines, first, i + 1, sides[0], sides[1], printed);
    }
    return printed;
}

}  // namespace workbench
