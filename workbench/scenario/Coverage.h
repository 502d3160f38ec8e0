/// What of the contract between dialog and host plays have reached.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QVector>
#include <functional>

namespace workbench {

/// Something that can cross the boundary.
struct CoverageRow {
    QString group;  ///< "operations", "messages", "exits" or "refusals".
    QString text;   ///< As it stands in the table.
    /// @param journal of one play. @return whether its entry at a place shows the row.
    std::function<bool(const QVector<QJsonObject>& journal, int at)> isShownBy;
    const char* whyNever = nullptr;  ///< Why no play can reach it, where that is so.
    int count = 0;                   ///< Journal entries that show it.
};

class Coverage {
  public:
    Coverage();
    /// Counts the entries of one play.
    void add(const QVector<QJsonObject>& journal);
    const QVector<CoverageRow>& rows() const { return all; }
    /// @return the rows that were neither reached nor have a reason why not.
    QStringList missing() const;
    /// @return the table for a terminal: a head for each group with how many rows are reached, then
    ///         for each row how often, and the reason or "never" for those that are not.
    QStringList table() const;

  private:
    QVector<CoverageRow> all;
};

}  // namespace workbench
