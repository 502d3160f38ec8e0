/// A scenario file: what a person does in the dialog, and what must cross the boundary.
#pragma once

#include <QJsonObject>
#include <QStringList>
#include <QVector>
#include <optional>

namespace workbench {

/// One step. `args` has exactly the members that its verb knows.
struct Step {
    QString verb;
    QJsonObject args;
};

/// What the journal must and must not hold. Entries match by the members that they name.
struct Expectations {
    QVector<QJsonObject> inOrder;  ///< Each is found, after the one before.
    QVector<QJsonObject> never;    ///< None is found.
    bool hasOnly = false;
    std::optional<QStringList> onlyNames;  ///< Not set: every name.
    QVector<QJsonObject> onlyList;         ///< The journal filtered to the names is exactly this.
};

/// How the host makes the dialog.
struct DialogSetup {
    int hostMode = 0;
    bool showImportTender = true;
    std::optional<QStringList> history;  ///< Not set: the installation's own list.
};

struct Scenario {
    QString file;
    QString title;
    QString installation;  ///< Absolute folder; empty for the player's own choice.
    QJsonObject host;
    DialogSetup dialog;
    QVector<Step> steps;
    Expectations expect;
};

/// Reads a scenario file. Nothing is guessed: an unknown key or a wrong type is an error.
/// @param error set to "file:line: place: what is wrong" on failure.
/// @return whether the file was read; `into` is only changed on success.
bool readScenario(const QString& file, Scenario& into, QString& error);

/// @return the value with "{installation}" replaced by `folder` in every text, keys excluded.
QJsonValue filledIn(const QJsonValue& value, const QString& folder);
/// The reverse: @return the value with `folder` replaced by "{installation}"; as it is for an empty
/// folder.
QJsonValue withPlaceholder(const QJsonValue& value, const QString& folder);
/// @return the value with `from` replaced by `to` in every text, keys excluded.
QJsonValue withTexts(const QJsonValue& value, const QString& from, const QString& to);

/// Stands in an expected text for the day in the name of a project, eight digits.
extern const QString dayPlaceholder;

}  // namespace workbench
