/// Any creation request, and any bytes as a tendering-data file: what becomes of them on disk.
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include "fuzz/support.h"
#include "fuzz/targets.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/ProjectStore.h"
#include "workbench/journal/Journal.h"
#include "workbench/projects/ProjectFile.h"
#include "workbench/projects/creationRequest.h"
#include "workbench/projects/fileKind.h"

namespace fuzzing {

using workbench::CreationRequest;
using workbench::Host;
using workbench::ProjectFile;
using workbench::ProjectStore;

namespace {

/// @return an installation folder of this process alone.
const QString& installationFolder() {
    static const QString made = [] {
        require(QDir(folder()).mkpath(QStringLiteral("stage")), "a folder can be made");
        write(QStringLiteral("stage/models.json"), "{}");
        write(QStringLiteral("stage/settings.json"), soundSettings);
        write(QStringLiteral("stage/history.json"), soundHistory);
        return folder() + QStringLiteral("/stage");
    }();
    return made;
}

workbench::Installation soundInstallation() {
    workbench::Installation sound;
    QString error;
    require(workbench::Installation::load(installationFolder(), sound, error),
            "the installation is sound");
    return sound;
}

/// A host over an installation with an empty history, and its project store.
class Stage {
  public:
    Stage() {
        static const workbench::Installation sound = soundInstallation();
        Host::instance().installation() = sound;
        // What earlier inputs have left in the file would be merged with what this one adds.
        write(QStringLiteral("stage/history.json"), soundHistory);
        QObject::connect(&store, &ProjectStore::created, [this](const QString& path) {
            require(made.isEmpty(), "a request makes one file");
            made = path;
        });
        QObject::connect(&store, &ProjectStore::failed, [this](const QString& text) {
            require(!text.isEmpty(), "a failure is told");
            failed = true;
        });
    }
    ~Stage() {
        if (!made.isEmpty()) QFile::remove(made);
        Host::instance().reset();
        workbench::Journal::instance().clear();
    }
    Stage(const Stage&) = delete;

    /// @return the file that was made; nothing where the host refused.
    std::optional<ProjectFile> project() const {
        if (made.isEmpty()) return std::nullopt;
        require(QFileInfo(made).path() == Host::instance().installation().projectFolder(),
                "a project lies in the project folder");
        QString error;
        const auto read = ProjectFile::read(made, &error);
        require(read.has_value(), "a new project can be read");
        return read;
    }

    void requireInHistory() const {
        const QStringList history = Host::instance().installation().history;
        require(history == QStringList(QStringLiteral("bd##") + made), "it heads the history");
        workbench::Installation again;
        QString error;
        require(workbench::Installation::load(installationFolder(), again, error),
                "the history can be read");
        require(again.history == history, "the history is read as it was written");
    }

    ProjectStore store;
    QString made;
    bool failed = false;
};

}  // namespace

/// First line: program type and code; the rest: the payload as JSON, or as a text.
void fuzzCreation(const QByteArray& input) {
    QByteArray rest = input;
    const QList<QByteArray> numbers = takeLine(rest).split(' ');
    Stage stage;
    rest.replace("{installation}", installationFolder().toUtf8());
    CreationRequest request;
    request.channel = QStringLiteral("SignalCreatePro");
    request.client = numbers.value(0).toInt();
    request.code = numbers.value(1).toInt();
    const QJsonDocument json = QJsonDocument::fromJson(rest);
    request.payload =
        json.isObject() ? QVariant(json.object().toVariantMap()) : QVariant(textOf(rest));
    const auto plan = workbench::planOf(request);
    stage.store.createFromModel(request.client, request.code, request.payload);
    require(plan.has_value() == (!stage.made.isEmpty() || stage.failed),
            "a plan is carried out, or why not is told");
    if (const auto project = stage.project()) {
        require(project->programType == plan->programType, "the project is of the kind asked for");
        require(project->request == workbench::toJson(request), "the request is kept as it was");
        require(stage.made.endsWith(QLatin1Char('.') + plan->suffix), "the suffix tells the kind");
        stage.requireInHistory();
        require(!workbench::fileInfoOf(stage.made).kind.isEmpty(), "it can be described");
    }
}

void fuzzTender(const QByteArray& input) {
    constexpr int budget = 4;
    constexpr int importTender = 108;
    Stage stage;
    const QString path = write(QStringLiteral("any.YFJZ"), input);
    workbench::fileInfoOf(path);
    stage.store.receiveMessage(budget, importTender,
                               QJsonObject{{QStringLiteral("dzb_file"), path}});
    const auto project = stage.project();
    require(project.has_value(), "a tender that can be read makes a project");
    const QByteArray sum = QCryptographicHash::hash(input, QCryptographicHash::Sha256).toHex();
    require(project->source.value(QLatin1String("path")) == path &&
                project->source.value(QLatin1String("bytes")) == input.size() &&
                project->source.value(QLatin1String("sha256")) == QString::fromLatin1(sum),
            "the project knows its source");
}

}  // namespace fuzzing
