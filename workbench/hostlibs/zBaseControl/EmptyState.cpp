#include "workbench/hostlibs/zBaseControl/EmptyState.h"

#include <QEvent>
#include <QTreeView>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"

namespace workbench {

namespace {

bool showsRow(const QAbstractItemView* view) {
    const auto* tree = qobject_cast<const QTreeView*>(view);
    for (int row = 0; row < view->model()->rowCount(); ++row)
        if (!tree || !tree->isRowHidden(row, {})) return true;
    return false;
}

}  // namespace

EmptyState::EmptyState(QAbstractItemView* view, std::function<QString()> text)
    : QLabel(view->viewport()), view(view), reason(std::move(text)) {
    setObjectName(QStringLiteral("emptyState"));
    setAlignment(Qt::AlignCenter);
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);  // the list's menu and clicks go on beneath it
    view->viewport()->installEventFilter(this);
    const QAbstractItemModel* model = view->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &EmptyState::refresh);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &EmptyState::refresh);
    connect(model, &QAbstractItemModel::modelReset, this, &EmptyState::refresh);
    connect(model, &QAbstractItemModel::layoutChanged, this, &EmptyState::refresh);
    connect(&Host::instance(), &Host::skinChanged, this, &EmptyState::refresh);
    refresh();
}

void EmptyState::refresh() {
    const bool empty = !showsRow(view);
    setVisible(empty);
    if (!empty) return;
    setAccessibleName(reason());
    setMargin(scaled(8));
    fit();
    raise();
}

/// Leaves out what does not fit below the first line.
void EmptyState::fit() {
    setGeometry(view->viewport()->rect());
    const QString text = accessibleName();
    const QString head = text.section(QLatin1Char('\n'), 0, 0);
    const QString rest = text.section(QLatin1Char('\n'), 1);
    const QString title = QStringLiteral("<p style='font-size:%1px;color:%2'>%3</p>")
                              .arg(roomFor(16))
                              .arg(colour(Tint::Text).name(), head.toHtmlEscaped());
    setText(title + QStringLiteral("<p style='color:%1'>%2</p>")
                        .arg(colour(Tint::Muted).name(), rest.toHtmlEscaped()));
    if (heightForWidth(width()) > height()) setText(title);
}

bool EmptyState::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && !isHidden()) fit();
    return QLabel::eventFilter(watched, event);
}

void EmptyState::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) refresh();
}

}  // namespace workbench
