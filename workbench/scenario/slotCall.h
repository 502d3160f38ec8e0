/// Calls a slot of the dialog through its meta-object, with arguments from JSON.
#pragma once

#include <QJsonArray>
#include <QMetaMethod>
#include <functional>

class QObject;

namespace workbench {

/// Prepares a call. A text stands for a pricing-model record where a slot wants one: the model of
/// that name in the installation in use.
/// @param error set to the reason where there is no such slot or an argument does not fit.
/// @return the call, which tells whether it was made: not where the object is gone by then; empty
/// on
///         error.
std::function<bool()> slotCall(QObject* object, const QString& slot, const QJsonArray& args,
                               QString& error);

}  // namespace workbench
