#include "workbench/projects/ProjectFile.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include "workbench/base/fileSystem.h"
#include "workbench/base/wholeFile.h"
#include "workbench/projects/creationRequest.h"
#include "workbench/projects/fileKind.h"

namespace workbench {

namespace {

const QLatin1String formatKey("workbenchProject");
const QLatin1String programTypeKey("programType");
const QLatin1String nameKey("name");
const QLatin1String createdKey("created");
const QLatin1String requestKey("request");
const QLatin1String sourceKey("source");

// A project file holds one request. A larger file is something else and is not read into memory.
constexpr qint64 largestFile = 1024 * 1024;

/// @return what is wrong with the content of a project file, in the user's words; empty if nothing.
QString damageOf(const QJsonObject& content) {
    if (content.value(formatKey).toInt() != 1) return QStringLiteral("工程文件的版本无法识别");
    const QJsonValue type = content.value(programTypeKey);
    if (!type.isDouble() || kindOfProgramType(type.toInt()).isEmpty()) {
        return QStringLiteral("工程文件已损坏：工程类型无效");
    }
    if (!content.value(nameKey).isString()) return QStringLiteral("工程文件已损坏：缺少工程名称");
    if (!QDateTime::fromString(content.value(createdKey).toString(), Qt::ISODate).isValid()) {
        return QStringLiteral("工程文件已损坏：创建时间无效");
    }
    if (!content.value(requestKey).isObject()) {
        return QStringLiteral("工程文件已损坏：缺少新建请求");
    }
    return {};
}

/// @return the content of a file that calls itself a project file; else an empty object.
QJsonObject contentOf(QIODevice& file, QString& wrong) {
    const QByteArray text = file.read(largestFile + 1);
    const QJsonDocument document =
        text.size() > largestFile ? QJsonDocument() : QJsonDocument::fromJson(text);
    if (document.object().contains(formatKey)) return document.object();
    const bool cutOff = text.startsWith('{') && text.contains("\"workbenchProject\"");
    wrong = cutOff ? QStringLiteral("工程文件已损坏：内容不完整") : QStringLiteral("不是工程文件");
    return {};
}

}  // namespace

std::optional<ProjectFile> ProjectFile::read(const QString& path, QString* error) {
    QString wrong;
    QJsonObject content;
    QFile file(path);
    if (openPatiently(file, QIODevice::ReadOnly)) {
        content = contentOf(file, wrong);
        if (wrong.isEmpty()) wrong = damageOf(content);
    } else {
        wrong = QStringLiteral("文件无法读取");
    }
    if (!wrong.isEmpty()) {
        if (error)
            *error = wrong + QStringLiteral("（") + QDir::toNativeSeparators(path) +
                     QStringLiteral("）");
        return std::nullopt;
    }
    ProjectFile project;
    project.programType = content.value(programTypeKey).toInt();
    project.name = content.value(nameKey).toString();
    project.created = QDateTime::fromString(content.value(createdKey).toString(), Qt::ISODate);
    project.request = content.value(requestKey).toObject();
    project.source = content.value(sourceKey).toObject();
    return project;
}

bool ProjectFile::writeNew(const QString& path, QString& error) const {
    QJsonObject content{{formatKey, 1},
                        {programTypeKey, programType},
                        {nameKey, name},
                        {createdKey, created.toString(Qt::ISODate)},
                        {requestKey, request}};
    if (!source.isEmpty()) content.insert(sourceKey, source);
    const QString reason = makeFile(path, QJsonDocument(content).toJson());
    if (reason.isEmpty()) return true;
    error = QDir::toNativeSeparators(path) + QStringLiteral("：") + reason;
    return false;
}

QString ProjectFile::kind() const {
    return kindOfProgramType(programType);
}

QString ProjectFile::summary() const {
    return summaryOf(request, source);
}

}  // namespace workbench
