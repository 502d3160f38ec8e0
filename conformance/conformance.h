/// Holds a host's libraries against what the dialog expects of them.
#pragma once

#include <QStringList>
#include <QVector>
#include <functional>

namespace conformance {

enum class Verdict { Holds, Differs, NotReached };

/// What came of one promise of the contract.
struct Row {
    QString area;     ///< "services", "controls" or "flows".
    QString promise;  ///< What the dialog relies on.
    Verdict verdict = Verdict::Holds;
    QString detail;  ///< What was found instead, or why the promise could not be looked at.
};

/// Who wants to know how far the look is: a host that crashes or hangs lets nobody see the end.
struct Progress {
    std::function<void(const Row&)> begins;  ///< With a row whose verdict is still open.
    std::function<void(const Row&)> ends;
};

/// Files of the host's own that let more flows be reached; each may be empty.
struct Files {
    QString project;   ///< A project file that the host opens.
    QString workbook;  ///< A workbook that the host opens.
};

/// Looks at the host libraries that this program is linked with: asks every service, makes every
/// control, and does each flow in the real dialog. Boxes and dialogs of the host that open on the
/// way are closed again. Needs a QApplication; takes some seconds. Writes temporary files alone,
/// one of them a template below GetAppPath() where there is none; but the host may create projects
/// when it is asked to.
/// @return a row for each promise, in the order in which they were looked at.
QVector<Row> checkHost(const Files& files, const Progress& progress = {});

/// @return the pictures that the dialog names and the program's resources lack.
QStringList missingPictures();

/// @return a row as it stands in a table for a terminal, without line break at its end.
QString lineOf(const Row& row);

/// @return how many rows hold, differ and were not reached, as one line.
QString summaryOf(const QVector<Row>& rows);

}  // namespace conformance
