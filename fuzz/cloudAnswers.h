/// The host's cloud operations, answered from here instead of from folders.
#pragma once

#include <QJsonObject>
#include <QStringList>
#include <QVector>

namespace fuzzing {

struct CloudAnswers {
    QVector<QJsonObject> next;  ///< One for each call, in turn; then empty ones.
    QStringList calls;          ///< Names of the operations called.
    QJsonObject last;           ///< The answer given last.
    QString asked;              ///< Name of the file asked for last.
};

/// The answers of this process.
CloudAnswers& cloudAnswers();

}  // namespace fuzzing
