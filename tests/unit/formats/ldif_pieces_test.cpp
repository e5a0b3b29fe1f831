// LDIF that is read as it comes, and LDIF that is made of what was read.

#include <string>
#include <vector>

#include "formats/ldif_reader.h"
#include "unit/generated_texts.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using test::Fragments;

const Fragments& Lines() {
    static const Fragments fragments = {"a",
                                        "\r",
                                        "\n",
                                        "\r\n",
                                        "\r\n\r\n",
                                        "\r\nxmozillanickname: ",
                                        "\r\nmail: ",
                                        "\r\nsn: b",
                                        "\"",
                                        "\" <",
                                        ">\"",
                                        ">"};
    return fragments;
}

// Reads a text cut into pieces of so many bytes.
void CompareCut(const std::string& text, std::size_t size) {
    UnreadEntries expected_left_out;
    const std::string expected = ReadLdif(text, "\r", &expected_left_out);
    UnreadEntries left_out;
    LdifReading reading("\r", &left_out);
    for (std::size_t i = 0; i < text.size(); i += size) {
        // As what is read from a file: it is gone when the next piece comes.
        const std::string piece = text.substr(i, size);
        reading.Take(piece);
    }
    ASSERT_EQ(std::move(reading).List(), expected) << testing::PrintToString(text) << size;
    ASSERT_EQ(left_out.Total(), expected_left_out.Total()) << testing::PrintToString(text) << size;
}

TEST(LdifReading, EveryShortTextInPieces_IsReadAsOneText) {
    ForEveryText(
        {"a", "\r", "\n", "\r\n\r\n", "\r\nmail: ", "\r\nsn: b"}, 4, [](const std::string& text) {
            for (const std::size_t size : {1U, 2U, 5U}) {
                CompareCut(text, size);
            }
        });
}

TEST(LdifReading, RandomTextsInPieces_AreReadAsOneText) {
    ForRandomTexts(Lines(), 60, 2000, [](const std::string& text) {
        for (const std::size_t size : {1U, 17U, 64U}) {
            CompareCut(text, size);
        }
    });
}

void CompareLdifOf(const std::string& text) {
    std::string ldif;
    GiveLdifOf(ReadLdif(text, "\r"), [&ldif](std::string_view piece) { ldif.append(piece); });
    for (const std::string_view separator : {"\r", ",", ""}) {
        ASSERT_EQ(ReadLdif(ldif, separator), ReadLdif(text, separator))
            << testing::PrintToString(text);
    }
}

TEST(GiveLdifOf, EveryShortText_IsReadAsBefore) {
    ForEveryText({"a", "\r", "\"", "\r\n\r\n", "\r\nmail: ", "\r\nxmozillanickname: ", "<", ">"},
                 5,
                 CompareLdifOf);
}

TEST(GiveLdifOf, RandomTexts_AreReadAsBefore) {
    ForRandomTexts(Lines(), 60, 3000, CompareLdifOf);
}

TEST(GiveLdifOf, List_IsTheLinesThatAreRead) {
    std::string ldif;
    GiveLdifOf("\"Al\" <A1>\r\n", [&ldif](std::string_view piece) { ldif.append(piece); });
    EXPECT_EQ(ldif, "\r\nxmozillanickname: Al\r\nmail: A1\r\n\r\n\r\n");
}

}  // namespace
}  // namespace orvik
