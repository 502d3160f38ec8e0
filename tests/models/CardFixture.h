/// A model card over a temporary host, and a user's verbs for it.
#pragma once

#include <QAction>
#include <QDialog>
#include <memory>

#include "models/ProModelItemForm.h"
#include "tests/support/TestSupport.h"

namespace card_tests {

using testing_support::child;
using testing_support::click;
using testing_support::doubleClick;
using testing_support::journalLines;
using testing_support::Lines;
using testing_support::model;
using testing_support::pricing;
using testing_support::settle;
using testing_support::whenModal;

inline const QString whole = QStringLiteral("整体计费");
inline const QString single = QStringLiteral("单独计费");
inline const QString name = QStringLiteral("某模式");

class Card : public testing::Test {
  protected:
    void configure(const QStringList& feeModes, const QString& defaultMode = QString()) {
        host.configure(name, pricing(name, feeModes, defaultMode));
    }
    ProModelItemForm* make(const TaxTemplateInfo& info) {
        card = std::make_unique<ProModelItemForm>(info, nullptr);
        QObject::connect(card.get(), &ProModelItemForm::signalNewPro,
                         [this](const TaxTemplateInfo& wanted) { created.append(wanted); });
        card->show();
        settle();
        return card.get();
    }
    zBaseLabel* label(const char* object) { return child<zBaseLabel>(card.get(), object); }
    zBaseButton* newButton() { return child<zBaseButton>(card.get(), "btnNewProject"); }
    QList<zBaseButton*> parts() { return newButton()->findChildren<zBaseButton*>(); }
    zBaseButton* left() { return parts().value(0); }
    zBaseButton* right() { return parts().value(1); }
    QList<QAction*> entries() { return right()->menu()->actions(); }
    /// Opens the drop-down with the mouse and clicks one of its entries.
    void pick(int entry) {
        const auto driver = whenModal<zBaseMenu>([entry](zBaseMenu* menu) {
            const QRect area = menu->actionGeometry(menu->actions().at(entry));
            QTest::mouseMove(menu, area.center());
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, area.center());
        });
        QTest::mouseClick(right(), Qt::LeftButton);
    }

    testing_support::TemporaryInstallation host;
    std::unique_ptr<ProModelItemForm> card;
    QVector<TaxTemplateInfo> created;
};

}  // namespace card_tests
