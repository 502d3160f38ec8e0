#include "workbench/projects/fileKind.h"

#include <QFileInfo>
#include <QVector>

#include "fileDialog.h"
#include "workbench/projects/ProgramType.h"
#include "workbench/projects/ProjectFile.h"

namespace workbench {

const QString personalDisk = QStringLiteral("个人云盘");
const QString companyDisk = QStringLiteral("企业云盘");

namespace {

struct Kind {
    int programType;
    QString name;
    QString suffix;    ///< Of new files.
    QString suffixes;  ///< By which a cloud path is judged. The host has none for two kinds.
};

const QVector<Kind>& kinds() {
    const auto text = [](const char* ascii) { return QString(QLatin1String(ascii)); };
    static const QVector<Kind> table = {
        {BudgetProgram, QStringLiteral("预算工程"), text("GCFX"), text("GCFX PMW BAK SBAK GCF")},
        {EstimateFile, QStringLiteral("概算工程"), text("GCFG"), text("GCFG")},
        {SettlementProgram, QStringLiteral("结算工程"), text("GCFJ"), {}},
        {ContractingProgram, QStringLiteral("总承包工程"), text("GCFZ"), text("GCFZ BAKZ")},
        {WholeProcessProgram, QStringLiteral("全过程工程"), text("GCFQ"), {}},
        {AuditProgram, QStringLiteral("审核工程"), text("SGCFX"),
         text("SGCFX SPMW SGCFJ SGCF SGCFG")},
        {ContractingAudit, QStringLiteral("总承包审核工程"), text("SGCFZ"), text("SGCFZ SBAKZ")},
    };
    return table;
}

Kind kindOf(int programType) {
    for (const Kind& kind : kinds()) {
        if (kind.programType == programType) return kind;
    }
    return {};
}

int programTypeOfSuffix(const QString& suffix) {
    for (const Kind& kind : kinds()) {
        if (kind.suffixes.split(QLatin1Char(' '), Qt::SkipEmptyParts).contains(suffix))
            return kind.programType;
    }
    return NoProgram;
}

}  // namespace

QString kindOfProgramType(int programType) {
    return kindOf(programType).name;
}

QString suffixOfProgramType(int programType) {
    return kindOf(programType).suffix;
}

bool isCloudPath(const QString& path) {
    const QString disk = path.section(zFileDialog::pathFgf, 0, 0, QString::SectionSkipEmpty);
    return disk == personalDisk || disk == companyDisk;
}

int programTypeOfFile(const QString& path) {
    if (isCloudPath(path)) return programTypeOfSuffix(QFileInfo(path).suffix().toUpper());
    const auto project = ProjectFile::read(path);
    return project ? project->programType : NoProgram;
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
