/// The file of a recording, which grows with it.
#pragma once

#include "workbench/scenario/Scenario.h"

namespace workbench {

/// Writes a scenario again and again, whole each time, so that whatever ends the program leaves one
/// that can be played. Where its file cannot be written, it stands in the system's temporary
/// folder.
class RecordingFile {
  public:
    /// @param path absolute. @param installation absolute folder, which the file names relative to
    ///        itself; empty: it names none.
    RecordingFile(QString path, QString installation);

    /// @return empty, or why the file cannot be written; nothing is written yet.
    QString fault() const;
    void write(const Scenario& scenario);
    /// @return where the scenario stands; empty where it stands nowhere.
    const QString& place() const { return standsIn; }
    /// @return why it does not stand in its own file; empty if it does.
    const QString& problem() const { return reason; }

  private:
    QString written(const QString& file, Scenario scenario) const;
    void writeElsewhere(const Scenario& scenario);

    const QString path;
    const QString installation;
    QString spare;  ///< In the temporary folder, once it was needed.
    QString standsIn;
    QString reason;
};

}  // namespace workbench
