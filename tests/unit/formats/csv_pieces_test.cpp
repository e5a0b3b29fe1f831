// Books of commas that are read as they come.

#include "formats/csv_pieces.h"

#include <string>

#include "app/working_text.h"
#include "formats/csv_reader.h"
#include "formats/ldif_reader.h"
#include "unit/generated_texts.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::CsvLine;
using test::ForEveryText;
using test::ForRandomTexts;
using test::Fragments;

// Reads a text cut into pieces of so many bytes.
std::optional<ListedEntries> ReadCut(const std::string& text,
                                     std::size_t size,
                                     UnreadEntries& left_out) {
    CsvReading reading(left_out, text.size());
    for (std::size_t i = 0; i < text.size(); i += size) {
        // As what is read from a file: it is gone when the next piece comes.
        const std::string piece = text.substr(i, size);
        if (!reading.Take(piece)) {
            return std::nullopt;
        }
    }
    return std::move(reading).Entries();
}

// What is read as it comes is what is read as one text. Returns whether it could be.
bool CompareCut(const std::string& text, std::size_t size) {
    UnreadEntries left_out;
    const std::optional<ListedEntries> entries = ReadCut(text, size, left_out);
    if (!entries) {
        return false;
    }
    UnreadEntries expected_left_out;
    const std::optional<std::string> native = CsvToNative(text, &expected_left_out);
    EXPECT_TRUE(native.has_value()) << testing::PrintToString(text) << size;
    EXPECT_EQ(NativeOfEntries(entries->List, entries->AddressLengths), native)
        << testing::PrintToString(text) << size;
    EXPECT_EQ(entries->List, ReadWrittenLdif(native.value_or(""), "\r"))
        << testing::PrintToString(text) << size;
    EXPECT_EQ(left_out.Total(), expected_left_out.Total()) << testing::PrintToString(text) << size;
    return true;
}

// Whether a text can be read must not depend on how it comes.
void CompareCuts(const std::string& text) {
    const bool is_read = CompareCut(text, text.size() + 1);
    for (const std::size_t size : {1U, 2U, 17U, 64U}) {
        ASSERT_EQ(CompareCut(text, size), is_read) << testing::PrintToString(text) << size;
    }
}

constexpr std::string_view kThirteenCommas = ",,,,,,,,,,,,,";

TEST(CsvReading, EveryShortTextInPieces_IsReadAsOneText) {
    ForEveryText({"a", ",", "\r", "\n", "\r\n", kThirteenCommas}, 5, [](const std::string& text) {
        CompareCuts("h,\r\n" + text);
    });
}

TEST(CsvReading, RandomTextsInPieces_AreReadAsOneText) {
    const Fragments fragments = {"Al,A1,,,,,,,,,,,,,,\r\n",
                                 "\"Al \" <,<A1>,,,Al \",,,,,,,,,,,,\r\n",
                                 "Al,A1,,b\r\nc,\"\",,,,\r,,,,,,,x,-nick-,\"y\"\r\n",
                                 "-nick-,A1,,,,,,,,,,,,,,\r\r\n",
                                 "\xE9,A1,\n,,,,,,,,,,,,,\n,\r\n",
                                 ",,,,,,,,,,,,,,,\r\n",
                                 "Al,A1,,,,,,,,,,,,,,\r\n",
                                 "Al,A1,,,,,,,,,,,,,,A1\r\n"};
    ForRandomTexts(fragments, 40, 2000, [](const std::string& text) {
        CompareCuts("h\n" + text);
        CompareCuts("h\r\n" + text + "Al,A1,,,,,,,,,,,,,,\r");
        CompareCuts(text + "Al,A1,,,,,,,,,,,,,,x");
        CompareCuts(text + "Al,A1,,,,,,,,,,,,,,");
    });
}

TEST(CsvReading, TextsThatNeedToBeWhole_GiveNothing) {
    const std::string line = CsvLine("Al", "A1");
    for (const std::string& text : {std::string(),
                                    std::string("h"),
                                    std::string("h\r\n"),
                                    "h\r\n" + line + "\r\n",
                                    "h\r\n" + line + "Al,A1\r\n" + line,
                                    "h\r\n" + line + CsvLine("Al\r", "A1"),
                                    "h\r\n" + line + CsvLine("Al", "A\n1"),
                                    "h\r\n" + line + CsvLine("Al", "A1-nick-"),
                                    "h\r\n" + line + "Al,A1,,,,,,,,,,,,,,",
                                    std::string(20'000, 'h') + "\r\n" + line}) {
        EXPECT_FALSE(CompareCut(text, 64)) << text;
    }
}

TEST(CsvReading, UsualTexts_NeedNotBeWhole) {
    const std::string line = CsvLine("\"Al\"", "\"A1\" <A1>");
    const std::string long_line = "Al,A1,,,,,,,,,,,,,," + std::string(16'000, 'x') + "\r\n";
    for (const std::string& text : {"h\r\n" + line,
                                    "h\n" + line + line,
                                    "h\r\n" + line + long_line + line,
                                    "h\r\n" + line + "Al,A1,\r\n,,,,,,,,,,,,,\r\n",
                                    "h\r\n" + line + "Al,A1,,,,,,,,,,,,,,x",
                                    "h\r\n" + line + "Al,A1,,,,,,,,,,,,,,,,"}) {
        for (const std::size_t size : {1U, 64U, 1'000'000U}) {
            EXPECT_TRUE(CompareCut(text, size)) << text;
        }
    }
}

TEST(CsvReading, LongLine_NeedsToBeWhole) {
    const std::string text = "h\r\nAl,A1,,,,,,,,,,,,,," + std::string(17'000, 'x') + "\r\n";
    for (const std::size_t size : {1U, 64U, 1'000'000U}) {
        EXPECT_FALSE(CompareCut(text, size)) << size;
    }
}

}  // namespace
}  // namespace orvik
