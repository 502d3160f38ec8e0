#include "models/PricingModelCatalogue.h"

#include "models/ProModelItemForm.h"
#include "tests/support/TestSupport.h"

namespace {

using newpro::PricingModelCatalogue;
using testing_support::journalLines;
using testing_support::Lines;
using testing_support::model;

const QString kvys = QStringLiteral("Kvys");

ProjectSettingSpace::ProTaxTemplateInfo entry(int taxMode, const QStringList& names) {
    ProjectSettingSpace::ProTaxTemplateInfo info;
    info.taxMode = taxMode;
    for (const QString& name : names) info.models.append(model(name));
    return info;
}

class Catalogue : public testing::Test {
  protected:
    Catalogue() {
        for (size_t mode = 0; mode < lists.size(); ++mode) {
            lists[mode] = std::make_unique<QListWidget>();
            catalogue.lists[mode] = lists[mode].get();
        }
        catalogue.templates = &templates;
    }
    void configure(const QList<ProjectSettingSpace::ProTaxTemplateInfo>& entries) {
        host.values().models[kvys] = entries;
    }
    void load(const QString& appType = kvys) {
        filled.clear();
        catalogue.load(
            appType, [this](const TaxTemplateInfo& model) { created.append(model.name); },
            [this](int mode) { filled.append(mode); });
    }
    /// @return the cards of all lists.
    QVector<QPointer<ProModelItemForm>> cards() {
        QVector<QPointer<ProModelItemForm>> all;
        for (const auto& each : lists) {
            for (ProModelItemForm* card : each->findChildren<ProModelItemForm*>()) all.append(card);
        }
        return all;
    }
    QListWidget& list(int mode) { return *lists[size_t(mode)]; }
    /// Names on the cards of a list, checked against the records in its items.
    QStringList names(int mode) {
        QStringList found;
        for (int row = 0; row < list(mode).count(); ++row) {
            const auto record = list(mode).item(row)->data(Qt::UserRole).value<TaxTemplateInfo>();
            const QWidget* card = list(mode).itemWidget(list(mode).item(row));
            EXPECT_TRUE(qobject_cast<const ProModelItemForm*>(card));
            if (card) {
                EXPECT_EQ(testing_support::child<QLabel>(card, "lblTitle")->text(), record.name);
            }
            found << record.name;
        }
        return found;
    }

    testing_support::TemporaryInstallation host;
    std::array<std::unique_ptr<QListWidget>, 3> lists;
    QListWidget templates;
    PricingModelCatalogue catalogue;
    QVector<int> filled;
    QStringList created;
};

const QString a = QStringLiteral("甲");
const QString b = QStringLiteral("乙");
const QString c = QStringLiteral("丙");
const QString e = QStringLiteral("戊");

TEST_F(Catalogue, PlacesACardForEachModelInTheListOfItsTaxMode) {
    configure({entry(1, {c}), entry(0, {b, a}), entry(2, {e})});
    load();
    EXPECT_EQ(names(0), (QStringList{b, a}));
    EXPECT_EQ(names(1), QStringList{c});
    EXPECT_EQ(names(2), QStringList{e});
    EXPECT_EQ(filled, (QVector<int>{1, 0, 2}));
}

TEST_F(Catalogue, CardsWaitWhereTheListsShowThem) {
    configure({entry(0, {a, b})});
    catalogue.cardsWait = true;
    list(0).show();
    load();
    testing_support::settle();
    EXPECT_EQ(names(0), (QStringList{a, b}));
    for (ProModelItemForm* card : cards()) {
        EXPECT_FALSE(card->isVisible());
        EXPECT_EQ(card->width(), list(0).viewport()->width());
    }
    cards().at(1)->comeIntoSight();
    EXPECT_TRUE(cards().at(1)->isVisible());
    EXPECT_FALSE(cards().at(0)->isVisible());
    catalogue.cardsWait = false;
    list(0).clear();
    load();
    testing_support::settle();
    EXPECT_TRUE(cards().constLast()->isVisible());
}

TEST_F(Catalogue, ACardAsksForAProjectFromItsModel) {
    configure({entry(0, {a, b})});
    load();
    list(0).show();
    testing_support::click(
        testing_support::child<zBaseButton>(list(0).itemWidget(list(0).item(1)), "btnNewProject"));
    testing_support::doubleClick(list(0).itemWidget(list(0).item(0)));
    EXPECT_EQ(created, (QStringList{b, a}));
}

TEST_F(Catalogue, AskingForAProjectMayDeleteTheWholeList) {
    configure({entry(0, {a})});
    QString chosen;
    catalogue.load(
        kvys,
        [&](const TaxTemplateInfo& model) {
            lists[0].reset();
            chosen = model.name;
        },
        [](int) {});
    list(0).show();
    testing_support::doubleClick(list(0).itemWidget(list(0).item(0)));
    EXPECT_FALSE(lists[0]);
    EXPECT_EQ(chosen, a);
}

TEST_F(Catalogue, RowsAreEightyHighAndTheListHoldsAllOfThem) {
    for (const auto& [scale, row] : {std::pair(1.0, 80), std::pair(1.5, 120)}) {
        workbench::Host::instance().setScale(scale);
        catalogue.clear();
        configure({entry(0, {a, b, c})});
        load();
        const QSize hint = list(0).item(0)->data(Qt::SizeHintRole).toSize();
        EXPECT_EQ(hint.height(), row);
        EXPECT_EQ(list(0).minimumHeight(), 3 * row);
        EXPECT_EQ(list(0).visualItemRect(list(0).item(1)).height(), row);
    }
}

TEST_F(Catalogue, TheRecordIsCarriedWholeInTheItem) {
    TaxTemplateInfo info = model(a, QStringLiteral("整体计费"), QStringLiteral("单独计费"));
    info.basisDocument = QStringLiteral("5");
    info.carriedText = QStringLiteral("6");
    info.flag = 9;
    info.leadingBasisDocument = QStringLiteral("10");
    host.setModels(kvys, 0, {info});
    load();
    const QVariant data = list(0).item(0)->data(256);
    EXPECT_STREQ(data.typeName(), "ProjectSettingSpace::TaxTemplateInfo");
    const auto got = data.value<TaxTemplateInfo>();
    EXPECT_EQ(got.name, a);
    EXPECT_EQ(got.key, info.key);
    EXPECT_EQ(got.description, info.description);
    EXPECT_EQ(got.basis, info.basis);
    EXPECT_EQ(got.basisDocument, QStringLiteral("5"));
    EXPECT_EQ(got.carriedText, QStringLiteral("6"));
    EXPECT_EQ(got.feeMode, QStringLiteral("整体计费"));
    EXPECT_EQ(got.alternativeFeeMode, QStringLiteral("单独计费"));
    EXPECT_EQ(got.flag, 9);
    EXPECT_EQ(got.leadingBasisDocument, QStringLiteral("10"));
}

TEST_F(Catalogue, TheApplicationTypeIsGivenTwice) {
    load(QStringLiteral("Kvzcb"));
    EXPECT_EQ(journalLines({"ProjectSettingHelper::GetProTaxTemplateInfoList"}),
              Lines{R"(call ProjectSettingHelper::GetProTaxTemplateInfoList("Kvzcb", "Kvzcb"))"});
}

TEST_F(Catalogue, TwoEntriesOfAModeBothAppendAndTheHeightFollowsTheLast) {
    configure({entry(0, {a, b}), entry(1, {e}), entry(0, {c})});
    load();
    EXPECT_EQ(names(0), (QStringList{a, b, c}));
    EXPECT_EQ(list(0).minimumHeight(), 80);
    EXPECT_EQ(filled, (QVector<int>{0, 1, 0}));
}

TEST_F(Catalogue, OtherTaxModesAreSkippedAndThoseAfterThemPlaced) {
    configure({entry(3, {a}), entry(-1, {b}), entry(1 << 30, {b}), entry(1, {c})});
    load();
    EXPECT_EQ(names(0), QStringList());
    EXPECT_EQ(names(1), QStringList{c});
    EXPECT_EQ(names(2), QStringList());
    EXPECT_EQ(filled, QVector<int>{1});
}

TEST_F(Catalogue, AModeWithoutEntryStaysEmptyWithTheHeightItHad) {
    list(2).setMinimumHeight(17);
    configure({entry(0, {a})});
    load();
    EXPECT_EQ(list(2).count(), 0);
    EXPECT_EQ(list(2).minimumHeight(), 17);
}

TEST_F(Catalogue, AnEntryWithoutModelsFillsNothing) {
    list(2).setMinimumHeight(17);
    configure({entry(2, {})});
    load();
    EXPECT_EQ(filled, QVector<int>{});
    EXPECT_EQ(list(2).count(), 0);
    EXPECT_EQ(list(2).minimumHeight(), 0);
}

TEST_F(Catalogue, ARebuildHoldsEachCardOnce) {
    configure({entry(0, {a, b})});
    load();
    catalogue.clear();
    load();
    EXPECT_EQ(names(0), (QStringList{a, b}));
}

TEST_F(Catalogue, ARebuildTakesOverWhatTheConfigurationSaysNow) {
    configure({entry(0, {a, b})});
    load();
    configure({entry(0, {c}), entry(1, {a})});
    EXPECT_EQ(names(0), (QStringList{a, b}));
    catalogue.clear();
    load();
    EXPECT_EQ(names(0), QStringList{c});
    EXPECT_EQ(names(1), QStringList{a});
}

TEST_F(Catalogue, ClearingDisposesOfTheCardsAndEmptiesEveryList) {
    configure({entry(0, {a}), entry(1, {b}), entry(2, {c})});
    load();
    templates.addItem(QStringLiteral("card"));
    templates.setItemWidget(templates.item(0), new QWidget);
    const QVector<QPointer<ProModelItemForm>> old = cards();
    ASSERT_EQ(old.size(), 3);
    catalogue.clear();
    testing_support::settle();
    for (int mode : {0, 1, 2}) EXPECT_EQ(list(mode).count(), 0);
    EXPECT_EQ(templates.count(), 0);
    for (const auto& card : old) EXPECT_FALSE(card);
}

TEST_F(Catalogue, ClearingGoesFromTheTemplatesToTheGeneralListAndFromTheLastRowToTheFirst) {
    configure({entry(0, {a, b}), entry(1, {c}), entry(2, {e})});
    load();
    templates.addItems({a, b});
    QStringList order;
    const auto watch = [&order](QListWidget& list, const QString& name) {
        QObject::connect(list.model(), &QAbstractItemModel::rowsAboutToBeRemoved, &list,
                         [&order, name](const QModelIndex&, int first, int last) {
                             EXPECT_EQ(first, last);
                             order << name + QString::number(first);
                         });
    };
    watch(templates, QStringLiteral("t"));
    for (int mode : {0, 1, 2}) watch(list(mode), QString::number(mode) + QLatin1Char('/'));
    catalogue.clear();
    EXPECT_EQ(order.join(QLatin1Char(' ')), QStringLiteral("t1 t0 2/0 1/0 0/1 0/0"));
}

TEST_F(Catalogue, WithoutConfigurationTheListsStayEmpty) {
    host.switches().configurationPresent = false;
    load();
    for (int mode : {0, 1, 2}) EXPECT_EQ(list(mode).count(), 0);
}

TEST_F(Catalogue, AnUnknownApplicationTypeHasNoModels) {
    load(QStringLiteral("Kvjs"));
    EXPECT_EQ(cards().size(), 0);
}

TEST_F(Catalogue, AListThatWasNotBuiltIsPassedOver) {
    lists[1].reset();
    configure({entry(1, {a}), entry(0, {b})});
    load();
    EXPECT_EQ(names(0), QStringList{b});
    EXPECT_EQ(filled, QVector<int>{0});
    catalogue.clear();
    EXPECT_EQ(list(0).count(), 0);
}

TEST_F(Catalogue, TheHostMayRebuildItsListWhileTheCardsAreMade) {
    configure({entry(0, {a, b}), entry(1, {c})});
    using List = QList<ProjectSettingSpace::ProTaxTemplateInfo>;
    // The host hands out a reference to a list of its own, which it may write to.
    auto& hosts = const_cast<List&>(
        ProjectSettingHelper::GetProjectSettingHelper()->GetProTaxTemplateInfoList(kvys, kvys));
    QObject scope;
    QObject::connect(&workbench::Journal::instance(), &workbench::Journal::recorded, &scope,
                     [&](const QJsonObject& call) {
                         if (call.value(QLatin1String("name")).toString() !=
                             QLatin1String("ProjectSettingHelper::GetPricingModelInfoMap")) {
                             return;
                         }
                         host.clearModels();
                         for (ProjectSettingSpace::ProTaxTemplateInfo& mode : hosts)
                             mode.models.clear();
                     });
    load();
    EXPECT_TRUE(host.values().models.isEmpty());
    EXPECT_EQ(names(0), (QStringList{a, b}));
    EXPECT_EQ(names(1), QStringList{c});
    EXPECT_EQ(filled, (QVector<int>{0, 1}));
}

TEST_F(Catalogue, CardsPlacedBeforeAnExceptionStay) {
    configure({entry(0, {a, b}), entry(1, {c, e}), entry(2, {a})});
    const auto throwAtMode1 = [](int mode) {
        if (mode == 1) throw 1;
    };
    EXPECT_THROW(catalogue.load(
                     kvys, [](const TaxTemplateInfo&) {}, throwAtMode1),
                 int);
    EXPECT_EQ(names(0), (QStringList{a, b}));
    EXPECT_EQ(names(1), QStringList{c});
    EXPECT_EQ(names(2), QStringList());
}

TEST_F(Catalogue, ACardWhoseConfigurationThrowsIsPlacedWithItsPlainButton) {
    configure({entry(0, {a, b, c})});
    testing_support::throwAt("ProjectSettingHelper::GetPricingModelInfoMap",
                             workbench::ThrowRule::As::Literal, 2);
    load();
    EXPECT_EQ(names(0), (QStringList{a, b, c}));
    EXPECT_EQ(journalLines({"exception"}),
              Lines{"exception ProModelItemForm::UpdateDataDisplay: boom"});
}

}  // namespace
