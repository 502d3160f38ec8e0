/// Texts that are too long: the dots that they end in, and the tips that tell them whole.
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTreeWidget>

#include "core/ElidedLabel.h"
#include "tests/looks/CutTexts.h"
#include "tests/looks/EveryWindow.h"
#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace {

using looks_tests::tipOf;
using testing_support::settle;

const QString chinese = QStringLiteral("适用于四川省行政区域内一般计税方法的房屋建筑工程");
const QString latin = QStringLiteral("applies to buildings in the whole of the province");

/// @return the rows of the ink of the last sign, from the foot of the picture.
QPair<int, int> inkOfLastSign(const QImage& picture) {
    const QRgb ground = picture.pixel(0, 0);
    int right = picture.width() - 1;
    const auto inked = [&](int x, int y) { return picture.pixel(x, y) != ground; };
    const auto anyInk = [&](int x) {
        for (int y = 0; y < picture.height(); ++y)
            if (inked(x, y)) return true;
        return false;
    };
    while (right > 0 && !anyInk(right)) --right;
    QPair<int, int> rows(picture.height(), -1);
    for (int y = 0; y < picture.height(); ++y)
        if (inked(right, y)) rows = {qMin(rows.first, y), qMax(rows.second, y)};
    return rows;
}

class Dots : public testing::Test {
  protected:
    looks_tests::SampleHost host;
};

TEST_F(Dots, AreTheSameBehindEveryScript) {
    QVector<QPair<int, int>> found;
    for (const QString& text : {chinese, latin, chinese + latin}) {
        newpro::ElidedLabel ofTheDialog(text, Qt::ElideRight, nullptr);
        zBaseLabel ofTheHost(text);
        for (QWidget* widget : QWidgetList{&ofTheDialog, &ofTheHost}) {
            widget->resize(150, 30);
            found.append(inkOfLastSign(widget->grab().toImage()));
        }
    }
    for (const auto& rows : found) {
        EXPECT_NEAR(rows.first, found.first().first, 1);
        EXPECT_NEAR(rows.second, found.first().second, 1);
        EXPECT_LT(rows.second - rows.first, 5) << "that is no dot";
    }
}

TEST_F(Dots, AreFoundOnlyWhereTheyAre) {
    const auto dotted = [](QWidget* label, int width) {
        label->resize(width, 30);
        return looks_tests::hasDots(label, label->rect());
    };
    for (const QString& text : {chinese, latin}) {
        newpro::ElidedLabel ofTheDialog(text, Qt::ElideMiddle, nullptr);
        zBaseLabel ofTheHost(text);
        QLabel plain(text);
        for (QWidget* label : QWidgetList{&ofTheDialog, &ofTheHost}) {
            EXPECT_TRUE(dotted(label, 150)) << text.toStdString();
            EXPECT_FALSE(dotted(label, 600));
        }
        EXPECT_FALSE(dotted(&plain, 150));
    }
}

TEST_F(Dots, AreNotInAListOfChoiceThatIsAsWideAsItWants) {
    for (const double scale : {1.0, 3.0}) {
        workbench::Host::instance().setScale(scale);
        QComboBox plain;
        plain.addItem(chinese);
        zBaseCombox styled;
        styled.addItem(chinese);
        for (QComboBox* field : {&plain, static_cast<QComboBox*>(&styled)}) {
            const QSize wanted = field->sizeHint();
            const auto dots = [&](int width) {
                field->resize(width, wanted.height());
                const int border = workbench::scaled(4);
                return looks_tests::hasDots(
                    field, field->rect().adjusted(0, border, -workbench::roomFor(24), -border));
            };
            EXPECT_FALSE(dots(wanted.width())) << scale;
            EXPECT_TRUE(dots(wanted.width() / 2)) << scale;
        }
    }
}

TEST_F(Dots, OfListsAreThoseOfLabels) {
    QVector<QPair<int, int>> found;
    for (const QString& text : {chinese, latin}) {
        QTreeWidget list;
        list.setHeaderHidden(true);
        list.setRootIsDecorated(false);
        list.setFrameShape(QFrame::NoFrame);
        list.setFocusPolicy(Qt::NoFocus);
        list.addTopLevelItem(new QTreeWidgetItem({text}));
        list.resize(150, 60);
        list.show();
        settle();
        found.append(inkOfLastSign(list.viewport()->grab(QRect(0, 0, 145, 28)).toImage()));
    }
    EXPECT_EQ(found[0], found[1]);
    EXPECT_LT(found[0].second - found[0].first, 5);
}

TEST_F(Dots, ATipIsShownOnlyWhereATextIsCut) {
    newpro::ElidedLabel label(chinese, Qt::ElideRight, nullptr);
    label.setToolTip(chinese);
    label.resize(100, 30);
    label.show();
    settle();
    EXPECT_EQ(tipOf(&label, {5, 5}), chinese);
    label.resize(800, 30);
    settle();
    EXPECT_EQ(tipOf(&label, {5, 5}), QString());
    zBaseLabel withoutTip(latin);
    withoutTip.resize(60, 30);
    withoutTip.show();
    settle();
    EXPECT_EQ(tipOf(&withoutTip, {5, 5}), latin);
}

/// Buttons, ticks and fields with a list, the styled ones and Qt's.
TEST_F(Dots, AControlHasATipOfItsTextOnlyWhereItIsCut) {
    const auto check = [](QWidget* control) {
        SCOPED_TRACE(control->metaObject()->className());
        control->resize(70, 30);
        control->show();
        settle();
        EXPECT_EQ(tipOf(control, {5, 5}), latin);
        control->setToolTip(chinese);
        EXPECT_EQ(tipOf(control, {5, 5}), latin + QStringLiteral("<br>") + chinese);
        control->resize(800, 30);
        settle();
        EXPECT_EQ(tipOf(control, {5, 5}), chinese);
        control->setToolTip(QString());
        EXPECT_EQ(tipOf(control, {5, 5}), QString());
    };
    zBaseButton styledButton(latin);
    QPushButton button(latin);
    QCheckBox tick(latin);
    QComboBox field;
    field.addItem(latin);
    zBaseCombox styledField;
    styledField.addItem(latin);
    for (QWidget* control : QWidgetList{&styledButton, &button, &tick, &field, &styledField})
        check(control);
}

TEST_F(Dots, ARowOfAListHasATipOnlyWhereItIsCut) {
    QTreeWidget list;
    list.setColumnCount(1);
    list.addTopLevelItem(new QTreeWidgetItem({latin}));
    list.addTopLevelItem(new QTreeWidgetItem({QStringLiteral("a")}));
    list.topLevelItem(1)->setToolTip(0, QStringLiteral("a"));
    list.resize(150, 200);
    list.show();
    settle();
    const auto place = [&list](int row) {
        return list.visualItemRect(list.topLevelItem(row)).center();
    };
    EXPECT_EQ(tipOf(list.viewport(), place(0)), latin);
    EXPECT_EQ(tipOf(list.viewport(), place(1)), QString());
}

}  // namespace
