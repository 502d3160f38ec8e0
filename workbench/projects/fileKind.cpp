#include "workbench/projects/fileKind.h"

#include <QFileInfo>
#include <QHash>
#include <QVector>

#include "fileDialog.h"
#include "workbench/projects/ProjectFile.h"

namespace workbench {

namespace {

struct Kind {
    int programType;
    QLatin1String suffix;
    QString name;
};

const QVector<Kind>& kinds() {
    static const QVector<Kind> table = {
        {4, QLatin1String("GCFX"), QStringLiteral("预算工程")},
        {2, QLatin1String("GCFG"), QStringLiteral("概算工程")},
        {8, QLatin1String("GCFJ"), QStringLiteral("结算工程")},
        {16, QLatin1String("GCFZ"), QStringLiteral("总承包工程")},
        {32, QLatin1String("GCFQ"), QStringLiteral("全过程工程")},
        {5, QLatin1String("SGCFX"), QStringLiteral("审核工程")},
        {17, QLatin1String("SGCFZ"), QStringLiteral("总承包审核工程")},
    };
    return table;
}

const Kind* kindOf(int programType) {
    for (const Kind& kind : kinds()) {
        if (kind.programType == programType) return &kind;
    }
    return nullptr;
}

int programTypeOfSuffix(const QString& suffix) {
    static const QHash<QString, int> types = {
        {QStringLiteral("GCFX"), 4},   {QStringLiteral("PMW"), 4},   {QStringLiteral("BAK"), 4},
        {QStringLiteral("SBAK"), 4},   {QStringLiteral("GCF"), 4},   {QStringLiteral("GCFZ"), 16},
        {QStringLiteral("BAKZ"), 16},  {QStringLiteral("GCFG"), 2},  {QStringLiteral("SGCFZ"), 17},
        {QStringLiteral("SBAKZ"), 17}, {QStringLiteral("SGCFX"), 5}, {QStringLiteral("SPMW"), 5},
        {QStringLiteral("SGCFJ"), 5},  {QStringLiteral("SGCF"), 5},  {QStringLiteral("SGCFG"), 5},
    };
    return types.value(suffix, -1);
}

}  // namespace

QString kindOfProgramType(int programType) {
    const Kind* kind = kindOf(programType);
    return kind ? kind->name : QString();
}

QString suffixOfProgramType(int programType) {
    const Kind* kind = kindOf(programType);
    return kind ? kind->suffix : QString();
}

bool isCloudPath(const QString& path) {
    const QString disk = path.section(zFileDialog::pathFgf, 0, 0, QString::SectionSkipEmpty);
    return disk == QStringLiteral("个人云盘") || disk == QStringLiteral("企业云盘");
}

int programTypeOfFile(const QString& path) {
    if (isCloudPath(path)) return programTypeOfSuffix(QFileInfo(path).suffix().toUpper());
    const auto project = ProjectFile::read(path);
    return project ? project->programType : -1;
}

FileInfo fileInfoOf(const QString& path) {
    FileInfo info;
    const QFileInfo file(path);
    if (const auto project = ProjectFile::read(path)) {
        info = {project->name, project->kind(), file.suffix().toUpper(), project->summary()};
    } else if (!file.exists()) {
        info.suffix = file.suffix().toUpper();
    }
    return info;
}

}  // namespace workbench
