#include "formats/netscape3_writer.h"

#include <cstddef>
#include <string>

#include "unit/failure.h"
#include "unit/generated_texts.h"
#include "unit/literal_text.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::ForEveryText;
using test::ForRandomTexts;
using test::kNetscape3Head;
using test::kNetscape3Tail;
using test::LiteralText;
using test::Netscape3Entry;

struct Row {
    const char* name;
    std::string_view native;
    std::string entries;
};

class WriteNetscape3Test : public testing::TestWithParam<Row> {};

TEST_P(WriteNetscape3Test, Row) {
    EXPECT_EQ(WriteNetscape3(GetParam().native),
              std::string(kNetscape3Head) + GetParam().entries + std::string(kNetscape3Tail));
}

INSTANTIATE_TEST_SUITE_P(
    ,
    WriteNetscape3Test,
    testing::Values(
        Row{"OneEntry_IsOneLink", "A1\r\n-nick-\r\nAl\r\n", Netscape3Entry("A1", "0", "Al")},
        Row{"Entries_AreNumberedFromZero",
            "A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n",
            Netscape3Entry("A1", "0", "Al") + Netscape3Entry("A2", "1", "Bo")},
        Row{"NoAddressLines_IsAnEmptyBook", "-nick-\r\n", ""},
        Row{"EmptyText_IsAnEmptyBook", "", ""},
        Row{"EmptyAddress_UsesUpANumber",
            "\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n",
            Netscape3Entry("", "0", "Al") + Netscape3Entry("A2", "1", "Bo")},
        Row{"EmptyNickname_IsEmptyLinkText", "A1\r\n-nick-\r\n\r\n", Netscape3Entry("A1", "0", "")},
        Row{"BlankAndQuoteInAddress_AreReplaced",
            "Al \"S\" mith\r\n-nick-\r\nAl\r\n",
            Netscape3Entry("Al_'S'_mith", "0", "Al")},
        Row{"Nickname_IsCopiedUnchanged",
            "A1\r\n-nick-\r\nA \"l\" <b> &\r\n",
            Netscape3Entry("A1", "0", "A \"l\" <b> &")},
        Row{"LoneCrInAddress_IsKept",
            "A\r1\r\n-nick-\r\nAl\r\n",
            Netscape3Entry("A\r1", "0", "Al")},
        Row{"LfLine_LosesItsLastTwoCharacters",
            "A12\n-nick-\r\nAl\r\n",
            Netscape3Entry("A1", "0", "Al")},
        Row{"UnendedNickname_GoesToTheEnd", "A1\r\n-nick-\r\nAl", Netscape3Entry("A1", "0", "Al")},
        Row{"MissingNicknames_AreEmpty",
            "A1\r\nA2\r\n-nick-\r\n",
            Netscape3Entry("A1", "0", "") + Netscape3Entry("A2", "1", "")},
        Row{"NoSeparator_IsReadAsIfItStoodAtTheEnd",
            "A1\r\nA2",
            Netscape3Entry("A1", "0", "") + Netscape3Entry("A2", "1", "")},
        Row{"AddressWithoutLineEnd_RunsIntoTheSeparator",
            "A1-nick-\r\nAl\r\n",
            Netscape3Entry("A1-nick-", "0", "Al")}),
    [](const auto& row) { return row.param.name; });

TEST(WriteNetscape3, Header_HasItsLength) {
    EXPECT_EQ(kNetscape3Head.size(), kNetscape3HeaderLength);
}

TEST(WriteNetscape3, LoneLfAsAddressLine_FailsWith5) {
    EXPECT_EQ(FailureOf([] { static_cast<void>(WriteNetscape3("\n-nick-\r\n\r\n")); }), 5);
}

// The writer once more, slow and literal.
std::string WriteLiterally(const std::string& text) {
    const std::string whole = test::WithSeparator(text);
    const LiteralText mid(whole);
    std::string book(kNetscape3Head);
    std::size_t p = 1;
    while (mid(p, 6) != "-nick-") {
        ++p;
    }
    std::size_t q = p + 8;
    const auto last = static_cast<std::ptrdiff_t>(p) - 2;
    std::size_t number = 0;
    for (std::ptrdiff_t k = 0; k <= last; ++k) {
        std::string address;
        std::string c;
        while (c != "\n" && static_cast<std::size_t>(k) + 1 <= mid.size()) {
            c = mid(static_cast<std::size_t>(k) + 1);
            if (c == "\"") {
                c = "'";
            } else if (c == " ") {
                c = "_";
            }
            address += c;
            ++k;
        }
        if (!address.empty()) {
            std::string nickname;
            while (mid(q, 2) != "\r\n" && q <= mid.size()) {
                nickname += mid(q);
                ++q;
            }
            q += 2;
            if (address.size() < 2) {
                throw RunTimeError(Failure::InvalidProcedureCall);
            }
            address.erase(address.size() - 2);
            book += "\r\n    <DT><A HREF=\"mailto:" + address + "\" ALIASID=\"" +
                    std::to_string(number) + "\">" + nickname + "</A>\r\n<DD>\r\n";
            ++number;
            --k;
        }
    }
    return book + "\r\n</DL><p>";
}

void CompareWrites(const std::string& text) {
    std::string expected;
    std::string actual;
    const int failure = FailureOf([&] { expected = WriteLiterally(text); });
    ASSERT_EQ(FailureOf([&] { actual = WriteNetscape3(text); }), failure)
        << testing::PrintToString(text);
    ASSERT_EQ(actual, expected) << testing::PrintToString(text);
}

TEST(WriteNetscape3, EveryShortText_EqualsLiteralWriter) {
    ForEveryText({"a", "\"", " ", "\r", "\n", "\r\n", "-nick-"}, 6, CompareWrites);
}

TEST(WriteNetscape3, RandomLongTexts_EqualLiteralWriter) {
    ForRandomTexts(
        {"a", "\"", " ", "\r", "\r\n", "A1\r\n", "\r\n-nick-\r\n", "-", "\xE9", "\r\nBo"},
        60,
        4000,
        CompareWrites);
}

}  // namespace
}  // namespace orvik
