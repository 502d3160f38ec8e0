#include "tests/looks/EveryWindow.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidgetAction>
#include <algorithm>

#include "dialog/NewProCfgDialog.h"
#include "dialog/xzGcLxDialog.h"
#include "import/importExcelSelFile.h"
#include "workbench/app/AboutDialog.h"
#include "workbench/app/MainWindow.h"
#include "workbench/app/ScaleLimit.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/fileDialog/DownloadWindow.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"
#include "workbench/hostlibs/fileDialog/OpenDialog.h"
#include "workbench/hostlibs/zControl/MessageBox.h"

namespace looks_tests {

using testing_support::child;
using testing_support::click;
using testing_support::settle;

namespace {

template <typename T>
std::unique_ptr<QWidget> shown(std::unique_ptr<T> window) {
    window->show();
    settle();
    return window;
}

/// The dialog on the page of a button of its tax row.
std::unique_ptr<QWidget> onTaxPage(const char* buttonName) {
    auto dialog = std::make_unique<NewProCfgDialog>(0, true, nullptr);
    dialog->show();
    settle();
    auto* button = child<zBaseButton>(dialog.get(), buttonName);
    if (!button->isChecked()) click(button);
    settle();
    return dialog;
}

void choose(NewProCfgDialog* dialog, const QString& label) {
    for (auto* action : dialog->findChildren<QWidgetAction*>())
        if (action->property("name").toString() == label)
            click(child<QWidget>(action->defaultWidget(), "curText"));
    settle();
}

std::unique_ptr<QWidget> onAuditPage() {
    auto dialog = std::make_unique<NewProCfgDialog>(0, true, nullptr);
    dialog->show();
    settle();
    choose(dialog.get(), QStringLiteral("审核工程"));
    return dialog;
}

/// The page of general contracting that starts from a file.
std::unique_ptr<QWidget> onContractingPage() {
    auto dialog = std::make_unique<NewProCfgDialog>(0, true, nullptr);
    dialog->show();
    const QString label = QStringLiteral("总承包工程");
    dialog->addXjPage({QString(), label, 0}, child<QWidget>(dialog.get(), "pMiddlePanelV"));
    settle();
    choose(dialog.get(), label);
    click(child<QWidget>(dialog.get(), "budgetButton"));
    settle();
    return dialog;
}

std::unique_ptr<QWidget> openDialog() {
    workbench::FileRequest request;
    request.folder = workbench::Host::instance().installation().projectFolder();
    return shown(std::make_unique<workbench::OpenDialog>(nullptr, request));
}

std::unique_ptr<QWidget> login() {
    return shown(std::make_unique<workbench::LoginWindow>());
}

std::unique_ptr<QWidget> download() {
    auto window = std::make_unique<workbench::DownloadWindow>(
        QStringLiteral("青羊区社区卫生服务中心医技楼.GCFX"), nullptr);
    workbench::Host::instance().switches().cloud.slow = true;
    window->progress(1, 5);
    return window;
}

/// As on a screen that holds every scale. @param width, height of the design.
std::unique_ptr<QWidget> large(std::unique_ptr<QWidget> window, double width, double height) {
    window->setFixedSize(workbench::roomFor(width), workbench::roomFor(height));
    settle();
    return window;
}

std::unique_ptr<QWidget> largeDownload() {
    std::unique_ptr<QWidget> window = download();
    child<QWidget>(window.get(), "downloadFile")->setMinimumWidth(workbench::roomFor(320));
    settle();
    return window;
}

std::unique_ptr<QWidget> box(const char* picture) {
    return shown(std::make_unique<workbench::MessageBox>(
        QStringLiteral("提示"), QStringLiteral("请选择需要新建的工程文件！"),
        QStringList{QStringLiteral("确定"), QStringLiteral("取消")}, picture, nullptr));
}

/// As on a screen that holds every scale.
std::unique_ptr<QWidget> mainWindow() {
    const double scale = workbench::Host::instance().scale();
    auto window = std::make_unique<workbench::MainWindow>();
    window->setAnimated(false);  // docks in motion have no measures
    window->show();
    window->findChild<workbench::ScaleLimit*>()->fit({7680, 4320});
    window->resize(int(1280 * scale), int(820 * scale));
    settle();
    return window;
}

}  // namespace

const std::vector<Page>& allPages() {
    static const std::vector<Page> pages = {
        {"general", [] { return onTaxPage("generalTaxButton"); }},
        {"simple", [] { return onTaxPage("simpleTaxButton"); }},
        {"business", [] { return onTaxPage("businessTaxButton"); }},
        {"templates", [] { return onTaxPage("templateButton"); }},
        {"audit", onAuditPage},
        {"contracting", onContractingPage},
        {"chooser", [] { return shown(std::make_unique<xzGcLxDialog>(nullptr)); }},
        {"excel", [] { return shown(std::make_unique<importExcelSelFile>(nullptr)); }},
        {"fileDialog", [] { return large(openDialog(), 860, 560); }},
        {"login", [] { return large(login(), 360, 230); }},
        {"download", largeDownload},
        {"information", [] { return box("info"); }},
        {"critical", [] { return box("critical"); }},
        {"about", [] { return shown(std::make_unique<workbench::AboutDialog>(nullptr)); }},
        {"mainWindow", mainWindow}};
    return pages;
}

const std::vector<Page>& windowsOfTheWorkbench() {
    static const std::vector<Page> pages = {
        {"fileDialog", openDialog},
        {"login", login},
        {"download", download},
        {"information", [] { return box("info"); }},
        {"longMessage",
         [] {
             return shown(std::make_unique<workbench::MessageBox>(
                 QStringLiteral("提示"), QStringLiteral("无法打开的工程文件\n").repeated(60),
                 QStringList{QStringLiteral("确定")}, "critical", nullptr));
         }},
        {"about", [] { return shown(std::make_unique<workbench::AboutDialog>(nullptr)); }},
        {"mainWindow", [] { return shown(std::make_unique<workbench::MainWindow>()); }}};
    return pages;
}

const Page& pageNamed(const std::string& name) {
    const auto& pages = allPages();
    const auto found = std::find_if(pages.begin(), pages.end(),
                                    [&name](const Page& page) { return page.name == name; });
    if (found == pages.end()) throw std::out_of_range("no page " + name);
    return *found;
}

std::unique_ptr<QWidget> withKeys(const Page& page) {
    std::unique_ptr<QWidget> window = page.open();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    return window;
}

std::string nameOfPage(const testing::TestParamInfo<Page>& info) {
    return info.param.name;
}

QFont doubled(QFont font) {
    font.setPixelSize(2 * font.pixelSize());
    return font;
}

QString tipOf(QWidget* widget, const QPoint& place) {
    // A tip that is told to go stays for a while.
    const auto tips = [] {
        QWidgetList found;
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->inherits("QTipLabel") && top->isVisible()) found.append(top);
        return found;
    };
    for (QWidget* tip : tips()) tip->hide();
    QHelpEvent asks(QEvent::ToolTip, place, widget->mapToGlobal(place));
    QCoreApplication::sendEvent(widget, &asks);
    return tips().isEmpty() ? QString() : QToolTip::text();
}

SampleHost::SampleHost() {
    workbench::Host& host = workbench::Host::instance();
    EXPECT_EQ(host.loadInstallation(QStringLiteral(SAMPLE_INSTALLATION)), QString());
}

SampleHost::~SampleHost() {
    workbench::Host::instance().reset();
}

}  // namespace looks_tests
