#include "workbench/hostlibs/fileDialog/FileFilter.h"

#include <QRegularExpression>

#include "workbench/hostlibs/common/hostTexts.h"

namespace workbench {

namespace {

QString bare(QString entry) {
    if (entry.startsWith(QLatin1String("*."))) return entry.mid(2);
    if (entry.startsWith(QLatin1Char('.'))) return entry.mid(1);
    return entry;
}

bool isSuffix(const QString& entry) {
    static const QRegularExpression pure(QStringLiteral("\\A[A-Za-z0-9]+\\z"));
    return pure.match(entry).hasMatch();
}

}  // namespace

FileFilter FileFilter::fromList(const QStringList& entries) {
    FileFilter filter;
    bool everything = false;
    for (int i = 0; i < entries.size(); ++i) {
        const QString suffix = bare(entries.at(i).trimmed());
        if (suffix == QLatin1String("*")) {
            everything = true;
        } else if (i == 0 && !isSuffix(suffix)) {
            filter.description = entries.at(i);
        } else if (!suffix.isEmpty() && !filter.folded.contains(suffix.toCaseFolded())) {
            filter.suffixes.append(suffix);
            filter.folded.insert(suffix.toCaseFolded());
        }
    }
    if (everything) filter.suffixes.clear();
    if (filter.description.isEmpty() && filter.suffixes.isEmpty())
        filter.description = hostText(QStringLiteral("所有文件"));
    return filter;
}

bool FileFilter::accepts(const QString& fileName) const {
    if (suffixes.isEmpty()) return true;
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot >= 0 && folded.contains(fileName.mid(dot + 1).toCaseFolded());
}

QString FileFilter::text() const {
    QStringList patterns;
    for (const QString& suffix : suffixes) patterns.append(QLatin1String("*.") + suffix);
    if (patterns.isEmpty()) patterns.append(QStringLiteral("*.*"));
    const QString title =
        description.isEmpty() ? hostText(QStringLiteral("支持的文件")) : description;
    return title + QLatin1String(" (") + patterns.join(QLatin1String("; ")) + QLatin1Char(')');
}

}  // namespace workbench
