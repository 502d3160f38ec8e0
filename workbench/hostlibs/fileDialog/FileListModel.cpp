#include "workbench/hostlibs/fileDialog/FileListModel.h"

#include <QCollator>
#include <QDir>
#include <QJsonObject>
#include <QLocale>
#include <algorithm>
#include <vector>

#include "workbench/hostlibs/common/hostTexts.h"

namespace workbench {

namespace {

const char* const titles[] = {"名称", "类型", "大小", "修改时间"};

QString suffixOf(const QString& name) {
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? name.mid(dot + 1).toUpper() : QString();
}

QString typeText(const FileEntry& entry) {
    if (entry.folder) return hostText(QStringLiteral("文件夹"));
    const QString suffix = suffixOf(entry.name);
    return suffix.isEmpty() ? hostText(QStringLiteral("文件"))
                            : hostText(QStringLiteral("%1 文件")).arg(suffix);
}

QString sizeText(const FileEntry& entry) {
    if (entry.folder || entry.size < 0) return {};
    return QLocale(QLocale::Chinese)
        .formattedDataSize(entry.size, 1, QLocale::DataSizeTraditionalFormat);
}

/// Sort keys are made once per entry: comparing ten thousand Chinese names pair by pair is slow.
void sortByName(QVector<FileEntry>& entries) {
    QCollator collator{QLocale(QLocale::Chinese, QLocale::China)};
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::vector<std::pair<QCollatorSortKey, int>> keys;
    keys.reserve(entries.size());
    for (int i = 0; i < entries.size(); ++i)
        keys.emplace_back(collator.sortKey(entries.at(i).name), i);
    std::sort(keys.begin(), keys.end(), [&entries](const auto& a, const auto& b) {
        const FileEntry& first = entries.at(a.second);
        const FileEntry& second = entries.at(b.second);
        if (first.folder != second.folder) return first.folder;
        const int order = a.first.compare(b.first);
        return order != 0 ? order < 0 : first.name < second.name;
    });
    QVector<FileEntry> sorted;
    sorted.reserve(entries.size());
    for (const auto& key : keys) sorted.append(entries.at(key.second));
    entries.swap(sorted);
}

int compared(const FileEntry& a, const FileEntry& b, int column) {
    switch (column) {
        case FileListModel::TypeColumn:
            return suffixOf(a.name).compare(suffixOf(b.name));
        case FileListModel::SizeColumn:
            return a.size < b.size ? -1 : a.size > b.size;
        case FileListModel::TimeColumn:
            return a.modified < b.modified ? -1 : a.modified > b.modified;
        default:
            return 0;
    }
}

}  // namespace

QVector<FileEntry> localEntries(const QString& folder) {
    QVector<FileEntry> entries;
    const QFileInfoList list =
        QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::NoSort);
    entries.reserve(list.size());
    for (const QFileInfo& info : list)
        entries.append({info.fileName(), info.isDir(), info.size(), info.lastModified()});
    return entries;
}

QVector<FileEntry> cloudEntries(const QJsonArray& nodes) {
    QVector<FileEntry> entries;
    for (const QJsonValue& value : nodes) {
        const QJsonObject node = value.toObject();
        const QString name = node.value(QLatin1String("wjjmc")).toString();
        if (name.isEmpty()) continue;
        entries.append(
            {name, node.value(QLatin1String("wjlx")).toString() == QLatin1String("1"),
             static_cast<qint64>(node.value(QLatin1String("wjdx")).toDouble(-1)),
             QDateTime::fromString(node.value(QLatin1String("xgsj")).toString(), Qt::ISODate)});
    }
    return entries;
}

FileListModel::FileListModel(QObject* parent) : QAbstractTableModel(parent) {}

void FileListModel::setEntries(const QVector<FileEntry>& entries) {
    all = entries;
    sortByName(all);
    refill();
}

void FileListModel::setFilter(const FileFilter& newFilter, bool onlyFolders) {
    filter = newFilter;
    foldersOnly = onlyFolders;
    refill();
}

void FileListModel::setIcons(const QIcon& folder, const QIcon& file) {
    folderIcon = folder;
    fileIcon = file;
    if (!shown.isEmpty())
        Q_EMIT dataChanged(index(0, NameColumn), index(shown.size() - 1, NameColumn),
                           {Qt::DecorationRole});
}

void FileListModel::sort(int column, Qt::SortOrder order) {
    sortColumn = column;
    sortOrder = order;
    refill();
}

void FileListModel::refill() {
    beginResetModel();
    shown.clear();
    std::copy_if(all.begin(), all.end(), std::back_inserter(shown), [this](const FileEntry& entry) {
        return entry.folder || (!foldersOnly && filter.accepts(entry.name));
    });
    const auto firstFile = std::find_if(shown.begin(), shown.end(),
                                        [](const FileEntry& entry) { return !entry.folder; });
    const auto ordered = [this](const FileEntry& a, const FileEntry& b) {
        const int order = compared(a, b, sortColumn);
        return sortOrder == Qt::AscendingOrder ? order < 0 : order > 0;
    };
    std::stable_sort(shown.begin(), firstFile, ordered);
    std::stable_sort(firstFile, shown.end(), ordered);
    if (sortColumn == NameColumn && sortOrder == Qt::DescendingOrder) {
        std::reverse(shown.begin(), firstFile);
        std::reverse(firstFile, shown.end());
    }
    endResetModel();
}

int FileListModel::rowOf(const QString& name) const {
    for (int row = 0; row < shown.size(); ++row) {
        if (shown.at(row).name == name) return row;
    }
    return -1;
}

int FileListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown.size();
}

int FileListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(ColumnCount);
}

QVariant FileListModel::displayed(const FileEntry& entry, int column) const {
    switch (column) {
        case NameColumn:
            return entry.name;
        case TypeColumn:
            return typeText(entry);
        case SizeColumn:
            return sizeText(entry);
        case TimeColumn:
            return entry.modified.toString(QStringLiteral("yyyy-MM-dd hh:mm"));
        default:
            return {};
    }
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= shown.size()) return {};
    const FileEntry& entry = shown.at(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return displayed(entry, index.column());
        case Qt::ToolTipRole:
            return index.column() == NameColumn ? entry.name.toHtmlEscaped() : QString();
        case Qt::DecorationRole:
            if (index.column() != NameColumn) return {};
            return entry.folder ? folderIcon : fileIcon;
        case Qt::TextAlignmentRole:
            return static_cast<int>(
                Qt::AlignVCenter | (index.column() == SizeColumn ? Qt::AlignRight : Qt::AlignLeft));
        default:
            return {};
    }
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount) return {};
    if (role == Qt::DisplayRole) return hostText(QString::fromUtf8(titles[section]));
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter |
                                (section == SizeColumn ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

}  // namespace workbench
