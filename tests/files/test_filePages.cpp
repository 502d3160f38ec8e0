#include "files/filePages.h"

#include "tests/files/FileTesting.h"

namespace {

using newpro::FileFlow;
using newpro::FilePage;

class FilePagesTest : public testing::Test {
  protected:
    FilePagesTest() {
        combo()->addItem(QStringLiteral("/a/One.GCFX"));
        combo()->addItem(QStringLiteral("/a/one.gcfx"));
        combo()->addItem(QStringLiteral("/a/one.gcfx"));
    }
    zBaseCombox* combo() { return dialog.pages.audit.fileCombo; }
    const FilePage& page() { return dialog.pages.audit; }

    testing_support::TemporaryInstallation host;
    testing_support::FakeDialog dialog;
};

TEST_F(FilePagesTest, SelectsTheFirstItemWithExactlyThisText) {
    EXPECT_TRUE(page().select(QStringLiteral("/a/one.gcfx")));
    EXPECT_EQ(combo()->currentIndex(), 1);
}

TEST_F(FilePagesTest, ATextThatIsNoItemChangesNothing) {
    combo()->setCurrentText(QStringLiteral("/a/ONE"));
    EXPECT_FALSE(page().select(QStringLiteral("/a/ONE")));
    EXPECT_EQ(page().path(), QStringLiteral("/a/ONE"));
}

TEST_F(FilePagesTest, SelectingTheCurrentItemReplacesATypedText) {
    combo()->setCurrentIndex(0);
    combo()->lineEdit()->setText(QStringLiteral("typed"));
    EXPECT_TRUE(page().select(QStringLiteral("/a/One.GCFX")));
    EXPECT_EQ(page().path(), QStringLiteral("/a/One.GCFX"));
}

TEST_F(FilePagesTest, AMissingComboIsAnEmptyText) {
    const FilePage missing;
    EXPECT_EQ(missing.path(), QString());
    EXPECT_FALSE(missing.select(QString()));
}

TEST_F(FilePagesTest, EveryFlowHasItsPage) {
    EXPECT_EQ(&dialog.pages.of(FileFlow::Estimate), &dialog.pages.estimate);
    EXPECT_EQ(&dialog.pages.of(FileFlow::Settlement), &dialog.pages.settlement);
    EXPECT_EQ(&dialog.pages.of(FileFlow::Audit), &dialog.pages.audit);
    EXPECT_EQ(&dialog.pages.of(FileFlow::Contracting), &dialog.pages.contracting);
}

}  // namespace
