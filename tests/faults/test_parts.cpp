/// What an installed header offers and no flow of the dialog reaches: an exception of each kind at
/// each host call of it.
#include <QLabel>
#include <QSignalSpy>
#include <QTreeWidget>

#include "import/TemplateProListItem.h"
#include "import/importExcelSelFile.h"
#include "tests/faults/Places.h"
#include "tests/support/TestSupport.h"
#include "zBaseControl.h"

namespace {

using namespace testing_support;
using faults::Case;
using faults::Place;
using faults::PlaceWatch;

QString textOf(const Case& one) {
    return one.action == faults::Action::ThrowOther ? QStringLiteral("未知异常")
                                                    : QLatin1String(faults::thrownText);
}

struct Parts : testing::Test {
    TemporaryInstallation installation;

    /// Runs `body` with what shall happen in it. @return the watch, which has seen its calls.
    template <typename Body>
    static std::unique_ptr<PlaceWatch> run(const Case& wanted, const Body& body) {
        const auto never = [](faults::Action, const QStringList&) { return false; };
        auto watch = std::make_unique<PlaceWatch>(
            wanted, [] {}, never);
        clearJournal();
        watch->count(true);
        body();
        watch->count(false);
        return watch;
    }
    /// @return an exception of each kind at each of the calls of `body`.
    template <typename Body>
    static QVector<Case> casesOf(const Body& body) {
        constexpr bool quick = false;
        return faults::casesFor(run({}, body)->places(), quick, 0);
    }
    static void expectOneReport(const Case& one, const QString& function) {
        const QString line = QStringLiteral("exception %1: %2").arg(function, textOf(one));
        EXPECT_EQ(journalLines({"exception"}), Lines{line.toStdString()});
    }
};

bool reaches(const QVector<Case>& cases, const char* operation) {
    return std::any_of(cases.begin(), cases.end(), [operation](const Case& one) {
        return faults::nameOf(one.place.operation) == QLatin1String(operation);
    });
}

struct FullCard : Parts {
    QString file = installation.addTemplate(QStringLiteral("kvys"), QStringLiteral("甲.MODX"));
    std::unique_ptr<TemplateProListItem> card;

    /// @return whether the host got its exception back, as the base of the card is its own.
    bool make() {
        try {
            card = std::make_unique<TemplateProListItem>(file, QStringLiteral("号"),
                                                         QStringLiteral("字"), nullptr);
            return false;
        } catch (...) {
            return true;
        }
    }
    void expectThatItOffersItsFile() {
        auto* button = card->findChild<zBaseButton*>(QStringLiteral("btnNewProject"));
        if (!button) return;
        QSignalSpy wanted(card.get(), &TemplateProListItem::signalCreateProByTemaplte);
        button->click();
        ASSERT_EQ(wanted.count(), 1);
        EXPECT_EQ(wanted[0][0].toString(), file);
    }
    void playAll() {
        const QVector<Case> cases = casesOf([this] { make(); });
        EXPECT_TRUE(reaches(cases, "TBaseTool::GetDefFont"));
        EXPECT_TRUE(reaches(cases, "zBaseLabel::setControlType"));
        EXPECT_TRUE(reaches(cases, "CpfMain::GetAreaConfigValue"));
        for (const Case& one : cases) play(one);
    }
    void play(const Case& one) {
        SCOPED_TRACE(faults::describe(one).toStdString());
        card.reset();
        const int before = QApplication::allWidgets().size();
        bool escaped = false;
        const auto watch = run(one, [&] { escaped = make(); });
        EXPECT_TRUE(watch->fired());
        const bool isBase =
            faults::nameOf(one.place.operation) == QLatin1String("zBaseWidget::zBaseWidget");
        EXPECT_EQ(escaped, isBase);
        if (isBase) {
            EXPECT_EQ(countOf("exception"), 0);
        } else {
            const bool showing = watch->stack().join(QString()).contains(
                QLatin1String("TemplateProListItem::InitWidgetDisplay("));
            expectOneReport(one,
                            QLatin1String(showing ? "TemplateProListItem::InitWidgetDisplay"
                                                  : "TemplateProListItem::TemplateProListItem"));
            expectThatItOffersItsFile();
        }
        card.reset();
        EXPECT_EQ(QApplication::allWidgets().size(), before);
        make();
        EXPECT_EQ(child<QLabel>(card.get(), "lblTitle")->text(), QStringLiteral("甲"));
        EXPECT_EQ(child<QLabel>(card.get(), "label")->text(), QStringLiteral("依据文号：号"));
    }
};

TEST_F(FullCard, AnExceptionAtAnyHostCallIsReportedOnceAndASecondCardIsWhole) {
    playAll();
}

TEST_F(FullCard, AnExceptionAtAnyHostCallOnTheFirstStartIsReportedOnce) {
    SharedInterface::firstOpenClose = 1;
    playAll();
}

struct TemplateChooserCalls : Parts {
    importExcelSelFile dialog{nullptr};
    zBaseComboxPopup* popup = new zBaseComboxPopup(&dialog);
    QTreeWidget* tree = new QTreeWidget(&dialog);
    const QString path = installation.path(QStringLiteral("MB/一.MODX"));

    TemplateChooserCalls() {
        installation.values().groupedTemplates = {
            {QStringLiteral("甲组"), {{QStringLiteral("一"), QStringLiteral("MB/一.MODX")}}}};
        EXPECT_TRUE(QMetaObject::invokeMethod(&dialog, "setTemplateChooser",
                                              Q_ARG(zBaseComboxPopup*, popup),
                                              Q_ARG(QTreeWidget*, tree)));
    }
    void load() {
        ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "loadGcmb", Q_ARG(QString, path)));
    }
    void clickItem(QTreeWidgetItem* item) {
        ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "slotGcmbTreeItemClicked",
                                              Q_ARG(QTreeWidgetItem*, item), Q_ARG(int, 0)));
    }
    void expectChosen() {
        EXPECT_EQ(dialog.GetGcmb(), path);
        EXPECT_EQ(popup->displayText(), QStringLiteral("一"));
    }
    template <typename Body, typename Check>
    static void playAll(const QVector<Case>& cases, const char* function, const Body& body,
                        const Check& check) {
        for (const Case& one : cases) {
            SCOPED_TRACE(faults::describe(one).toStdString());
            EXPECT_TRUE(run(one, body)->fired());
            expectOneReport(one, QLatin1String(function));
            clearJournal();
            body();
            check();
        }
    }
};

TEST_F(TemplateChooserCalls, AnExceptionAtAnyOfItsListIsReportedOnceAndASecondTryFillsIt) {
    const auto body = [this] { load(); };
    const QVector<Case> cases = casesOf(body);
    EXPECT_TRUE(reaches(cases, "ProjectSettingHelper::getJiLinMoBanList"));
    EXPECT_TRUE(reaches(cases, "zBaseComboxPopup::setDisplayText"));
    playAll(cases, "importExcelSelFile::loadGcmb", body, [this] {
        ASSERT_EQ(tree->topLevelItemCount(), 1);
        EXPECT_EQ(tree->topLevelItem(0)->childCount(), 1);
        expectChosen();
    });
}

TEST_F(TemplateChooserCalls, AnExceptionAtAnyOfAChoiceIsReportedOnceAndASecondTrySucceeds) {
    load();
    const auto body = [this] { clickItem(tree->topLevelItem(0)->child(0)); };
    const QVector<Case> cases = casesOf(body);
    EXPECT_TRUE(reaches(cases, "zBaseComboxPopup::setDisplayText"));
    EXPECT_TRUE(reaches(cases, "zBaseComboxPopup::hideDropDownPopup"));
    playAll(cases, "importExcelSelFile::slotGcmbTreeItemClicked", body, [this] { expectChosen(); });
}

TEST_F(TemplateChooserCalls, AnExceptionAtTheMessageThatRefusesAGroupIsReportedOnce) {
    load();
    const auto body = [this] { clickItem(tree->topLevelItem(0)); };
    const QVector<Case> cases = casesOf(body);
    EXPECT_TRUE(reaches(cases, "showInforByOneBtn"));
    playAll(cases, "importExcelSelFile::slotGcmbTreeItemClicked", body, [this] {
        EXPECT_EQ(countOf("box"), 1);
        expectChosen();
    });
}

}  // namespace
