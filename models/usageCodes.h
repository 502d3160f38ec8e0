/// Codes under which the host's usage log counts the pricing models.
#pragma once

#include <QString>

namespace newpro {

/// @param modelName name of a pricing model, compared exactly.
/// @return the one-letter code of a project made from a model's card; null for an uncounted model.
QString modelLogCode(const QString& modelName);

/// @param modelName name of a pricing model, compared exactly.
/// @return the usage function of a project made from the data of a page; 0 for an uncounted model.
int modelUsageFunction(const QString& modelName);

}  // namespace newpro
