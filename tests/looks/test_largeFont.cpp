/// A font of the application that is larger than the host's: what stands beside a text grows with
/// it, and in places of a given height no sign loses its head or foot.
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QStyle>

#include "tests/looks/Contrast.h"
#include "tests/looks/EveryWindow.h"
#include "zBaseControl.h"

namespace {

using looks_tests::inkOf;

class LargerFont : public testing::Test {
  protected:
    ~LargerFont() override { QApplication::setFont(before); }

    void enlarge() {
        QApplication::setFont(looks_tests::doubled(before));
        testing_support::settle();
    }

    looks_tests::SampleHost host;
    const QFont before = QApplication::font();
};

TEST_F(LargerFont, TakesNoSignsHeadOrFoot) {
    enlarge();
    const QString sign = QStringLiteral("国");  // as high as wide, with a line at head and foot
    for (int height = 16; height <= 40; ++height) {
        zBaseLabel label(sign);
        zBaseButton button(sign);
        for (QWidget* widget : QWidgetList{&label, &button}) {
            SCOPED_TRACE(std::string(widget->metaObject()->className()) + std::to_string(height));
            widget->setFixedSize(100, height);
            const QRect ink =
                inkOf(widget->grab().toImage(), widget == &button ? QSize(10, 1) : QSize(0, 0));
            ASSERT_GE(ink.width(), 9);
            EXPECT_NEAR(ink.height(), ink.width() * 1.03, 2);
        }
    }
}

TEST_F(LargerFont, MakesTheMarksBesideATextLarger) {
    constexpr QStyle::PixelMetric marks[] = {
        QStyle::PM_IndicatorWidth, QStyle::PM_IndicatorHeight, QStyle::PM_ExclusiveIndicatorWidth,
        QStyle::PM_HeaderMarkSize, QStyle::PM_SmallIconSize,   QStyle::PM_ListViewIconSize};
    QVector<int> usual;
    for (const auto mark : marks) usual.append(QApplication::style()->pixelMetric(mark));
    enlarge();
    for (int i = 0; i < usual.size(); ++i)
        EXPECT_NEAR(QApplication::style()->pixelMetric(marks[i]), 2 * usual[i], 1) << marks[i];
}

TEST_F(LargerFont, MakesTheArrowOfAFieldLarger) {
    const auto arrowOf = [](QComboBox* field) {
        field->resize(200, 40);
        return inkOf(field->grab().toImage(), {6, 6}).width();
    };
    QComboBox field;
    zBaseCombox styledField;
    for (QComboBox* each : {&field, static_cast<QComboBox*>(&styledField)}) {
        SCOPED_TRACE(each->metaObject()->className());
        const int usual = arrowOf(each);
        ASSERT_GT(usual, 5);
        enlarge();
        EXPECT_GE(arrowOf(each), 2 * usual - 3);
        QApplication::setFont(before);
    }
}

}  // namespace
