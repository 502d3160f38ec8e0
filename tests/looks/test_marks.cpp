/// Arrows, chevrons and branches at every scale, and the rings beside a text.
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QStyleOption>
#include <QTreeWidget>

#include "tests/looks/Contrast.h"
#include "tests/looks/EveryWindow.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/Style.h"

namespace {

using looks_tests::inkOf;
using testing_support::child;
using testing_support::settle;
using workbench::Host;
using workbench::scaled;

/// @return how large what is drawn in a part of a widget is.
QSize inkIn(QWidget* widget, const QRect& part) {
    return inkOf(widget->grab(part).toImage(), QSize(0, 0)).size();
}

QSize arrowOf(QWidget* field) {
    field->resize(scaled(160), scaled(28));
    const int frame = scaled(3);
    return inkIn(field, field->rect().adjusted(scaled(130), frame, -frame, -frame));
}

QSize arrowOfList() {
    QComboBox field;
    return arrowOf(&field);
}

QSize arrowOfStyledList() {
    zBaseCombox field;
    return arrowOf(&field);
}

QSize arrowOfPopup() {
    zBaseComboxPopup field;
    return arrowOf(&field);
}

QSize arrowOfHead() {
    QTreeWidget list;
    list.setHeaderLabels({QStringLiteral("一"), QStringLiteral("二")});
    list.setSortingEnabled(true);
    list.sortByColumn(0, Qt::AscendingOrder);
    list.show();
    settle();
    const int right = list.header()->sectionSize(0) - scaled(2);
    return inkIn(list.header(),
                 {right - scaled(20), scaled(2), scaled(20), list.header()->height() - scaled(4)});
}

QSize chevronOfPart() {
    zBaseButton part;
    part.setIcon(QStringLiteral(":/Image/Home/xjXl.svg"));
    part.setControlType(workbench::SplitPartType);
    part.resize(scaled(20), scaled(22));
    return inkIn(&part, part.rect());
}

/// @param open whether the folder is.
QSize branch(bool open) {
    const auto window = looks_tests::pageNamed("templates").open();
    auto* tree = child<QTreeWidget>(window.get(), "templateTree");
    QTreeWidgetItem* folder = nullptr;
    for (QTreeWidgetItemIterator it(tree); *it && !folder; ++it)
        if (!(*it)->parent() && (*it)->childCount() > 0) folder = *it;
    if (!folder) return {};
    folder->setExpanded(open);
    settle();
    const QRect row = tree->visualItemRect(folder);
    return inkIn(tree->viewport(), {0, row.top(), row.left(), row.height()});
}

class Marks : public testing::Test {
  protected:
    looks_tests::SampleHost host;
};

TEST_F(Marks, TheRingOfATickStandsBesideItsText) {
    for (const double scale : {1.0, 3.0}) {
        SCOPED_TRACE(scale);
        Host::instance().setScale(scale);
        QCheckBox tick(QStringLiteral("已登录"));
        tick.resize(tick.sizeHint());
        QStyleOptionButton option;
        option.initFrom(&tick);
        option.text = tick.text();
        const auto part = [&](QStyle::SubElement element) {
            return tick.style()->subElementRect(element, &option, &tick);
        };
        const QRect ring = part(QStyle::SE_CheckBoxFocusRect);
        const int text = part(QStyle::SE_CheckBoxContents).left();
        EXPECT_LE(ring.left(), text - scaled(3));
        EXPECT_GE(ring.right(),
                  text + tick.fontMetrics().horizontalAdvance(tick.text()) + scaled(2));
        EXPECT_GT(ring.left(), part(QStyle::SE_CheckBoxIndicator).right());
        EXPECT_TRUE(tick.rect().contains(ring));
    }
}

TEST_F(Marks, GrowWithTheScale) {
    const std::pair<const char*, std::function<QSize()>> marks[] = {
        {"arrow of a list of choice", arrowOfList},
        {"arrow of a styled list of choice", arrowOfStyledList},
        {"arrow of a pop-up", arrowOfPopup},
        {"arrow of a sorted column", arrowOfHead},
        {"chevron of a split button", chevronOfPart},
        {"branch of an open folder", [] { return branch(true); }},
        {"branch of a closed folder", [] { return branch(false); }}};
    for (const auto& [name, measure] : marks) {
        SCOPED_TRACE(name);
        Host::instance().setScale(1);
        const QSize usual = measure();
        EXPECT_GE(qMax(usual.width(), usual.height()), 7);
        EXPECT_LE(qMax(usual.width(), usual.height()), 16);
        Host::instance().setScale(3);
        const QSize large = measure();
        EXPECT_NEAR(large.width(), 3 * usual.width(), 4);
        EXPECT_NEAR(large.height(), 3 * usual.height(), 4);
    }
}

}  // namespace
