/// What the tests of the file flows share.
#pragma once

#include <QDateTime>

#include "tests/support/FakeDialog.h"
#include "workbench/journal/toJson.h"
#include "workbench/projects/ProjectFile.h"

namespace files_testing {

using newpro::FileFlow;

constexpr FileFlow everyFlow[] = {FileFlow::Estimate, FileFlow::Settlement, FileFlow::Audit,
                                  FileFlow::Contracting};

/// @return the texts of the items, in order.
inline QStringList itemsOf(const QComboBox& combo) {
    QStringList texts;
    for (int i = 0; i < combo.count(); ++i) texts.append(combo.itemText(i));
    return texts;
}

/// Writes a project file of the budget kind.
inline void writeBudgetProject(const QString& file) {
    workbench::ProjectFile project;
    project.programType = newpro::BudgetProgram;
    project.created = QDateTime::currentDateTime();
    QString error;
    ASSERT_TRUE(project.writeNew(file, error)) << error.toStdString();
}

/// @return the line of an information box of the module.
inline std::string boxLine(const QString& text) {
    return R"(box showInformation("提示", ")" + text.toStdString() + R"(", ["确定"]))";
}

}  // namespace files_testing
