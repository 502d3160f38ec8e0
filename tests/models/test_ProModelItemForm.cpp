#include <QLayout>
#include <stdexcept>

#include "tests/models/CardFixture.h"
#include "workbench/base/qtNames.h"

namespace {

using namespace card_tests;

TEST_F(Card, ShowsNameBasisAndDescription) {
    TaxTemplateInfo info = model(name);
    info.leadingBasisDocument = QStringLiteral("首");
    info.basisDocument = QStringLiteral("次");
    info.basis = QStringList{QStringLiteral("甲"), QStringLiteral("乙")};
    info.description = QStringLiteral("短");
    make(info);
    EXPECT_EQ(label("lblTitle")->text(), name);
    EXPECT_EQ(label("lblSource")->text(), QStringLiteral("依据：首；次；甲；乙"));
    EXPECT_EQ(label("lblSource")->toolTip(), label("lblSource")->text());
    EXPECT_EQ(label("lblDescription")->text(), QStringLiteral("说明：短"));
    EXPECT_EQ(label("lblDescription")->toolTip(), QStringLiteral("说明：短"));
    EXPECT_EQ(newButton()->text(), QStringLiteral("新建"));
}

TEST_F(Card, TheTitleTakesTheRoomThatItsButtonLeaves) {
    make(model(name));
    card->resize(500, card->height());
    settle();
    const QRect title = label("lblTitle")->geometry();
    EXPECT_LT(title.right(), newButton()->x());
    EXPECT_GT(title.right(), newButton()->x() - 20);
    EXPECT_LT(title.left(), 30);
}

TEST_F(Card, TheTitleIsBoldAndTheLinesBelowItAreOfTwelvePixels) {
    make(model(name));
    EXPECT_TRUE(label("lblTitle")->font().bold());
    for (const char* line : {"lblSource", "lblDescription"})
        EXPECT_EQ(label(line)->font(), TBaseTool::GetDefFont(12, QFont::Normal)) << line;
}

TEST_F(Card, OnlyDocumentsThatExistAreListed) {
    const QString a = QStringLiteral("首");
    const QString b = QStringLiteral("次");
    const QStringList c{QStringLiteral("甲")};
    const struct {
        QString leading, further;
        QStringList list;
        const char* text;
    } rows[] = {
        {{}, {}, {}, "依据："},
        {a, {}, {}, "依据：首"},
        {{}, b, {}, "依据：次"},
        {{}, {}, c, "依据：甲"},
        {a, {}, c, "依据：首；甲"},
        {{}, b, c, "依据：次；甲"},
        {{}, {}, {QString(), QStringLiteral("乙")}, "依据：；乙"},
    };
    for (const auto& row : rows) {
        TaxTemplateInfo info = model(name);
        info.leadingBasisDocument = row.leading;
        info.basisDocument = row.further;
        info.basis = row.list;
        make(info);
        EXPECT_EQ(label("lblSource")->text(), QString::fromUtf8(row.text));
        EXPECT_EQ(label("lblSource")->toolTip(), QString::fromUtf8(row.text));
    }
}

TEST_F(Card, AnEmptyDescriptionShowsItsPrefixAlone) {
    TaxTemplateInfo info = model(name);
    info.description.clear();
    make(info);
    EXPECT_EQ(label("lblDescription")->text(), QStringLiteral("说明："));
}

TEST_F(Card, TextsAreShownAsTheyAreAndNotAsMarkup) {
    TaxTemplateInfo info = model(QStringLiteral("<b>粗</b>"));
    info.description = QStringLiteral("<i>斜</i>");
    make(info);
    EXPECT_EQ(label("lblTitle")->text(), QStringLiteral("<b>粗</b>"));
    EXPECT_EQ(label("lblDescription")->text(), QStringLiteral("说明：<i>斜</i>"));
}

TEST_F(Card, TheDescriptionIsThereBeforeTheCardIsShown) {
    TaxTemplateInfo info = model(name);
    info.description = QStringLiteral("短");
    ProModelItemForm unshown(info, nullptr);
    EXPECT_EQ(child<zBaseLabel>(&unshown, "lblDescription")->text(), QStringLiteral("说明：短"));
}

TEST_F(Card, ALongDescriptionIsCutAtTheRightToTheCardsWidthLessFiftyPixels) {
    TaxTemplateInfo info = model(name);
    info.description = QString(300, QChar(0x5b57));
    make(info);
    const QString whole = QStringLiteral("说明：") + info.description;
    for (int width : {470, 300, 900, 51, 470}) {
        card->resize(width, 94);
        settle();
        const QFontMetrics metrics = label("lblDescription")->fontMetrics();
        const QString shown = label("lblDescription")->text();
        EXPECT_EQ(shown, metrics.elidedText(whole, Qt::ElideRight, card->width() - 50)) << width;
        EXPECT_LE(metrics.horizontalAdvance(shown), qMax(card->width() - 50, 0)) << width;
        EXPECT_TRUE(shown.isEmpty() || shown.endsWith(QChar(0x2026))) << width;
        EXPECT_EQ(label("lblDescription")->toolTip(), whole) << width;
    }
}

TEST_F(Card, TheDescriptionIsElidedWithTheFontThatTheLabelHasNow) {
    TaxTemplateInfo info = model(name);
    info.description = QString(300, QChar(0x5b57));
    make(info);
    QFont larger = label("lblDescription")->font();
    larger.setPixelSize(label("lblDescription")->fontInfo().pixelSize() * 2);
    label("lblDescription")->setFont(larger);
    card->UpdateDescriptionText();
    EXPECT_EQ(label("lblDescription")->text(),
              QFontMetrics(larger).elidedText(QStringLiteral("说明：") + info.description,
                                              Qt::ElideRight, card->width() - 50));
}

TEST_F(Card, TheFiftyPixelsAreNotScaled) {
    workbench::Host::instance().setScale(2.0);
    TaxTemplateInfo info = model(name);
    info.description = QString(300, QChar(0x5b57));
    make(info);
    card->resize(700, 188);
    settle();
    const QFontMetrics metrics = label("lblDescription")->fontMetrics();
    EXPECT_EQ(label("lblDescription")->text(),
              metrics.elidedText(QStringLiteral("说明：") + info.description, Qt::ElideRight, 650));
}

TEST_F(Card, SizesAndMarginsFollowTheScale) {
    for (double scale : {1.0, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        workbench::Host::instance().setScale(scale);
        const auto h = [scale](int pixels) { return qRound(pixels * scale); };
        ProModelItemForm unshown(model(name), nullptr);
        card.reset();
        EXPECT_EQ(unshown.size(), QSize(h(470), h(94)));
        auto* outer = child<QLayout>(&unshown, "verticalLayout");
        ASSERT_TRUE(outer);
        EXPECT_EQ(outer->spacing(), h(6));
        const QMargins expected(h(5), h(5), 0, h(5));
        EXPECT_NEAR(outer->contentsMargins().left(), expected.left(), 1);
        EXPECT_NEAR(outer->contentsMargins().top(), expected.top(), 1);
        EXPECT_EQ(outer->contentsMargins().right(), 0);
        EXPECT_NEAR(outer->contentsMargins().bottom(), expected.bottom(), 1);
        EXPECT_EQ(child<QLayout>(&unshown, "verticalLayout_2")->spacing(), h(2));
        EXPECT_TRUE(child<QLayout>(&unshown, "horizontalLayout"));
        auto* button = child<zBaseButton>(&unshown, "btnNewProject");
        EXPECT_EQ(button->minimumWidth(), h(50));
        EXPECT_EQ(button->maximumWidth(), h(50));
        EXPECT_EQ(button->maximumHeight(), QWIDGETSIZE_MAX);
        EXPECT_EQ(button->cursor().shape(), Qt::PointingHandCursor);
        auto* title = child<zBaseLabel>(&unshown, "lblTitle");
        EXPECT_NEAR(title->minimumWidth(), h(5), 1);
        EXPECT_EQ(title->font().weight(), QFont::Bold);
    }
}

TEST_F(Card, TheRecordIsRegisteredUnderBothNames) {
    make(model(name));
    const int id = workbench::typeIdOf("ProjectSettingSpace::TaxTemplateInfo");
    EXPECT_NE(id, int(QMetaType::UnknownType));
    EXPECT_EQ(workbench::typeIdOf("TaxTemplateInfo"), id);
    EXPECT_TRUE(QMetaType(id).flags().testFlag(workbench::relocatableType));
}

/// A card whose exceptions are looked at; each report is "source function: text".
class CardReports : public Card {
  protected:
    static Lines reports() {
        Lines lines;
        for (const QJsonObject& entry : workbench::Journal::instance().entries()) {
            if (entry.value(QLatin1String("kind")) != QLatin1String("exception")) continue;
            const QJsonArray args = entry.value(QLatin1String("args")).toArray();
            lines.push_back((args.at(0).toString() + QLatin1Char(' ') + args.at(2).toString() +
                             QStringLiteral(": ") + args.at(3).toString())
                                .toStdString());
        }
        return lines;
    }
    /// Makes a card whose receiver throws.
    void makeThrowing() {
        make(model(name));
        QObject::connect(card.get(), &ProModelItemForm::signalNewPro, [] { throw "boom"; });
    }
};

/// Throws when a widget gets a tool tip.
class TipRefuser : public QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ToolTipChange) throw std::runtime_error("no tip");
        return false;
    }
};

TEST_F(CardReports, NameTheConstructor) {
    testing_support::throwAt("InterfaceAdaptation::getResolutionRatioH",
                             workbench::ThrowRule::As::StdException);
    const ProModelItemForm broken(model(name), nullptr);
    EXPECT_EQ(reports(), Lines{"ProModelItemForm ProModelItemForm::ProModelItemForm: boom"});
}

TEST_F(CardReports, NameTheConstructorForThePlainButtonThatItConnects) {
    makeThrowing();
    click(newButton());
    EXPECT_EQ(reports(), Lines{"ProModelItemForm ProModelItemForm::ProModelItemForm: boom"});
}

TEST_F(CardReports, NameTheUpdateOfTheData) {
    make(model(name));
    testing_support::throwAt("ProjectSettingHelper::GetProjectSettingHelper",
                             workbench::ThrowRule::As::StdException);
    card->UpdateDataDisplay();
    EXPECT_EQ(reports(), Lines{"ProModelItemForm ProModelItemForm::UpdateDataDisplay: boom"});
}

TEST_F(CardReports, NameTheUpdateOfTheDescription) {
    make(model(name));
    TipRefuser refuser;
    label("lblDescription")->installEventFilter(&refuser);
    card->resize(card->width() + 100, card->height());
    EXPECT_EQ(reports(), Lines{"ProModelItemForm ProModelItemForm::UpdateDescriptionText: no tip"});
}

TEST_F(CardReports, NameTheSplittingForBothPartsOfASplitButton) {
    configure({whole, single}, whole);
    makeThrowing();
    const Lines one{"ProModelItemForm ProModelItemForm::initXjButton: boom"};
    click(left());
    EXPECT_EQ(reports(), one);
    for (QAction* entry : entries()) {
        testing_support::clearJournal();
        entry->trigger();
        EXPECT_EQ(reports(), one) << entry->text().toStdString();
    }
}

TEST_F(CardReports, NameTheDoubleClick) {
    makeThrowing();
    doubleClick(card.get());
    EXPECT_EQ(reports(), Lines{"ProModelItemForm ProModelItemForm::mouseDoubleClickEvent: boom"});
}

}  // namespace
