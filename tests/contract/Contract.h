/// The messages of docs/contract, and the journals that the scenario tests leave behind.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

namespace contract {

/// One schema of a signal or message.
struct Message {
    QString schema;  ///< File name without ".schema.json".
    QString kind;    ///< Of its journal lines.
    QString name;    ///< Of its journal lines.

    QString file() const;
    /// @return whether a journal line is a signal or message of this name, of whatever case.
    bool isNamedBy(const QJsonObject& line) const;
};

/// @return every signal and message, case by case.
const QVector<Message>& messages();

/// @return every schema of docs/contract, relative to the repository.
QStringList schemaFiles();

/// @return the schema of the arguments at a place, as it stands in the file.
QJsonValue argument(const Message& message, int index);

/// @return the page that lists them all.
QString table();

/// @return the names of all scenario files, without ".json".
QStringList scenarios();

/// @return the journal of a scenario, as its test wrote it. One that is not there throws.
QVector<QJsonObject> journalOf(const QString& scenario);

}  // namespace contract
