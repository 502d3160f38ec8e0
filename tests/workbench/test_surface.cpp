// The two languages of the main window.
#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QDockWidget>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QRegularExpression>
#include <QTreeView>
#include <memory>

#include "tests/workbench/FileDialogHand.h"
#include "tests/workbench/MainWindowFixture.h"
#include "workbench/app/AboutDialog.h"

namespace testing_support {

namespace {

using workbench::Language;

/// What belongs to a project, an entry of the journal or a place, and so has no language.
bool isData(const QObject* object) {
    for (const char* name : {"detailTitle", "detailSummary", "detailSource", "detailFile",
                             "installationFolder", "language.zh", "account.userId"})
        if (object->objectName() == QLatin1String(name)) return true;
    return false;
}

class SurfaceTest : public MainWindowTest {
  protected:
    static bool isChinese(QString text) {
        static const QRegularExpression han(QStringLiteral("\\p{Han}"));
        text.remove(QStringLiteral("语言"));  // that menu is found in either language
        return text.contains(han);
    }
    SurfaceTest() : MainWindowTest(true) {}

    Lines chineseTexts() { return chineseTextsOf(window.get()); }
    /// @return what a window says in Chinese, as "name.property: text".
    static Lines chineseTextsOf(QWidget* root) {
        Lines found;
        const auto look = [&found](const QObject* object, const char* what, const QString& text) {
            if (isChinese(text))
                found.push_back((object->objectName() + QLatin1Char('.') + QLatin1String(what) +
                                 QLatin1String(": ") + text)
                                    .toStdString());
        };
        QObjectList objects = root->findChildren<QObject*>();
        objects.append(root);
        for (const QObject* object : qAsConst(objects)) {
            if (isData(object)) continue;
            const bool visual = object->isWidgetType() || qobject_cast<const QAction*>(object);
            for (const char* property : {"text", "title", "windowTitle", "accessibleName",
                                         "accessibleDescription", "toolTip", "placeholderText"})
                if (visual) look(object, property, object->property(property).toString());
            const auto* box = qobject_cast<const QComboBox*>(object);
            for (int i = 0; box && i < box->count(); ++i) look(object, "item", box->itemText(i));
            const auto* view = qobject_cast<const QTreeView*>(object);
            for (int i = 0; view && view->model() && i < view->model()->columnCount(); ++i)
                look(object, "header", view->model()->headerData(i, Qt::Horizontal).toString());
        }
        return found;
    }
};

}  // namespace

TEST_F(SurfaceTest, InEnglishNothingOfTheWindowIsChineseAndBackAgainEverythingIs) {
    clickRow("教学楼.GCFX");
    const Lines before = chineseTexts();
    ASSERT_GT(before.size(), 80u);
    part<QAction>("language.en")->trigger();
    EXPECT_EQ(chineseTexts(), Lines());
    EXPECT_EQ(part<QAction>("newProjectAction")->text(), QStringLiteral("New Project"));
    EXPECT_EQ(text("projectCount"), QStringLiteral("Project files: 2"));
    EXPECT_EQ(text("detailKind"), QStringLiteral("Budget"));
    EXPECT_EQ(text("detailTitle"), QStringLiteral("教学楼"));
    part<QAction>("language.zh")->trigger();
    EXPECT_EQ(chineseTexts(), before);
}

/// Qt names them by itself, in a language of its own.
TEST_F(SurfaceTest, TheButtonsOfTheDocksSpeakTheWindowsLanguage) {
    const auto expectAll = [this](bool chinese) {
        int texts = 0;
        for (const auto* dock : window->findChildren<QDockWidget*>())
            for (const auto* button : dock->findChildren<QAbstractButton*>(
                     QRegularExpression(QStringLiteral("^qt_dockwidget_"))))
                for (const QString& text : {button->accessibleName(), button->toolTip(),
                                            button->accessibleDescription()}) {
                    EXPECT_FALSE(text.isEmpty()) << button->objectName().toStdString();
                    EXPECT_EQ(isChinese(text), chinese) << text.toStdString();
                    ++texts;
                }
        EXPECT_EQ(texts, 12);
    };
    expectAll(true);
    part<QAction>("language.en")->trigger();
    expectAll(false);
    auto* dock = part<QDockWidget>("hostDock");
    dock->close();
    window->addDockWidget(Qt::LeftDockWidgetArea, dock);
    dock->show();
    expectAll(false);
    part<QAction>("skinAction")->trigger();
    expectAll(false);
    dock->setFloating(true);
    expectAll(false);
    dock->setFloating(false);
    expectAll(false);
    part<QAction>("language.zh")->trigger();
    expectAll(true);
}

TEST_F(SurfaceTest, TheMenusOfTextFieldsSpeakTheWindowsLanguage) {
    const auto isMenuChinese = [] {
        QLineEdit field;
        const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
        int chinese = 0, texts = 0;
        for (const QAction* action : menu->actions()) {
            if (action->isSeparator()) continue;
            ++texts;
            if (isChinese(action->text())) ++chinese;
        }
        EXPECT_GT(texts, 5);
        EXPECT_TRUE(chinese == 0 || chinese == texts) << chinese;
        return chinese > 0;
    };
    EXPECT_TRUE(isMenuChinese());
    part<QAction>("language.en")->trigger();
    EXPECT_FALSE(isMenuChinese());
    part<QAction>("language.zh")->trigger();
    EXPECT_TRUE(isMenuChinese());
}

/// What stands in messages and in the journal is the same with a window and without.
TEST_F(SurfaceTest, ReasonsOfFilesStayAsTheyAre) {
    QJsonParseError wrong;
    QJsonDocument::fromJson("x", &wrong);
    EXPECT_EQ(wrong.errorString(), QStringLiteral("illegal value"));
    QFile missing(QStringLiteral("/nowhere"));
    EXPECT_FALSE(missing.open(QIODevice::ReadOnly));
    EXPECT_EQ(missing.errorString(), noSuchFile());
}

TEST_F(SurfaceTest, TheFileDialogSpeaksTheWindowsLanguageWhereTheWindowAsks) {
    host.write(QStringLiteral("D/a/b.txt"));
    for (const bool english : {true, false}) {
        part<QAction>(english ? "language.en" : "language.zh")->trigger();
        const auto driver = whenModal<workbench::OpenDialog>([&](workbench::OpenDialog* shown) {
            Hand hand(shown);
            const auto expect = [&](const QString& text) {
                EXPECT_FALSE(text.isEmpty());
                EXPECT_EQ(isChinese(text), !english) << text.toStdString();
            };
            const Lines chinese = chineseTextsOf(shown);
            EXPECT_EQ(chinese.empty(), english) << testing::PrintToString(chinese);
            expect(shown->windowTitle());
            hand.write("pathField", host.path(QStringLiteral("D")));
            hand.key("pathField", Qt::Key_Return);
            expect(hand.list()->model()->index(0, 1).data().toString());
            for (const char* wrong : {"/nowhere", "个人云盘"}) {
                hand.write("pathField", QString::fromUtf8(wrong));
                hand.key("pathField", Qt::Key_Return);
                expect(hand.message());
            }
            hand.write("nameField", QStringLiteral("x"));
            hand.press("openButton");
            expect(hand.message());
            hand.write("nameField", QStringLiteral("a"));
            hand.write("pathField", host.path(QStringLiteral("D/a")));
            hand.key("pathField", Qt::Key_Return);
            expect(child<QLabel>(shown, "emptyState")->accessibleName());
            shown->reject();
        });
        part<QAction>("openInstallationAction")->trigger();
    }
}

TEST_F(SurfaceTest, TheFileDialogOfTheDialogStaysChinese) {
    part<QAction>("language.en")->trigger();
    const auto driver = whenModal<workbench::OpenDialog>([](workbench::OpenDialog* shown) {
        EXPECT_EQ(shown->windowTitle(), QStringLiteral("打开文件"));
        EXPECT_GT(chineseTextsOf(shown).size(), 15u);
        shown->reject();
    });
    part<QAction>("importTenderAction")->trigger();
}

TEST_F(SurfaceTest, TheProgramIsNamedInTheWindowsLanguage) {
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), QStringLiteral("新建工程工作台"));
    part<QAction>("language.en")->trigger();
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), QStringLiteral("New Project Workbench"));
}

TEST_F(SurfaceTest, TheDialogStaysChinese) {
    part<QAction>("language.en")->trigger();
    const auto driver = whenModal<NewProCfgDialog>([](NewProCfgDialog* dialog) {
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("新建工程"));
        dialog->close();
    });
    key(window.get(), Qt::Key_N, Qt::ControlModifier);
}

TEST(Surface, TheLanguageIsThatOfTheLocaleAndChineseWhereItNamesNone) {
    const struct {
        const char* locale;
        Language language;
    } rows[] = {{"zh_CN", Language::Chinese},
                {"zh_TW", Language::Chinese},
                {"C", Language::Chinese},
                {"en_US", Language::English},
                {"de_DE", Language::English}};
    for (const auto& row : rows)
        EXPECT_EQ(workbench::languageOf(QLocale(QLatin1String(row.locale))), row.language)
            << row.locale;
}

TEST_F(SurfaceTest, TheAboutBoxTellsEveryVersionAndCopiesThem) {
    const auto driver = whenModal<workbench::AboutDialog>([](workbench::AboutDialog* about) {
        QStringList texts;
        for (const QLabel* label : about->findChildren<QLabel*>()) texts.append(label->text());
        for (const QString& version :
             QStringList{QStringLiteral(WORKBENCH_VERSION), QString::fromLatin1(qVersion()),
                         QStringLiteral(QT_VERSION_STR)})
            EXPECT_TRUE(texts.contains(version)) << version.toStdString();
        for (const char* name :
             {"工作台", "Qt（构建时）", "Qt（运行时）", "ICU", "FreeXL", "libzip"}) {
            const int row = texts.indexOf(QString::fromUtf8(name));
            ASSERT_GE(row, 0) << name;
            EXPECT_TRUE(
                texts.value(row + 1).contains(QRegularExpression(QStringLiteral("^\\d+\\.\\d+"))))
                << name << " " << texts.value(row + 1).toStdString();
        }
        click(child<QWidget>(about, "copyVersions"));
        click(child<QWidget>(about, "closeAbout"));
    });
    part<QAction>("aboutAction")->trigger();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QStringLiteral("FreeXL: ")));
}

}  // namespace testing_support
