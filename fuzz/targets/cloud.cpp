/// A cloud path, and any JSON as the cloud service's answers. First line: the path; each further
/// line: the answer to one request, in turn.
#include <QJsonDocument>

#include "files/cloudDisk.h"
#include "files/fileChoice.h"
#include "fuzz/cloudAnswers.h"
#include "fuzz/support.h"
#include "fuzz/targets.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"

namespace fuzzing {

namespace {

int boxesShown() {
    int boxes = 0;
    for (const QJsonObject& entry : workbench::Journal::instance().entries()) {
        boxes += entry.value(QLatin1String("kind")) == QLatin1String("box");
    }
    return boxes;
}

void requireSoundCopy(const QString& local, const QString& fileName) {
    const CloudAnswers& answers = cloudAnswers();
    require(answers.calls.constLast() == QLatin1String("downLoadYunpanFile"), "it was downloaded");
    require(answers.asked == fileName, "the file of this name was downloaded");
    require(answers.last.value(QLatin1String("code")) == 0, "the service agreed");
    require(!local.isEmpty() && answers.last.value(QLatin1String("data")) == local,
            "the copy lies where the service says");
}

}  // namespace

void fuzzCloud(const QByteArray& input) {
    QByteArray rest = input;
    const QString path = textOf(takeLine(rest));
    cloudAnswers() = {};
    while (!rest.isEmpty()) {
        cloudAnswers().next.append(QJsonDocument::fromJson(takeLine(rest)).object());
    }
    workbench::Host::instance().switches().boxesAnswerThemselves = true;

    const QString untouched = QStringLiteral("untouched");
    QString local = untouched;
    const bool resolved = newpro::resolveCloudPath(local, path, true, newpro::FilePages());
    const QStringList names = newpro::cloudComponents(path);
    require(boxesShown() <= (resolved ? 0 : 1), "a failure is told once, a success not at all");
    require(cloudAnswers().calls.size() <= names.size() + 2, "each folder is asked for once");
    if (resolved) {
        requireSoundCopy(local, names.constLast());
    } else {
        require(local == untouched, "a failure leaves the path alone");
    }
    cloudAnswers() = {};
    workbench::Host::instance().reset();
    workbench::Journal::instance().clear();
}

}  // namespace fuzzing
