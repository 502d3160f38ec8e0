/// The answers of the workbench's host, as values that a person, a scenario or a test sets.
#pragma once

#include <QMap>
#include <QString>
#include <QVector>
#include <optional>

namespace workbench {

enum class FirstPage { Ready, Busy, Absent };

/// What the log-in window does: a person answers it, or it answers itself.
enum class Login { Ask, Accepted, Cancelled };

struct Account {
    bool loggedIn = false;
    QString userId = QStringLiteral("u1");
    Login login = Login::Ask;
};

/// What the file dialog answers, by a person or prepared.
struct FileAnswer {
    QString path;          ///< Local path; empty: cancelled.
    int place = 0;         ///< The place chosen; 3 personal, 4 enterprise cloud disk.
    QString cloudPath;     ///< Cloud path of the choice; empty for a local one.
    QString folderId;      ///< Cloud folder of the choice.
    QString enterpriseId;  ///< Enterprise that owns that folder.
};

struct CloudMode {
    bool slow = false;            ///< Every answer takes two seconds.
    bool refused = false;         ///< Every answer has code 1 and a message.
    bool broken = false;          ///< Answers lack keys and have wrong types.
    bool foldersRefused = false;  ///< As `refused`, for the contents of the enterprise's folders.
};

/// Asks a host operation to throw.
struct ThrowRule {
    enum class As { Literal, String, StdException, Other };
    QString call;  ///< The operation as declared.
    int nth = 1;   ///< Which call of it throws, from 1.
    As as = As::StdException;
    QString text;
    int seen = 0;  ///< Calls of it so far.
};

/// Everything that the host can be asked to answer differently. Default-constructed: a host that is
/// ready, in the Sichuan area, with nobody logged in, over the installation's own settings.
struct Switches {
    FirstPage firstPage = FirstPage::Ready;
    bool configurationPresent = true;
    bool pluginManagerPresent = true;
    bool prodAreaYN = false;
    double openVersion = 1.3;             ///< Features up to this version are open.
    QMap<QString, QString> areaConfig;    ///< As the installation has it, until it is set.
    QMap<QString, QString> transactions;  ///< Likewise.
    Account account;
    QMap<int, bool> plugins;             ///< Program type → loaded. Not named: not loaded.
    std::optional<int> lastAskedPlugin;  ///< Program type that a load without one means.
    bool fileDialogPrepared = false;     ///< True: `fileAnswers` instead of a real dialog.
    QVector<FileAnswer> fileAnswers;     ///< Used in turn; after the last: cancel.
    CloudMode cloud;
    bool boxesAnswerThemselves = false;  ///< Boxes answer with their first button at once.
    QVector<ThrowRule> throws;
};

}  // namespace workbench
