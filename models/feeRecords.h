/// Finding the configuration of a pricing model.
#pragma once

#include <QHash>

#include "SharedInterface.h"

namespace newpro {

/// @return the first of the records that has this key; null if none has. It lives as long as they
/// do.
const ProjectSettingSpace::PricingModelInfo* recordOf(
    const ProjectSettingSpace::PricingModelInfoMap& records, const QString& key);

/// While one lives, `recordOf` keeps an index of records that it is given again. Each card asks the
/// host for all of them: going through them for each takes the square of the number of models.
class RecordIndex {
  public:
    RecordIndex() : outer(current) { current = this; }
    ~RecordIndex() { current = outer; }
    RecordIndex(const RecordIndex&) = delete;

  private:
    using Record = ProjectSettingSpace::PricingModelInfo;
    using Records = ProjectSettingSpace::PricingModelInfoMap;
    friend const Record* recordOf(const Records& records, const QString& key);

    const Record* find(const Records& records, const QString& key);

    static RecordIndex* current;
    RecordIndex* const outer;  ///< Of a filling that is under way while the host is asked.
    Records held;              ///< The last ones, so that no others get their place.
    QHash<QString, const Record*> places;
};

}  // namespace newpro
