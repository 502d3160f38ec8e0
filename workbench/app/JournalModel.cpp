#include "workbench/app/JournalModel.h"

#include <QColor>

#include "workbench/app/Surface.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/journalText.h"

namespace workbench {

namespace {

/// Opening a dialog makes dozens of entries; showing them must not hold its first picture up.
constexpr int gatherMs = 100;

QString kindOf(const QJsonObject& entry) {
    return entry.value(QStringLiteral("kind")).toString();
}

QVariant textOf(const QJsonObject& entry, int column) {
    switch (column) {
        case JournalModel::Number:
            return entry.value(QStringLiteral("seq")).toInt();
        case JournalModel::Time:
            return QStringLiteral("%1 ms").arg(entry.value(QStringLiteral("ms")).toDouble());
        case JournalModel::Kind:
            return said(kindText(kindOf(entry)));
        default:
            return entryText(entry);
    }
}

/// What a person looks for stands out; the many calls do not.
QColor colourOf(const QString& kind) {
    if (kind == QLatin1String("exception")) return colour(Tint::Danger);
    if (kind == QLatin1String("call")) return colour(Tint::Text);
    return colour(Tint::AccentLine);
}

}  // namespace

JournalModel::JournalModel(QObject* parent)
    : QAbstractTableModel(parent), entries(Journal::instance().entries()) {
    soon.setSingleShot(true);
    soon.setInterval(gatherMs);
    connect(&soon, &QTimer::timeout, this, &JournalModel::showArrived);
    connect(&Journal::instance(), &Journal::recorded, this, &JournalModel::append);
    connect(&Journal::instance(), &Journal::cleared, this, &JournalModel::empty);
    connect(&Surface::instance(), &Surface::languageChanged, this, [this] {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
        if (!entries.isEmpty()) Q_EMIT dataChanged(index(0, Kind), index(entries.size() - 1, Kind));
    });
}

int JournalModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : entries.size();
}

int JournalModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant JournalModel::data(const QModelIndex& index, int role) const {
    const QJsonObject& entry = entries[index.row()];
    switch (role) {
        case Qt::DisplayRole:
            return textOf(entry, index.column());
        case lineRole:
        case Qt::ToolTipRole:
            return QString::fromUtf8(Journal::line(entry));
        case Qt::ForegroundRole:
            return colourOf(kindOf(entry));
        case Qt::TextAlignmentRole:
            return int(index.column() <= Time ? Qt::AlignRight | Qt::AlignVCenter
                                              : Qt::AlignLeft | Qt::AlignVCenter);
        case kindRole:
            return kindOf(entry);
        default:
            return {};
    }
}

QVariant JournalModel::headerData(int section, Qt::Orientation orientation, int role) const {
    static const char* const titles[ColumnCount] = {"序号", "时间", "类别", "内容"};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return said(titles[section]);
}

void JournalModel::append(const QJsonObject& entry) {
    arrived.append(entry);
    if (!soon.isActive()) soon.start();
}

void JournalModel::showArrived() {
    if (arrived.isEmpty()) return;
    beginInsertRows({}, entries.size(), entries.size() + arrived.size() - 1);
    entries += arrived;
    arrived.clear();
    endInsertRows();
}

void JournalModel::empty() {
    beginResetModel();
    entries.clear();
    arrived.clear();
    endResetModel();
}

}  // namespace workbench
