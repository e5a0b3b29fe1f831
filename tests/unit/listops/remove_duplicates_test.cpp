#include <string>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::Items;
using testing::Return;

using RemoveDuplicatesTest = test::CommandTest;

TEST_F(RemoveDuplicatesTest, AnyText_TellsTheCountTwiceAndLeavesTheMiddleLine) {
    SetNative("A1\r\nA1\r\n-nick-\r\nAl\r\nAl\r\n");
    module1.RefreshLists();
    EXPECT_CALL(platform, ShowBox(test::BoxIs("2"))).Times(2).WillRepeatedly(Return(Answer::OK));
    form1.mnuRemDup_Click();
    EXPECT_EQ(module1.WorkText, "-nick-");
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A1"}));
    EXPECT_EQ(Panel(2), "2 items");
}

TEST_F(RemoveDuplicatesTest, EmptyText_BecomesTheMiddleLine) {
    EXPECT_CALL(platform, ShowBox(test::BoxIs("0"))).Times(2).WillRepeatedly(Return(Answer::OK));
    form1.mnuRemDup_Click();
    EXPECT_EQ(module1.WorkText, "-nick-");
    EXPECT_EQ(module1.TextMode, "none");
}

}  // namespace
}  // namespace orvik
