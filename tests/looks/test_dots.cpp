/// Texts that are too long: the dots that they end in, and the tips that tell them whole.
#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QPushButton>
#include <QToolButton>
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

TEST_F(Dots, AreTheSameBehindEveryScriptInLabelsAndControls) {
    QVector<QPair<int, int>> found;
    for (const QString& text : {chinese, latin, chinese + latin}) {
        newpro::ElidedLabel ofTheDialog(text, Qt::ElideRight, nullptr);
        zBaseLabel ofTheHost(text);
        zBaseButton styledButton(text);
        QPushButton button(text);
        QCheckBox tick(text);
        zBaseCombox styledField;
        styledField.addItem(text);
        QComboBox field;
        field.addItem(text);
        const struct {
            QWidget* widget;
            int behind;  // of the text: a border, an arrow
        } rows[] = {{&ofTheDialog, 0}, {&ofTheHost, 0},    {&styledButton, 2}, {&button, 2},
                    {&tick, 0},        {&styledField, 24}, {&field, 24}};
        for (const auto& row : rows) {
            SCOPED_TRACE(row.widget->metaObject()->className());
            row.widget->resize(150, 30);
            const QImage picture = row.widget->grab(QRect(4, 3, 146 - row.behind, 24)).toImage();
            const auto dots = inkOfLastSign(picture);
            found.append(dots);
            EXPECT_NEAR(dots.first, found.first().first, 1);
            EXPECT_NEAR(dots.second, found.first().second, 1);
            EXPECT_LT(dots.second - dots.first, 5) << "that is no dot";
        }
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

TEST_F(Dots, OfAListOfChoiceLeaveTheNamesOfFiles) {
    QVector<QImage> rows;
    for (const char* name : {"一号楼", "二号楼"}) {
        zBaseCombox field;
        field.addItem(QStringLiteral("/home/用户/工程/某市/某区/某街道/某住宅小区/%1.GCFX")
                          .arg(QString::fromUtf8(name)));
        field.resize(200, 28);
        field.show();
        field.showPopup();
        settle();
        QWidget* list = field.view()->viewport();
        EXPECT_TRUE(looks_tests::hasDots(list, list->rect()));
        rows.append(list->grab().toImage());
    }
    EXPECT_NE(rows[0], rows[1]);
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

/// @return the foot of a picture: the last line of what stands in it.
QImage footOf(QWidget* widget, int height) {
    const QImage picture = widget->grab().toImage();
    return picture.copy(0, picture.height() - height, picture.width(), height);
}

TEST_F(Dots, OfATextOfSeveralLinesStandInTheLastOneThatHasRoom) {
    for (const QString& text : {chinese, latin, chinese + QLatin1Char('\n') + latin}) {
        zBaseLabel label(text.repeated(3));
        label.setWordWrap(true);
        label.setContentsMargins(1, 1, 1, 1);
        label.resize(150, 22);
        label.show();
        settle();
        const auto rows = inkOfLastSign(footOf(&label, 11));
        EXPECT_LT(rows.second - rows.first, 3) << "that is no dot";
        EXPECT_EQ(tipOf(&label, {5, 5}), text.repeated(3).toHtmlEscaped());
        label.resize(800, 200);
        settle();
        EXPECT_EQ(tipOf(&label, {5, 5}), QString());
    }
}

TEST_F(Dots, OfHeadersAreThoseOfLabels) {
    QVector<QPair<int, int>> found;
    for (const QString& text : {chinese, latin}) {
        QTreeWidget list;
        list.setHeaderLabels({text, QString()});
        list.header()->resizeSection(0, 150);
        list.resize(400, 60);
        list.show();
        settle();
        QWidget* header = list.header()->viewport();
        found.append(inkOfLastSign(header->grab(QRect(5, 4, 140, 18)).toImage()));
        EXPECT_EQ(tipOf(header, {20, 5}), text);
        list.header()->resizeSection(0, 390);
        EXPECT_EQ(tipOf(header, {20, 5}), QString());
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

TEST_F(Dots, ATipDoesNotRepeatATextThatIsWhole) {
    zBaseButton styledButton(latin);
    QPushButton button(latin);
    QCheckBox tick(latin);
    QToolButton tool;
    tool.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tool.setText(latin);
    for (QWidget* control : QWidgetList{&styledButton, &button, &tick, &tool}) {
        SCOPED_TRACE(control->metaObject()->className());
        control->resize(800, 30);
        control->show();
        settle();
        control->setToolTip(latin);
        EXPECT_EQ(tipOf(control, {5, 5}), QString());
        control->setToolTip(chinese);
        EXPECT_EQ(tipOf(control, {5, 5}), chinese);
    }
    tool.setToolButtonStyle(Qt::ToolButtonIconOnly);
    tool.setToolTip(latin);
    EXPECT_EQ(tipOf(&tool, {5, 5}), latin) << "nothing else names it";
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
