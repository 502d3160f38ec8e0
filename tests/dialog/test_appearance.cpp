#include "models/ProModelItemForm.h"
#include "tests/dialog/DialogFixture.h"
#include "tests/support/Looks.h"

namespace {

using namespace dialog_tests;

using testing_support::Look;

class PageLooks : public DialogTest, public testing::WithParamInterface<Look> {
  protected:
    /// @param prefix of the pictures' names. @param shortened labels that may be cut.
    void checkEveryPage(const std::string& prefix, const QStringList& shortened) {
        const auto check = [&](const char* page) {
            testing_support::expectLooksRight(dialog.get(), (prefix + page).c_str(), GetParam(), 0,
                                              shortened);
        };
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
};

class Appearance : public PageLooks {
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
        host.configure(models.at(0).name, testing_support::pricing(models.at(0).key,
                                                                   {QStringLiteral("整体计费"),
                                                                    QStringLiteral("单独计费")},
                                                                   QStringLiteral("整体计费")));
        for (int mode : {0, 1, 2}) host.setModels(kvys, mode, models);
        host.setModels(QStringLiteral("Kvzcb"), 0, models);
        for (const char* key : {"kvys", "kvzcb"}) {
            host.addTemplate(QLatin1String(key), QStringLiteral("13规范(15定额)一般计税.MODX"));
            host.addTemplate(QLatin1String(key), QStringLiteral("房屋建筑/住宅楼模板工程.MODX"));
        }
        open();
    }
};

TEST_P(Appearance, EveryPageShowsItsTextsWhole) {
    checkEveryPage("", testing_support::descriptionLine);
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

class SampleAppearance : public PageLooks {
  protected:
    void SetUp() override {
        const QString sample = QStringLiteral(SAMPLE_INSTALLATION);
        ASSERT_EQ(workbench::Host::instance().loadInstallation(sample), QString());
        testing_support::wear(GetParam());
        open();
    }
    /// Expects that the lines of the cards that are shown have their whole text as tool tip.
    /// @return how many of them are shortened; they have to end in dots.
    int shortenedLines() {
        int found = 0;
        for (const auto* card : dialog->findChildren<ProModelItemForm*>()) {
            if (!card->isVisible()) continue;
            const TaxTemplateInfo info = recordOf(child<QLabel>(card, "lblTitle")->text());
            found += shortened(child<QLabel>(card, "lblSource"),
                               info.basis.value(info.basis.size() - 1));
            found += shortened(child<QLabel>(card, "lblDescription"), info.description);
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
    static bool shortened(QLabel* label, const QString& sentence) {
        const QString whole = label->toolTip();
        EXPECT_TRUE(whole.endsWith(sentence)) << whole.toStdString();
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
    checkEveryPage("sample-", testing_support::sentenceLines);
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

}  // namespace
