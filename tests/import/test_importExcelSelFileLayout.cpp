#include "import/importExcelSelFile.h"

#include <QLabel>
#include <QLayout>

#include "tests/import/ExcelSelection.h"
#include "tests/support/Looks.h"
#include "tests/support/StyleOf.h"

namespace {

using namespace testing_support;

TEST_F(ExcelSelection, scales_every_size) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        workbench::Host::instance().setScale(scale);
        importExcelSelFile dialog(nullptr);
        const auto px = [&](int design) { return qRound(design * scale); };
        dialog.show();
        settle();
        EXPECT_EQ(dialog.size(), QSize(px(580), px(420)));
        EXPECT_EQ(budget(dialog)->size(), QSize(px(140), px(36)));
        EXPECT_EQ(budget(dialog)->sizePolicy(),
                  QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
        EXPECT_EQ(combo(dialog)->size(), QSize(px(490), px(32)));
        EXPECT_EQ(combo(dialog)->parentWidget()->size(), QSize(px(540), px(62)));
        EXPECT_EQ(dialog.layout()->contentsMargins(), QMargins(px(25), px(20), px(25), px(25)));
        EXPECT_EQ(dialog.layout()->spacing(), px(20));
        for (const char* name : {"btnSelFile", "btnSelDir"}) {
            EXPECT_EQ(child<zBaseButton>(&dialog, name)->size(), QSize(px(100), px(27)));
        }
    }
}

TEST_F(ExcelSelection, shows_all_of_its_texts_at_every_scale) {
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        workbench::Host::instance().setScale(scale);
        importExcelSelFile dialog(nullptr);
        dialog.show();
        settle();
        QStringList texts;
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (!label->isVisible() || label->text().isEmpty()) continue;
            texts += label->text();
            const QRect place(label->mapTo(&dialog, QPoint()), label->size());
            EXPECT_TRUE(dialog.rect().contains(place)) << label->text().toStdString();
            if (label->wordWrap()) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
                continue;
            }
            EXPECT_GE(label->height(), label->sizeHint().height()) << label->text().toStdString();
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        }
        for (const char* expected :
             {"选择工程类型及计价模式", "预算工程", "选择Excel数据源", "文件格式",
              "以单个Excel文件形式存放的数据源，支持xls、xlsx格式", "文件夹格式",
              "按工程树结构建立多层文件夹分别存放相应报表的多Excel文件数据源"}) {
            EXPECT_TRUE(texts.contains(QString::fromUtf8(expected))) << expected;
        }
        EXPECT_FALSE(texts.contains(QStringLiteral("总承包工程")));
        EXPECT_EQ(child<zBaseButton>(&dialog, "btnSelFile")->text(), QStringLiteral("选择文件"));
        EXPECT_EQ(child<zBaseButton>(&dialog, "btnSelDir")->text(), QStringLiteral("选择文件夹"));
    }
}

TEST_F(ExcelSelection, has_the_contracting_tile_at_the_right_of_the_budget_tile) {
    importExcelSelFile dialog(nullptr);
    dialog.show();
    contracting(dialog)->show();
    settle();
    const QRect left = budget(dialog)->geometry();
    EXPECT_EQ(contracting(dialog)->geometry().topLeft(), left.topRight() + QPoint(1 + 10, 0));
}

TEST_F(ExcelSelection, writes_both_headings_in_one_font) {
    const importExcelSelFile dialog(nullptr);
    for (const char* text : {"选择工程类型及计价模式", "选择Excel数据源"}) {
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (label->text() != QString::fromUtf8(text)) continue;
            EXPECT_EQ(label->font().pointSize(), 10);
            EXPECT_EQ(label->font().weight(), QFont::Bold);
            EXPECT_EQ(label->font().family(), QLabel().font().family());
        }
    }
}

TEST_F(ExcelSelection, gives_every_interactive_widget_an_accessible_name) {
    const importExcelSelFile dialog(nullptr);
    for (const char* name : {"m_pJjmsCombo", "btnSelFile", "btnSelDir", "ysTile", "zcbTile"}) {
        EXPECT_FALSE(child<QWidget>(&dialog, name)->accessibleName().isEmpty()) << name;
    }
}

/// @return the layout within `outer` that holds `widget` itself.
const QLayout* layoutOf(const QLayout* outer, const QWidget* widget) {
    for (int i = 0; i < outer->count(); ++i) {
        if (outer->itemAt(i)->widget() == widget) return outer;
        const QLayout* inner = outer->itemAt(i)->layout();
        if (const QLayout* found = inner ? layoutOf(inner, widget) : nullptr) return found;
    }
    return nullptr;
}

const QLabel* labelOf(const QWidget& dialog, const char* text) {
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        if (label->text() == QString::fromUtf8(text)) return label;
    }
    ADD_FAILURE() << "no label " << text;
    return nullptr;
}

TEST_F(ExcelSelection, has_the_margins_and_spacings_of_the_design) {
    for (const double scale : {1.0, 2.0}) {
        SCOPED_TRACE(scale);
        workbench::Host::instance().setScale(scale);
        const importExcelSelFile dialog(nullptr);
        const auto px = [&](int design) { return qRound(design * scale); };
        const QMargins rowMargins(px(25), px(5), px(35), px(5));
        const struct {
            const char* button;
            const char* title;
            const char* text;
            const char* picture;
        } rows[] = {{"btnSelFile", "文件格式", "以单个Excel文件形式存放的数据源，支持xls、xlsx格式",
                     ":/Image/Home/ExcelFile.svg"},
                    {"btnSelDir", "文件夹格式",
                     "按工程树结构建立多层文件夹分别存放相应报表的多Excel文件数据源",
                     ":/Image/Home/ExcelDir.svg"}};
        for (const auto& row : rows) {
            SCOPED_TRACE(row.title);
            const auto* button = child<zBaseButton>(&dialog, row.button);
            const QLayout* line = layoutOf(dialog.layout(), button);
            ASSERT_TRUE(line);
            EXPECT_EQ(line->contentsMargins(), rowMargins);
            EXPECT_EQ(line->spacing(), px(10));
            ASSERT_EQ(line->count(), 3);
            auto* picture = qobject_cast<zBaseLabel*>(line->itemAt(0)->widget());
            ASSERT_TRUE(picture);
            EXPECT_EQ(StyleOf::widget(picture).picture, QLatin1String(row.picture));
            EXPECT_EQ(StyleOf::widget(picture).pictureSize, QSize(px(32), px(32)));
            EXPECT_EQ(picture->minimumSize(), QSize(px(32), px(32)));
            EXPECT_EQ(picture->maximumSize(), QSize(px(32), px(32)));
            const QLayout* texts = line->itemAt(1)->layout();
            ASSERT_TRUE(texts);
            EXPECT_EQ(texts->spacing(), px(5));
            EXPECT_EQ(texts->itemAt(0)->widget(), labelOf(dialog, row.title));
            EXPECT_EQ(texts->itemAt(1)->widget(), labelOf(dialog, row.text));
            EXPECT_EQ(line->itemAt(2)->widget(), button);
        }
    }
}

TEST_F(ExcelSelection, has_tiles_of_a_picture_and_a_text) {
    for (const double scale : {1.0, 2.0}) {
        SCOPED_TRACE(scale);
        workbench::Host::instance().setScale(scale);
        const importExcelSelFile dialog(nullptr);
        const auto px = [&](int design) { return qRound(design * scale); };
        const struct {
            const zBaseWidget* tile;
            const char* picture;
            const char* text;
        } rows[] = {{budget(dialog), ":/Image/Home/ys.svg", "预算工程"},
                    {contracting(dialog), ":/Image/Home/zcb.svg", "总承包工程"}};
        for (const auto& row : rows) {
            SCOPED_TRACE(row.text);
            EXPECT_EQ(row.tile->minimumSize(), QSize(px(140), px(36)));
            EXPECT_EQ(row.tile->maximumSize(), QSize(px(140), px(36)));
            const QLayout* layout = row.tile->layout();
            EXPECT_EQ(layout->contentsMargins().left(), px(25));
            EXPECT_EQ(layout->spacing(), px(4));
            EXPECT_EQ(layout->alignment(), Qt::AlignCenter);
            auto* picture = qobject_cast<zBaseLabel*>(layout->itemAt(0)->widget());
            ASSERT_TRUE(picture);
            EXPECT_EQ(StyleOf::widget(picture).picture, QLatin1String(row.picture));
            EXPECT_EQ(layout->itemAt(1)->widget(), labelOf(dialog, row.text));
        }
    }
}

class ExcelSelectionLooks : public ExcelSelection, public testing::WithParamInterface<Look> {};

TEST_P(ExcelSelectionLooks, show_every_text_whole) {
    wear(GetParam());
    importExcelSelFile dialog(nullptr);
    dialog.show();
    expectLooksRight(&dialog, "excel-selection", GetParam());
    contracting(dialog)->show();
    click(contracting(dialog));
    expectLooksRight(&dialog, "excel-selection-contracting", GetParam());
}

INSTANTIATE_TEST_SUITE_P(Looks, ExcelSelectionLooks, testing::ValuesIn(allLooks()), nameOfLook);

}  // namespace
