#include <QBoxLayout>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>
#include <memory>

#include "core/styleCodes.h"
#include "tests/import/TemplateCard.h"
#include "tests/support/StyleOf.h"

namespace {

using namespace testing_support;

TEST_F(TemplateCard, consists_of_the_named_objects) {
    const TemplateProListItem card(file);
    EXPECT_EQ(card.objectName(), QStringLiteral("TemplateProListItem"));
    EXPECT_EQ(card.windowTitle(), QStringLiteral("Form"));
    for (const char* name : {"lblTitle", "lblDescription", "lblPath", "label_2", "label"}) {
        EXPECT_TRUE(child<zBaseLabel>(&card, name)) << name;
    }
    EXPECT_EQ(newButton(&card)->text(), QStringLiteral("新建"));
    for (const char* name : {"verticalLayout_3", "verticalLayout_2"}) {
        EXPECT_TRUE(child<QVBoxLayout>(&card, name)) << name;
    }
    EXPECT_TRUE(child<QHBoxLayout>(&card, "horizontalLayout_2"));
}

TEST_F(TemplateCard, has_its_button_behind_its_title) {
    TemplateProListItem card(file);
    card.resize(500, 80);
    card.show();
    settle();
    const auto* title = child<zBaseLabel>(&card, "lblTitle");
    EXPECT_GT(newButton(&card)->geometry().left(), title->geometry().right());
}

TEST_F(TemplateCard, has_its_lines_in_the_order_of_the_design) {
    const TemplateProListItem card(file);
    const auto* lines = child<QVBoxLayout>(&card, "verticalLayout_2");
    QStringList names;
    for (int i = 0; i < lines->count(); ++i) names << lines->itemAt(i)->widget()->objectName();
    EXPECT_EQ(names.join(QLatin1Char(' ')), QStringLiteral("lblDescription lblPath label_2 label"));
}

TEST_F(TemplateCard, scales_every_size_but_the_style_s_own_margins) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        workbench::Host::instance().setScale(scale);
        const TemplateProListItem card(file);
        const auto px = [&](int design) { return qRound(design * scale); };
        EXPECT_EQ(card.size(), QSize(px(561), px(100)));
        const auto* outer = child<QVBoxLayout>(&card, "verticalLayout_3");
        EXPECT_EQ(outer->spacing(), px(6));
        EXPECT_EQ(outer->contentsMargins(), QMargins(0, px(5), 0, px(10)));
        // A row within a layout has no margins of its own where the style decides.
        EXPECT_EQ(child<QHBoxLayout>(&card, "horizontalLayout_2")->contentsMargins(),
                  QMargins(px(8), 0, 0, 0));
        EXPECT_EQ(child<QVBoxLayout>(&card, "verticalLayout_2")->contentsMargins(),
                  QMargins(px(8), 0, px(8), 0));
        EXPECT_EQ(child<QVBoxLayout>(&card, "verticalLayout_2")->spacing(), px(3));
        EXPECT_EQ(child<QLabel>(&card, "lblTitle")->minimumSize(), QSize(px(5), 0));
        EXPECT_EQ(newButton(&card)->minimumWidth(), px(50));
        EXPECT_EQ(newButton(&card)->maximumSize(), QSize(px(50), QWIDGETSIZE_MAX));
    }
}

TEST_F(TemplateCard, of_a_path_shows_title_information_and_folder) {
    const TemplateProListItem card(file);
    EXPECT_EQ(text(&card, "lblTitle"), QStringLiteral("住宅楼.v2"));
    EXPECT_EQ(child<QLabel>(&card, "lblTitle")->toolTip(),
              QStringLiteral("<span>住宅楼.v2.MODX</span>"));
    EXPECT_EQ(text(&card, "lblPath"),
              QStringLiteral("路径：") + installation.path(QStringLiteral("MBSC/kvys")));
    EXPECT_FALSE(child<QLabel>(&card, "lblDescription")->isHidden());
    EXPECT_FALSE(child<QLabel>(&card, "lblPath")->isHidden());
    EXPECT_TRUE(child<QLabel>(&card, "label")->isHidden());
    EXPECT_TRUE(child<QLabel>(&card, "label_2")->isHidden());
}

TEST_F(TemplateCard, tells_whole_kilobytes_and_the_minute_of_the_last_change) {
    const struct {
        int bytes;
        const char* line;
    } table[] = {{0, "信息：0kb 2024-02-09 07:05"},    {1023, "信息：0kb 2024-02-09 07:05"},
                 {1024, "信息：1kb 2024-02-09 07:05"}, {2047, "信息：1kb 2024-02-09 07:05"},
                 {2048, "信息：2kb 2024-02-09 07:05"}, {1024000, "信息：1000kb 2024-02-09 07:05"}};
    for (const auto& row : table) {
        const QString path =
            installation.write(QStringLiteral("a.MODX"), QByteArray(row.bytes, 'x'));
        QFile changed(path);
        ASSERT_TRUE(changed.open(QIODevice::ReadWrite));
        ASSERT_TRUE(changed.setFileTime(QDateTime(QDate(2024, 2, 9), QTime(7, 5, 59)),
                                        QFileDevice::FileModificationTime));
        changed.close();
        const TemplateProListItem card(path);
        EXPECT_EQ(text(&card, "lblDescription"), QString::fromUtf8(row.line)) << row.bytes;
    }
}

TEST_F(TemplateCard, words_its_lines_as_the_area_wants_them) {
    const struct {
        const char* area;
        const char* information;
        const char* folder;
    } table[] = {{"", "信息：2kb ", "路径："},
                 {"SC", "信息：2kb ", "路径："},
                 {"jl", "信息：2kb ", "路径："},
                 {"JL", "文件信息：2kb ", "文件路径："},
                 {"2024JL-1", "文件信息：2kb ", "文件路径："}};
    for (const auto& row : table) {
        installation.switches().areaConfig.insert(QStringLiteral("AreaVer"),
                                                  QString::fromUtf8(row.area));
        const TemplateProListItem card(file);
        EXPECT_TRUE(text(&card, "lblDescription").startsWith(QString::fromUtf8(row.information)))
            << row.area;
        EXPECT_TRUE(text(&card, "lblPath").startsWith(QString::fromUtf8(row.folder))) << row.area;
    }
}

TEST_F(TemplateCard, with_all_values_shows_number_and_description_instead_of_the_file_lines) {
    const TemplateProListItem card(file, QStringLiteral("川建〔2020〕1号"), QStringLiteral("高层"),
                                   nullptr);
    EXPECT_EQ(text(&card, "lblTitle"), QStringLiteral("住宅楼.v2"));
    EXPECT_EQ(text(&card, "label"), QStringLiteral("依据文号：川建〔2020〕1号"));
    EXPECT_EQ(text(&card, "label_2"), QStringLiteral("说明文字：高层"));
    EXPECT_FALSE(child<QLabel>(&card, "label")->isHidden());
    EXPECT_FALSE(child<QLabel>(&card, "label_2")->isHidden());
    EXPECT_TRUE(child<QLabel>(&card, "lblDescription")->isHidden());
    EXPECT_TRUE(child<QLabel>(&card, "lblPath")->isHidden());
}

TEST_F(TemplateCard, is_dressed_up_only_when_it_has_all_values) {
    const TemplateProListItem full(file, QString(), QString(), nullptr);
    const TemplateProListItem path(file);
    EXPECT_EQ(newButton(&full)->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_NE(newButton(&path)->cursor().shape(), Qt::PointingHandCursor);
    const QFont title = child<QLabel>(&full, "lblTitle")->font();
    EXPECT_EQ(title.weight(), int(QFont::Bold));
    EXPECT_EQ(title.pixelSize(), 13);
    EXPECT_EQ(child<QLabel>(&path, "lblTitle")->font(), path.font());
    for (const char* name : {"lblTitle", "label", "label_2", "lblDescription", "lblPath"})
        EXPECT_EQ(StyleOf::widget(child<zBaseLabel>(&full, name)).type, newpro::SecondaryText);
    for (const char* name : {"label", "label_2"}) {
        EXPECT_EQ(child<QLabel>(&full, name)->minimumHeight(), 15);
        EXPECT_EQ(child<QLabel>(&full, name)->maximumHeight(), 15);
        EXPECT_EQ(child<QLabel>(&path, name)->maximumHeight(), QWIDGETSIZE_MAX);
    }
}

TEST_F(TemplateCard, gives_its_button_a_place_of_its_own_on_the_host_s_first_start) {
    SharedInterface::firstOpenClose = 1;
    TemplateProListItem card(file);
    EXPECT_EQ(newButton(&card)->minimumSize(), QSize(70, 28));
    EXPECT_EQ(newButton(&card)->maximumSize(), QSize(70, 28));
    auto* row = child<QHBoxLayout>(&card, "horizontalLayout_2");
    EXPECT_EQ(row->indexOf(newButton(&card)), -1);
    ASSERT_EQ(row->count(), 2);
    ASSERT_TRUE(row->itemAt(1)->layout());
    EXPECT_EQ(row->itemAt(1)->layout()->contentsMargins(), QMargins(0, 9, 25, 0));
    EXPECT_EQ(row->itemAt(1)->layout()->indexOf(newButton(&card)), 0);

    // In a row of the list the button is in front of the lines that it reaches.
    card.resize(600, 80);
    card.show();
    const QRect button = newButton(&card)->geometry();
    EXPECT_TRUE(card.rect().contains(button));
    for (int y = button.top() + 1; y < button.bottom(); ++y)
        EXPECT_EQ(card.childAt(button.center().x(), y), newButton(&card)) << y;
}

TEST_F(TemplateCard, of_a_missing_file_keeps_its_placeholders_and_still_offers_it) {
    const QString missing = installation.path(QStringLiteral("MBSC/kvys/gone.MODX"));
    TemplateProListItem card(missing);
    card.show();
    EXPECT_EQ(text(&card, "lblTitle"), QStringLiteral("13规范清单计价(15定额)一般计税模板工程"));
    EXPECT_EQ(text(&card, "lblDescription"), QStringLiteral("信息："));
    EXPECT_EQ(text(&card, "lblPath"), QStringLiteral("路径："));
    EXPECT_EQ(text(&card, "label_2"), QStringLiteral("文号："));
    EXPECT_EQ(text(&card, "label"), QStringLiteral("说明："));
    EXPECT_EQ(countOf("CpfMain::GetAreaConfigValue"), 0);
    const QSignalSpy created(&card, &TemplateProListItem::signalCreateProByTemaplte);
    click(newButton(&card));
    ASSERT_EQ(created.count(), 1);
    EXPECT_EQ(created.at(0).at(0).toString(), missing);
}

TEST_F(TemplateCard, asks_once_per_click_and_rests_its_button_meanwhile) {
    TemplateProListItem card(file);
    card.show();
    QStringList asked;
    QObject::connect(&card, &TemplateProListItem::signalCreateProByTemaplte,
                     [&](const QString& path) {
                         asked += path;
                         EXPECT_FALSE(newButton(&card)->isEnabled());
                     });
    click(newButton(&card));
    EXPECT_TRUE(newButton(&card)->isEnabled());
    click(newButton(&card));
    EXPECT_EQ(asked, QStringList({file, file}));
}

TEST_F(TemplateCard, asks_on_a_double_click_with_the_left_button_only) {
    const struct {
        Qt::MouseButton button;
        int asked;
    } table[] = {{Qt::LeftButton, 1}, {Qt::RightButton, 0}, {Qt::MiddleButton, 0}};
    for (const auto& row : table) {
        TemplateProListItem card(file);
        card.show();
        const QSignalSpy created(&card, &TemplateProListItem::signalCreateProByTemaplte);
        doubleClick(&card, row.button);
        ASSERT_EQ(created.count(), row.asked) << row.button;
        doubleClick(child<QLabel>(&card, "lblTitle"), row.button);
        EXPECT_EQ(created.count(), 2 * row.asked) << row.button;
        if (row.asked) {
            EXPECT_EQ(created.at(0).at(0).toString(), file);
        }
    }
}

TEST_F(TemplateCard, may_be_deleted_by_whoever_it_asks) {
    for (const bool byButton : {true, false}) {
        auto* card = new TemplateProListItem(file);
        card->show();
        const QPointer<QWidget> alive(card);
        QString asked;
        QObject::connect(card, &TemplateProListItem::signalCreateProByTemaplte, qApp,
                         [&](const QString& path) {
                             delete card;
                             asked = path;
                         });
        if (byButton) {
            click(newButton(card));
        } else {
            doubleClick(card);
        }
        EXPECT_FALSE(alive);
        EXPECT_EQ(asked, file);
    }
}

TEST_F(TemplateCard, shows_names_that_look_like_markup_as_they_are) {
    const QString path =
        installation.write(allowedName(QStringLiteral("MBSC/kvys/<b>粗</b> & \"引\" 😀.MODX")));
    const TemplateProListItem card(path);
    EXPECT_EQ(text(&card, "lblTitle"), QFileInfo(path).completeBaseName());
    EXPECT_EQ(child<QLabel>(&card, "lblTitle")->textFormat(), Qt::PlainText);
}

/// Inside the row, and with all of its text, unless the text is the one that may be cut in width.
void expectReadable(const QWidget& row, const char* name, bool mayBeCut) {
    const auto* label = child<QLabel>(&row, name);
    const QRect place(label->mapTo(&row, QPoint()), label->size());
    EXPECT_TRUE(row.rect().contains(place)) << name;
    EXPECT_GE(label->height(), label->fontMetrics().tightBoundingRect(label->text()).height())
        << name;
    EXPECT_GE(label->height(), label->minimumSizeHint().height()) << name;
    if (!mayBeCut) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << name;
    }
}

TEST_F(TemplateCard, fits_a_row_of_the_list_at_every_scale) {
    const QString deep = installation.write(
        QStringLiteral("MBSC/kvys/%1/%1/长名称%1.MODX").arg(QString(60, QChar(0x697c))));
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        workbench::Host::instance().setScale(scale);
        QListWidget list;
        list.resize(qRound(700 * scale), qRound(400 * scale));
        for (const QString& path : {file, deep}) {
            auto* row = new QListWidgetItem(&list);
            row->setData(Qt::SizeHintRole, QSize(-1, qRound(80 * scale)));
            list.setItemWidget(row, new TemplateProListItem(path));
        }
        list.show();
        settle();
        for (int i = 0; i < list.count(); ++i) {
            const QWidget& row = *list.itemWidget(list.item(i));
            EXPECT_EQ(row.size(), QSize(list.viewport()->width(), qRound(80 * scale)));
            expectReadable(row, "lblTitle", i == 1);
            expectReadable(row, "lblDescription", false);
            expectReadable(row, "lblPath", i == 1);
            EXPECT_TRUE(row.rect().contains(newButton(&row)->geometry()));
            EXPECT_GE(newButton(&row)->height(), newButton(&row)->fontMetrics().height());
        }
    }
}

}  // namespace
