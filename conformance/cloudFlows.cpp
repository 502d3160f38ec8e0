/// The flows of files that lie on a cloud disk.
#include <fileDialog.h>
#include <kvcore.h>

#include <QFileInfo>

#include "FilePage.h"

namespace conformance {

namespace {

/// @return the path of a file that no cloud disk has.
QString missingCloudPath() {
    const QStringList parts{QStringLiteral("个人云盘"), QStringLiteral("conformance"),
                            QStringLiteral("none.GCFX")};
    return parts.join(zFileDialog::pathFgf);
}

bool isLoggedIn() {
    return Users::Instance()->Kvy()->IsLogin();
}

void needNobody() {
    needFirstPage();
    if (isLoggedIn()) throw NotReached{QStringLiteral("the account is logged in")};
}

void logInCanBeCancelled() {
    needNobody();
    const Opened opened;
    const FilePage page = auditPage(opened);
    page.combo->setEditText(missingCloudPath());
    const Closer closer;
    page.create->click();
    settle();
    if (isLoggedIn()) throw NotReached{QStringLiteral("the host logs in without asking")};
    expectUsable(opened);
}

void logInGoesOn(const Files& files) {
    need(files.account, "--account, --password");
    needNobody();
    const Opened opened;
    const FilePage page = auditPage(opened);
    page.combo->setEditText(files.cloud.value(0, missingCloudPath()));
    const Applicant applicant(files.account, files.password);
    page.create->click();
    settle();
    if (!isLoggedIn() && !applicant.typed())
        throw NotReached{QStringLiteral(
            "the log-in takes no account that is typed, refuses this one, or did not open")};
    expect(isLoggedIn(), QStringLiteral("the log-in was accepted, and nobody is logged in"));
    expect(!Users::Instance()->Kvy()->UserID().isEmpty(),
           QStringLiteral("who is logged in has no user id"));
    expect(!opened.dialog || !opened.dialog->isVisible(),
           QStringLiteral("the dialog stays open after the log-in"));
}

/// @param local gets the path of the file, where there is one. @return whether there is.
bool fetched(const Opened& opened, const QString& cloudPath, QString& local) {
    const Closer closer;
    bool found = false;
    QMetaObject::invokeMethod(opened.dialog.data(), "loadYunPanPath", Q_RETURN_ARG(bool, found),
                              Q_ARG(QString&, local), Q_ARG(QString, cloudPath),
                              Q_ARG(bool, false));
    settle();
    return found;
}

void missingCloudFileIsRefused() {
    const Opened opened;
    QString local = QStringLiteral("kept");
    const bool found = fetched(opened, missingCloudPath(), local);
    expect(!found && local == QLatin1String("kept"),
           QStringLiteral("a file that is on no cloud disk becomes ") + local);
    expectUsable(opened);
}

void cloudFileIsFetched(const QStringList& cloudPaths) {
    need(cloudPaths.value(0), "--cloud");
    const Opened opened;
    for (const QString& path : cloudPaths) {
        QString local;
        expect(fetched(opened, path, local), QStringLiteral("is not found: ") + path);
        expect(QFileInfo(local).isFile(), path + QStringLiteral(" becomes no file, but ") + local);
    }
}

}  // namespace

QVector<Promise> cloudFlows(const Files& files) {
    return {
        {QStringLiteral("a log-in can be cancelled"), logInCanBeCancelled},
        {QStringLiteral("a log-in goes on with the file"), [=] { logInGoesOn(files); }},
        {QStringLiteral("a file that is on no cloud disk is refused"), missingCloudFileIsRefused},
        {QStringLiteral("a file on a cloud disk is fetched"),
         [=] { cloudFileIsFetched(files.cloud); }},
    };
}

}  // namespace conformance
