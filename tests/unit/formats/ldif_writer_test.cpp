#include "formats/ldif_writer.h"

#include <algorithm>
#include <string>
#include <vector>

#include "unit/failure.h"
#include "unit/generated_texts.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::ForEveryText;
using test::ForRandomTexts;
using test::Fragments;
using test::LdifRecord;

constexpr int kRecordEvent = -1;

// What is reported, in order: percentages, and kRecordEvent for each record.
class Recorder : public Progress {
 public:
    void Percent(int percent) override { events.push_back(percent); }
    void Record() override { events.push_back(kRecordEvent); }

    std::vector<int> events;
};

std::string Write(std::string_view native) {
    Recorder progress;
    return WriteLdif(native, progress);
}

TEST(WriteLdif, OneEntry_IsOneRecord) {
    EXPECT_EQ(Write("A1\r\n-nick-\r\nAl\r\n"),
              "dn: cn=Al,mail=A1\r\n"
              "cn: Al\r\n"
              "givenname: Al\r\n"
              "xmozillanickname: Al\r\n"
              "objectclass: top\r\n"
              "objectclass: person\r\n"
              "mail: A1\r\n"
              "xnavusehtmlmail: TRUE\r\n");
}

TEST(WriteLdif, SecondEntryWithoutNickname_KeepsBlankBehindColons) {
    EXPECT_EQ(Write("A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n"),
              "dn: cn=Al,mail=A1\r\n"
              "cn: Al\r\n"
              "givenname: Al\r\n"
              "xmozillanickname: Al\r\n"
              "objectclass: top\r\n"
              "objectclass: person\r\n"
              "mail: A1\r\n"
              "xnavusehtmlmail: TRUE\r\n"
              "\r\n"
              "dn: cn=,mail=A2\r\n"
              "cn: \r\n"
              "givenname: \r\n"
              "xmozillanickname: \r\n"
              "objectclass: top\r\n"
              "objectclass: person\r\n"
              "mail: A2\r\n"
              "xnavusehtmlmail: TRUE\r\n");
}

struct Row {
    const char* name;
    std::string_view native;
    std::string ldif;
};

class WriteLdifTest : public testing::TestWithParam<Row> {};

TEST_P(WriteLdifTest, Row) {
    EXPECT_EQ(Write(GetParam().native), GetParam().ldif);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    WriteLdifTest,
    testing::Values(
        Row{"CommaInNickname_IsCopied",
            "A\r\n-nick-\r\nSmith, Al\r\n",
            LdifRecord("A", "Smith, Al")},
        Row{"EqualsSignInNickname_IsCopied", "A\r\n-nick-\r\na=b\r\n", LdifRecord("A", "a=b")},
        Row{"BytesAbove127_AreCopied", "\xE9\r\n-nick-\r\n\xFF\r\n", LdifRecord("\xE9", "\xFF")},
        Row{"EmptyAddress_KeepsItsLines", "\r\n-nick-\r\nAl\r\n", LdifRecord("", "Al")},
        Row{"NicknameWithoutCrLf_LosesLastCharacter", "A\r\n-nick-\r\nAlx", LdifRecord("A", "Al")},
        Row{"LfInAddress_IsDropped", "\nA\n1\r\n-nick-\r\nAl\r\n", LdifRecord("A1", "Al")},
        Row{"LfInNickname_IsCopied", "A\r\n-nick-\r\nA\nl\r\n", LdifRecord("A", "A\nl")},
        Row{"SeparatorInsideLine_DropsThatLine", "A1\r\nA-nick-\r\nAl\r\n", LdifRecord("A1", "Al")},
        Row{"NoSeparator_IsReadAsIfItStoodAtTheEnd",
            "A1\r\nA2",
            LdifRecord("A1", "") + "\r\n" + LdifRecord("A2", "")}),
    [](const auto& row) { return row.param.name; });

TEST(GiveLdif, LongText_ComesInPiecesOfWholeRecords) {
    constexpr int kEntries = 5000;
    std::string native;
    std::string nicknames;
    std::string expected;
    for (int i = 0; i < kEntries; ++i) {
        const std::string number = std::to_string(i);
        native.append(number).append("\r\n");
        nicknames.append("Al").append(number).append("\r\n");
        expected.append(i == 0 ? "" : "\r\n").append(LdifRecord(number, "Al" + number));
    }
    native.append("-nick-\r\n").append(nicknames);
    std::vector<std::string> pieces;
    GiveLdif(native, [&](std::string_view piece) { pieces.emplace_back(piece); });
    EXPECT_GT(pieces.size(), 1U);
    std::string ldif;
    for (const std::string& piece : pieces) {
        EXPECT_TRUE(piece.ends_with("TRUE\r\n"));
        ldif += piece;
    }
    EXPECT_EQ(ldif, expected);
}

TEST(GiveLdif, NoEntry_GivesNoPiece) {
    GiveLdif("-nick-\r\n", [](std::string_view piece) { ADD_FAILURE() << piece; });
}

TEST(WriteLdif, NoEntry_FailsWith5) {
    for (const std::string text : {"", "-nick-\r\n", "-nick-\r\nAl\r\n", "A-nick-\r\n"}) {
        EXPECT_EQ(FailureOf([&] { static_cast<void>(Write(text)); }), 5) << text;
    }
}

// The writer once more, slow and literal. Percentages that follow each other unchanged are reported
// once.
std::string WriteLiterally(std::string text, Progress& progress) {
    if (text.find("-nick-") == std::string::npos) {
        text += text.empty() ? "-nick-\r\n" : "\r\n-nick-\r\n";
    }
    const auto mid = [&](std::size_t position, std::size_t length) {
        return position <= text.size() ? text.substr(position - 1, length) : std::string();
    };
    std::size_t p = 1;
    while (mid(p, 6) != "-nick-") {
        ++p;
    }
    std::size_t q = p + 8;
    std::string ldif;
    std::string address;
    int shown = -1;
    for (std::size_t j = 1; j <= p; ++j) {
        const int percent = static_cast<int>(static_cast<double>(j) / static_cast<double>(p) * 100);
        if (percent != shown) {
            progress.Percent(percent);
            shown = percent;
        }
        if (mid(j, 1) == "\r") {
            std::string nickname;
            while (mid(q, 2) != "\r\n" && q < text.size()) {
                nickname += mid(q, 1);
                ++q;
            }
            q += 2;
            ldif += LdifRecord(address, nickname) + "\r\n";
            address = "";
            progress.Record();
        } else if (mid(j, 1) != "\n") {
            address += mid(j, 1);
        }
    }
    if (ldif.size() < 2) {
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
    return ldif.substr(0, ldif.size() - 2);
}

void CompareWrites(const std::string& text) {
    std::string expected;
    std::string actual;
    Recorder expected_progress;
    Recorder actual_progress;
    const int failure = FailureOf([&] { expected = WriteLiterally(text, expected_progress); });
    ASSERT_EQ(FailureOf([&] { actual = WriteLdif(text, actual_progress); }), failure)
        << testing::PrintToString(text);
    ASSERT_EQ(actual, expected) << testing::PrintToString(text);
    ASSERT_EQ(actual_progress.events, expected_progress.events) << testing::PrintToString(text);
}

const Fragments& NativeFragments() {
    static const Fragments fragments = {"a", "\r", "\n", "\r\n", "-nick-", "-"};
    return fragments;
}

TEST(WriteLdif, EveryShortText_EqualsLiteralWriter) {
    ForEveryText(NativeFragments(), 5, CompareWrites);
}

TEST(WriteLdif, RandomLongTexts_EqualLiteralWriter) {
    ForRandomTexts(NativeFragments(), 80, 1500, CompareWrites);
}

TEST(WriteLdif, RandomLongTextsWithLateSeparator_EqualLiteralWriter) {
    ForRandomTexts({"a@b.example", "\r\n", "\r", "\n", "a"}, 60, 1500, [](const std::string& text) {
        CompareWrites(text + "\r\n-nick-\r\n" + text);
    });
}

TEST(PassLdif, LengthsOfAddresses_PassWhatTheirTextPasses) {
    ForEveryText({"", "a", "al@mail.example", "x\r"}, 6, [](const std::string& text) {
        // CR parts addresses.
        std::vector<std::uint32_t> lengths;
        std::string addresses;
        std::string nicknames;
        for (std::size_t start = 0, end = 0; start < text.size(); start = end + 1) {
            end = std::min(text.find('\r', start), text.size());
            lengths.push_back(static_cast<std::uint32_t>(end - start));
            addresses.append(text, start, end - start).append("\r\n");
            nicknames.append("\r\n");
        }
        if (lengths.empty()) {
            return;
        }
        Recorder expected;
        Recorder actual;
        PassLdif(addresses + "-nick-\r\n" + nicknames, expected);
        PassLdif(lengths, actual);
        ASSERT_EQ(actual.events, expected.events) << text;
    });
}

}  // namespace
}  // namespace orvik
