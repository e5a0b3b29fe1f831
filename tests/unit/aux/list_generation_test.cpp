#include <string>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

class ListGenerationTest : public test::CommandTest {
 protected:
    void Number(std::size_t rows, std::vector<std::size_t> selected) {
        for (std::size_t i = 1; i <= rows; ++i) {
            form1.List3.AddItem(std::to_string(i));
        }
        form1.List3.Select(std::move(selected));
    }
};

TEST_F(ListGenerationTest, SelectedRows_GiveALineEach) {
    SetNative("A1\r\nA2\r\nA3\r\n-nick-\r\nAl\r\nBo\r\n\r\n");
    Number(3, {0, 2});
    ExpectTold("A1 Al\r\nA3 \r\n");
    module1.ListSelected();
}

TEST_F(ListGenerationTest, NoRowSelected_GivesAnEmptyBox) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    Number(1, {});
    ExpectTold("");
    module1.ListSelected();
}

TEST_F(ListGenerationTest, Comma_DropsBlanksOfAddresses) {
    module1.textSep = ",";
    SetNative("A 1\r\n-nick-\r\nA l\r\n");
    Number(1, {0});
    ExpectTold("A1 A l\r\n");
    module1.ListSelected();
}

TEST_F(ListGenerationTest, Cr_KeepsBlanksOfAddresses) {
    SetNative("A 1\r\n-nick-\r\nAl\r\n");
    Number(1, {0});
    ExpectTold("A 1 Al\r\n");
    module1.ListSelected();
}

TEST_F(ListGenerationTest, RowsBeyondTheEntries_GiveNothing) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    Number(3, {0, 1, 2});
    ExpectTold("A1 Al\r\n");
    module1.ListSelected();
}

TEST_F(ListGenerationTest, EmptyText_GivesAnEmptyBox) {
    Number(2, {0, 1});
    ExpectTold("");
    module1.ListSelected();
}

TEST_F(ListGenerationTest, Panel_ShowsEntryByPositionOfTheMiddleLine) {
    SetNative("A1\r\nA2\r\n-nick-\r\n\r\n\r\n");
    Number(2, {});
    std::vector<std::string> shown;
    form1.StatusBar1.TextChanged = [&](std::size_t, std::string_view text) {
        shown.emplace_back(text);
    };
    ExpectTold("");
    module1.ListSelected();
    EXPECT_EQ(shown, (std::vector<std::string>{"Converting: 11%", "Converting: 22%"}));
}

TEST_F(ListGenerationTest, Done_PutsTheNumbersAway) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    Number(1, {0});
    form1.List3.Visible = true;
    form1.cmdDone.Visible = true;
    form1.cmdCancel.Visible = true;
    ExpectTold("A1 Al\r\n");
    form1.cmdDone_Click();
    EXPECT_TRUE(form1.List3.Items().empty());
    EXPECT_FALSE(form1.List3.Visible);
    EXPECT_FALSE(form1.cmdDone.Visible);
    EXPECT_FALSE(form1.cmdCancel.Visible);
    EXPECT_EQ(Panel(1), "Ready");
}

}  // namespace
}  // namespace orvik
