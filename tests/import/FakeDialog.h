/// A dialog that a flow can run in: what the flow does with it stands in the journal.
#pragma once

#include <QDialog>
#include <QJsonArray>
#include <QPointer>
#include <functional>

#include "core/creationDialog.h"
#include "core/projectKind.h"
#include "tests/support/TestSupport.h"

namespace testing_support {

class FakeDialog : public newpro::CreationDialog {
  public:
    FakeDialog() : window(new QDialog) { window->setObjectName(QStringLiteral("fake")); }
    ~FakeDialog() override { delete window; }
    FakeDialog(const FakeDialog&) = delete;
    FakeDialog& operator=(const FakeDialog&) = delete;

    /// The host deletes the dialog; a flow that still touches it fails the test.
    void destroy() { delete window; }
    bool isAlive() const { return window; }

    QString appType = QStringLiteral("Kvys");
    AppPluginManager* plugins = AppPluginManager::instance();
    std::function<void()> onAccept = [] {};
    std::function<void()> onEmit = [] {};

    QWidget* widget() override {
        expectAlive("widget");
        return window;
    }
    void acceptDialog() override {
        expectAlive("acceptDialog");
        workbench::Journal::instance().dialogDone(QStringLiteral("FakeDialog"), 1);
        onAccept();
    }
    void closeDialog() override { ADD_FAILURE() << "closed instead of accepted"; }
    bool programTypeOfAppType(int& type) override {
        expectAlive("programTypeOfAppType");
        return newpro::programTypeOf(appType, type);
    }
    AppPluginManager* pluginManager() override {
        expectAlive("pluginManager");
        return plugins;
    }
    void emitCreatePro(int, const QVariant&) override { ADD_FAILURE() << "wrong signal"; }
    void emitCreateMB(int programType, const QString& path) override {
        expectAlive("emitCreateMB");
        workbench::Journal::instance().signal(QStringLiteral("SignalCreateMB"),
                                              {programType, 44, path});
        onEmit();
    }
    void createFromPage(const QVariantMap&, int) override { ADD_FAILURE() << "wrong creation"; }

  private:
    void expectAlive(const char* what) const {
        EXPECT_TRUE(isAlive()) << what << " after the dialog was deleted";
    }

    QPointer<QDialog> window;
};

}  // namespace testing_support
