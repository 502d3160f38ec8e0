/// Where things stand, in every window, skin and scale.
#include <QAbstractItemView>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTreeWidget>
#include <algorithm>
#include <set>

#include "tests/looks/Geometry.h"
#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace {

using namespace looks_tests;
using testing_support::child;
using testing_support::Look;
using testing_support::settle;
using workbench::scaled;

/// Labels whose text may be longer than the window; they end in dots and tell it by their tips.
const QStringList cutOnPurpose = testing_support::sentenceLines;

TEST_P(Geometry, NothingIsCutAndNothingOverlaps) {
    for (const Page& page : allPages()) {
        SCOPED_TRACE(page.name);
        const std::unique_ptr<QWidget> window = page.open();
        keepPicture(window.get(), page.name);
        // The design's rows leave up to two pixels less than the tallest sign's ink.
        EXPECT_EQ(testing_support::clippedTexts(window.get(), 2, cutOnPurpose), QStringList());
        EXPECT_EQ(testing_support::overlaps(window.get()), QStringList());
        EXPECT_EQ(testing_support::buttonsOverEachOther(window.get()), QStringList());
        EXPECT_EQ(outsiders(window.get()), QStringList());
        EXPECT_EQ(untold(window.get()), QStringList());
        EXPECT_EQ(sideways(window.get(), true), QStringList());
    }
}

TEST_P(Geometry, TheTypesAreOfOneScale) {
    const QVector<int> sizes = {12, 13, 14, 16};
    const QRegularExpression inText(QStringLiteral("font-size:(\\d+)px"));
    for (const Page& page : allPages()) {
        SCOPED_TRACE(page.name);
        const std::unique_ptr<QWidget> window = page.open();
        for (const auto* widget : window->findChildren<QWidget*>()) {
            // The headings of the Excel dialog have ten points, which are neither 13 nor 14 pixels.
            if (!widget->isVisible() || widget->font().pointSize() == scaled(10)) continue;
            const int size = QFontInfo(widget->font()).pixelSize();
            const bool known = std::any_of(sizes.begin(), sizes.end(), [size](int each) {
                return qAbs(scaled(each) - size) <= 1;
            });
            EXPECT_TRUE(known) << widget->metaObject()->className() << " "
                               << widget->objectName().toStdString() << ": " << size;
            const auto* label = qobject_cast<const QLabel*>(widget);
            auto written = inText.globalMatch(label ? label->text() : QString());
            while (written.hasNext()) {
                const int own = written.next().captured(1).toInt();
                EXPECT_TRUE(std::any_of(sizes.begin(), sizes.end(),
                                        [own](int each) { return scaled(each) == own; }))
                    << widget->objectName().toStdString() << ": " << own;
            }
        }
    }
}

TEST_P(Geometry, TheRowsOfTheTreeAreOfOneHeightAndEndWithTheDivider) {
    for (const Page& page : allPages()) {
        if (page.name != std::string("templates")) continue;
        const std::unique_ptr<QWidget> window = page.open();
        auto* tree = child<QTreeWidget>(window.get(), "templateTree");
        int files = 0;
        const auto right = [&window](const QWidget* widget) {
            return widget->mapTo(window.get(), widget->rect().topRight()).x();
        };
        auto* divider = window->findChild<QWidget*>(QStringLiteral("taxPageArea"));
        for (QTreeWidgetItemIterator it(tree); *it; ++it) {
            const int height = tree->visualItemRect(*it).height();
            EXPECT_EQ(height, tree->visualItemRect(tree->topLevelItem(0)).height());
            EXPECT_NEAR(height, scaled(28), 1);
            auto* row = tree->itemWidget(*it, 0);
            for (const auto* button : row->findChildren<zBaseButton*>()) {
                EXPECT_EQ(right(button), right(divider));
                ++files;
            }
        }
        EXPECT_GT(files, 3);
    }
}

/// The dialogs have given sizes; the windows that the workbench adds have a grid of four.
const std::set<std::string> windowsOfTheHost = {"fileDialog", "login", "download",  "information",
                                                "critical",   "about", "mainWindow"};

QVector<int> distancesOf(const QLayout* layout) {
    const QMargins margins = layout->contentsMargins();
    QVector<int> sizes = {margins.left(), margins.top(), margins.right(), margins.bottom()};
    if (const auto* form = qobject_cast<const QFormLayout*>(layout))
        return sizes << form->horizontalSpacing() << form->verticalSpacing();
    if (const auto* grid = qobject_cast<const QGridLayout*>(layout))
        return sizes << grid->horizontalSpacing() << grid->verticalSpacing();
    return sizes << layout->spacing();
}

TEST_P(Geometry, TheWindowsOfTheWorkbenchKeepToAGrid) {
    if (!isMeasured(GetParam())) return;
    for (const Page& page : allPages()) {
        if (!windowsOfTheHost.count(page.name)) continue;
        SCOPED_TRACE(page.name);
        const std::unique_ptr<QWidget> window = page.open();
        int layouts = 0;
        for (const auto* layout : window->findChildren<QLayout*>()) {
            const bool known = qobject_cast<const QBoxLayout*>(layout) ||
                               qobject_cast<const QFormLayout*>(layout) ||
                               qobject_cast<const QGridLayout*>(layout);
            if (!known || qobject_cast<QStatusBar*>(layout->parentWidget())) continue;
            for (const int size : distancesOf(layout))
                EXPECT_EQ(size % scaled(4), 0)
                    << layout->metaObject()->className() << " of "
                    << layout->parentWidget()->objectName().toStdString() << " "
                    << layout->parentWidget()->metaObject()->className() << ": " << size;
            ++layouts;
        }
        EXPECT_GT(layouts, 1);
    }
}

TEST_P(Geometry, TheLastCardIsShownWhole) {
    const std::unique_ptr<QWidget> window = allPages().front().open();
    auto* area = child<QScrollArea>(window.get(), "taxPageArea");
    ASSERT_GT(area->verticalScrollBar()->maximum(), 0);
    const int row = scaled(80);
    EXPECT_EQ(area->viewport()->height() % row, 0);
    EXPECT_EQ(area->verticalScrollBar()->maximum() % row, 0);
    EXPECT_GT(area->viewport()->height() + row, area->height());
}

bool isOfControlHeight(const QWidget* widget) {
    const auto* push = qobject_cast<const QPushButton*>(widget);
    const bool place = widget->objectName().startsWith(QLatin1String("place"));  // a tall row
    const bool inList = qobject_cast<QComboBox*>(widget->parentWidget());
    return (push && !place) || qobject_cast<const QComboBox*>(widget) ||
           (qobject_cast<const QLineEdit*>(widget) && !inList);
}

TEST_P(Geometry, FieldsListsAndButtonsAreOfOneHeightAndSoAreTheHeadsOfLists) {
    if (!isMeasured(GetParam())) return;
    int controls = 0;
    std::set<int> heads, rows;
    for (const Page& page : allPages()) {
        if (!windowsOfTheHost.count(page.name)) continue;
        SCOPED_TRACE(page.name);
        const std::unique_ptr<QWidget> window = page.open();
        for (auto* widget : window->findChildren<QWidget*>()) {
            if (auto* view = qobject_cast<QTreeView*>(widget)) {
                heads.insert(view->header()->height());
                if (view->model()->rowCount()) rows.insert(view->sizeHintForRow(0));
            }
            if (auto* combo = qobject_cast<QComboBox*>(widget))
                rows.insert(combo->view()->sizeHintForRow(0));
            if (!widget->isVisible() || !isOfControlHeight(widget)) continue;
            const auto expect = [&](const char* how) {
                EXPECT_EQ(widget->height(), scaled(28))
                    << widget->objectName().toStdString() << " " << how;
            };
            expect("as it opens");
            ++controls;
            if (!qobject_cast<QLineEdit*>(widget)) continue;
            widget->hasFocus() ? widget->clearFocus() : widget->setFocus();
            settle();
            expect("with or without the focus");
        }
    }
    EXPECT_GT(controls, 24);
    EXPECT_EQ(heads.size(), 1u) << testing::PrintToString(heads);
    EXPECT_EQ(rows, std::set<int>{scaled(28)});
}

/// A caption stands beside the first line of what it names.
TEST_P(Geometry, CaptionsStandBesideTheFirstLine) {
    const std::unique_ptr<QWidget> window = pageNamed("mainWindow").open();
    const auto* details = child<QLabel>(window.get(), "detailFile")->parentWidget();
    const auto* form = details->findChild<QFormLayout*>();
    bool wrapped = false;
    for (int row = 0; row < form->rowCount(); ++row) {
        const auto* caption =
            static_cast<QLabel*>(form->itemAt(row, QFormLayout::LabelRole)->widget());
        const auto* text =
            static_cast<QLabel*>(form->itemAt(row, QFormLayout::FieldRole)->widget());
        EXPECT_EQ(caption->y(), text->y());
        EXPECT_TRUE(caption->alignment() & text->alignment() & Qt::AlignTop);
        wrapped |= text->height() > 1.5 * text->fontMetrics().height();
    }
    EXPECT_TRUE(wrapped) << "one of them has several lines";
}

INSTANTIATE_TEST_SUITE_P(Looks, Geometry, testing::ValuesIn(testing_support::allLooks()),
                         testing_support::nameOfLook);

}  // namespace
