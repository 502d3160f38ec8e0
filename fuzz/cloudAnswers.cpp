#include "fuzz/cloudAnswers.h"

#include "fileDialog.h"

namespace fuzzing {

CloudAnswers& cloudAnswers() {
    static CloudAnswers answers;
    return answers;
}

namespace {

QJsonObject answerTo(const char* call, const QString& file = QString()) {
    CloudAnswers& answers = cloudAnswers();
    answers.calls.append(QLatin1String(call));
    answers.asked = file;
    answers.last = answers.next.isEmpty() ? QJsonObject() : answers.next.takeFirst();
    return answers.last;
}

}  // namespace

}  // namespace fuzzing

// A program's own definitions go before those of the libraries that it uses.
QJsonObject zFileDialog::LoadGrypData() {
    return fuzzing::answerTo("LoadGrypData");
}

QJsonObject zFileDialog::LoadQyypData() {
    return fuzzing::answerTo("LoadQyypData");
}

QJsonObject zFileDialog::LoadQyypMlData(const QString&, const QString&) {
    return fuzzing::answerTo("LoadQyypMlData");
}

QJsonObject zFileDialog::IsExistDownLoadfile(const QString& fileName, const QString&) {
    return fuzzing::answerTo("IsExistDownLoadfile", fileName);
}

QJsonObject zFileDialog::downLoadYunpanFile(const QString& fileName, const QString&, const QString&,
                                            const QString&) {
    return fuzzing::answerTo("downLoadYunpanFile", fileName);
}
