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

/// Starts from a cloud path, by way of the log-in where nobody is logged in.
/// @param create shows the page, gives it the path, and starts.
void cloudPathStarts(const Files& files,
                     const std::function<void(const Opened&, const QString& path)>& create) {
    need(files.account, "--account, --password");
    const Opened opened;
    const Applicant applicant(files.account, files.password);
    create(opened, files.cloud.value(0, missingCloudPath()));
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

void logInGoesOn(const Files& files) {
    needNobody();
    cloudPathStarts(files, [](const Opened& opened, const QString& path) {
        const FilePage page = auditPage(opened);
        page.combo->setEditText(path);
        page.create->click();
    });
}

void cloudPathStartsContracting(const Files& files) {
    needFirstPage();
    cloudPathStarts(files, [](const Opened& opened, const QString& path) {
        contractingPage(opened).combo->setEditText(path);
        startContracting(opened);
    });
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

void browsedCloudFileIsShown(const QStringList& cloudPaths) {
    need(cloudPaths.value(0), "--cloud");
    const Opened opened;
    const FilePage page = auditPage(opened);
    for (const QString& path : cloudPaths) {
        const int end = path.lastIndexOf(zFileDialog::pathFgf);
        const Typist typist({path, path.left(end), path.mid(end + zFileDialog::pathFgf.size())});
        page.browse->click();
        settle();
        if (!typist.typed())
            throw NotReached{QStringLiteral("the file dialog takes no cloud path that is typed")};
        expect(page.combo->currentText() == path,
               path + QStringLiteral(" is shown as ") + page.combo->currentText());
    }
}

}  // namespace

QVector<Promise> cloudFlows(const Files& files) {
    return {
        {QStringLiteral("a log-in can be cancelled"), logInCanBeCancelled},
        {QStringLiteral("a log-in goes on with the file"), [=] { logInGoesOn(files); }},
        {QStringLiteral("a cloud path starts general contracting"),
         [=] { cloudPathStartsContracting(files); }},
        {QStringLiteral("a file that is on no cloud disk is refused"), missingCloudFileIsRefused},
        {QStringLiteral("a file on a cloud disk is fetched"),
         [=] { cloudFileIsFetched(files.cloud); }},
        {QStringLiteral("browsing shows the cloud path of a file on a cloud disk"),
         [=] { browsedCloudFileIsShown(files.cloud); }},
    };
}

}  // namespace conformance
