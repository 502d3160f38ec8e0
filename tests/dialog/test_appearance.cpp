#include <QAbstractButton>
#include <QDir>
#include <QLabel>

#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;

/// @return the room that a text of one line takes where it is drawn: its advance, and the height
///         that its ink reaches on a line centred in `height`. The line spacing of a Chinese font
///         is larger than anything it draws.
QSize neededSize(const QFontMetrics& metrics, const QString& text, int height) {
    const QRect ink = metrics.tightBoundingRect(text);
    const int baseline = (height - metrics.height()) / 2 + metrics.ascent();
    const int above = qMax(0, -(baseline + ink.top()));
    const int below = qMax(0, baseline + ink.bottom() + 1 - height);
    return {metrics.horizontalAdvance(text), height + above + below};
}

/// @return what is cut off on a widget: the texts of labels and buttons that need more room than
///         they have. The description of a card is elided on purpose.
QStringList clippedTexts(const QWidget* page) {
    QStringList clipped;
    const auto judge = [&clipped](const QWidget* widget, const QString& text, QSize room,
                                  int beside) {
        QSize needed = neededSize(widget->fontMetrics(), text, room.height());
        needed.rwidth() += beside;
        if (needed.width() <= room.width() && needed.height() <= room.height()) return;
        clipped << QStringLiteral("%1 \"%2\" needs %3x%4, has %5x%6")
                       .arg(widget->objectName(), text)
                       .arg(needed.width())
                       .arg(needed.height())
                       .arg(room.width())
                       .arg(room.height());
    };
    for (const auto* label : page->findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text().isEmpty()) continue;
        if (label->objectName() == QLatin1String("lblDescription")) continue;
        judge(label, label->text(), label->contentsRect().size(), 0);
    }
    for (const auto* button : page->findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty()) continue;
        judge(button, button->text(), button->size(),
              button->icon().isNull() ? 0 : button->iconSize().width());
    }
    return clipped;
}

/// @return visible siblings of a layout that overlap, which no text check would tell.
QStringList overlaps(const QWidget* page) {
    QStringList found;
    for (const auto* label : page->findChildren<QLabel*>()) {
        for (const auto* other :
             label->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (other == label || !label->isVisible() || !other->isVisible()) continue;
            if (!label->geometry().intersects(other->geometry())) continue;
            found << label->text() + QStringLiteral(" over ") + other->objectName();
        }
    }
    return found;
}

struct Look {
    double scale;
    const char* skin;
};

void PrintTo(const Look& look, std::ostream* out) {
    *out << look.skin << " at " << look.scale;
}

class Appearance : public DialogTest, public testing::WithParamInterface<Look> {
  protected:
    void SetUp() override {
        workbench::Host::instance().setScale(GetParam().scale);
        workbench::Host::instance().setSkin(QLatin1String(GetParam().skin));
        const QString kvys = QStringLiteral("Kvys");
        QList<TaxTemplateInfo> models;
        for (const char* name : {"清单计价【国标2013规范，四川2020定额】（税率9%，2025安文费）",
                                 "清单计价【国标2013规范，四川2015定额】（税率10%）",
                                 "清单计价【国标2013规范，四川2015定额】（[2019]181号文）",
                                 "清单计价【四川抗震加固定额】"}) {
            TaxTemplateInfo info = model(QString::fromUtf8(name));
            info.basis = QStringList{QStringLiteral("《建设工程工程量清单计价规范》GB50500-2013"),
                                     QStringLiteral("2020年《四川省建设工程工程量清单计价定额》")};
            info.description = QString::fromUtf8(
                "适用于四川省行政区域内一般计税方法的房屋建筑与装饰、安装、市政、园林绿化等工程，"
                "安全文明施工费按2025年的规定计取，材料价格按除税价格输入，税率按9%计算。");
            models.append(info);
        }
        host.values().pricing[kvys][models.at(0).name] = testing_support::pricing(
            models.at(0).key, {QStringLiteral("整体计费"), QStringLiteral("单独计费")},
            QStringLiteral("整体计费"));
        for (int mode : {0, 1, 2}) host.setModels(kvys, mode, models);
        host.setModels(QStringLiteral("Kvzcb"), 0, models);
        for (const char* key : {"kvys", "kvzcb"}) {
            host.addTemplate(QLatin1String(key), QStringLiteral("13规范(15定额)一般计税.MODX"));
            host.addTemplate(QLatin1String(key), QStringLiteral("房屋建筑/住宅楼模板工程.MODX"));
        }
        open();
    }
    void check(const char* page) {
        SCOPED_TRACE(page);
        settle();
        EXPECT_EQ(clippedTexts(dialog.get()), QStringList());
        EXPECT_EQ(overlaps(dialog.get()), QStringList());
        const QImage picture = dialog->grab().toImage();
        EXPECT_EQ(picture.size(), dialog->size());
        const QString folder = qEnvironmentVariable("NEWPRO_PICTURES");
        if (folder.isEmpty()) return;
        QDir().mkpath(folder);
        EXPECT_TRUE(
            picture.save(QStringLiteral("%1/%2-%3-%4.png")
                             .arg(folder, QLatin1String(page), QLatin1String(GetParam().skin))
                             .arg(qRound(GetParam().scale * 100))));
    }
};

TEST_P(Appearance, EveryPageShowsItsTextsWhole) {
    check("general-tax");
    click(button("simpleTaxButton"));
    check("simple-tax");
    click(button("businessTaxButton"));
    check("business-tax");
    click(button("templateButton"));
    check("templates");
    pick(auditLabel);
    check("audit");
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    click(button("generalTaxButton"));
    check("contracting-models");
    click(button("budgetButton"));
    check("contracting-file");
}

TEST_P(Appearance, EveryInteractiveWidgetHasAnAccessibleNameOrAText) {
    for (const auto* widget : dialog->findChildren<QAbstractButton*>()) {
        // The frame of a split button: its two parts are the ones that act.
        if (!widget->findChildren<QAbstractButton*>().isEmpty()) continue;
        EXPECT_FALSE(widget->text().isEmpty() && widget->accessibleName().isEmpty())
            << widget->objectName().toStdString() << " in "
            << widget->parentWidget()->objectName().toStdString();
    }
    for (const auto* widget : dialog->findChildren<QComboBox*>()) {
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Looks, Appearance,
                         testing::Values(Look{1.0, "light"}, Look{1.5, "light"}, Look{2.0, "light"},
                                         Look{1.0, "dark"}, Look{1.5, "dark"}, Look{2.0, "dark"}),
                         [](const testing::TestParamInfo<Look>& info) {
                             return info.param.skin + std::string("At") +
                                    std::to_string(qRound(info.param.scale * 100)) + "Percent";
                         });

}  // namespace
