#include "SharedInterface.h"

#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"
#include "workbench/projects/ProjectFile.h"
#include "workbench/projects/fileKind.h"

using workbench::Host;
using workbench::Journal;

const QString GNSJ_XJGC = QStringLiteral("XJGC");

SharedInterface* SharedInterface::getInstance() {
    static SharedInterface shared;
    return workbench::accessed("SharedInterface::getInstance", &shared);
}

QString SharedInterface::GetAppPath() {
    return workbench::journalled("SharedInterface::GetAppPath", {},
                                 [] { return Host::instance().installation().folder; });
}

void SharedInterface::GetSuffix(int kind, QStringList* suffixes, int reserved) {
    const QStringList found = Journal::instance().call(
        "SharedInterface::GetSuffix", {kind, reserved},
        [kind] { return Host::instance().installation().suffixes.value(kind); },
        [](const QStringList& list) { return QJsonValue(QJsonArray::fromStringList(list)); });
    if (suffixes) suffixes->append(found);
}

void SharedInterface::GetFileInfo(const QString& path, QString& name, QString& kind,
                                  QString& suffix, QString& detail) {
    const workbench::FileInfo info = Journal::instance().call(
        "SharedInterface::GetFileInfo", {path}, [&] { return workbench::fileInfoOf(path); },
        [](const workbench::FileInfo& found) {
            return QJsonValue(QJsonArray{found.name, found.kind, found.suffix, found.detail});
        });
    name = info.name;
    kind = info.kind;
    suffix = info.suffix;
    detail = info.detail;
}

void SharedInterface::UseFunc(int function, const QString& detail) {
    Journal::instance().call("SharedInterface::UseFunc", {function, detail});
}

void SharedInterface::EndUseFun(int function, const QString& detail) {
    Journal::instance().call("SharedInterface::EndUseFun", {function, detail});
}

void SharedInterface::InsertFunLog(QString key, int column, const QString& value) {
    Journal::instance().call("SharedInterface::InsertFunLog", {key, column, value});
}

void SharedInterface::ReplaceFunLog(QString key, int column, const QString& value) {
    Journal::instance().call("SharedInterface::ReplaceFunLog", {key, column, value});
}

void SharedInterface::EndFunLog(QString key, bool failed, int row) {
    Journal::instance().call("SharedInterface::EndFunLog", {key, failed, row});
}

int GetProgramTypeByFile(const QString& path) {
    return workbench::journalled("GetProgramTypeByFile", {path},
                                 [&] { return workbench::programTypeOfFile(path); });
}

void ProcExceptionNew(const std::exception& exception, const char* source, int line,
                      const char* function) {
    Journal::instance().exception(QString::fromUtf8(function), QString::fromUtf8(source), line,
                                  QString::fromUtf8(exception.what()));
}
