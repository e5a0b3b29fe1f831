// The commands of src/formats/column_commands.cpp.

#include <string>

#include "unit/failure.h"
#include "unit/mock_platform.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::CsvLine;
using test::FailureOf;
using test::Items;

using LoadColumns = test::CommandTest;

TEST_F(LoadColumns, Csv_IsListedAndLeftInAsciiForm) {
    module1.WorkText = "h\r\n" + CsvLine("Al", "A1");
    module1.ReadCsv();
    EXPECT_EQ(ItemsOf(form1.List1), test::Items{"A1"});
    EXPECT_EQ(ItemsOf(form1.List2), test::Items{"Al"});
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_FALSE(module1.EditMode);
}

TEST_F(LoadColumns, WordPerfectInEditMode_IsNotListed) {
    module1.EditMode = true;
    module1.WorkText = "h\r\n1,Al,3,4,5,A1,7\r\n";
    module1.ReadWordPerfect();
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
    EXPECT_TRUE(form1.List1.Items().empty());
    EXPECT_TRUE(module1.EditMode);
}

TEST_F(LoadColumns, TextThatEndsInAColumn_TellsAndFailsWith5) {
    module1.TextMode = mode::kAscii;
    for (void (Module1::*read)() : {&Module1::ReadCsv, &Module1::ReadWordPerfect}) {
        module1.WorkText = "h\r\nAl";
        ExpectTold("Error!");
        EXPECT_EQ(FailureOf([&] { (module1.*read)(); }), 5);
        EXPECT_EQ(module1.WorkText, "h\r\nAl");
        testing::Mock::VerifyAndClearExpectations(&platform);
    }
    EXPECT_EQ(module1.TextMode, "ASCII");
}

// The way through LDIF gives a list without an entry, which cannot be split.
TEST_F(LoadColumns, HeaderOnly_FailsWith5) {
    module1.WorkText = "h\r\n";
    EXPECT_EQ(FailureOf([&] { module1.ReadCsv(); }), 5);
}

}  // namespace
}  // namespace orvik
