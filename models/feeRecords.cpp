#include "models/feeRecords.h"

#include <algorithm>

namespace newpro {

namespace {

using ProjectSettingSpace::PricingModelInfo;
using ProjectSettingSpace::PricingModelInfoMap;

const PricingModelInfo* firstOf(const PricingModelInfoMap& records, const QString& key) {
    const auto found =
        std::find_if(records.begin(), records.end(),
                     [&key](const PricingModelInfo& record) { return record.key == key; });
    return found == records.end() ? nullptr : &*found;
}

}  // namespace

RecordIndex* RecordIndex::current = nullptr;

const PricingModelInfo* recordOf(const PricingModelInfoMap& records, const QString& key) {
    if (records.isEmpty()) return nullptr;
    return RecordIndex::current ? RecordIndex::current->find(records, key) : firstOf(records, key);
}

const PricingModelInfo* RecordIndex::find(const PricingModelInfoMap& records, const QString& key) {
    const bool known = !held.isEmpty() && &*held.constBegin() == &*records.constBegin();
    if (!known) {
        // Of a host that makes them anew each time, an index would cost more than it saves.
        places.clear();
        held = records;
        return firstOf(records, key);
    }
    if (places.isEmpty())
        for (const PricingModelInfo& record : qAsConst(held))
            if (!places.contains(record.key)) places.insert(record.key, &record);
    return places.value(key);
}

}  // namespace newpro
