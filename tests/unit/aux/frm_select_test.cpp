#include "aux/frm_select.h"

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::Items;
using testing::Ref;

class FrmSelectTest : public test::CommandTest {
 protected:
    void Show() {
        EXPECT_CALL(platform, ShowForm(Ref(frm_select), Showing::Modeless));
        form1.mnuList_Click();
    }
    // The button, which closes the window.
    void Select() {
        EXPECT_CALL(platform, CloseForm(Ref(frm_select)));
        frm_select.Command1_Click();
    }

    FrmSelect& frm_select = module1.frm_select;
};

TEST_F(FrmSelectTest, Window_HasItsCaptions) {
    EXPECT_EQ(frm_select.Caption, "Generate List?");
    EXPECT_EQ(frm_select.Command1.Caption, "&Select Addresses");
    EXPECT_EQ(frm_select.Command2.Caption, "Select &All");
    EXPECT_EQ(frm_select.Command3.Caption, "&Cancel");
}

TEST_F(FrmSelectTest, NoItems_TellsAndCloses) {
    Show();
    ExpectTold("ListCount evaluates to Zero", "No Information Available");
    Select();
    EXPECT_FALSE(form1.List3.Visible);
    EXPECT_FALSE(form1.cmdDone.Visible);
    EXPECT_FALSE(form1.cmdCancel.Visible);
}

TEST_F(FrmSelectTest, Items_AreNumberedFromOne) {
    SetAscii("A1\r\nA2\r\nA3\r\n");
    module1.RefreshLists();
    Show();
    Select();
    EXPECT_EQ(ItemsOf(form1.List3), (Items{"1", "2", "3"}));
    EXPECT_TRUE(form1.List3.Visible);
    EXPECT_TRUE(form1.cmdDone.Visible);
    EXPECT_TRUE(form1.cmdCancel.Visible);
    EXPECT_FALSE(frm_select.Loaded());
}

TEST_F(FrmSelectTest, SecondTime_AddsASecondRunOfNumbers) {
    SetAscii("A1\r\nA2\r\n");
    module1.RefreshLists();
    for (int i = 0; i < 2; ++i) {
        Show();
        Select();
        testing::Mock::VerifyAndClearExpectations(&platform);
    }
    EXPECT_EQ(ItemsOf(form1.List3), (Items{"1", "2", "1", "2"}));
}

}  // namespace
}  // namespace orvik
