#include "formats/ldif_reader.h"

#include <string>

#include "app/run_time_error.h"
#include "formats/ldif_writer.h"
#include "formats/progress.h"
#include "unit/generated_texts.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using test::Fragments;

struct Row {
    const char* name;
    std::string_view ldif;
    std::string_view separator;
    std::string list;
};

class ReadLdifTest : public testing::TestWithParam<Row> {};

TEST_P(ReadLdifTest, Row) {
    EXPECT_EQ(ReadLdif(GetParam().ldif, GetParam().separator), GetParam().list);
}

std::string NameOf(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Record,
    ReadLdifTest,
    testing::Values(
        Row{"NicknameThenAddress_IsOneEntry",
            "dn: x\r\nxmozillanickname: Al\r\nmail: A1\r\nsn: y\r\n\r\n",
            "\r",
            "\"Al\" <A1>\r\n"},
        Row{"Comma_EndsEntriesWithoutLf",
            "dn: x\r\nxmozillanickname: Al\r\nmail: A1\r\nsn: y\r\n\r\n",
            ",",
            "\"Al\" <A1>,"},
        Row{"AddressThenOtherLineThenNickname_KeepsTheirOrder",
            "dn: x\r\nmail: A1\r\nsn: y\r\nxmozillanickname: Al\r\n\r\n",
            "\r",
            "<A1>\"Al\" \r\n"},
        Row{"NicknameRightBehindAddress_IsPassedOver",
            "dn: x\r\nmail: A1\r\nxmozillanickname: Al\r\n\r\n",
            "\r",
            "<A1>\r\n"},
        Row{"AddressRightBehindAddress_IsPassedOver",
            "dn: x\r\nmail: A1\r\nmail: A2\r\n\r\n",
            ",",
            "<A1>,"},
        Row{"NicknameRightBehindNickname_IsRead",
            "dn: x\r\nxmozillanickname: Al\r\nxmozillanickname: Bo\r\n\r\n",
            ",",
            "\"Al\" \"Bo\" ,"},
        Row{"AddressLast_GetsNoSeparator",
            "dn: x\r\nmail: A1\r\n\r\ndn: y\r\nmail: A2\r\nsn: z\r\n\r\n",
            ",",
            "<A1><A2>,"},
        Row{"NoNickname_GivesBracketsOnly", "dn: x\r\nmail: A1\r\nsn: y\r\n\r\n", ",", "<A1>,"},
        Row{"NoAddress_GivesQuotesOnly", "dn: x\r\nxmozillanickname: Al\r\n\r\n", ",", "\"Al\" ,"},
        Row{"TwoEmptyLines_GiveTwoSeparators",
            "dn: x\r\nxmozillanickname: Al\r\n\r\n\r\n",
            ",",
            "\"Al\" ,,"},
        Row{"NoEmptyLineAtEnd_IsStillEnded",
            "dn: x\r\nxmozillanickname: Al\r\n",
            "\r",
            "\"Al\" \r\n"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Value,
    ReadLdifTest,
    testing::Values(
        Row{"EmptyNickname_GivesTwoQuotes",
            "dn: x\r\nxmozillanickname: \r\nmail: A1\r\nsn: y\r\n\r\n",
            ",",
            "\"\" <A1>,"},
        Row{"EmptyAddress_GivesEmptyBrackets", "dn: x\r\nmail: \r\nsn: y\r\n\r\n", ",", "<>,"},
        Row{"QuoteInNickname_IsCopied",
            "dn: x\r\nxmozillanickname: A\"l\r\n\r\n",
            ",",
            "\"A\"l\" ,"},
        Row{"LoneCrAndLfInValue_AreCopied",
            "dn: x\r\nmail: A\r1\n2\r\nsn: y\r\n",
            ",",
            "<A\r1\n2>,"},
        Row{"FoldedValue_IsNotUnfolded", "dn: x\r\nmail: A\r\n 1\r\n\r\n", ",", "<A>,"},
        Row{"Base64_IsNotRead", "dn: x\r\nxmozillanickname:: QWw=\r\n\r\n", ",", ","},
        Row{"NicknameOnUnendedLastLine_IsReadWhole",
            "dn: x\r\nxmozillanickname: Al",
            "\r",
            "\"Al\" \r\n"},
        Row{"AddressOnUnendedLastLine_IsReadWhole", "dn: x\r\nmail: A1", "\r", "<A1>\r\n"},
        Row{"EmptyNicknameAtEndOfText_IsRead", "x\r\nxmozillanickname: ", ",", "\"\" ,"},
        Row{"EmptyAddressAtEndOfText_IsRead", "x\r\nmail: ", ",", "<>,"},
        Row{"LastLineEndedByCrOnly_KeepsTheCr", "x\r\nmail: A1\r", ",", "<A1\r>,"},
        Row{"ValueEndsWithSeparator_IsStillEnded", "x\r\nmail: A1,\r\n", ",", "<A1,>,"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Key,
    ReadLdifTest,
    testing::Values(Row{"AtStartOfText_IsNotRead", "mail: A1\r\n", ",", ","},
                    Row{"OtherCase_IsNotRead", "x\r\nMail: A1\r\n", ",", ","},
                    Row{"NoBlankBehindColon_IsNotRead", "x\r\nmail:A1\r\n", ",", ","},
                    Row{"BehindLoneLf_IsNotRead", "x\nmail: A1\nsn: y\n\n", ",", ","},
                    Row{"BehindLoneCr_IsNotRead", "x\rmail: A1\r", ",", ","},
                    Row{"InsideLine_IsNotRead", "x\r\n mail: A1\r\n", ",", ","},
                    Row{"LfOnlyText_GivesOneSeparator",
                        "dn: x\nxmozillanickname: Al\nmail: A1\n\n",
                        "\r",
                        "\r\n"},
                    Row{"EmptyText_GivesOneSeparator", "", "\r", "\r\n"},
                    Row{"EmptyTextWithComma_GivesOneSeparator", "", ",", ","},
                    Row{"EmptyLineOnly_GivesOneSeparator", "\r\n\r\n", "\r", "\r\n"}),
    NameOf);

// The reader once more, slow and literal. A value that nothing ends goes to the end of the text.
std::string ReadLiterally(std::string_view ldif, std::string_view separator) {
    const auto mid = [&](std::size_t p, std::size_t length) {
        return p <= ldif.size() ? ldif.substr(p - 1, length) : std::string_view();
    };
    const auto copy_value = [&](std::size_t& i, std::string& list) {
        while (mid(i, 2) != "\r\n" && i <= ldif.size()) {
            list += mid(i, 1);
            ++i;
        }
    };
    std::string list;
    const auto end_entry = [&] {
        list += separator;
        if (separator == "\r") {
            list += "\n";
        }
    };
    for (std::size_t i = 1; i <= ldif.size(); ++i) {
        if (mid(i, 20) == "\r\nxmozillanickname: ") {
            i += 20;
            list += "\"";
            copy_value(i, list);
            list += "\" ";
            i -= 2;
        } else if (mid(i, 8) == "\r\nmail: ") {
            i += 8;
            list += "<";
            copy_value(i, list);
            list += ">";
        } else if (mid(i, 4) == "\r\n\r\n") {
            end_entry();
        }
    }
    const std::string last = list.empty() ? "" : list.substr(list.size() - 1);
    if (last != separator && last != "\n") {
        end_entry();
    }
    return list;
}

void CompareReads(const std::string& text) {
    for (const std::string_view separator : {"\r", ","}) {
        ASSERT_EQ(ReadLdif(text, separator), ReadLiterally(text, separator))
            << testing::PrintToString(text);
    }
}

const Fragments& LdifFragments() {
    static const Fragments fragments = {
        "a", "\r", "\n", "\r\n", "\r\nxmozillanickname: ", "\r\nmail: ", ",", "mail: "};
    return fragments;
}

TEST(ReadLdif, EveryShortText_EqualsLiteralReader) {
    ForEveryText(LdifFragments(), 5, CompareReads);
}

TEST(ReadLdif, EveryTextOfSevenBreaksAndKeys_EqualsLiteralReader) {
    ForEveryText({"a", "\r", "\n", "\r\nxmozillanickname: ", "\r\nmail: "}, 7, CompareReads);
}

TEST(ReadLdif, RandomLongTexts_EqualLiteralReader) {
    ForRandomTexts(LdifFragments(), 60, 4000, CompareReads);
}

class NoProgress : public Progress {
 public:
    void Percent(int /*percent*/) override {}
    void Record() override {}
};

void CompareWritten(const std::string& native) {
    for (const std::string_view separator : {"\r", ",", ""}) {
        NoProgress progress;
        std::string ldif;
        try {
            ldif = WriteLdif(native, progress);
        } catch (const RunTimeError&) {
            continue;  // no entry
        }
        ASSERT_EQ(ReadWrittenLdif(native, separator), ReadLdif(ldif, separator))
            << testing::PrintToString(native);
    }
}

TEST(ReadWrittenLdif, EveryShortText_EqualsReadingWhatWasWritten) {
    ForEveryText({"a", "\r", "\n", "\r\n", "-nick-", ",", ">"}, 6, CompareWritten);
}

TEST(ReadWrittenLdif, RandomLongTexts_EqualReadingWhatWasWritten) {
    ForRandomTexts({"a",
                    "Al",
                    "\r",
                    "\n",
                    "\r\n",
                    "\r\n-nick-\r\n",
                    "\r\nmail: ",
                    "\r\nxmozillanickname: ",
                    "\r\n\r\n",
                    ",",
                    "\"",
                    ">"},
                   40,
                   20000,
                   CompareWritten);
}

}  // namespace
}  // namespace orvik
