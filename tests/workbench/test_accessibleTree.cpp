/// What a screen reader finds in each window, against what is seen there.
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "dialog/NewProCfgDialog.h"
#include "dialog/xzGcLxDialog.h"
#include "import/importExcelSelFile.h"
#include "tests/support/AccessibleTree.h"
#include "tests/workbench/FileDialogHand.h"
#include "workbench/app/AboutDialog.h"
#include "workbench/app/MainWindow.h"
#include "workbench/app/NoticeBar.h"
#include "workbench/hostlibs/fileDialog/DownloadWindow.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"
#include "workbench/scenario/hostDialog.h"
#include "zControl.h"

namespace {

using namespace testing_support;

const char documentName[] = REPOSITORY "/docs/accessible-tree.md";

class AccessibleTree : public testing::Test {
  protected:
    AccessibleTree() {
        EXPECT_EQ(workbench::Host::instance().loadInstallation(QStringLiteral(SAMPLE_INSTALLATION)),
                  QString());
    }
    void SetUp() override {
        dialog.reset(new NewProCfgDialog(0, true, nullptr));
        dialog->SetLsjl({QStringLiteral("bd##/工程/教学楼.GCFX")});
        show(dialog.get());
    }
    static void show(QWidget* window) {
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        settle();
    }
    void press(const char* name) {
        click(child<QWidget>(dialog.get(), name));
        settle();
    }
    void start(const QString& entry) {
        workbench::startWithEntry(dialog.get(), entry);
        settle();
    }
    /// Checks a window, and keeps its tree for the document.
    void look(const QString& title, QWidget* window) {
        EXPECT_EQ(accessibleFaults(window), QStringList()) << title.toStdString();
        QString tree = accessibleTree(window);
        // What another machine or another day has otherwise.
        tree.replace(QLatin1Char('\\'), QLatin1Char('/'));
        tree.replace(workbench::Host::instance().installation().folder,
                     QStringLiteral("{installation}"));
        tree.replace(QRegularExpression(QStringLiteral("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d")),
                     QStringLiteral("{time}"));
        document += QStringLiteral("\n## %1\n\n```\n%2```\n").arg(title, tree);
    }
    /// Every page of the dialog.
    void lookAtPages() {
        look(QStringLiteral("一般计税: the pricing models"), dialog.get());
        press("simpleTaxButton");
        look(QStringLiteral("简易计税"), dialog.get());
        press("businessTaxButton");
        look(QStringLiteral("营业税"), dialog.get());
        press("templateButton");
        look(QStringLiteral("模板工程: the template tree"), dialog.get());
        start(QStringLiteral("审核工程"));
        look(QStringLiteral("审核工程: the audit page"), dialog.get());
        start(QStringLiteral("总承包工程"));
        press("generalTaxButton");
        look(QStringLiteral("总承包工程: the pricing models"), dialog.get());
        press("budgetButton");
        look(QStringLiteral("总承包工程: the page of a project file"), dialog.get());
        dialog.reset();
    }
    template <typename Window, typename... Args>
    void lookAtWindow(const QString& title, Args... args) {
        Window window(args...);
        show(&window);
        look(title, &window);
        window.hide();
    }
    void lookAtBox() {
        bool asked = false;
        {
            host.switches().boxesAnswerThemselves = false;
            const auto driver = whenModal<QDialog>([&](QDialog* box) {
                asked = true;
                settle();
                EXPECT_TRUE(qobject_cast<QAbstractButton*>(box->focusWidget()));
                look(QStringLiteral("A message box"), box);
                box->reject();
            });
            showInformation(QStringLiteral("提示"), nullptr, QStringLiteral("请选择预算工程文件"),
                            {QStringLiteral("确定")});
        }
        EXPECT_TRUE(asked);
    }
    void lookAtDownload() {
        workbench::DownloadWindow window(QStringLiteral("教学楼.GCFX"), nullptr);
        host.switches().cloud.slow = true;
        window.progress(1, 5);
        look(QStringLiteral("A download"), &window);
        host.switches().cloud.slow = false;
    }
    void lookAtAll() {
        lookAtPages();
        lookAtWindow<importExcelSelFile>(QStringLiteral("导入Excel新建"), nullptr);
        lookAtWindow<xzGcLxDialog>(QStringLiteral("选择工程类型: the chooser"), nullptr);
        lookAtBox();
        workbench::FileRequest request;
        request.folder = workbench::Host::instance().installation().projectFolder();
        request.mode = 1;  // with the cloud disks
        lookAtWindow<workbench::OpenDialog>(QStringLiteral("The file dialog"), nullptr, request);
        lookAtWindow<workbench::LoginWindow>(QStringLiteral("The log-in"));
        lookAtDownload();
        clearJournal();
        lookAtWindow<workbench::MainWindow>(QStringLiteral("The main window"));
    }

    TemporaryInstallation host;
    std::unique_ptr<NewProCfgDialog> dialog;
    QString document;
};

/// Written anew by NEWPRO_WRITE_DOCS=1.
TEST_F(AccessibleTree, OfEveryPageIsWhole_AndStandsInTheDocument) {
    lookAtAll();
    QFile file(QString::fromUtf8(documentName));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString written = QString::fromUtf8(file.readAll());
    file.close();
    const QString heading = written.section(QStringLiteral("\n## "), 0, 0) + QLatin1Char('\n');
    if (!qEnvironmentVariableIsEmpty("NEWPRO_WRITE_DOCS")) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write((heading.trimmed() + QLatin1Char('\n') + document).toUtf8());
        return;
    }
    EXPECT_EQ(written.split(QLatin1Char('\n')),
              (heading.trimmed() + QLatin1Char('\n') + document).split(QLatin1Char('\n')));
}

/// Asks for each widget as soon as it is shaped or seen, as a reader does that is there already.
struct EarlyReader : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool shaped = event->type() == QEvent::Polish || event->type() == QEvent::Show;
        if (shaped && QAccessible::queryAccessibleInterface(watched)) ++asked;
        return false;
    }
    int asked = 0;
};

TEST_F(AccessibleTree, IsTheSameForAReaderThatWatchesFromTheStart) {
    const QString late = accessibleTree(dialog.get());
    dialog.reset();
    EarlyReader reader;
    qApp->installEventFilter(&reader);
    SetUp();
    const QString early = accessibleTree(dialog.get());
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Down);
    press("templateButton");
    QTest::keyClick(child<QTreeWidget>(dialog.get(), "templateTree"), Qt::Key_Down);
    EXPECT_EQ(accessibleFaults(dialog.get()), QStringList());
    EXPECT_GT(reader.asked, 100);
    EXPECT_EQ(early.split(QLatin1Char('\n')), late.split(QLatin1Char('\n')));
}

TEST_F(AccessibleTree, TheFrameOfASplitButtonIsNoButton) {
    auto* list = child<QListWidget>(dialog.get(), "lswGeneralTax");
    auto* frame = child<QWidget>(list->itemWidget(list->item(0)), "btnNewProject");
    ASSERT_TRUE(frame->layout());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(frame)->role(), QAccessible::Grouping);
    // One of the host's own is none of the dialog's to describe.
    QPushButton own;
    new QVBoxLayout(&own);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&own)->role(), QAccessible::PushButton);
}

TEST_F(AccessibleTree, ARowIsPressedByAReader) {
    auto* list = child<QListWidget>(dialog.get(), "lswGeneralTax");
    QAccessibleInterface* row =
        QAccessible::queryAccessibleInterface(list->itemWidget(list->item(2)));
    row->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(list->currentRow(), 2);
    EXPECT_TRUE(row->state().focused);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(list)->focusChild(), row);
    EXPECT_EQ(row->indexOfChild(row->child(0)), 0);
    EXPECT_EQ(row->child(0)->parent(), row);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(AccessibleTree, OfTheWorkbenchsSmallWindowsIsWhole) {
    dialog.reset();
    workbench::AboutDialog about(nullptr);
    workbench::LoginWindow login;
    workbench::DownloadWindow download(QStringLiteral("甲.GCFX"), nullptr);
    workbench::NoticeBar notice;
    notice.tell({"安装目录无法打开", {}, "", {{"重新读取", [] {}}}});
    for (QWidget* window : QWidgetList{&about, &login, &download, &notice}) {
        window->show();
        settle();
        EXPECT_EQ(accessibleFaults(window), QStringList());
        window->hide();
    }
}

TEST_F(AccessibleTree, OfTheFileDialogIsWhole) {
    dialog.reset();
    bool seen = false;
    {
        const auto driver = whenModal<workbench::OpenDialog>([&](workbench::OpenDialog* shown) {
            seen = true;
            EXPECT_EQ(accessibleFaults(shown), QStringList());
            shown->reject();
        });
        open(workbench::Host::instance().installation().projectFolder());
    }
    EXPECT_TRUE(seen);
}

}  // namespace
