// The commands of src/formats/netscape3_commands.cpp.

#include <string>

#include "unit/mock_platform.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::Items;
using test::kNetscape3Head;
using test::kNetscape3Tail;
using test::Netscape3Entry;
using testing::Return;

using UnNet3 = test::CommandTest;

TEST_F(UnNet3, Comma_CutsTheLastSeparator) {
    module1.textSep = ",";
    EXPECT_EQ(form1.UnNet3("x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>"), "\"A1\" Al");
}

TEST_F(UnNet3, Cr_CutsTheLastCharacterToo) {
    EXPECT_EQ(form1.UnNet3("x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>"), "\"A1\" A");
}

TEST_F(UnNet3, NoLink_TellsFailure5AndIsEmpty) {
    ExpectTold("Error #5");
    EXPECT_EQ(form1.UnNet3("no book"), "");
}

TEST_F(UnNet3, OneCharacterWithCr_TellsFailure5AndKeepsIt) {
    ExpectTold("Error #5");
    EXPECT_EQ(form1.UnNet3("x\">"), "\r");
}

// What stands in quotes becomes the nickname, so the link text is listed as the address.
TEST_F(UnNet3, ClipboardBookAfterNo_IsListedWithAddressAsNickname) {
    module1.textSep = ",";
    ExpectSaveQuestion("Save before clearing?", Answer::No);
    EXPECT_CALL(platform, ClipboardText())
        .WillOnce(Return("x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>"
                         "<DT><A HREF=\"mailto:A2\" ALIASID=\"1\">Bob</A><DD>rows"));
    form1.Caption = "Orvik - old";
    form1.mnuClearPasteNet3_Click();
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"Al", "Bo"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"A1", "A2"}));
    EXPECT_EQ(form1.Text1.Text(), "\"A1\" Al,\"A2\" Bob");
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_EQ(module1.Note.Text(), "1 attribute of 1 entry was not read");
}

// What was pasted is a list, whatever the book was that stood there.
TEST_F(UnNet3, ClipboardBookOverNativeText_IsTakenApart) {
    module1.textSep = ",";
    SetNative("A9\r\n-nick-\r\n\r\n");
    ExpectSaveQuestion("Save before clearing?", Answer::No);
    EXPECT_CALL(platform, ClipboardText())
        .WillOnce(Return("x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>"));
    form1.mnuClearPasteNet3_Click();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"A1"});
}

TEST_F(UnNet3, ClipboardBookAfterCancel_ChangesNothing) {
    SetNative("A9\r\n-nick-\r\n\r\n");
    ExpectSaveQuestion("Save before clearing?", Answer::Cancel);
    form1.mnuClearPasteNet3_Click();
    EXPECT_EQ(module1.WorkText, "A9\r\n-nick-\r\n\r\n");
}

using Net3 = test::CommandTest;

TEST_F(Net3, AsciiText_BecomesNativeWithoutAnotherMode) {
    SetAscii("\"Al\" <A1>\r\n");
    EXPECT_EQ(form1.Net3(module1.WorkText),
              std::string(kNetscape3Head) + Netscape3Entry("A1", "0", "Al") +
                  std::string(kNetscape3Tail));
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(Net3, Copy_PutsTheBookOnTheClipboard) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    const std::string book =
        std::string(kNetscape3Head) + Netscape3Entry("A1", "0", "Al") + std::string(kNetscape3Tail);
    EXPECT_CALL(platform, SetClipboardText(std::string_view(book)));
    form1.mnuCopyNet3_Click();
}

TEST_F(Net3, CopyOfEmptyText_LeavesTheClipboardAlone) {
    form1.mnuCopyNet3_Click();
}

}  // namespace
}  // namespace orvik
