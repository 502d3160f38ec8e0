/// Any bytes as a project file.
#include <QDir>
#include <QFile>

#include "fuzz/support.h"
#include "fuzz/targets.h"
#include "workbench/projects/ProjectFile.h"
#include "workbench/projects/fileKind.h"

namespace fuzzing {

using workbench::ProjectFile;

namespace {

void requireWrittenAsRead(const ProjectFile& project) {
    const QString path = folder() + QStringLiteral("/written.GCFX");
    QString error;
    require(project.writeNew(path, error), "what was read can be written");
    const auto again = ProjectFile::read(path, &error);
    require(again.has_value(), "what was written can be read");
    QFile::remove(path);
    require(again->programType == project.programType && again->name == project.name &&
                again->request == project.request && again->source == project.source,
            "a project is written as it was read");
    // The file keeps whole seconds.
    require(again->created.toString(Qt::ISODate) == project.created.toString(Qt::ISODate),
            "a project keeps its time");
}

}  // namespace

void fuzzProject(const QByteArray& input) {
    const QString path = write(QStringLiteral("any.GCFX"), input);
    QString error;
    const auto project = ProjectFile::read(path, &error);
    const int type = workbench::programTypeOfFile(path);
    const workbench::FileInfo info = workbench::fileInfoOf(path);
    if (!project) {
        require(error.contains(QDir::toNativeSeparators(path)), "an error names the file");
        require(type == -1 && info.name.isEmpty() && info.suffix.isEmpty(), "it is no project");
        return;
    }
    require(error.isEmpty(), "no error without fault");
    require(type == project->programType && !project->kind().isEmpty(), "its kind is known");
    require(info.name == project->name && info.suffix == QLatin1String("GCFX"), "it is described");
    require(!project->summary().isEmpty(), "it can be told where it came from");
    requireWrittenAsRead(*project);
}

}  // namespace fuzzing
