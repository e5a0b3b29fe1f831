#include <string>

#include "app/messages.h"
#include "unit/failure.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::Items;

using ParseNicknamesTest = test::CommandTest;

// The line "-nick-" and the old nickname lines become entries of their own.
TEST_F(ParseNicknamesTest, NativeText_IsSplitLineByLine) {
    SetNative("Al <A1>\r\n-nick-\r\nBo\r\n");
    form1.mnuParse_Click();
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nBo\r\n-nick-\r\nAl \r\n\r\n\r\n");
    EXPECT_EQ(module1.EmailBlock, "A1\r\n-nick-\r\nBo");
    EXPECT_EQ(module1.NickBlock, "Al \r\n\r\n");
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(module1.TextMode, "Native");
}

TEST_F(ParseNicknamesTest, NativeTextWithCommas_IsSplitAtCommas) {
    module1.textSep = ",";
    SetNative("a,b\r\n-nick-\r\n\r\n");
    form1.mnuParse_Click();
    EXPECT_EQ(module1.EmailBlock, "a\r\nb\r-nick-\r\r");
}

TEST_F(ParseNicknamesTest, AsciiText_IsSplitTwice) {
    SetAscii("Al <A1>\r\n");
    form1.mnuParse_Click();
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl \r\n-nick-\r\n\r\n\r\n\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
}

TEST_F(ParseNicknamesTest, EmptyText_FailsWith5) {
    EXPECT_EQ(FailureOf([&] { form1.mnuParse_Click(); }), 5);
    EXPECT_EQ(module1.WorkText, "");
}

TEST_F(ParseNicknamesTest, TextWithoutMode_TellsAndBecomesNative) {
    module1.WorkText = "A1\r\n";
    ExpectTold(TextNonexistant("An Error type"));
    form1.mnuParse_Click();
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\n\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
}

}  // namespace
}  // namespace orvik
