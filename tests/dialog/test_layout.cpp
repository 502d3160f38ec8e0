/// Places, margins, pictures and types of the window's parts.
#include <QLayout>
#include <QScrollArea>
#include <QSpacerItem>

#include "tests/dialog/DialogFixture.h"
#include "tests/support/StyleOf.h"

namespace {

using namespace dialog_tests;
using testing_support::StyleOf;

const QString home = QStringLiteral(":/Image/Home/");

class Places : public DialogTest, public testing::WithParamInterface<double> {
  protected:
    void SetUp() override {
        workbench::Host::instance().setScale(GetParam());
        make();
    }
    static int px(int design) { return qRound(design * GetParam()); }
    static QMargins px(int left, int top, int right, int bottom) {
        return {px(left), px(top), px(right), px(bottom)};
    }
    QWidget* taxRow() { return button("generalTaxButton")->parentWidget(); }
};

TEST_P(Places, MarginsAndSpacingsAreThoseOfTheDesign) {
    const QLayout* outer = dialog->layout();
    ASSERT_EQ(outer->count(), 2) << "the header above the framed page stack";
    const QLayout* frame = outer->itemAt(1)->layout();
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->itemAt(0)->widget(), pageStack());
    const struct {
        const char* what;
        const QLayout* layout;
        QMargins margins;
        int spacing;
    } rows[] = {
        {"dialog", outer, QMargins(), 0},
        {"ribbon", find<QWidget>("ribbon")->layout(), px(10, 2, 0, 0), px(5)},
        {"page stack", frame, px(2, 2, 2, 0), 0},
        {"main page", find<QWidget>("pMiddlePanelV")->layout(), px(16, 16, 16, 10), 0},
        {"tax row", taxRow()->layout(), QMargins(), px(5)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        // A layout adds the margins of its widget when asked for its own geometry only.
        EXPECT_EQ(row.layout->contentsMargins(), row.margins);
        EXPECT_EQ(row.layout->spacing(), row.spacing);
    }
    EXPECT_EQ(find<QWidget>("header")->layout()->contentsMargins(), QMargins());
    EXPECT_EQ(find<QWidget>("header")->minimumHeight(), px(60));
    EXPECT_EQ(find<QWidget>("header")->maximumHeight(), px(60));
    EXPECT_EQ(find<QWidget>("ribbon")->contentsMargins(), px(6, 0, 4, 10));
    EXPECT_EQ(button("budgetButton")->contentsMargins(), px(6, 6, 6, 6));
    EXPECT_EQ(button("generalTaxButton")->contentsMargins(), QMargins());
}

TEST_P(Places, TheMainPageStacksRowDividerAndPages) {
    const QLayout* column = find<QWidget>("pMiddlePanelV")->layout();
    ASSERT_EQ(column->count(), 5);
    EXPECT_EQ(column->itemAt(0)->widget(), taxRow());
    EXPECT_EQ(taxRow()->minimumHeight(), px(30));
    EXPECT_EQ(taxRow()->maximumHeight(), px(30));
    for (int gap : {1, 3}) {
        ASSERT_TRUE(column->itemAt(gap)->spacerItem()) << gap;
        EXPECT_EQ(column->itemAt(gap)->spacerItem()->sizeHint().height(), px(5)) << gap;
    }
    auto* divider = qobject_cast<zBaseLabel*>(column->itemAt(2)->widget());
    ASSERT_TRUE(divider);
    EXPECT_EQ(divider->minimumHeight(), px(1));
    EXPECT_EQ(divider->maximumHeight(), px(1));
    EXPECT_TRUE(column->itemAt(4)->widget()->isAncestorOf(taxStack()));
}

TEST_P(Places, TheListsStandInTheirPageWithoutFrameOrPaperOfTheirOwn) {
    auto* area = find<QScrollArea>("taxPageArea");
    EXPECT_EQ(area->frameWidth(), 0);
    EXPECT_FALSE(area->viewport()->autoFillBackground());
    EXPECT_FALSE(area->widget()->autoFillBackground());
    EXPECT_EQ(list("lswGeneralTax")->frameWidth(), 0);
}

TEST_P(Places, TheTaxRowEndsWithAStretchAndTheTenderButton) {
    const QLayout* row = taxRow()->layout();
    ASSERT_EQ(row->count(), 7);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(row->itemAt(i)->widget(), button(taxButtons[i])) << i;
        EXPECT_TRUE(StyleOf::widget(button(taxButtons[i])).checkedBackground) << i;
    }
    ASSERT_TRUE(row->itemAt(5)->spacerItem());
    EXPECT_TRUE(row->itemAt(5)->expandingDirections() & Qt::Horizontal);
    EXPECT_EQ(row->itemAt(6)->widget(), button("importTenderButton"));
    EXPECT_FALSE(StyleOf::widget(button("importTenderButton")).checkedBackground);
    EXPECT_EQ(button("importTenderButton")->iconSize(), QSize(px(14), px(14)));
    EXPECT_EQ(button("importTenderButton")->minimumWidth(), px(120));
    EXPECT_EQ(button("importTenderButton")->maximumWidth(), px(120));
}

TEST_P(Places, AStretchClosesTheRibbon) {
    const QLayout* row = find<QWidget>("ribbon")->layout();
    // Behind the four entries the workbench keeps room for the cross of its window.
    ASSERT_EQ(row->count(), 6);
    for (const int at : {4, 5}) EXPECT_TRUE(row->itemAt(at)->spacerItem());
    EXPECT_FALSE(row->itemAt(4)->expandingDirections() & Qt::Horizontal);
    EXPECT_TRUE(row->itemAt(5)->expandingDirections() & Qt::Horizontal);
}

INSTANTIATE_TEST_SUITE_P(Scales, Places, testing::Values(1.0, 2.0, 3.0),
                         [](const testing::TestParamInfo<double>& info) {
                             return "At" + std::to_string(qRound(info.param * 100)) + "Percent";
                         });

class Pictures : public DialogTest {};

TEST_F(Pictures, AreThoseOfTheDesignAndExist) {
    make();
    EXPECT_EQ(find<zBaseWidget>("header")->backgroundIcon(), home + QStringLiteral("xjbjTc.svg"));
    const struct {
        zBaseButton* button;
        const char* picture;
    } rows[] = {
        {entryButton(budgetLabel), ""},
        {entryButton(auditLabel), ""},
        {entryButton(excelLabel), "excelXJ.svg"},
        {entryButton(tenderLabel), "drYfj.svg"},
        {button("importTenderButton"), "DaoRuCJZXinJian1.4.svg"},
        {child<zBaseButton>(find<QWidget>("auditPage"), "browseButton"), "LiuLan1.4.svg"},
        {child<zBaseButton>(find<QWidget>("contractingPage"), "browseButton"), "LiuLan1.4.svg"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.picture);
        const QString path = *row.picture ? home + QLatin1String(row.picture) : QString();
        EXPECT_EQ(StyleOf::widget(row.button).icons[0], path);
        EXPECT_TRUE(path.isEmpty() || QFile::exists(path));
    }
}

TEST_F(Pictures, ControlTypesAreThoseOfTheDesign) {
    host.addTemplate(QStringLiteral("kvys"), QStringLiteral("甲.MODX"));
    host.write(QStringLiteral("MBSC/kvys/夹/x.txt"));
    make();
    auto* row = qobject_cast<zBaseWidget*>(tree()->itemWidget(tree()->topLevelItem(0), 0));
    ASSERT_TRUE(row);
    EXPECT_EQ(StyleOf::widget(row).type, 10);
    EXPECT_EQ(StyleOf::widget(row->findChild<zBaseButton*>()).type, 88);
    auto* folder = qobject_cast<zBaseWidget*>(tree()->itemWidget(tree()->topLevelItem(1), 0));
    ASSERT_TRUE(folder);
    EXPECT_EQ(StyleOf::widget(folder).type, 10);
}

TEST_F(Pictures, TheDialogItselfTakesTheFocus) {
    make();
    EXPECT_EQ(dialog->focusWidget(), dialog.get());
}

}  // namespace
