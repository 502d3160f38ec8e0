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

/// What the host has, and lets more flows be reached; each may be empty.
struct Files {
    QString project;    ///< A project file that the host opens.
    QString workbook;   ///< A workbook that the host opens.
    QString account;    ///< An account that its log-in takes, with `password`.
    QString password;   ///< Typed where the log-in hides what is typed.
    QStringList cloud;  ///< Cloud paths of files that the account may read, on whichever disk.
};

/// @return a row for each promise, in the order in which they are looked at, as not reached.
QVector<Row> promisesOf(const Files& files);

/// Looks at the host libraries that this program is linked with: asks every service, makes every
/// control, and does each flow in the real dialog. Boxes and dialogs of the host that open on the
/// way are closed again. Needs a QApplication; takes some seconds. Writes temporary files alone,
/// one of them a template below GetAppPath() where there is none; but the host counts usage, may
/// create projects when it is asked to, and stays logged in: docs/writing-a-host.md has all of it.
/// @param first place of the first promise to look at.
/// @return the rows of the promises that were looked at.
QVector<Row> checkHost(const Files& files, const Progress& progress = {}, int first = 0);

/// Has this program look at its host in processes of their own and prints what comes of it: a host
/// that crashes, ends or does not come back costs the promise it was in alone, and the next process
/// goes on behind it. Needs a QCoreApplication. Where the program
/// is started with `--told`, it has to call tellRows with the place of `--from`, and to end with 0.
/// @param arguments what the program was given. @param patience seconds that a promise may take.
/// @return whether nothing differs.
bool watchHost(const Files& files, const QStringList& arguments, int patience);

/// Does checkHost and prints its rows. @param told tells watchHost of each, too.
/// @return whether nothing differs.
bool tellRows(const Files& files, int first, bool told);

/// @return the pictures that the dialog names and the program's resources lack.
QStringList missingPictures();

/// @return a row as it stands in a table for a terminal, without line break at its end.
QString lineOf(const Row& row);

/// @return how many rows hold, differ and were not reached, as one line.
QString summaryOf(const QVector<Row>& rows);

}  // namespace conformance
