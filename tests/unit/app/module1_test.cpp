#include "app/module1.h"

#include <new>
#include <string>

#include "app/working_text.h"
#include "unit/failure.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::BoxIs;
using test::FailureOf;
using test::Items;

using Module1Test = test::CommandTest;

TEST_F(Module1Test, SplitEntries_KeepsBothBlocks) {
    SetAscii("old");
    EXPECT_EQ(module1.SplitEntries("\"Al\" <A1>\rA2\r", "txt"), "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n");
    EXPECT_EQ(module1.EmailBlock, "A1\r\nA2");
    EXPECT_EQ(module1.NickBlock, "Al\r\n");
    EXPECT_EQ(module1.WorkText, "old");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(Module1Test, SplitEntries_SplitsByTheSeparatorOfTheSettings) {
    module1.textSep = ",";
    EXPECT_EQ(module1.SplitEntries("A1,A2,", "txt"), "A1\r\nA2\r\n-nick-\r\n\r\n\r\n");
}

TEST_F(Module1Test, SplitEntriesWithoutEntry_FailsWith5AndEmptiesTheBlocks) {
    module1.SplitEntries("A1\r", "txt");
    EXPECT_EQ(FailureOf([&] { module1.SplitEntries("", "txt"); }), 5);
    EXPECT_EQ(module1.EmailBlock, "");
    EXPECT_EQ(module1.NickBlock, "");
}

TEST_F(Module1Test, SplitEntriesOfOtherKind_TellsAndFailsWith5) {
    ExpectTold("Error!");
    EXPECT_EQ(FailureOf([&] { module1.SplitEntries("A1\r", "csv"); }), 5);
}

TEST_F(Module1Test, SplitEntriesOfTheSameText_GivesTheSameText) {
    const SharedText list("\"Al\" <A1>\rA2,\r");
    const SharedText once = module1.SplitEntries(list, "txt");
    EXPECT_EQ(module1.SplitEntries(list, "txt").Revision(), once.Revision());
    EXPECT_EQ(module1.EmailBlock, "A1\r\nA2,");
    module1.textSep = ",";
    EXPECT_EQ(module1.SplitEntries(list, "txt"), SplitBlocks(list, ",").Native);
    EXPECT_EQ(module1.EmailBlock, "A1");
    EXPECT_EQ(FailureOf([&] { module1.SplitEntries("", "txt"); }), 5);
    EXPECT_EQ(module1.EmailBlock, "");
}

TEST_F(Module1Test, RefreshOfAsciiText_SplitsAndLists) {
    SetAscii("\"Al\" <A1>\r\nA2\r\n");
    module1.RefreshLists();
    EXPECT_EQ(module1.WorkText, "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"Al", ""}));
    EXPECT_EQ(module1.ItemCount, 2U);
    EXPECT_EQ(Panel(2), "2 items");
}

TEST_F(Module1Test, RefreshOfNativeText_DoesNotSplitAgain) {
    SetNative("\"Al\" <A1>\r\n-nick-\r\nBo\r\n");
    module1.RefreshLists();
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\n-nick-\r\nBo\r\n");
    EXPECT_EQ(ItemsOf(form1.List1), Items{"\"Al\" <A1>"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"Bo"});
}

TEST_F(Module1Test, RefreshOfEmptyAddressBlock_ListsOneEmptyItem) {
    SetNative("\r\n-nick-\r\nAl\r\n");
    module1.RefreshLists();
    EXPECT_EQ(ItemsOf(form1.List1), Items{""});
    EXPECT_EQ(Panel(2), "1 items");
}

TEST_F(Module1Test, SecondRefresh_ReplacesItemsAndSelection) {
    SetNative("A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n");
    module1.RefreshLists();
    form1.List1.Select({1});
    SetNative("A3\r\n-nick-\r\nCy\r\n");
    module1.RefreshLists();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A3"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"Cy"});
    EXPECT_TRUE(form1.List1.Selected().empty());
}

TEST_F(Module1Test, RefreshWithoutText_TellsAndLeavesTheLists) {
    form1.List1.AddItem("A1");
    ExpectTold(TextNonexistant("An Error type"));
    module1.RefreshLists();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(Panel(2), "0 Items");
}

TEST_F(Module1Test, RefreshOfTextBeingLoaded_Tells) {
    module1.TextMode = mode::kMoz4;
    ExpectTold(TextNonexistant("An Error type"));
    module1.RefreshLists();
}

TEST_F(Module1Test, RefreshOfListWithoutEntry_FailsWith5AndLeavesTextAndMode) {
    SetAscii("\r\n");
    form1.List1.AddItem("A1");
    EXPECT_EQ(FailureOf([&] { module1.RefreshLists(); }), 5);
    EXPECT_EQ(module1.WorkText, "\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
}

TEST_F(Module1Test, Answer_IsKeptAsItsNumber) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        EXPECT_CALL(platform,
                    ShowBox(BoxIs("Really?", "Title", Buttons::YesNoCancel, Icon::Question)))
            .WillOnce(testing::Return(answer))
            .RetiresOnSaturation();
        EXPECT_EQ(module1.Ask("Really?", "Title", Buttons::YesNoCancel, Icon::Question), answer);
        EXPECT_EQ(module1.MsgAnswer, std::to_string(static_cast<int>(answer)));
    }
}

TEST_F(Module1Test, ToldBox_LeavesTheLastAnswer) {
    module1.MsgAnswer = "7";
    ExpectTold("Text", "Title");
    module1.Tell("Text", "Title");
    EXPECT_EQ(module1.MsgAnswer, "7");
}

TEST_F(Module1Test, FailedEvent_IsReported) {
    EXPECT_CALL(platform, ReportFailure(testing::Property(&RunTimeError::Number, 53)));
    module1.RunEvent([] { throw RunTimeError(Failure::FileNotFound); });
}

TEST_F(Module1Test, EventThatRunsOutOfMemory_IsReportedAs7) {
    EXPECT_CALL(platform, ReportFailure(testing::Property(&RunTimeError::Number, 7)));
    module1.RunEvent([] { throw std::bad_alloc(); });
}

TEST_F(Module1Test, EventThatEndsTheProgram_PassesThrough) {
    EXPECT_CALL(platform, Ended());
    EXPECT_THROW(module1.RunEvent([&] { platform.End(); }), ProgramEnded);
}

}  // namespace
}  // namespace orvik
