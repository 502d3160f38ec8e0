#include "models/PricingModelCatalogue.h"

#include "core/cardRow.h"
#include "core/scale.h"
#include "models/ProModelItemForm.h"
#include "models/feeRecords.h"

namespace newpro {

namespace {

void clearList(QListWidget* list, ListItemPool& pool) {
    if (!list) return;
    for (int row = list->count() - 1; row >= 0; --row) {
        QListWidgetItem* item = list->item(row);
        if (!item) continue;
        // The list deletes the card later; until then it must not be seen behind the new ones.
        if (QWidget* card = list->itemWidget(item)) card->hide();
        list->setItemWidget(item, nullptr);
    }
    // All cards first: the list would go through those that are left for each row that it loses.
    for (int row = list->count() - 1; row >= 0; --row) {
        if (QListWidgetItem* item = list->takeItem(row)) pool.keep(item);
    }
}

}  // namespace

void PricingModelCatalogue::clear() {
    pool.startFilling();
    clearList(templates, pool);
    clearList(lists[BusinessTax], pool);
    clearList(lists[SimpleTax], pool);
    clearList(lists[GeneralTax], pool);
}

void PricingModelCatalogue::load(const QString& appType, const Create& create,
                                 const ModeFilled& modeFilled) {
    const int filling = pool.filling();
    const RecordIndex index;
    ProjectSettingHelper* helper = ProjectSettingHelper::GetProjectSettingHelper();
    // A copy: the host may rebuild its list while the cards ask for their configuration.
    QList<ProjectSettingSpace::ProTaxTemplateInfo> entries;
    if (helper) entries = helper->GetProTaxTemplateInfoList(appType, appType);
    // The host may have let the user pick another kind: then the lists are full, also of templates.
    if (pool.filling() != filling) throw Gone();
    for (const ProjectSettingSpace::ProTaxTemplateInfo& entry : entries) {
        if (entry.taxMode < 0 || entry.taxMode >= taxModeCount) continue;
        const Part<QListWidget> list = lists[size_t(entry.taxMode)];
        if (!list) continue;
        for (int i = 0; i < entry.models.size(); ++i) {
            place(entry.models.at(i), list, create, filling);
            if (i == 0) modeFilled(entry.taxMode);
        }
        // Follows the last entry of a mode, deliberately, and not the rows, which the stack counts:
        // whoever reads the property back finds what the configuration said last.
        list->setMinimumHeight(scaled(cardRowHeight) * entry.models.size());
    }
}

void PricingModelCatalogue::place(const ProjectSettingSpace::TaxTemplateInfo& model,
                                  const Part<QListWidget>& list, const Create& create,
                                  int filling) {
    auto card = std::make_unique<ProModelItemForm>(model, nullptr);
    // The host was asked for the card's configuration, and may have let the user pick another kind,
    // or have taken the list away.
    if (pool.filling() != filling) throw Gone();
    if (cardsWait) card->waitForSight();
    QObject::connect(card.get(), &ProModelItemForm::signalNewPro, list.need(), create);
    std::unique_ptr<QListWidgetItem> item = pool.take();
    item->setData(Qt::UserRole, QVariant::fromValue(model));
    appendCard(list.need(), std::move(item), std::move(card));
}

}  // namespace newpro
