#include "files/fileChoice.h"

#include <QFileInfo>

#include "fileDialog.h"
#include "files/projectFileType.h"

namespace newpro {

const QString personalDisk = QStringLiteral("个人云盘");

namespace {

const QString enterpriseDisk = QStringLiteral("企业云盘");

std::optional<QString> cloudSuffix(const QString& name) {
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    if (dot < 0) return std::nullopt;
    return name.mid(dot + 1).toUpper();
}

bool suffixAccepted(FileFlow flow, const QString& suffix) {
    if (flow == FileFlow::Audit) {
        // "GCF" files are older than the type codes and have none.
        const int type = projectFileType(suffix);
        return suffix == QLatin1String("GCF") || (type & (4 | 8 | 16 | 32)) || type == 2;
    }
    return suffix != QLatin1String("GCFG") && suffix != QLatin1String("SGCFG");
}

struct Refusals {
    QString noFile;
    QString wrongSuffix;
};

const Refusals& refusalsOf(FileFlow flow) {
    static const QString budget = QStringLiteral("请选择预算工程文件");
    static const QString project = QStringLiteral("请选择工程文件");
    static const Refusals usual = {budget, budget};
    static const Refusals audit = {budget, QStringLiteral("请选择预算/概算/总承包工程文件")};
    static const Refusals contracting = {project, project};
    if (flow == FileFlow::Audit) return audit;
    return flow == FileFlow::Contracting ? contracting : usual;
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
        if (facts.named) facts.suffix = cloudSuffix(components.constLast());
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
    if (!facts.suffix || !suffixAccepted(flow, *facts.suffix)) return Verdict::WrongSuffix;
    return Verdict::Accepted;
}

QString refusalText(FileFlow flow, Verdict verdict) {
    switch (verdict) {
        case Verdict::Accepted:
            break;
        case Verdict::NotFound:
            return QStringLiteral("找不到该文件，请检查文件路径是否正确");
        case Verdict::WrongSuffix:
            return refusalsOf(flow).wrongSuffix;
        case Verdict::NothingChosen:
        case Verdict::NotAFile:
            return refusalsOf(flow).noFile;
    }
    return {};
}

}  // namespace newpro
