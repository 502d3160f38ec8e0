/// The lists of pricing-model cards, one per tax mode.
#pragma once

#include <QListWidget>
#include <array>
#include <functional>

#include "SharedInterface.h"
#include "core/listItemPool.h"
#include "core/part.h"
#include "core/taxMode.h"

namespace newpro {

/// Fills and clears the three lists. A list that was never built is passed over.
class PricingModelCatalogue {
  public:
    using Create = std::function<void(const ProjectSettingSpace::TaxTemplateInfo& model)>;
    using ModeFilled = std::function<void(int taxMode)>;

    std::array<Part<QListWidget>, taxModeCount> lists;  ///< By tax mode.
    Part<QListWidget> templates;                        ///< The template cards.
    bool cardsWait = false;  ///< The lists themselves show a card, when its row comes into sight.

    /// Empties the template list and the lists of tax mode 2, 1 and 0, in this order.
    void clear();

    /// Appends a card for each model of an application type to the list of its tax mode. Without
    /// configuration the lists stay as they are. After an exception the cards placed so far stay.
    /// @param create called with a card's model when the card asks for a project. It may delete
    /// card
    ///        and list.
    /// @param modeFilled called once for each entry of the configuration, after its first card.
    void load(const QString& appType, const Create& create, const ModeFilled& modeFilled);

    /// Items for the lists' rows; those taken out wait here until they are used again.
    ListItemPool& items() { return pool; }

  private:
    void place(const ProjectSettingSpace::TaxTemplateInfo& model, const Part<QListWidget>& list,
               const Create& create, int filling);

    ListItemPool pool;
};

}  // namespace newpro
