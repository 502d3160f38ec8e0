#include "workbench/app/JournalPanel.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <algorithm>

#include "workbench/app/JournalModel.h"
#include "workbench/app/Surface.h"
#include "workbench/app/clearAction.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/EmptyState.h"
#include "workbench/hostlibs/zBaseControl/contextAction.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/journalText.h"

namespace workbench {

namespace {

/// Both a kind and a text must fit.
class KindAndText : public QSortFilterProxyModel {
  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    QString kind;
    QString text;

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const QModelIndex entry = sourceModel()->index(row, JournalModel::Entry, parent);
        if (!kind.isEmpty() && entry.data(JournalModel::kindRole).toString() != kind) return false;
        if (text.isEmpty()) return true;
        return entry.data().toString().contains(text, Qt::CaseInsensitive);
    }
};

}  // namespace

JournalPanel::JournalPanel(QWidget* parent)
    : QWidget(parent),
      filtered(new KindAndText(this)),
      kind(new QComboBox),
      text(new QLineEdit),
      view(new QTreeView) {
    filtered->setSourceModel(new JournalModel(this));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeFilterRow());
    layout->addWidget(view);
    makeView();
    makeMenu();
    adaptToScale();
}

QWidget* JournalPanel::makeFilterRow() {
    kind->addItem(QStringLiteral("全部类别"), QString());
    for (const char* each : {"call", "signal", "dialog", "box", "exception", "project"})
        kind->addItem(kindText(QLatin1String(each)), QLatin1String(each));
    kind->setObjectName(QStringLiteral("journalKind"));
    kind->setAccessibleName(QStringLiteral("日志类别"));
    kind->setAccessibleDescription(QStringLiteral("只显示此类别的日志"));
    kind->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    text->setPlaceholderText(QStringLiteral("筛选：接口名、代码或文字"));
    addClearAction(text);
    text->setObjectName(QStringLiteral("journalFilter"));
    text->setAccessibleName(QStringLiteral("日志筛选"));
    auto* clear = new QPushButton(QStringLiteral("清空"));
    clear->setObjectName(QStringLiteral("journalClear"));
    clear->setAccessibleName(QStringLiteral("清空日志"));
    clear->setAccessibleDescription(QStringLiteral("从列表中去掉所有日志"));
    connect(kind, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &JournalPanel::applyFilter);
    connect(text, &QLineEdit::textChanged, this, &JournalPanel::applyFilter);
    connect(clear, &QPushButton::clicked, &Journal::instance(), &Journal::clear);

    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(kind);
    layout->addWidget(text, 1);
    layout->addWidget(clear);
    return row;
}

void JournalPanel::makeView() {
    view->setModel(filtered);
    view->setObjectName(QStringLiteral("journalView"));
    view->setAccessibleName(QStringLiteral("日志"));
    view->setRootIsDecorated(false);
    view->setAllColumnsShowFocus(true);
    view->setUniformRowHeights(true);
    view->setAlternatingRowColors(true);
    view->setFrameShape(QFrame::NoFrame);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    empty = new EmptyState(view, [this] { return emptyText(); });
    connect(&Surface::instance(), &Surface::languageChanged, empty, &EmptyState::refresh);
    connect(filtered, &QAbstractItemModel::rowsInserted, view, [this] {
        // Whoever reads further up is left in peace.
        QScrollBar* bar = view->verticalScrollBar();
        if (bar->value() == bar->maximum())
            QMetaObject::invokeMethod(view, &QTreeView::scrollToBottom, Qt::QueuedConnection);
    });
}

void JournalPanel::makeMenu() {
    const auto add = [this](const QString& text, const char* name, auto&& work) {
        return addContextAction(view, text, name, work);
    };
    QAction* line = add(QStringLiteral("复制整行"), "copyJournalLines",
                        [this] { copy(JournalModel::lineRole); });
    line->setShortcut(QKeySequence::Copy);
    line->setShortcutContext(Qt::WidgetShortcut);
    add(QStringLiteral("复制内容文字"), "copyJournalTexts", [this] { copy(Qt::DisplayRole); });
    add(QStringLiteral("全选"), "selectJournal", [this] { view->selectAll(); });
    add(QStringLiteral("只看此类别"), "onlyThisKind", [this] { showOnlyKindOfCurrent(); });
    add(QStringLiteral("显示全部日志"), "allJournal", [this] {
        kind->setCurrentIndex(0);
        text->clear();
    });
    add(QStringLiteral("清空日志"), "clearJournal", [] { Journal::instance().clear(); });
}

QString JournalPanel::emptyText() const {
    return filtered->sourceModel()->rowCount() == 0
               ? said("还没有日志\n按 Ctrl+N 打开“新建工程”，对话框与主程序的往来就会列在这里。")
               : said("没有符合筛选条件的日志\n请换一个类别，或清空筛选文字。");
}

/// Copies what is selected, in the order of the rows.
void JournalPanel::copy(int role) const {
    QModelIndexList rows = view->selectionModel()->selectedRows(JournalModel::Entry);
    if (rows.isEmpty()) return;
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex& row : qAsConst(rows)) lines.append(row.data(role).toString());
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

void JournalPanel::showOnlyKindOfCurrent() {
    const QModelIndex current = view->currentIndex();
    if (!current.isValid()) return;
    const QModelIndex entry = current.siblingAtColumn(JournalModel::Entry);
    kind->setCurrentIndex(kind->findData(entry.data(JournalModel::kindRole)));
}

void JournalPanel::adaptToScale() {
    layout()->setContentsMargins(scaled(16), scaled(8), scaled(16), scaled(8));
    layout()->setSpacing(scaled(8));
    text->parentWidget()->layout()->setSpacing(scaled(8));
    kind->setMinimumWidth(roomFor(110));
    view->setMinimumHeight(roomFor(84));                // the heading and two rows
    view->header()->setMinimumSectionSize(scaled(40));  // by itself it is that of the font before
    view->header()->resizeSection(JournalModel::Number, roomFor(60));
    view->header()->resizeSection(JournalModel::Time, roomFor(90));
    view->header()->resizeSection(JournalModel::Kind, roomFor(70));
}

void JournalPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) adaptToScale();
}

void JournalPanel::applyFilter() {
    auto* filter = static_cast<KindAndText*>(filtered);
    filter->kind = kind->currentData().toString();
    filter->text = text->text();
    filter->invalidate();
    empty->refresh();
}

}  // namespace workbench
