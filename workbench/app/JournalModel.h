/// The journal as a table.
#pragma once

#include <QAbstractTableModel>
#include <QJsonObject>
#include <QTimer>
#include <QVector>

namespace workbench {

class JournalModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Column { Number, Time, Kind, Entry, ColumnCount };

    explicit JournalModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The kind of a row's entry as the journal has it, under this role.
    static constexpr int kindRole = Qt::UserRole;
    /// A row's entry whole, as a line of a journal file, under this one.
    static constexpr int lineRole = Qt::UserRole + 1;

  private:
    void append(const QJsonObject& entry);
    void showArrived();
    void empty();

    QVector<QJsonObject> entries;
    QVector<QJsonObject> arrived;  // not shown yet
    QTimer soon;
};

}  // namespace workbench
