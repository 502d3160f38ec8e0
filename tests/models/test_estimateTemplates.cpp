#include "models/estimateTemplates.h"

#include <QDir>
#include <algorithm>

#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace {

class EstimateTemplates : public testing::Test {
  protected:
    void add(const char* name) {
        host.write(QStringLiteral("GCSZ/GcszYs/") + QString::fromUtf8(name) + GSMBSuffix);
    }
    void setDefault(const char* name) {
        host.values().systemSettings.estimateTemplate = QString::fromUtf8(name);
    }
    QStringList fill() {
        newpro::fillEstimateTemplates(&combo);
        QStringList texts;
        for (int i = 0; i < combo.count(); ++i) texts << combo.itemText(i);
        return texts;
    }

    testing_support::TemporaryInstallation host;
    zBaseCombox combo;
};

/// Where the workbench's combo box keeps the state of an entry.
constexpr int stateRole = Qt::UserRole + 100;

TEST_F(EstimateTemplates, AreListedByNameWithoutTheirSuffix) {
    add("c");
    add("a.b");
    add("b");
    host.write(QStringLiteral("GCSZ/GcszYs/other.txt"));
    EXPECT_EQ(fill(),
              (QStringList{QStringLiteral("a.b"), QStringLiteral("b"), QStringLiteral("c")}));
    EXPECT_FALSE(combo.itemData(0).isValid());
}

TEST_F(EstimateTemplates, AllHaveTheTemplatePictureAndAreUsable) {
    add("a");
    add("b");
    fill();
    const QImage picture =
        workbench::pixmapOf(QStringLiteral(":/Image/Home/mb.svg"), combo.iconSize(), 1).toImage();
    ASSERT_FALSE(picture.isNull());
    ASSERT_EQ(combo.count(), 2);
    for (int i : {0, 1}) {
        EXPECT_EQ(combo.itemIcon(i).pixmap(combo.iconSize()).toImage(), picture) << i;
        EXPECT_EQ(combo.itemData(i, stateRole), QVariant(true)) << i;
    }
}

TEST_F(EstimateTemplates, HiddenFilesCountAndFoldersAndLinksDoNot) {
    add(".hidden");
    add("plain");
    const QString folder = host.path(QStringLiteral("GCSZ/GcszYs/"));
    ASSERT_TRUE(QDir(folder).mkdir(QStringLiteral("folder") + GSMBSuffix));
#ifdef Q_OS_UNIX
    ASSERT_TRUE(QFile::link(folder + QStringLiteral("plain") + GSMBSuffix,
                            folder + QStringLiteral("link") + GSMBSuffix));
#endif
    QStringList texts = fill();
    texts.sort();
    EXPECT_EQ(texts, (QStringList{QStringLiteral(".hidden"), QStringLiteral("plain")}));
}

TEST_F(EstimateTemplates, TheDefaultBecomesCurrentEvenBeforeTheGeneralOne) {
    add("a");
    add("b");
    add("通用概算模板");
    setDefault("b");
    fill();
    EXPECT_EQ(combo.currentText(), QStringLiteral("b"));
}

TEST_F(EstimateTemplates, WithoutTheDefaultTheGeneralOneBecomesCurrent) {
    add("a");
    add("通用概算模板");
    add("龙");
    setDefault("gone");
    fill();
    EXPECT_EQ(combo.currentText(), QStringLiteral("通用概算模板"));
}

TEST_F(EstimateTemplates, WithNeitherNoIndexIsSet) {
    add("a");
    add("b");
    setDefault("gone");
    fill();
    EXPECT_EQ(combo.currentIndex(), 0);  // the combo box's own choice
}

#ifdef Q_OS_UNIX
TEST_F(EstimateTemplates, OfTwoDefaultsTheLaterOneBecomesCurrent) {
    add("a");
    add("same");
    host.write(QStringLiteral("GCSZ/GcszYs/same") + GSMBSuffix.toLower());
    host.write(QStringLiteral("GCSZ/GcszYs/same") + GSMBSuffix.toUpper());
    add("z");
    setDefault("same");
    const QStringList texts = fill();
    ASSERT_GE(texts.count(QStringLiteral("same")), 2);
    EXPECT_EQ(combo.currentIndex(), texts.lastIndexOf(QStringLiteral("same")));
}
#endif

TEST_F(EstimateTemplates, ARefillDoesNotDouble) {
    add("a");
    fill();
    EXPECT_EQ(fill(), QStringList{QStringLiteral("a")});
}

TEST_F(EstimateTemplates, AnEmptyOrMissingFolderLeavesTheComboEmpty) {
    EXPECT_EQ(fill(), QStringList());
    ASSERT_TRUE(QDir(host.path(QStringLiteral("GCSZ"))).removeRecursively());
    EXPECT_EQ(fill(), QStringList());
    EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(EstimateTemplates, WithoutConfigurationTheGeneralOneIsStillFound) {
    add("a");
    add("通用概算模板");
    host.switches().configurationPresent = false;
    fill();
    EXPECT_EQ(combo.currentText(), QStringLiteral("通用概算模板"));
}

TEST_F(EstimateTemplates, AnExceptionAtAnyHostCallLeavesTheComboEmptyAndASecondTryFillsIt) {
    add("a");
    fill();
    const testing_support::Lines calls = testing_support::journalNames({"call"});
    EXPECT_GE(std::count(calls.begin(), calls.end(), "SharedInterface::getInstance"), 1);
    for (const std::string& call : calls) {
        for (const auto& kind : testing_support::thrownKinds()) {
            SCOPED_TRACE(call + " as " + kind.name);
            fill();
            testing_support::throwAt(call.c_str(), kind.as);
            EXPECT_ANY_THROW(newpro::fillEstimateTemplates(&combo));
            EXPECT_EQ(combo.count(), 0);
            testing_support::throwNoMore();
            EXPECT_EQ(fill(), QStringList{QStringLiteral("a")});
        }
    }
}

TEST_F(EstimateTemplates, AMissingComboBoxDoesNothing) {
    newpro::fillEstimateTemplates(nullptr);
    EXPECT_EQ(testing_support::journalLines(), testing_support::Lines{});
}

}  // namespace
