#include "files/recovery_copy.h"

#include <gtest/gtest.h>

#include <string>

namespace orvik {
namespace {

RecoveryCopy Example() {
    return {.Text = std::string("A1\r\n-nick-\r\nAl\0\xFF\n\r\n", 21),
            .Mode = "Native",
            .Caption = "Orvik - book of\nAl.ldif",
            .Box = "other",
            .EditMode = true,
            .File = "book of\nAl.ldif",
            .Entries = 1,
            .Seconds = 1'700'000'000};
}

void ExpectEqual(const RecoveryCopy& read, const RecoveryCopy& written) {
    EXPECT_EQ(read.Text, written.Text);
    EXPECT_EQ(read.Mode, written.Mode);
    EXPECT_EQ(read.Caption, written.Caption);
    EXPECT_EQ(read.Box, written.Box);
    EXPECT_EQ(read.EditMode, written.EditMode);
    EXPECT_EQ(read.File, written.File);
    EXPECT_EQ(read.Entries, written.Entries);
    EXPECT_EQ(read.Seconds, written.Seconds);
}

TEST(RecoveryCopy, WhatWasWritten_IsReadAgain) {
    RecoveryCopy copy = Example();
    ExpectEqual(ReadRecoveryCopy(WriteRecoveryCopy(copy)).value(), copy);
    copy.EditMode = false;
    copy.File.clear();
    ExpectEqual(ReadRecoveryCopy(WriteRecoveryCopy(copy)).value(), copy);
    ExpectEqual(ReadRecoveryCopy(WriteRecoveryCopy({})).value(), {});
}

TEST(RecoveryCopy, BoxThatHoldsTheText_IsWrittenOnce) {
    RecoveryCopy copy = Example();
    copy.Text = copy.Box = std::string(100'000, 'x');
    const std::string bytes = WriteRecoveryCopy(copy);
    EXPECT_LT(bytes.size(), 101'000U);
    const RecoveryCopy read = ReadRecoveryCopy(bytes).value();
    ExpectEqual(read, copy);
    EXPECT_EQ(read.Box.Revision(), read.Text.Revision());
}

TEST(RecoveryCopy, UnknownField_IsLeftOut) {
    std::string bytes = WriteRecoveryCopy(Example());
    bytes.insert(bytes.find('\n') + 1, "colour of it 3\nr\ng\n");
    ExpectEqual(ReadRecoveryCopy(bytes).value(), Example());
}

TEST(RecoveryCopy, FileThatIsCutOffAnywhere_IsNone) {
    const std::string bytes = WriteRecoveryCopy(Example());
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_FALSE(ReadRecoveryCopy(std::string_view(bytes).substr(0, length))) << length;
    }
}

TEST(RecoveryCopy, NumberThatCannotBe_IsUnknown) {
    for (const char* const number : {"99999999999999999999", "x", "", "-1", "1 "}) {
        const std::string value = std::to_string(std::string_view(number).size()) + "\n" + number;
        const auto copy = ReadRecoveryCopy("orvik-recovery 1\nentries " + value + "\nseconds " +
                                           value + "\ntext 2\nAl\nend 0\n\n");
        ASSERT_TRUE(copy) << number;
        EXPECT_EQ(copy->Text, "Al");
        EXPECT_EQ(copy->Entries, kUnknownEntries) << number;
        EXPECT_EQ(copy->Seconds, 0) << number;
    }
    const auto late =
        ReadRecoveryCopy("orvik-recovery 1\nseconds 12\n253402300800\ntext 0\n\nend 0\n\n");
    EXPECT_EQ(late.value().Seconds, 0);
}

TEST(RecoveryCopy, WithoutAText_IsNone) {
    EXPECT_FALSE(ReadRecoveryCopy("orvik-recovery 1\nmode 6\nNative\nend 0\n\n"));
    EXPECT_FALSE(ReadRecoveryCopy("orvik-recovery 1\nbox-is-text 0\n\nend 0\n\n"));
}

TEST(RecoveryCopy, OfAFieldThatStandsTwice_TheFirstCounts) {
    const std::string bytes = WriteRecoveryCopy(Example());
    RecoveryCopy other = Example();
    other.Text = "other";
    other.Mode = "ASCII";
    other.Entries = 5;
    std::string twice = WriteRecoveryCopy(other);
    twice = bytes.substr(0, bytes.rfind("end")) + twice.substr(twice.find('\n') + 1);
    ExpectEqual(ReadRecoveryCopy(twice).value(), Example());
}

TEST(RecoveryCopy, BoxThatHoldsTheText_MayStandBeforeIt) {
    const auto copy =
        ReadRecoveryCopy("orvik-recovery 1\nbox-is-text 0\n\ntext 2\nAl\ntext 2\nBo\nend 0\n\n");
    EXPECT_EQ(copy.value().Box, "Al");
}

TEST(RecoveryCopy, AnythingElse_IsNone) {
    EXPECT_FALSE(ReadRecoveryCopy(""));
    EXPECT_FALSE(ReadRecoveryCopy("orvik-recovery 2\nend 0\n\n"));
    EXPECT_FALSE(ReadRecoveryCopy("orvik-recovery 1\nend\n\n"));
    EXPECT_FALSE(ReadRecoveryCopy("orvik-recovery 1\nend -1\n\n"));
    EXPECT_FALSE(ReadRecoveryCopy("orvik-recovery 1\nend 99999999999999999999\n\n"));
    EXPECT_FALSE(ReadRecoveryCopy("orvik-recovery 1\ntext 18446744073709551615\nx\nend 0\n\n"));
}

}  // namespace
}  // namespace orvik
