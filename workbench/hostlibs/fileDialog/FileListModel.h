/// The entries that the file dialog shows.
#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QIcon>
#include <QJsonArray>
#include <QVector>

#include "workbench/base/WorkbenchApi.h"
#include "workbench/hostlibs/fileDialog/FileFilter.h"

namespace workbench {

/// One entry of a folder, local or in the cloud.
struct FileEntry {
    QString name;
    bool folder = false;
    qint64 size = -1;  ///< Bytes; -1 where unknown.
    QDateTime modified;
};

/// @return the entries of a local folder; hidden ones are left out.
WORKBENCH_API QVector<FileEntry> localEntries(const QString& folder);
/// @return the entries of a cloud folder. Nodes without a name are left out.
WORKBENCH_API QVector<FileEntry> cloudEntries(const QJsonArray& nodes);

/// Table of entries: name, type, size, time of the last change. Folders stand first, whatever the
/// column sorted by; names are compared in the Chinese order without regard to letter case.
class WORKBENCH_API FileListModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Column { NameColumn, TypeColumn, SizeColumn, TimeColumn, ColumnCount };

    explicit FileListModel(QObject* parent = nullptr);

    void setEntries(const QVector<FileEntry>& entries);
    /// @param foldersOnly leaves every file out.
    void setFilter(const FileFilter& filter, bool foldersOnly);
    void setIcons(const QIcon& folder, const QIcon& file);
    /// @return the entry of a row of this model.
    const FileEntry& entry(int row) const { return shown.at(row); }
    /// @return how many entries the filter leaves out.
    int hiddenCount() const { return all.size() - shown.size(); }
    /// @return the row of this name; -1 where it is not shown.
    int rowOf(const QString& name) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

  private:
    void refill();
    QVariant displayed(const FileEntry& entry, int column) const;

    QVector<FileEntry> all;    ///< In name order, folders first.
    QVector<FileEntry> shown;  ///< What the filter leaves, in the order asked for.
    FileFilter filter;
    bool foldersOnly = false;
    int sortColumn = NameColumn;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
    QIcon folderIcon;
    QIcon fileIcon;
};

}  // namespace workbench
