#include "core/cardRow.h"

#include <QCoreApplication>
#include <QListWidget>

#include "core/polish.h"
#include "core/rowButtons.h"
#include "core/scale.h"

namespace newpro {

namespace {

/// A view forgets the editors that it made itself when they are deleted, but not the widgets that
/// it was given.
void forgetWhenDeleted(QWidget* card, QListWidget* list) {
    QObject* const receiver = list;
    QObject::connect(card, &QObject::destroyed, list, [receiver](QObject* gone) {
        // While the list itself is being destroyed, it is no view any more.
        if (qobject_cast<QListWidget*>(receiver))
            QMetaObject::invokeMethod(receiver, "editorDestroyed", Q_ARG(QObject*, gone));
    });
}

}  // namespace

void appendCard(QListWidget* list, std::unique_ptr<QListWidgetItem> item,
                std::unique_ptr<QWidget> card) {
    // Not setSizeHint: it drops a size whose width is the item's current -1.
    item->setData(Qt::SizeHintRole, QSize(item->sizeHint().width(), scaled(cardRowHeight)));
    QListWidgetItem* row = item.release();
    list->insertItem(list->count(), row);
    // Before it joins the list: the sheets around the list are then matched once for each of its
    // widgets, not twice. What this and the next line bring: docs/measures.md.
    isKeptHidden(card.get()) ? polishWhenShown(card.get()) : polishNow(card.get());
    offerToTab(card.get(), false);
    // The list lays it out at once.
    QCoreApplication::removePostedEvents(card.get(), QEvent::LayoutRequest);
    forgetWhenDeleted(card.get(), list);
    list->setItemWidget(row, card.release());
}

}  // namespace newpro
