#include "files/fileChoice.h"

#include <QFileInfo>

#include "fileDialog.h"
#include "files/fileFlow.h"

namespace newpro {

const QString personalDisk = QStringLiteral("个人云盘");

namespace {

const QString enterpriseDisk = QStringLiteral("企业云盘");

std::optional<QString> suffixOfCloudFile(const QString& name) {
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    if (dot < 0) return std::nullopt;
    return name.mid(dot + 1).toUpper();
}

}  // namespace

QStringList cloudComponents(const QString& path) {
    return path.split(zFileDialog::pathFgf, Qt::SkipEmptyParts);
}

bool isCloudPath(const QString& path) {
    const QString disk = cloudComponents(path).value(0);
    return disk == enterpriseDisk || disk == personalDisk;
}

FileFacts factsOf(const QString& text) {
    FileFacts facts;
    facts.cloud = isCloudPath(text);
    if (facts.cloud) {
        const QStringList components = cloudComponents(text);
        facts.named = !components.isEmpty();
        if (facts.named) facts.suffix = suffixOfCloudFile(components.constLast());
        return facts;
    }
    facts.named = !text.isEmpty();
    // No file has such a name, and Qt complains when asked.
    if (!facts.named || text.contains(QChar::Null)) return facts;
    const QFileInfo file(text);
    facts.exists = file.exists();
    facts.isFile = file.isFile();
    const QString suffix = file.suffix().toUpper();
    if (!suffix.isEmpty()) facts.suffix = suffix;
    return facts;
}

Verdict judge(FileFlow flow, const FileFacts& facts) {
    if (!facts.named) return Verdict::NothingChosen;
    if (!facts.cloud && !facts.exists) return Verdict::NotFound;
    if (!facts.cloud && !facts.isFile) return Verdict::NotAFile;
    if (!facts.suffix || !choiceOf(flow).takesSuffix(*facts.suffix)) return Verdict::WrongSuffix;
    return Verdict::Accepted;
}

QString refusalText(FileFlow flow, Verdict verdict) {
    switch (verdict) {
        case Verdict::Accepted:
            break;
        case Verdict::NotFound:
            return QStringLiteral("找不到该文件，请检查文件路径是否正确");
        case Verdict::WrongSuffix:
            return choiceOf(flow).wrongSuffix;
        case Verdict::NothingChosen:
        case Verdict::NotAFile:
            return choiceOf(flow).noFile;
    }
    return {};
}

}  // namespace newpro
