#include <QPainter>

#include "models/ProModelItemForm.h"
#include "tests/dialog/DialogFixture.h"
#include "tests/support/Looks.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/Style.h"

namespace {

using namespace dialog_tests;

using testing_support::Look;

class Appearance : public DialogTest, public testing::WithParamInterface<Look> {
  protected:
    void SetUp() override {
        testing_support::wear(GetParam());
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
        testing_support::expectLooksRight(dialog.get(), page, GetParam());
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

INSTANTIATE_TEST_SUITE_P(Looks, Appearance, testing::ValuesIn(testing_support::allLooks()),
                         testing_support::nameOfLook);

class SampleAppearance : public DialogTest, public testing::WithParamInterface<Look> {
  protected:
    void SetUp() override {
        const QString sample = QFINDTESTDATA("../../workbench/installation");
        ASSERT_EQ(workbench::Host::instance().loadInstallation(sample), QString());
        testing_support::wear(GetParam());
        open();
    }
    void check(const char* page) {
        testing_support::expectLooksRight(dialog.get(), page, GetParam(), 0,
                                          testing_support::sentenceLines);
    }
    /// Expects that the lines of the cards that are shown have their whole text as tool tip.
    /// @return how many of them are shortened; they have to end in dots.
    int shortenedLines() {
        int found = 0;
        for (const auto* card : dialog->findChildren<ProModelItemForm*>()) {
            if (!card->isVisible()) continue;
            const TaxTemplateInfo info = recordOf(child<QLabel>(card, "lblTitle")->text());
            found += shortened(child<QLabel>(card, "lblSource"), basisOf(info));
            found += shortened(child<QLabel>(card, "lblDescription"),
                               QStringLiteral("说明：") + info.description);
        }
        return found;
    }

  private:
    TaxTemplateInfo recordOf(const QString& name) {
        for (const auto& modes : host.values().models) {
            for (const auto& mode : modes) {
                for (const TaxTemplateInfo& info : mode.models) {
                    if (info.name == name) return info;
                }
            }
        }
        ADD_FAILURE() << "no model " << name.toStdString();
        return {};
    }
    static QString basisOf(const TaxTemplateInfo& info) {
        QStringList parts{info.leadingBasisDocument, info.basisDocument};
        parts.removeAll(QString());
        return QStringLiteral("依据：") + (parts + info.basis).join(QStringLiteral("；"));
    }
    static bool shortened(QLabel* label, const QString& whole) {
        EXPECT_EQ(label->toolTip(), whole);
        const QString text = label->text();
        const QString shown =
            label->fontMetrics().elidedText(text, Qt::ElideRight, label->contentsRect().width());
        if (shown == whole) return false;
        EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
        const QImage picture = label->grab().toImage();
        label->setText(shown);
        EXPECT_EQ(label->grab().toImage(), picture) << whole.toStdString();
        label->setText(text);
        return true;
    }
};

TEST_P(SampleAppearance, EveryPageShowsItsTextsWholeButForTheSentencesOfTheCards) {
    check("sample-general-tax");
    click(button("simpleTaxButton"));
    check("sample-simple-tax");
    click(button("businessTaxButton"));
    check("sample-business-tax");
    click(button("templateButton"));
    check("sample-templates");
    pick(auditLabel);
    check("sample-audit");
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    click(button("generalTaxButton"));
    check("sample-contracting-models");
    click(button("budgetButton"));
    check("sample-contracting-file");
}

TEST_P(SampleAppearance, SentencesOfCardsEndInDotsAndAreToldByTheirToolTips) {
    int found = 0;
    for (const char* taxMode : {"generalTaxButton", "simpleTaxButton", "businessTaxButton"}) {
        click(button(taxMode));
        settle();
        found += shortenedLines();
    }
    EXPECT_GT(found, 5);
}

INSTANTIATE_TEST_SUITE_P(Looks, SampleAppearance, testing::ValuesIn(testing_support::allLooks()),
                         testing_support::nameOfLook);

/// What is drawn as one rounded box, and how.
struct Boxed {
    int type;
    workbench::Tint border;
    double radius;
};

constexpr Boxed card = {workbench::CardType, workbench::Tint::Border, 6};
constexpr Boxed buttons[] = {{workbench::PlainType, workbench::Tint::Border, 4},
                             {workbench::DefaultActionType, workbench::Tint::Accent, 4},
                             {workbench::NewButtonType, workbench::Tint::AccentLine, 4},
                             {workbench::SplitPartType, workbench::Tint::None, 3},
                             {workbench::RibbonTabType, workbench::Tint::None, 6}};
const QColor fills[] = {QColor(255, 255, 255), QColor(20, 90, 200), QColor(200, 30, 60, 120),
                        QColor(0, 0, 0, 0)};

class Boxes : public testing::Test {
  protected:
    static QImage paper(const QSize& size) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        return image;
    }
    static QImage painted(QWidget& widget) {
        QImage image = paper(widget.size());
        widget.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }
    /// @return the box drawn as one path.
    static QImage drawn(const Boxed& box, const QSize& size, const QRect& rect,
                        const QColor& fill) {
        const QColor border = workbench::colour(box.border);
        const int line = border.alpha() ? qMax(1, workbench::scaled(1)) : 0;
        const qreal inset = line / 2.0;
        const qreal radius = workbench::scaled(box.radius) - inset;
        QImage image = paper(size);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(line ? QPen(border, line) : QPen(Qt::NoPen));
        painter.setBrush(fill);
        painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), radius,
                                radius);
        return image;
    }
    /// @return the largest difference of a channel, of 255.
    static int difference(const QImage& one, const QImage& other) {
        int largest = 0;
        for (int y = 0; y < one.height(); ++y) {
            const uchar* a = one.constScanLine(y);
            const uchar* b = other.constScanLine(y);
            for (int i = 0; i < 4 * one.width(); ++i) largest = qMax(largest, qAbs(a[i] - b[i]));
        }
        return largest;
    }
    /// Calls `look` with sizes from three to sixty pixels, and with every fill.
    template <typename LookAt>
    static void forEachSize(LookAt look) {
        for (int length = 3; length <= 60; ++length) {
            for (int other : {3, 7, 13, 24, 60}) {
                for (const QColor& fill : fills) {
                    look(QSize(length, other), fill);
                    look(QSize(other, length), fill);
                }
            }
        }
    }
    static void expectAsDrawn(QWidget& widget, const Boxed& box, const QRect& rect,
                              const QColor& fill) {
        const int found = difference(painted(widget), drawn(box, widget.size(), rect, fill));
        EXPECT_LE(found, 16) << "type " << box.type << ", " << widget.width() << "x"
                             << widget.height() << ", " << fill.name(QColor::HexArgb).toStdString();
    }

    testing_support::TemporaryInstallation host;
};

TEST_F(Boxes, OfCardsLookAsIfDrawnAsOnePath) {
    for (const Look& look : testing_support::allLooks()) {
        SCOPED_TRACE(testing::PrintToString(look));
        testing_support::wear(look);
        zBaseWidget widget(nullptr, card.type);
        const int gap = workbench::scaled(2);
        forEachSize([&](const QSize& size, const QColor& fill) {
            widget.resize(size + QSize(0, 2 * gap));
            widget.setNormalBackColor(fill);
            expectAsDrawn(widget, card, widget.rect().adjusted(0, gap, 0, -gap), fill);
        });
    }
}

TEST_F(Boxes, OfButtonsLookAsIfDrawnAsOnePath) {
    for (const Look& look : testing_support::allLooks()) {
        SCOPED_TRACE(testing::PrintToString(look));
        testing_support::wear(look);
        for (const Boxed& box : buttons) {
            zBaseButton button;
            button.setControlType(box.type);
            forEachSize([&](const QSize& size, const QColor& fill) {
                button.resize(size);
                button.setNormalBackColor(fill);
                expectAsDrawn(button, box, button.rect(), fill);
            });
        }
    }
}

}  // namespace
