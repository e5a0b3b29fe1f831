#include <string>

#include "app/messages.h"
#include "app/working_text.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::Items;

constexpr const char* kTooMany =
    "Orvik cannot sort more than 500 addresses. If you need to sort this many addresses please use "
    "your addessbook program's sort function.";

class SortTest : public test::CommandTest {
 protected:
    static std::string Native(std::size_t entries) {
        std::string block;
        for (std::size_t i = 0; i < entries; ++i) {
            block += "a\r\n";
        }
        return block + "-nick-\r\n" + block;
    }
};

TEST_F(SortTest, ByAddress_IsListedAndShown) {
    SetNative("bx\r\nAx\r\n-nick-\r\n1\r\n2\r\n");
    form1.cmdEmail_Click();
    EXPECT_EQ(module1.WorkText, "Ax\r\nbx\r\n-nick-\r\n2\r\n1\r\n");
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"Ax", "bx"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"2", "1"}));
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_EQ(Panel(2), "2 items");
    EXPECT_FALSE(form1.ProgressBar1.Visible);
}

TEST_F(SortTest, ByNickname_IsListed) {
    SetNative("A1\r\nA2\r\n-nick-\r\nb\r\na\r\n");
    form1.cmdNick_Click();
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A2", "A1"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"a", "b"}));
}

TEST_F(SortTest, MenuItems_SortAsTheButtons) {
    SetNative("A1\r\nA2\r\n-nick-\r\nb\r\na\r\n");
    form1.mnuAlphNick_Click();
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A2", "A1"}));
    form1.mnuAlphAddr_Click();
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2"}));
}

TEST_F(SortTest, AsciiText_IsSplitFirst) {
    SetAscii("b\r\na\r\n");
    module1.SortByAddress();
    EXPECT_EQ(module1.WorkText, "a\r\nb\r\n-nick-\r\n\r\n\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
}

TEST_F(SortTest, EmptyText_DoesNothing) {
    form1.cmdEmail_Click();
    form1.cmdNick_Click();
    EXPECT_EQ(module1.TextMode, "none");
}

TEST_F(SortTest, NoMode_TellsAndChangesNothing) {
    module1.WorkText = "b\r\na\r\n";
    ExpectTold(TextNonexistant("An Error type"), "Error");
    module1.SortByAddress();
    ExpectTold(TextNonexistant("An Error has occured because an error type"));
    module1.SortByNickname();
    EXPECT_EQ(module1.WorkText, "b\r\na\r\n");
    EXPECT_EQ(Panel(1), "Welcome to Orvik");
}

TEST_F(SortTest, MoreThan500Items_OnlyTells) {
    SetNative("b\r\na\r\n-nick-\r\n\r\n\r\n");
    module1.ItemCount = 501;
    ExpectTold(kTooMany, "File too large");
    form1.cmdEmail_Click();
    EXPECT_EQ(module1.WorkText, "b\r\na\r\n-nick-\r\n\r\n\r\n");
}

TEST_F(SortTest, MoreThan500Lines_TellAndLeaveTheDisplay) {
    SetNative(Native(501));
    const SharedText before = module1.WorkText;
    ExpectTold(kTooMany, "File too large");
    module1.SortByNickname();
    EXPECT_EQ(module1.WorkText, before);
    EXPECT_EQ(Panel(1), "Alphabetizing");
    EXPECT_TRUE(form1.ProgressBar1.Visible);
}

TEST_F(SortTest, MoreThan500EntriesInAsciiForm_AreSplitButKeepTheirMode) {
    std::string list;
    for (int i = 0; i < 501; ++i) {
        list += "a\r\n";
    }
    SetAscii(list);
    ExpectTold(kTooMany, "File too large");
    module1.SortByAddress();
    EXPECT_NE(module1.WorkText.View().find("\r\n-nick-\r\n"), std::string_view::npos);
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(SortTest, FiveHundredEntries_LoseOne) {
    SetNative(Native(500));
    module1.SortByAddress();
    EXPECT_EQ(module1.WorkText, Native(499));
}

TEST_F(SortTest, Progress_CountsEvery20thSlotOfBothBlocks) {
    SetNative("b\r\na\r\n-nick-\r\n\r\n\r\n");
    std::vector<std::string> shown;
    form1.StatusBar1.TextChanged = [&](std::size_t, std::string_view text) {
        shown.emplace_back(text);
    };
    module1.SortByAddress();
    std::vector<std::string> expected = {"Alphabetizing"};
    for (int percent = 2; percent <= 100; percent += 2) {
        expected.push_back("Alphabetizing..." + std::to_string(percent) + "%");
    }
    expected.emplace_back("Ready");
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(form1.ProgressBar1.Value, 100);
}

TEST_F(SortTest, TextBeyondTheLimit_IsListedButNotShown) {
    const std::string address(kTextLimit, 'a');
    SetNative(address + "\r\n-nick-\r\n\r\n");
    form1.cmdEmail_Click();
    EXPECT_EQ(ItemsOf(form1.List1), Items{address});
    EXPECT_EQ(form1.Text1.Text(), "");
}

}  // namespace
}  // namespace orvik
