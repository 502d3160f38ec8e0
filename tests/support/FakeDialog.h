/// The dialog that a flow is tested in: what the flow does with it stands in the journal.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <functional>

#include "core/creationDialog.h"
#include "core/projectKind.h"
#include "files/filePages.h"
#include "tests/support/TestSupport.h"

namespace testing_support {

/// A window with all four file pages. A flow that touches it after its deletion fails the test.
class FakeDialog : public newpro::CreationDialog {
  public:
    FakeDialog() : window(new QDialog) {
        window->setObjectName(QStringLiteral("fake"));
        for (newpro::FilePage* page :
             {&pages.audit, &pages.contracting, &pages.settlement, &pages.estimate}) {
            page->fileCombo = addCombo(QString());
        }
        for (newpro::FilePage* page : {&pages.settlement, &pages.estimate}) {
            page->fromFile = new QCheckBox(window);
            page->templateCombo = addCombo(QStringLiteral("某模板"));
        }
        pages.estimate.modelCombo = addCombo(QStringLiteral("某计价模式"));
    }
    ~FakeDialog() override { delete window; }
    FakeDialog(const FakeDialog&) = delete;
    FakeDialog& operator=(const FakeDialog&) = delete;

    /// The host deletes the dialog, or the fields of its pages alone.
    void destroy() { delete window; }
    void destroyPages() {
        for (QWidget* field :
             window->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            delete field;
        }
    }
    bool isAlive() const { return window; }

    newpro::FilePages pages;
    QString appType = QStringLiteral("Kvys");
    AppPluginManager* plugins = nullptr;
    std::function<void()> onDone = [] {};  ///< Called when it was accepted or closed,
    std::function<void()> onEmit = [] {};  ///< and when it has emitted a signal.
    QVariant sent;                         ///< The project map of the last SignalCreatePro.

    QWidget* widget() override { return window; }
    void acceptDialog() override { done(1); }
    void closeDialog() override { done(0); }
    bool programTypeOfAppType(int& type) override {
        expectAlive("programTypeOfAppType");
        return newpro::programTypeOf(appType, type);
    }
    AppPluginManager* pluginManager() override {
        expectAlive("pluginManager");
        return plugins;
    }
    void emitCreatePro(int programType, const QVariant& map) override {
        sent = map;
        note("SignalCreatePro", {programType, 95});
    }
    void emitCreateMB(int programType, const QString& path) override {
        note("SignalCreateMB", {programType, 44, path});
    }
    void createFromPage(const QVariantMap& values, int kind) override {
        note("createFromPage", {QJsonObject::fromVariantMap(values), kind});
    }

  private:
    zBaseCombox* addCombo(const QString& text) {
        auto* combo = new zBaseCombox(window);
        combo->setEditable(true);
        combo->setCurrentText(text);
        return combo;
    }
    void done(int result) {
        expectAlive("its end");
        workbench::Journal::instance().dialogDone(QStringLiteral("FakeDialog"), result);
        onDone();
    }
    void note(const char* signal, const QJsonArray& args) {
        expectAlive(signal);
        workbench::Journal::instance().signal(QLatin1String(signal), args);
        onEmit();
    }
    void expectAlive(const char* what) const {
        EXPECT_TRUE(isAlive()) << what << " after the dialog was deleted";
    }

    QPointer<QWidget> window;
};

}  // namespace testing_support
