/// Every window by its keys: where Tab leads, what shows the way, and what Escape does.
#include <QAccessible>

#include "tests/looks/EveryWindow.h"

namespace {

using namespace looks_tests;
using testing_support::settle;

void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window.focusWidget(), key, modifiers);
    settle();
}

/// @return where Tab leads, from the place that has the keys until it comes back to it.
QVector<QWidget*> stopsOf(QWidget& window) {
    QVector<QWidget*> stops;
    for (QWidget* stop = window.focusWidget(); stop && !stops.contains(stop);
         stop = window.focusWidget()) {
        stops.append(stop);
        press(window, Qt::Key_Tab);
    }
    EXPECT_FALSE(stops.isEmpty());
    return stops;
}

/// @return what a reader calls it.
QString nameOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

/// @return whether it is a button of a card or of a row.
bool isInRow(const QWidget* stop) {
    for (const QWidget* around = stop->parentWidget(); around; around = around->parentWidget())
        if (around->inherits("QAbstractItemView")) return true;
    return false;
}

/// @return the stops but for those in rows.
QStringList namesOf(const QVector<QWidget*>& stops) {
    QStringList names;
    for (QWidget* stop : stops)
        if (!isInRow(stop)) names.append(nameOf(stop));
    return names;
}

class Keys : public testing::TestWithParam<Page> {
  protected:
    Keys() { testing_support::clearJournal(); }
    SampleHost host;
};

TEST_P(Keys, TabLeadsToEverythingThatTakesThem_AndBackTabTheOtherWay) {
    const std::unique_ptr<QWidget> window = withKeys(GetParam());
    const QVector<QWidget*> stops = stopsOf(*window);
    EXPECT_EQ(window->focusWidget(), stops.first());
    for (auto* widget : window->findChildren<QWidget*>()) {
        const bool takesKeys = widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy();
        if (!takesKeys || !widget->isVisible() || !widget->isEnabled()) continue;
        EXPECT_TRUE(stops.contains(widget))
            << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
    QStringList back;
    while (back.size() < stops.size()) {
        press(*window, Qt::Key_Backtab, Qt::ShiftModifier);
        back.prepend(nameOf(window->focusWidget()));
        if (window->focusWidget() == stops.first()) break;
    }
    // A list of cards is one stop; from behind, its row is not gone through.
    EXPECT_EQ(back, namesOf(stops));
}

TEST_P(Keys, EscapeClosesADialogFromEveryStop) {
    if (std::string(GetParam().name) == "mainWindow") return;  // it is no dialog
    const int count = stopsOf(*withKeys(GetParam())).size();
    for (int steps = 0; steps < count; ++steps) {
        const std::unique_ptr<QWidget> window = withKeys(GetParam());
        for (int i = 0; i < steps; ++i) press(*window, Qt::Key_Tab);
        const QString stop = nameOf(window->focusWidget());
        press(*window, Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible()) << stop.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Looks, Keys, testing::ValuesIn(allPages()), nameOfPage);

/// From top to bottom as they are read, from the place where the work begins.
TEST(KeysOfDialogs, TabGoesInTheOrderOfReading) {
    testing_support::clearJournal();
    const SampleHost host;
    const struct {
        const char* page;
        const char* names;
    } rows[] = {{"general", "一般计税的计价模型 一般计税 简易计税 营业税 模板工程"},
                {"audit", "待审工程文件 浏览 新建审核"},
                {"contracting", "预算工程 工程文件 浏览 新建总承包 一般计税 简易计税 模板工程"},
                {"chooser", "预算工程 总承包工程 取消"},
                {"excel", "计价模式 选择文件 选择文件夹"},
                {"fileDialog",
                 "文件列表 文件名 文件类型 打开 取消 位置：工程文件夹 位置：本机 上一级 路径"},
                {"login", "密码 登录 取消 账号"},
                {"information", "确定 取消"},
                {"about", "关闭 复制版本信息"}};
    for (const auto& row : rows) {
        const std::unique_ptr<QWidget> window = withKeys(pageNamed(row.page));
        EXPECT_EQ(namesOf(stopsOf(*window)).join(QLatin1Char(' ')), QString::fromUtf8(row.names))
            << row.page;
    }
}

TEST(KeysOfDialogs, OnOpeningItIsSeenWhereTheyGo) {
    testing_support::clearJournal();
    const SampleHost host;
    for (const char* page :
         {"general", "audit", "chooser", "excel", "login", "information", "critical", "about"}) {
        const std::unique_ptr<QWidget> window = withKeys(pageNamed(page));
        QWidget* stop = window->focusWidget();
        ASSERT_TRUE(stop) << page;
        const QImage with = window->grab().toImage();
        stop->clearFocus();
        EXPECT_NE(window->grab().toImage(), with) << page << " " << nameOf(stop).toStdString();
    }
}

}  // namespace
