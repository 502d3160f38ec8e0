#include "core/styleCodes.h"

#include "tests/support/TestSupport.h"

namespace {

TEST(StyleCodes, AreTheNumbersThatTheHostsWidgetsKnow) {
    EXPECT_EQ(newpro::SecondaryText, 2);
    EXPECT_EQ(newpro::CardWidget, 9);
    EXPECT_EQ(newpro::TransparentRow, 10);
    EXPECT_EQ(newpro::DividerLine, 13);
    EXPECT_EQ(newpro::SplitPart, 18);
    EXPECT_EQ(newpro::NewButton, 88);
}

}  // namespace
