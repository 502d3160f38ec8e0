// A host with a log-in and both cloud disks. Included once in a program, which says by cloudHost()
// which of its parts are otherwise.
#pragma once

#include <fileDialog.h>
#include <osgi.h>

#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>

class CloudHost : public FirstPagePlugin {
  public:
    bool canStartNew(bool) override { return true; }

    /// A field that takes a local path or a cloud path. @return what getOpenFileName does.
    QString openFile() {
        QDialog window;
        auto* path = new QLineEdit;
        (new QVBoxLayout(&window))->addWidget(path);
        QObject::connect(path, &QLineEdit::returnPressed, &window, &QDialog::accept);
        if (window.exec() != QDialog::Accepted) return {};
        const bool cloud = path->text().contains(QStringLiteral("云盘/"));
        zFileDialog::iClickedBtn = cloud ? 3 : 1;
        cloudPath = cloud ? path->text() : QString();
        if (!cloud) return path->text();
        const QString name = QFileInfo(cloudPath).fileName();
        return download(name).value(QStringLiteral("data")).toString();
    }

    /// Two fields, which take "anna" and "secret".
    void showLogin(const QJsonObject&) override {
        QDialog window;
        auto* column = new QVBoxLayout(&window);
        auto* name = new QLineEdit;
        auto* password = new QLineEdit;
        auto* ok = new QPushButton(QStringLiteral("OK"));
        password->setEchoMode(QLineEdit::Password);
        column->addWidget(name);
        column->addWidget(password);
        column->addWidget(ok);
        QObject::connect(ok, &QPushButton::clicked, &window, [&] {
            if (name->text() == QLatin1String("anna") &&
                password->text() == QLatin1String("secret"))
                window.accept();
        });
        if (window.exec() == QDialog::Accepted) enter();
    }
    virtual void enter() { loggedIn = true; }
    virtual bool isLoggedIn(const UserInfo*) const { return loggedIn; }
    virtual QString userId() const { return QStringLiteral("u1"); }

    /// Before each answer of a cloud disk.
    virtual void fetch() const {}
    virtual QString rootName() const { return QStringLiteral("根目录"); }
    virtual QJsonArray companyTop() const { return {folder(QStringLiteral("部门"), {})}; }
    virtual QJsonObject download(const QString& fileName) const {
        QFile file(localPath(fileName));
        return answer(file.open(QIODevice::WriteOnly) ? QJsonValue(file.fileName()) : QJsonValue());
    }

    static QJsonObject answer(const QJsonValue& data) {
        return {{QStringLiteral("code"), 0}, {QStringLiteral("data"), data}};
    }
    static QJsonObject file(const QString& name) {
        return {{QStringLiteral("wjjmc"), name},
                {QStringLiteral("wjlx"), QStringLiteral("2")},
                {QStringLiteral("xzlj"), QStringLiteral("link")}};
    }
    static QJsonObject folder(const QString& name, const QJsonArray& below) {
        return {{QStringLiteral("wjjmc"), name},
                {QStringLiteral("wjlx"), QStringLiteral("1")},
                {QStringLiteral("wjjid"), QStringLiteral("folder of ") + name},
                {QStringLiteral("xjdata"), below}};
    }
    QString localPath(const QString& fileName) const { return downloads.filePath(fileName); }

    bool loggedIn = false;
    QString cloudPath;  ///< Of the last choice.

  private:
    const QTemporaryDir downloads;
};

/// @return the host of this program.
CloudHost& cloudHost();

// NOLINTBEGIN(misc-definitions-in-headers): one source of a program has them.
bool UserInfo::IsLogin() const {
    return cloudHost().isLoggedIn(this);
}
QString UserInfo::UserID() const {
    return cloudHost().isLoggedIn(this) ? cloudHost().userId() : QString();
}
void* osgi::ObjectHelper::GetService(const std::string& name) {
    return name == "firstPagePlugin" ? static_cast<FirstPagePlugin*>(&cloudHost()) : nullptr;
}
QString zFileDialog::getOpenFileName(QWidget*, QString, QStringList*, int, QString, bool, QString,
                                     bool, OpenFileType) {
    return cloudHost().openFile();
}
QString zFileDialog::GetFilePath() {
    return cloudHost().cloudPath;
}
void zFileDialog::SetFilePath(const QString& path) {
    cloudHost().cloudPath = path;
}
QJsonObject zFileDialog::LoadGrypData() {
    cloudHost().fetch();
    const QJsonObject mine =
        CloudHost::folder(QStringLiteral("我的"), {CloudHost::file(QStringLiteral("甲.GCFX"))});
    const QJsonObject root = CloudHost::folder(cloudHost().rootName(), {mine});
    return CloudHost::answer(QJsonObject{{QStringLiteral("list"), QJsonArray{root}}});
}
QJsonObject zFileDialog::LoadQyypData() {
    cloudHost().fetch();
    return CloudHost::answer(cloudHost().companyTop());
}
QJsonObject zFileDialog::LoadQyypMlData(const QString& folder, const QString&) {
    cloudHost().fetch();
    if (folder != QStringLiteral("folder of 部门")) return {{QStringLiteral("code"), 1}};
    return CloudHost::answer(QJsonArray{CloudHost::file(QStringLiteral("乙.GCFX"))});
}
QJsonObject zFileDialog::IsExistDownLoadfile(const QString& name, const QString&) {
    cloudHost().fetch();
    return CloudHost::answer(
        QJsonObject{{QStringLiteral("filPath"), cloudHost().localPath(name)},
                    {QStringLiteral("isExist"), QFile::exists(cloudHost().localPath(name))}});
}
QJsonObject zFileDialog::downLoadYunpanFile(const QString& name, const QString& link,
                                            const QString&, const QString&) {
    cloudHost().fetch();
    if (link.isEmpty()) return {{QStringLiteral("code"), 1}};
    return cloudHost().download(name);
}
// NOLINTEND(misc-definitions-in-headers)
