#include "book_cli/prepared.h"

#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book_cli/limits.h"
#include "book_cli/verbs.h"
#include "platform/system_files.h"

namespace orvik::book_cli {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::StartsWith;

class PreparedTest : public testing::Test {
 protected:
    // A book of so many people.
    void Read(int people, const std::string& more = {}) {
        std::string cards;
        for (int i = 0; i < people; ++i) {
            cards +=
                "BEGIN:VCARD\nVERSION:3.0\nFN:P" + std::to_string(i) + "\n" + more + "END:VCARD\n";
        }
        LoadBytes(console, "a.vcf", cards, loaded);
    }
    void For(std::string_view program) {
        arguments.What = Verb::Convert;
        arguments.For = ProgramNamed(program);
        arguments.Choose(FormFor(*arguments.For, false));
    }

    std::ostringstream out;
    std::ostringstream err;
    SystemFiles files;
    cli::Messenger messages{"orvik-book", err, false, 0ms};
    Surroundings around{files, out, messages, false, nullptr, nullptr};
    Console console{around};
    Loaded loaded;
    Arguments arguments;
};

TEST_F(PreparedTest, WhatWouldBeLostIsRefusedUnlessItMayBe) {
    Read(1, "KEY;ENCODING=b:QUJD\n");
    For("google");
    EXPECT_THAT(Prepare(arguments, loaded, console).Refused, StartsWith("1 value would be lost"));
    Loaded again;
    std::swap(again, loaded);
    Read(1, "KEY;ENCODING=b:QUJD\n");
    arguments.AllowLoss = true;
    const Prepared made = Prepare(arguments, loaded, console);
    EXPECT_EQ(made.Refused, "");
    EXPECT_EQ(made.Whole.Records, 1U);
    EXPECT_THAT(made.Whole.Text, HasSubstr("P0"));
    EXPECT_EQ(CountsText(console, arguments, loaded, made.Whole),
              "read 1   written 1   carried 0   lost 1");
}

TEST_F(PreparedTest, TooManyRecordsAreRefusedAndSplit) {
    Read(3);
    For("outlook");
    arguments.Choose(*FormOf(*arguments.For, ".vcf"));
    const auto too_many = TooManyRecords(arguments, 3);
    ASSERT_TRUE(too_many);
    EXPECT_EQ(too_many->Most, 1U);
    EXPECT_EQ(too_many->Files, 3U);
    EXPECT_EQ(too_many->Unlimited->Ending, ".csv");
    EXPECT_THAT(Prepare(arguments, loaded, console).Refused,
                StartsWith("Outlook reads the first card"));
    arguments.Split = 1;
    arguments.Output = "a.vcf";
    EXPECT_FALSE(TooManyRecords(arguments, 3));
    Prepared made = Prepare(arguments, loaded, console);
    ASSERT_EQ(made.Parts.size(), 3U);
    EXPECT_EQ(made.Parts[2].Name, "a-3.vcf");
    NameParts("b/c.vcf", made.Parts);
    EXPECT_EQ(made.Parts[0].Name, "b/c-1.vcf");
    EXPECT_THAT(std::string(made.Parts[1].Contents.View()), HasSubstr("FN:P1"));
}

TEST_F(PreparedTest, ImportIsASentence) {
    For("apple");
    EXPECT_THAT(ImportText(*arguments.Form, 0), StartsWith("Import in Contacts on a Mac"));
    EXPECT_THAT(ImportText(*arguments.Form, 2), StartsWith("Import each file in Contacts"));
    For("mutt");
    EXPECT_THAT(ImportText(*arguments.Form, 1), StartsWith("Use it in mutt: "));
}

}  // namespace
}  // namespace orvik::book_cli
