/// The dialog, as the flows use it.
#pragma once

#include <NewProCfgDialog.h>
#include <osgi.h>
#include <zControl.h>

#include <QListWidget>
#include <QPointer>

#include "Check.h"
#include "HostWindows.h"

namespace conformance {

/// The dialog as a host shows it, and what it asks for.
struct Opened {
    explicit Opened(const QStringList& history = {}) {
        quietly([&] {
            dialog = new NewProCfgDialog(0, true, nullptr);
            dialog->SetLsjl(history);
        });
        QObject::connect(
            dialog, &NewProCfgDialog::SignalCreatePro,
            [this](int type, int code, const QVariant& map) {
                requests += QStringLiteral("%1 %2 %3").arg(type).arg(code).arg(map.toMap().size());
            });
        QObject::connect(dialog, &NewProCfgDialog::SignalCreateMB,
                         [this](int type, int code, const QString&) {
                             requests += QStringLiteral("%1 %2").arg(type).arg(code);
                         });
        dialog->show();
        settle();
    }
    ~Opened() {
        delete dialog;
        settle();
    }

    QAbstractButton* entry(const QString& text) const {
        for (const auto* tab : dialog->findChildren<RibbonTab*>())
            if (tab->property("name") == text && !tab->isHidden())
                return tab->findChild<QAbstractButton*>(QStringLiteral("curText"));
        throw NotReached{QStringLiteral("the ribbon has no entry ") + text};
    }
    QWidget* page(const char* name) const {
        auto* found = dialog->findChild<QWidget*>(QLatin1String(name));
        expect(found, QLatin1String(name) + QLatin1String(" was not built: did the host throw?"));
        return found;
    }
    QWidget* firstCard() const {
        for (const auto* list : dialog->findChildren<QListWidget*>())
            if (list->isVisible() && list->count() > 0) return list->itemWidget(list->item(0));
        throw NotReached{QStringLiteral("no pricing model is shown")};
    }

    QPointer<NewProCfgDialog> dialog;
    QStringList requests;
};

/// Ends the promise where the host lets no project be started now.
inline void needFirstPage() {
    auto* page = static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService("firstPagePlugin"));
    if (!page || !page->canStartNew(true))
        throw NotReached{QStringLiteral("the first page lets no project be started")};
}

}  // namespace conformance
