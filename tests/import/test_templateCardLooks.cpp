/// Template cards in a list, in every skin and scale.
#include <QListWidget>
#include <QVBoxLayout>

#include "core/listItemPool.h"
#include "import/TemplateProListItem.h"
#include "import/templateProjects.h"
#include "tests/support/Looks.h"

namespace {

using namespace testing_support;

class TemplateCardLooks : public testing::TestWithParam<Look> {
  protected:
    void SetUp() override {
        wear(GetParam());
        installation.addTemplate(QStringLiteral("kvys"),
                                 QStringLiteral("13规范清单计价(15定额)一般计税模板工程.MODX"));
        installation.addTemplate(QStringLiteral("kvys"), QStringLiteral("住宅楼.MODX"));
        const double scale = GetParam().scale;
        window.resize(qRound(860 * scale), qRound(300 * scale));
        window.setPalette(QApplication::palette());
    }
    TemporaryInstallation installation;
    newpro::ListItemPool items;
    zBaseWidget window;
};

TEST_P(TemplateCardLooks, show_every_text_whole_in_the_list) {
    auto* list = new QListWidget(&window);
    list->setStyleSheet(QStringLiteral("QListWidget{background:transparent;border:0;}"));
    list->setGeometry(window.rect());
    ASSERT_EQ(newpro::fillTemplateList(list, QStringLiteral("kvys"), items, [](const QString&) {}),
              2);
    window.show();
    // The design's row leaves one pixel less than the foot of a slash reaches.
    expectLooksRight(&window, "template-cards", GetParam(), 1);
    for (int row = 0; row < list->count(); ++row) {
        EXPECT_EQ(child<QWidget>(list->itemWidget(list->item(row)), "btnNewProject")->width(),
                  qRound(50 * GetParam().scale));
    }
}

TEST_P(TemplateCardLooks, show_every_text_whole_on_a_full_card) {
    const QString file = installation.path(QStringLiteral("MBSC/kvys/住宅楼.MODX"));
    auto* card = new TemplateProListItem(file, QStringLiteral("川建发〔2020〕12号"),
                                         QStringLiteral("适用于住宅"), &window);
    card->setGeometry(0, 0, window.width(), card->height());
    window.show();
    // The design's fixed height of 15 is two pixels less than the ink of the tallest sign.
    expectLooksRight(&window, "template-card-full", GetParam(), 2);
}

INSTANTIATE_TEST_SUITE_P(Looks, TemplateCardLooks, testing::ValuesIn(allLooks()), nameOfLook);

}  // namespace
