/// The window in which what a person does is recorded.
#pragma once

#include <QJsonObject>
#include <QString>
#include <functional>

namespace workbench {

struct RecordOptions {
    QString file;          ///< The scenario to write, absolute.
    QString installation;  ///< Absolute folder.
    bool isSample = true;  ///< Whether a play finds the installation without its name.
    QJsonObject host;      ///< Settings from the start, as a scenario has them.
    QString program;       ///< The program that plays the scenario to verify it.
    /// Tells the person at once where the recording stands when that is not its file.
    std::function<void(const QString&)> tell = [](const QString&) {};
};

/// Shows the window over a temporary copy of the installation, as a play has one, until it is
/// closed. What is done there is written step by step as a scenario with its journal as
/// expectation, in place of a file that is there; at the end it is played. The host is reset before
/// and after.
/// @param report set to what to tell the person.
/// @return 0: the play gave the same journal, or nothing was done and no file is written; 1: it did
///         not, the report shows where, and the file is written nevertheless; 2: an input is wrong,
///         or the file cannot be written, and the report has the recording or where it stands.
int recordScenario(const RecordOptions& options, QString& report);

}  // namespace workbench
