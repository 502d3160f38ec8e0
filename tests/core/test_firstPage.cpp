/// What the creation flows learn from the host's first-page service.
#include "core/firstPage.h"

#include "osgi.h"
#include "tests/support/TestSupport.h"

namespace {

using testing_support::flowLines;
using testing_support::Lines;
using workbench::FirstPage;

const std::string lookup = "call osgi::ObjectHelper::GetService(\"firstPagePlugin\")";
const std::string question = "call FirstPagePlugin::canStartNew(true)";

class TheFirstPage : public testing::Test {
  protected:
    testing_support::TemporaryInstallation host;
};

TEST_F(TheFirstPage, IsTheHostsServiceOfThatName) {
    FirstPagePlugin* service = newpro::firstPageService();
    EXPECT_TRUE(service);
    EXPECT_EQ(flowLines(), Lines{lookup}) << "it is looked up and not asked anything";
    host.switches().firstPage = FirstPage::Absent;
    EXPECT_FALSE(newpro::firstPageService());
}

TEST_F(TheFirstPage, IsAskedWhetherTheHostIsReady) {
    EXPECT_TRUE(newpro::hostIsReady());
    EXPECT_EQ(flowLines(), (Lines{lookup, question}));
    host.switches().firstPage = FirstPage::Busy;
    EXPECT_FALSE(newpro::hostIsReady());
}

TEST_F(TheFirstPage, ThatTheHostLacksIsNotReady) {
    host.switches().firstPage = FirstPage::Absent;
    EXPECT_FALSE(newpro::hostIsReady());
    EXPECT_EQ(flowLines(), Lines{lookup});
}

}  // namespace
