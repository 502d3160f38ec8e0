// Somebody has doubled the application's font, before a window opens or after.
#include <QApplication>
#include <QDockWidget>
#include <QHeaderView>
#include <QScreen>
#include <QTreeView>
#include <algorithm>

#include "tests/looks/CutTexts.h"
#include "tests/looks/Geometry.h"
#include "workbench/app/MainWindow.h"

namespace {

using namespace looks_tests;
using testing_support::Lines;
using testing_support::Look;
using testing_support::settle;

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
        EXPECT_EQ(testing_support::buttonsOverEachOther(window.get()), QStringList());
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
        EXPECT_EQ(testing_support::buttonsOverEachOther(window.get()), QStringList());
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
        EXPECT_EQ(testing_support::buttonsOverEachOther(window.get()), QStringList());
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
        std::unique_ptr<QWidget> window = pageNamed("mainWindow").open();
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

}  // namespace
