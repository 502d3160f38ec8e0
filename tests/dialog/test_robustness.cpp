#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <algorithm>

#include "tests/dialog/HostileUse.h"

#ifdef Q_OS_WIN
#include <windows.h>
// Behind what it needs.
#include <psapi.h>
#else
#include <malloc.h>
#endif

namespace {

using namespace dialog_tests;

class Robustness : public HostileUse {
  protected:
    void SetUp() override {
        // So that the constructor makes a template card as well, which asks the host by itself.
        host.addTemplate(QStringLiteral("kvys"), QStringLiteral("t.MODX"));
    }
};

/// @return source and function that report an exception of a construction's host call.
std::string reporterOf(const std::string& call, int nth) {
    if (call == "CpfMain::IsProdAreaYN" || call == "CpfMain::GetOpenVersion" ||
        (call == "CpfMain::GetInstance" && nth < 3)) {
        return "NewProCfgDialog NewProCfgDialog::CreateUI";
    }
    if (call == "SharedInterface::GetAppPath") {
        return nth == 1 ? "NewProCfgDialog NewProCfgDialog::addMoBanWidget"
                        : "NewProCfgDialog NewProCfgDialog::LoadTemplateProInfo";
    }
    if (call == "ProjectSettingHelper::GetProTaxTemplateInfoList" ||
        (call == "ProjectSettingHelper::GetProjectSettingHelper" && nth == 1)) {
        return "NewProCfgDialog NewProCfgDialog::GetModelCfgAndInitData";
    }
    if (call.rfind("ProjectSettingHelper::", 0) == 0)
        return "ProModelItemForm ProModelItemForm::UpdateDataDisplay";
    if (call == "CpfMain::GetAreaConfigValue" || call == "CpfMain::GetInstance")
        return "TemplateProListItem TemplateProListItem::InitWidgetDisplay";
    return "NewProCfgDialog NewProCfgDialog::NewProCfgDialog";
}

TEST_F(Robustness, EveryHostCallOfTheConstructorMayThrowAnyKindOfException) {
    const std::vector<Place> places = callsOfConstruction();
    ASSERT_GT(places.size(), 8u);
    EXPECT_EQ(std::count_if(
                  places.begin(), places.end(),
                  [](const Place& place) { return place.call == "CpfMain::GetAreaConfigValue"; }),
              1)
        << "the template card asks";
    for (const Place& place : places) {
        for (const auto& thrown : testing_support::thrownKinds()) {
            SCOPED_TRACE(place.call + " #" + std::to_string(place.nth) + " throws " + thrown.name);
            throwNoMore();
            throwAt(place.call.c_str(), thrown.as, place.nth);
            make();
            EXPECT_EQ(reports(), Lines{reporterOf(place.call, place.nth) + ": " + thrown.reported});
            throwNoMore();
            useEverything();
            host.switches().firstPage = workbench::FirstPage::Ready;
        }
    }
    make();
    EXPECT_EQ(countOf("exception"), 0);
    EXPECT_EQ(list("lswGeneralTax")->count(), 2);
}

TEST_F(Robustness, AWholeDialogSurvivesWhateverIsDoneToIt) {
    make();
    useEverything();
}

TEST_F(Robustness, EveryHostCallOfTheLoaderMayThrowAndAReloadSucceeds) {
    const struct {
        const char* call;
        int nth;
        const char* function;
        int cards;  ///< General-tax cards that stand afterwards.
    } rows[] = {
        {"ProjectSettingHelper::GetProjectSettingHelper", 1,
         "NewProCfgDialog NewProCfgDialog::GetModelCfgAndInitData", 0},
        {"ProjectSettingHelper::GetProTaxTemplateInfoList", 1,
         "NewProCfgDialog NewProCfgDialog::GetModelCfgAndInitData", 0},
        {"ProjectSettingHelper::GetPricingModelInfoMap", 1,
         "ProModelItemForm ProModelItemForm::UpdateDataDisplay", 2},
        {"ProjectSettingHelper::GetPricingModelInfoMap", 2,
         "ProModelItemForm ProModelItemForm::UpdateDataDisplay", 2},
        {"SharedInterface::GetAppPath", 1, "NewProCfgDialog NewProCfgDialog::LoadTemplateProInfo",
         2},
        {"CpfMain::GetAreaConfigValue", 1,
         "TemplateProListItem TemplateProListItem::InitWidgetDisplay", 2},
    };
    for (const auto& row : rows) {
        for (const auto& thrown : testing_support::thrownKinds()) {
            SCOPED_TRACE(std::string(row.call) + " throws " + thrown.name);
            open();
            throwAt(row.call, thrown.as, row.nth);
            ASSERT_TRUE(call("GetModelCfgAndInitData"));
            EXPECT_EQ(reports(), Lines{std::string(row.function) + ": " + thrown.reported});
            EXPECT_EQ(list("lswGeneralTax")->count(), row.cards);
            throwNoMore();
            clearJournal();
            ASSERT_TRUE(call("GetModelCfgAndInitData"));
            EXPECT_EQ(countOf("exception"), 0);
            EXPECT_EQ(list("lswGeneralTax")->count(), 2);
            EXPECT_EQ(list("lswTemplateEng")->count(), 1);
            click(child<zBaseButton>(card("lswGeneralTax", 1), "btnNewProject"));
            EXPECT_EQ(flowLines().back(), "signal SignalCreatePro(4, 95)");
        }
    }
}

/// @return what the process has taken of the heap, bytes.
size_t heapInUse() {
#ifdef Q_OS_WIN
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
#else
    return mallinfo2().uordblks;
#endif
}

TEST_F(Robustness, ACloudPathThatCannotBeResolvedIsNotResolved) {
    open();
    throwAt("Users::Instance", testing_support::thrownKinds().front().as);
    QString local = QStringLiteral("before");
    bool resolved = true;
    ASSERT_TRUE(QMetaObject::invokeMethod(
        dialog.get(), "loadYunPanPath", Qt::DirectConnection, Q_RETURN_ARG(bool, resolved),
        QArgument<QString&>("QString&", local), Q_ARG(QString, QStringLiteral("个人/a.GCFX")),
        Q_ARG(bool, false)));
    EXPECT_EQ(countOf("exception"), 1);
    EXPECT_FALSE(resolved);
    EXPECT_EQ(local, QStringLiteral("before"));
}

TEST_F(Robustness, ATreeWhoseColumnsCannotBeFittedHasItsNewSize) {
    open();
    click(button("templateButton"));
    settle();
    const int width = tree()->viewport()->width();
    throwAt(testing_support::scalingCalls[0], testing_support::thrownKinds().front().as);
    tree()->resize(tree()->width() - 50, tree()->height());
    EXPECT_EQ(countOf("exception"), 1);
    EXPECT_EQ(tree()->viewport()->width(), width - 50);
}

TEST_F(Robustness, AThousandKindSwitchesKeepTheHeapFlat) {
    host.addTemplate(QStringLiteral("kvzcb"), QStringLiteral("u.MODX"));
    open();
    addKindOnMainPage(contractingLabel);
    QAction* const kinds[] = {entry(contractingLabel), entry(budgetLabel)};
    const auto switchKinds = [&kinds](int count) {
        for (int i = 0; i < count; ++i) {
            kinds[i % 2]->trigger();
            settle();
            clearJournal();
        }
        return heapInUse();
    };
    const size_t before = switchKinds(60);
#if !defined(__SANITIZE_ADDRESS__)
    ASSERT_GT(before, 0u);
#endif
    const size_t after = switchKinds(1000);
    EXPECT_LT(after, before + 1024 * 1024);
}

TEST_F(Robustness, ThreeThousandModelsWork) {
    QList<TaxTemplateInfo> models;
    for (int i = 0; i < 3000; ++i) models.append(model(QStringLiteral("模式%1").arg(i)));
    host.setModels(kvys, 0, models);
    open();
    ASSERT_EQ(list("lswGeneralTax")->count(), 3000);
    EXPECT_EQ(list("lswGeneralTax")->minimumHeight(), 3000 * 80);
    QScrollBar* bar = find<QScrollArea>("taxPageArea")->verticalScrollBar();
    bar->setValue(bar->maximum());
    click(child<zBaseButton>(card("lswGeneralTax", 2999), "btnNewProject"));
    EXPECT_EQ(sent.toMap().value(QStringLiteral("m_strProjectType")),
              QVariant(QStringLiteral("模式2999")));
}

TEST_F(Robustness, OddTextsLeaveTheDialogItsSizeAndItsButtons) {
    const QString texts[] = {QString(500, QChar(0x6a21)),
                             QString(500, QLatin1Char('W')),
                             QString(20000, QLatin1Char('x')),
                             QString(),
                             QStringLiteral(" "),
                             QStringLiteral("a\nb\tc\r"),
                             QString(QChar(0)) + QStringLiteral("nul"),
                             QString(QChar(0xd800)),
                             QStringLiteral("😀👩‍👩‍👧"),
                             QStringLiteral("<h1>&amp;</h1>"),
                             QStringLiteral("%1%2%n"),
                             QString(QChar(0x202e)) + QStringLiteral("rtl")};
    for (const QString& text : texts) {
        SCOPED_TRACE(text.left(20).toStdString());
        TaxTemplateInfo info = model(text);
        info.description = text;
        info.basis = QVector<QString>(50, text).toList();
        info.basisDocument = text;
        info.leadingBasisDocument = text;
        host.setModels(kvys, 0, {info});
        open();
        EXPECT_EQ(dialog->size(), QSize(880, 750));
        dialog->grab();
        auto* create = child<zBaseButton>(card("lswGeneralTax", 0), "btnNewProject");
        EXPECT_EQ(create->width(), 50);
        const QRect place(create->mapTo(dialog.get(), QPoint()), create->size());
        EXPECT_TRUE(dialog->rect().contains(place));
        click(create);
        EXPECT_EQ(sent.toMap().value(QStringLiteral("m_strProjectType")).toString(), text);
    }
}

TEST_F(Robustness, DialogsComeAndGoWithoutTrace) {
    for (int i = 0; i < 20; ++i) {
        open();
        addKindOnMainPage(contractingLabel);
        pick(contractingLabel);
        pick(budgetLabel);
    }
    EXPECT_EQ(countOf("exception"), 0);
    dialog.reset();
    expectNoStrays();
}

TEST_F(Robustness, AParentTakesTheDialogWithIt) {
    auto window = std::make_unique<QWidget>();
    QPointer<NewProCfgDialog> owned = new NewProCfgDialog(0, true, window.get());
    owned->show();
    settle();
    clearJournal();
    window.reset();
    EXPECT_FALSE(owned);
    EXPECT_EQ(countOf("InterfaceAdaptation::closeMaxDialogMode"), 1);
    EXPECT_EQ(countOf("exception"), 0);
}

// While it goes, the tree still sends events to the dialog; the sanitizers see whether they are
// used.
TEST_F(Robustness, TheTemplateTreeMayGoBeforeTheDialog) {
    open();
    delete tree();
    settle();
    EXPECT_TRUE(dialog->isVisible());
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    pick(budgetLabel);
    EXPECT_EQ(countOf("exception"), 0);
    const QString light = tree()->styleSheet();
    workbench::Host::instance().setSkin(QStringLiteral("dark"));
    EXPECT_NE(tree()->styleSheet(), light) << "the new one follows the skin as well";
}

TEST_F(Robustness, TheTaxPagesMayGoBeforeTheDialog) {
    open();
    delete taxStack();
    useEverything();
}

TEST_F(Robustness, PartsOfAFilePageMayGoBeforeTheDialog) {
    for (const char* gone : {"fileCombo", "browseButton", "newButton"}) {
        SCOPED_TRACE(gone);
        open();
        pick(auditLabel);
        auto* page = find<QWidget>("auditPage");
        child<QWidget>(page, "fileCombo")->setFocus();
        delete child<QWidget>(page, gone);
        QTest::keyClick(page, Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible());
        useEverything();
        host.switches().firstPage = workbench::FirstPage::Ready;
    }
}

TEST_F(Robustness, ButtonsOfTheTaxModesMayGoBeforeTheDialog) {
    for (const char* gone : taxButtons) {
        SCOPED_TRACE(gone);
        open();
        addKindOnMainPage(contractingLabel);
        delete button(gone);
        clearJournal();
        pick(contractingLabel);
        EXPECT_EQ(countOf("ProjectSettingHelper::GetProTaxTemplateInfoList"), 1);
        pick(budgetLabel);
        EXPECT_EQ(countOf("ProjectSettingHelper::GetProTaxTemplateInfoList"), 2);
        for (int page = 0; page < 5; ++page) {
            QMetaObject::invokeMethod(dialog.get(), "slotCalculationTaxClicked", Q_ARG(int, page));
            EXPECT_EQ(taxStack()->currentIndex(), page);
            for (const char* other : taxButtons) {
                const auto* left = dialog->findChild<zBaseButton*>(QLatin1String(other));
                if (!left || other == taxButtons[4]) continue;
                EXPECT_EQ(left->isChecked(), other == taxButtons[page]) << other;
            }
        }
        useEverything();
        host.switches().firstPage = workbench::FirstPage::Ready;
    }
}

/// The answer may be empty: no card is made then that would tell that its list is another's.
TEST_F(Robustness, AKindThatIsPickedWhileTheHostIsAskedForModelsShowsEachTemplateOnce) {
    host.clearModels();
    open();
    addKindOnMainPage(contractingLabel);
    const struct {
        const char* asked;
        bool configured;
    } rows[] = {{"ProjectSettingHelper::GetProTaxTemplateInfoList", true},
                {"ProjectSettingHelper::GetProjectSettingHelper", false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.asked);
        workbench::Host::instance().switches().configurationPresent = row.configured;
        bool picked = false;
        const QMetaObject::Connection connection = QObject::connect(
            &workbench::Journal::instance(), &workbench::Journal::recorded, [&](const auto& line) {
                if (picked || line.value(QLatin1String("name")) != QLatin1String(row.asked)) return;
                picked = true;
                entry(contractingLabel)->trigger();
                entry(budgetLabel)->trigger();
            });
        ASSERT_TRUE(call("GetModelCfgAndInitData"));
        QObject::disconnect(connection);
        EXPECT_TRUE(picked);
        EXPECT_EQ(list("lswTemplateEng")->count(), 1);
    }
}

TEST_F(Robustness, AsTheLastWindowItEndsNoApplication) {
    const QSignalSpy ended(qApp, &QGuiApplication::lastWindowClosed);
    make();
    // Only an application that runs tells of its last window.
    QTimer::singleShot(0, dialog.get(), [&] {
        dialog->show();
        settle();
        click(child<zBaseButton>(card("lswGeneralTax", 0), "btnNewProject"));
        EXPECT_FALSE(dialog->isVisible());
        dialog->show();
        dialog->close();
        QCoreApplication::exit();
    });
    QApplication::exec();
    EXPECT_EQ(ended.count(), 0);
}

}  // namespace
