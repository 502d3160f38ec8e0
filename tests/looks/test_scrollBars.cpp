/// Scroll bars have the colours of the skin, whenever it is put on.
#include <QListWidget>
#include <QScrollBar>

#include "tests/looks/Contrast.h"
#include "tests/looks/EveryWindow.h"
#include "workbench/hostlibs/common/Skin.h"

namespace {

using testing_support::settle;
using workbench::colour;
using workbench::Host;
using workbench::Tint;

class ScrollBars : public testing::Test {
  protected:
    ScrollBars() {
        for (int i = 0; i < 100; ++i) list.addItem(QString::number(i));
        list.resize(200, 200);
    }
    /// @return the middle of the handle, which stands at the top.
    QColor handle() {
        settle();
        const QScrollBar* bar = list.verticalScrollBar();
        const QImage picture = list.grab().toImage();
        const QPoint top = bar->mapTo(&list, QPoint(bar->width() / 2, 0));
        return picture.pixelColor(top + QPoint(0, workbench::scaled(12)));
    }
    looks_tests::SampleHost host;
    QListWidget list;
};

TEST_F(ScrollBars, FollowTheSkinWhetherTheyAreSeenOrNot) {
    list.show();
    for (const bool shown : {true, false})
        for (const char* skin : {"dark", "contrast", "light"}) {
            list.setVisible(shown);
            Host::instance().setSkin(QLatin1String(skin));
            list.show();
            EXPECT_EQ(handle(), colour(Tint::Handle)) << skin;
            EXPECT_GE(looks_tests::contrast(handle(), list.palette().color(QPalette::Base)), 3);
        }
}

}  // namespace
