/// The height of the model lists, and the scrolling area that shows them.
#include <QScrollArea>
#include <QScrollBar>

#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;

class PageHeights : public DialogTest {
  protected:
    static QList<TaxTemplateInfo> models(int count) {
        QList<TaxTemplateInfo> list;
        for (int i = 0; i < count; ++i) list.append(model(QStringLiteral("模式%1").arg(i)));
        return list;
    }
    QScrollBar* bar() { return find<QScrollArea>("taxPageArea")->verticalScrollBar(); }
};

TEST_F(PageHeights, AListKeepsTheMinimumOfItsLastEntryAndTheStackHoldsAllItsRows) {
    host.clearModels();
    host.setModels(kvys, 0, models(12));
    host.values().models[kvys].append({0, models(1)});
    open();
    EXPECT_EQ(list("lswGeneralTax")->count(), 13);
    EXPECT_EQ(list("lswGeneralTax")->minimumHeight(), 80);
    EXPECT_EQ(taxStack()->height(), 13 * 80);
    EXPECT_TRUE(bar()->isVisible());
    bar()->setValue(bar()->maximum());
    click(child<zBaseButton>(card("lswGeneralTax", 12), "btnNewProject"));
    EXPECT_EQ(flowLines().back(), "signal SignalCreatePro(4, 95)");
}

TEST_F(PageHeights, AKindWithoutEntriesForThePageShowsNoEmptyScrollRange) {
    host.setModels(kvys, 1, models(12));
    open();
    addKindOnMainPage(contractingLabel);
    click(button("simpleTaxButton"));
    settle();
    EXPECT_TRUE(bar()->isVisible());
    pick(contractingLabel);
    EXPECT_EQ(taxStack()->currentIndex(), 1);
    EXPECT_EQ(list("lswSimpleTax")->count(), 0);
    EXPECT_FALSE(bar()->isVisible());
    EXPECT_EQ(taxStack()->height(), find<QScrollArea>("taxPageArea")->viewport()->height());
}

}  // namespace
