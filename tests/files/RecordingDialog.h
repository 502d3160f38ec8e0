/// A dialog with all four file pages, which puts what a flow does with it into the journal.
#pragma once

#include <QCheckBox>
#include <QDateTime>
#include <QLineEdit>
#include <memory>

#include "core/creationDialog.h"
#include "core/projectKind.h"
#include "files/filePages.h"
#include "tests/support/TestSupport.h"
#include "workbench/journal/toJson.h"
#include "workbench/projects/ProjectFile.h"

namespace files_testing {

class RecordingDialog : public newpro::CreationDialog {
  public:
    RecordingDialog() {
        for (newpro::FilePage* page :
             {&pages.audit, &pages.contracting, &pages.settlement, &pages.estimate}) {
            page->fileCombo = addCombo();
        }
        for (newpro::FilePage* page : {&pages.settlement, &pages.estimate}) {
            page->fromFile = new QCheckBox(window.get());
            page->fromFile->setCheckable(true);
            page->templateCombo = addCombo();
            page->templateCombo->setCurrentText(QStringLiteral("某模板"));
        }
        pages.estimate.modelCombo = addCombo();
        pages.estimate.modelCombo->setCurrentText(QStringLiteral("某计价模式"));
    }

    QWidget* widget() override { return window.get(); }
    void acceptDialog() override { ADD_FAILURE() << "the file flows close the dialog"; }
    void closeDialog() override {
        workbench::Journal::instance().dialogDone(QStringLiteral("dialog"), 0);
        if (goesWhenClosed) window.reset();
    }
    bool programTypeOfAppType(int&) override {
        ADD_FAILURE() << "no file flow asks for the program type of the application type";
        return true;
    }
    AppPluginManager* pluginManager() override { return AppPluginManager::instance(); }
    void emitCreatePro(int, const QVariant&) override { ADD_FAILURE() << "not a model"; }
    void emitCreateMB(int, const QString&) override { ADD_FAILURE() << "not a template"; }
    void createFromPage(const QVariantMap& values, int kind) override {
        EXPECT_TRUE(window) << "the dialog is gone";
        workbench::Journal::instance().signal(QStringLiteral("createFromPage"),
                                              {QJsonObject::fromVariantMap(values), kind});
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    newpro::FilePages pages;
    bool goesWhenClosed = false;

  private:
    zBaseCombox* addCombo() {
        auto* combo = new zBaseCombox(window.get());
        combo->setEditable(true);
        return combo;
    }
};

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
