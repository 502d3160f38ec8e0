/// Where things stand, in every window, skin and scale.
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTreeWidget>
#include <QtMath>
#include <algorithm>
#include <set>

#include "tests/looks/CutTexts.h"
#include "tests/looks/EveryWindow.h"
#include "tests/support/Looks.h"
#include "workbench/app/MainWindow.h"
#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace {

using namespace looks_tests;
using testing_support::child;
using testing_support::Lines;
using testing_support::Look;
using testing_support::settle;
using workbench::scaled;

/// Labels whose text may be longer than the window; they end in dots and tell it by their tips.
const QStringList cutOnPurpose = testing_support::sentenceLines;

class Geometry : public testing::TestWithParam<Look> {
  protected:
    Geometry() { testing_support::wear(GetParam()); }
    static void keepPicture(QWidget* window, const char* page, const char* what = "") {
        const QString folder = qEnvironmentVariable("NEWPRO_PICTURES");
        if (folder.isEmpty()) return;
        QDir().mkpath(folder);
        window->grab().save(QStringLiteral("%1/%2%3-%4-%5.png")
                                .arg(folder, QLatin1String(page), QLatin1String(what),
                                     QLatin1String(GetParam().skin))
                                .arg(qRound(GetParam().scale * 100)));
    }
    SampleHost host;
};

/// What has measures has the same ones in every skin.
bool isMeasured(const Look& look) {
    return look.scale == 1 || look.skin == std::string("light");
}

/// @return the widgets that reach beyond their parents, for no reason.
QStringList outsiders(const QWidget* window) {
    QStringList found;
    for (const auto* widget : window->findChildren<QWidget*>()) {
        const auto* parent = widget->parentWidget();
        if (!widget->isVisible() || widget->isWindow() || widget == window) continue;
        // What scrolls is larger than what shows it.
        if (parent->objectName() == QLatin1String("qt_scrollarea_viewport")) continue;
        // The handles beside docks are Qt's own, and wider than the line that is drawn.
        if (widget->objectName() == QLatin1String("qt_qmainwindow_extended_splitter")) continue;
        if (parent->rect().contains(widget->geometry())) continue;
        found << QStringLiteral("%1 %2 in %3")
                     .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(),
                          parent->objectName());
    }
    return found;
}

/// @param reachable whether to count those that have a bar for it.
/// @return scroll areas whose content is wider than what they show.
QStringList sideways(const QWidget* window, bool reachable) {
    QStringList found;
    for (const auto* area : window->findChildren<QScrollArea*>()) {
        const bool bar = area->horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
        if (!area->isVisible() || (bar && !reachable)) continue;
        if (area->widget()->width() > area->viewport()->width())
            found << QLatin1String(area->metaObject()->className());
    }
    return found;
}

/// @return buttons, ticks and fields without a tip whose text is surely cut, and those with one
///         whose text is surely whole.
QStringList untold(const QWidget* window) {
    QStringList found;
    for (auto* widget : window->findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const auto* combo = qobject_cast<QComboBox*>(widget);
        if (!widget->isVisible() || (!button && (!combo || combo->isEditable()))) continue;
        const QString text = button ? button->text() : combo->currentText();
        const int needed = widget->fontMetrics().horizontalAdvance(text);
        const bool told = looks_tests::tipOf(widget, {2, 2}).startsWith(text.toHtmlEscaped());
        // Styled buttons first take a smaller font, down to half the size.
        const bool cut = needed > widget->width() * (qobject_cast<zBaseButton*>(widget) ? 2 : 1);
        const bool whole = needed + scaled(40) < widget->width();
        if (!text.isEmpty() && ((cut && !told) || (whole && told)))
            found << widget->objectName() + QLatin1Char(' ') + text;
    }
    return found;
}

TEST_P(Geometry, NothingIsCutAndNothingOverlaps) {
    for (const Page& page : allPages()) {
        SCOPED_TRACE(page.name);
        const std::unique_ptr<QWidget> window = page.open();
        keepPicture(window.get(), page.name);
        // The design's rows leave up to two pixels less than the tallest sign's ink.
        EXPECT_EQ(testing_support::clippedTexts(window.get(), 2, cutOnPurpose), QStringList());
        EXPECT_EQ(testing_support::overlaps(window.get()), QStringList());
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

std::unique_ptr<QWidget> opened(const std::string& name) {
    const auto& pages = allPages();
    return std::find_if(pages.begin(), pages.end(),
                        [&name](const Page& page) { return page.name == name; })
        ->open();
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
    const std::unique_ptr<QWidget> window = opened("mainWindow");
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

/// Somebody has doubled the font; the sizes of the dialog are given.
TEST_P(Geometry, ADoubledFontIsCutWithDotsAtWorst) {
    for (const Page& page : allPages()) {
        if (page.name == std::string("mainWindow") && !isMeasured(GetParam())) continue;
        SCOPED_TRACE(page.name);
        const std::unique_ptr<QWidget> window = page.open();
        const QFont before = QApplication::font();
        QApplication::setFont(looks_tests::doubled(before));
        settle();
        keepPicture(window.get(), page.name, "-doubled");
        EXPECT_EQ(testing_support::overlaps(window.get()), QStringList());
        EXPECT_EQ(outsiders(window.get()), QStringList());
        EXPECT_EQ(untold(window.get()), QStringList());
        if (isMeasured(GetParam())) {
            EXPECT_EQ(cutWithoutDots(window.get()), QStringList());
        }
        QApplication::setFont(before);
    }
}

class LargeFont : public Geometry {
  protected:
    LargeFont() { QApplication::setFont(doubled); }
    ~LargeFont() override { QApplication::setFont(before); }

    const QFont before = QApplication::font();
    const QFont doubled = looks_tests::doubled(before);
};

/// The same before the window is opened.
TEST_P(LargeFont, IsCutWithDotsAtWorst) {
    for (const Page& page : allPages()) {
        // The window would take up the host's font with its scale.
        if (page.name == std::string("mainWindow") && GetParam().scale != 1) continue;
        SCOPED_TRACE(page.name);
        const std::unique_ptr<QWidget> window = page.open();
        keepPicture(window.get(), page.name, "-large");
        EXPECT_EQ(testing_support::overlaps(window.get()), QStringList());
        EXPECT_EQ(outsiders(window.get()), QStringList());
        EXPECT_EQ(untold(window.get()), QStringList());
        EXPECT_EQ(cutWithoutDots(window.get()), QStringList());
        // The host's own windows have no given size: they grow with the font.
        const QStringList growing = {QStringLiteral("fileDialog"), QStringLiteral("login"),
                                     QStringLiteral("information"), QStringLiteral("critical")};
        if (growing.contains(QLatin1String(page.name))) {
            EXPECT_EQ(testing_support::clippedTexts(window.get(), 2, {}), QStringList());
        }
    }
}

/// The screen here is smaller than any that the dialog fits on.
TEST_P(LargeFont, LeavesTheWindowsOfTheWorkbenchOnTheScreen) {
    if (GetParam().scale != 1) return;
    for (const Page& page : windowsOfTheWorkbench()) {
        SCOPED_TRACE(page.name);
        const std::unique_ptr<QWidget> window = page.open();
        const QSize screen = window->screen()->availableSize();
        EXPECT_EQ(window->size().expandedTo(screen), screen);
        EXPECT_EQ(window->minimumSizeHint().expandedTo(screen), screen);
        window->resize(screen);
        settle();
        EXPECT_EQ(window->size().expandedTo(screen), screen);
        keepPicture(window.get(), page.name, "-small");
        EXPECT_EQ(testing_support::overlaps(window.get()), QStringList());
        EXPECT_EQ(outsiders(window.get()), QStringList());
        EXPECT_EQ(untold(window.get()), QStringList());
        EXPECT_EQ(cutWithoutDots(window.get()), QStringList());
        EXPECT_EQ(sideways(window.get(), false), QStringList());
    }
}

/// @return what a window's parts measure: their fonts, least sizes, columns and rows.
Lines measuresOf(const QWidget* window) {
    Lines found;
    for (const auto* widget : window->findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (!widget->isVisible() || name.isEmpty() || name.startsWith(QLatin1String("qt_")))
            continue;
        const auto* view = qobject_cast<const QTreeView*>(widget);
        // What a view and its dock need at least depends on which of its bars are there.
        const bool scrolls = view || qobject_cast<const QDockWidget*>(widget);
        const QSize least =
            scrolls ? QSize() : widget->minimumSizeHint().expandedTo(widget->minimumSize());
        QString line = QStringLiteral("%1: font %2, at least %3x%4")
                           .arg(name)
                           .arg(QFontInfo(widget->font()).pixelSize())
                           .arg(least.width())
                           .arg(least.height());
        if (view) {
            line += QStringLiteral(", rows %1, columns").arg(view->sizeHintForRow(0));
            for (int i = 0; i < view->header()->count(); ++i)
                if (view->header()->sectionResizeMode(i) == QHeaderView::Interactive &&
                    !(view->header()->stretchLastSection() && i + 1 == view->header()->count()))
                    line += QStringLiteral(" %1").arg(view->header()->sectionSize(i));
        }
        found.push_back(line.toStdString());
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// @return what is in one of them alone; both are sorted.
Lines difference(const Lines& one, const Lines& other) {
    Lines found;
    std::set_symmetric_difference(one.begin(), one.end(), other.begin(), other.end(),
                                  std::back_inserter(found));
    return found;
}

/// @return how the titles of the docks begin, in pictures: Qt draws them in a font of its own.
QVector<QImage> dockTitles(QWidget* window) {
    QVector<QImage> found;
    for (auto* dock : window->findChildren<QDockWidget*>())
        found.append(dock->grab(QRect(0, 0, 150, dock->widget()->y())).toImage());
    return found;
}

TEST_P(LargeFont, IsFollowedByAMainWindowThatIsOpen) {
    if (GetParam().scale != 1) return;  // the window would take up the host's font with its scale
    const auto withNotice = [] {
        std::unique_ptr<QWidget> window = opened("mainWindow");
        static_cast<workbench::MainWindow&>(*window).tellBroken(QStringLiteral("/x"), {});
        settle();
        return window;
    };
    std::unique_ptr<QWidget> first = withNotice();
    const Lines large = measuresOf(first.get());
    const QVector<QImage> largeTitles = dockTitles(first.get());
    first.reset();
    QApplication::setFont(before);
    const std::unique_ptr<QWidget> window = withNotice();
    const Lines usual = measuresOf(window.get());
    ASSERT_GT(usual.size(), 30u);
    QApplication::setFont(doubled);
    settle();
    keepPicture(window.get(), "mainWindow", "-doubled");
    EXPECT_EQ(difference(measuresOf(window.get()), large), Lines());
    EXPECT_EQ(dockTitles(window.get()), largeTitles);
    EXPECT_EQ(outsiders(window.get()), QStringList());
    EXPECT_EQ(untold(window.get()), QStringList());
    EXPECT_EQ(sideways(window.get(), false), QStringList());
    QApplication::setFont(before);
    settle();
    EXPECT_EQ(difference(measuresOf(window.get()), usual), Lines());
}

INSTANTIATE_TEST_SUITE_P(Looks, LargeFont,
                         testing::Values(Look{1, "light"}, Look{1, "dark"}, Look{1, "contrast"},
                                         Look{1.5, "contrast"}, Look{3, "dark"}),
                         testing_support::nameOfLook);

INSTANTIATE_TEST_SUITE_P(Looks, Geometry, testing::ValuesIn(testing_support::allLooks()),
                         testing_support::nameOfLook);

}  // namespace
