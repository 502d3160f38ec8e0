#include "workbench/hostlibs/common/ProjectStore.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include "workbench/base/fileAdvice.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"
#include "workbench/projects/ProjectFile.h"
#include "workbench/projects/creationRequest.h"
#include "workbench/projects/fileKind.h"

namespace workbench {

namespace {

/// @return the source as kept in a project file; an empty one with `error` set if it is gone.
QJsonObject sourceOf(const QString& path, QString& error) {
    QJsonObject source{{QStringLiteral("path"), path}};
    const auto unreadable = [&](const QString& reason) {
        error = QStringLiteral("源文件无法读取：") + QDir::toNativeSeparators(withoutNul(path)) +
                QStringLiteral("：") + reason;
        return QJsonObject();
    };
    if (path.contains(QChar::Null)) return unreadable(nulReason());
    if (isCloudPath(path) || QFileInfo(path).isDir()) return source;
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return unreadable(file.errorString());
    source.insert(QStringLiteral("bytes"), file.size());
    source.insert(QStringLiteral("sha256"), QString::fromLatin1(hash.result().toHex()));
    return source;
}

/// @return the path of the plan's nth file of that day.
QString pathOf(const QString& folder, const CreationPlan& plan, const QDate& day, int number) {
    QString base = safeFileName(plan.title);
    if (base.isEmpty()) base = QStringLiteral("新建工程");
    return QStringLiteral("%1/%2-%3-%4.%5")
        .arg(folder, base, day.toString(QStringLiteral("yyyyMMdd")),
             QString::number(number).rightJustified(3, QLatin1Char('0')), plan.suffix);
}

/// Writes a project under the first name that is free, and calls it by that name.
/// @return path of the file; empty when it could not be written, and why is in `error`.
QString writeUnderFreeName(ProjectFile& project, const QString& folder, const CreationPlan& plan,
                           QString& error) {
    for (int number = 1;; ++number) {
        const QString path = pathOf(folder, plan, project.created.date(), number);
        if (QFileInfo::exists(path)) continue;
        project.name = QFileInfo(path).completeBaseName();
        if (project.writeNew(path, error)) return path;
        // Somebody else was faster: the next number may still be free.
        if (!QFileInfo::exists(path)) return {};
    }
}

}  // namespace

QString safeFileName(const QString& title) {
    static const QString forbidden = QStringLiteral("/\\:*?\"<>|#");
    constexpr int longest = 40;
    QString name;
    for (const char32_t c : title.simplified().toUcs4()) {
        const QString character = QString::fromUcs4(&c, 1);
        if (name.size() + character.size() > longest) break;
        name +=
            forbidden.contains(character) || !QChar::isPrint(c) ? QStringLiteral("_") : character;
    }
    while (name.startsWith(QLatin1Char('.'))) name.remove(0, 1);
    return name.trimmed();
}

ProjectStore::ProjectStore(QObject* parent) : QObject(parent) {
    Host::instance().setReceiver([this](int client, int code, const QVariant& payload) {
        receiveMessage(client, code, payload);
    });
}

ProjectStore::~ProjectStore() {
    Host::instance().setReceiver(nullptr);
}

void ProjectStore::receiveMessage(int client, int code, const QVariant& payload) {
    if (client == mainLogic) return;
    create({QStringLiteral("SendMsgToPlugin"), client, code, payload});
}

void ProjectStore::createFromModel(int programType, int code, const QVariant& map) {
    create({QStringLiteral("SignalCreatePro"), programType, code, map});
}

void ProjectStore::createFromTemplate(int programType, int code, const QString& path) {
    create({QStringLiteral("SignalCreateMB"), programType, code, path});
}

void ProjectStore::create(const CreationRequest& request) {
    const auto plan = planOf(request);
    if (!plan) return;
    QString error;
    const QString path = writeProject(request, *plan, error);
    if (path.isEmpty()) {
        Q_EMIT failed(error);
        return;
    }
    Journal::instance().project(path);
    error = Host::instance().installation().addToHistory(QStringLiteral("bd##") + path);
    if (!error.isEmpty()) Q_EMIT failed(QStringLiteral("历史记录无法保存：") + error);
    Q_EMIT created(path);
}

QString ProjectStore::writeProject(const CreationRequest& request, const CreationPlan& plan,
                                   QString& error) {
    ProjectFile project;
    if (!plan.source.isEmpty()) {
        project.source = sourceOf(plan.source, error);
        if (project.source.isEmpty()) return {};
    }
    const QString folder = Host::instance().installation().projectFolder();
    if (!QDir().mkpath(folder)) {
        error = QStringLiteral("工程文件夹无法创建：") + QDir::toNativeSeparators(folder);
        return {};
    }
    project.programType = plan.programType;
    project.created = QDateTime::currentDateTime();
    project.request = toJson(request);
    return writeUnderFreeName(project, folder, plan, error);
}

}  // namespace workbench
