#include "formats/juno_writer.h"

#include <string>
#include <vector>

#include "unit/generated_texts.h"
#include "unit/literal_text.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using test::JunoRecord;
using test::LiteralText;

// What a progress display is told: the percentages, and -1 for a record.
class Recorder : public Progress {
 public:
    void Percent(int percent) override { told.push_back(percent); }
    void Record() override { told.push_back(-1); }

    std::vector<int> told;
};

struct Row {
    const char* name;
    std::string_view native;
    std::string_view separator;
    std::string juno;
};

class WriteJunoTest : public testing::TestWithParam<Row> {};

TEST_P(WriteJunoTest, Row) {
    Recorder progress;
    EXPECT_EQ(WriteJuno(GetParam().native, GetParam().separator, progress), GetParam().juno);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    WriteJunoTest,
    testing::Values(Row{"OneEntry_IsOneBlock",
                        "A1\r\n-nick-\r\nAl\r\n",
                        "\r",
                        "\r\n\r\n" + JunoRecord("A1", "Al")},
                    Row{"Entries_HaveAnEmptyLineBetween",
                        "A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n",
                        "\r",
                        "\r\n\r\n" + JunoRecord("A1", "Al") + "\r\n" + JunoRecord("A2", "Bo")},
                    Row{"EmptyNickname_LeavesNothingBehindColons",
                        "A1\r\n-nick-\r\n\r\n",
                        "\r",
                        "\r\n\r\n" + JunoRecord("A1", "")},
                    Row{"EmptyAddress_IsABlockToo",
                        "\r\n-nick-\r\nAl\r\n",
                        "\r",
                        "\r\n\r\n" + JunoRecord("", "Al")},
                    Row{"Comma_GivesOneLineBreak", "A1\r\n-nick-\r\nAl\r\n", ",", "\r\n"},
                    Row{"CommaInAddress_EndsItWithoutBlanks",
                        "A 1,b\r\n-nick-\r\nAl\r\n",
                        ",",
                        "\r\n\r\n" + JunoRecord("A1", "Al")},
                    Row{"CommaInLaterLine_TakesTheLineBreakWithIt",
                        "A1\r\nb,\r\n-nick-\r\nAl\r\n",
                        ",",
                        "\r\n\r\n" + JunoRecord("A1\r\nb", "Al")},
                    Row{"BlankWithCr_IsKept",
                        "A 1\r\n-nick-\r\nAl\r\n",
                        "\r",
                        "\r\n\r\n" + JunoRecord("A 1", "Al")},
                    Row{"LfWithCr_IsDropped",
                        "A\n1\r\n-nick-\r\nAl\r\n",
                        "\r",
                        "\r\n\r\n" + JunoRecord("A1", "Al")},
                    Row{"MissingNickname_IsEmpty",
                        "A1\r\nA2\r\n-nick-\r\nAl\r\n",
                        "\r",
                        "\r\n\r\n" + JunoRecord("A1", "Al") + "\r\n" + JunoRecord("A2", "")},
                    Row{"UnendedNickname_LosesItsLastCharacter",
                        "A1\r\n-nick-\r\nAlx",
                        "\r",
                        "\r\n\r\n" + JunoRecord("A1", "Al")},
                    Row{"NoAddressLines_GiveOneLineBreak", "-nick-\r\n", "\r", "\r\n"},
                    Row{"EmptyText_GivesOneLineBreak", "", "\r", "\r\n"},
                    Row{"NoSeparatorLine_IsReadAsIfItStoodAtTheEnd",
                        "A1",
                        "\r",
                        "\r\n\r\n" + JunoRecord("A1", "")}),
    [](const auto& row) { return row.param.name; });

TEST(WriteJuno, Progress_ReachesEachRecordAndTheEnd) {
    Recorder progress;
    static_cast<void>(WriteJuno("a\r\n-nick-\r\n\r\n", "\r", progress));
    EXPECT_EQ(progress.told, (std::vector{25, 50, -1, 75, 100}));
}

// The writer once more, slow and literal. A percentage counts when it is another one.
std::string WriteLiterally(const std::string& native,
                           std::string_view separator,
                           std::vector<int>& told) {
    const std::string whole = test::WithSeparator(native);
    const LiteralText text(whole);
    std::string result = "\r\n\r\n";
    std::string address;
    std::size_t p = 1;
    while (text(p, 6) != "-nick-") {
        ++p;
    }
    std::size_t q = p + 8;
    int shown = -1;
    for (std::size_t j = 1; j <= p; ++j) {
        const int percent = static_cast<int>(static_cast<double>(j) / static_cast<double>(p) * 100);
        if (percent != shown) {
            shown = percent;
            told.push_back(percent);
        }
        if (text(j, separator.size()) == separator) {
            std::string nickname;
            while (text(q, 2) != "\r\n" && q < text.size()) {
                nickname += text(q);
                ++q;
            }
            q += 2;
            result += "Type:Entry\r\n";
            result += "Name:" + nickname + "\r\n";
            result += "Email:" + address + "\r\n";
            result += "Alias:" + nickname + "\r\n";
            result += "\r\n";
            address = "";
            told.push_back(-1);
        } else if (!(separator == "," && text(j) == " ") &&
                   !(separator == "\r" && text(j) == "\n")) {
            address += text(j);
        }
    }
    return result.substr(0, result.size() - 2);
}

void CompareWrites(const std::string& text) {
    for (const std::string_view separator : {"\r", ","}) {
        std::vector<int> told;
        const std::string expected = WriteLiterally(text, separator, told);
        Recorder progress;
        ASSERT_EQ(WriteJuno(text, separator, progress), expected) << testing::PrintToString(text);
        ASSERT_EQ(progress.told, told) << testing::PrintToString(text);
    }
}

TEST(WriteJuno, EveryShortText_EqualsLiteralWriter) {
    ForEveryText({"a", " ", ",", "\r", "\n", "\r\n", "-nick-"}, 6, CompareWrites);
}

TEST(WriteJuno, RandomLongTexts_EqualLiteralWriter) {
    ForRandomTexts({"a", " ", ",", "\r", "\n", "A1\r\n", "\r\n-nick-\r\n", "b@c.example", "\xE9"},
                   60,
                   4000,
                   CompareWrites);
}

}  // namespace
}  // namespace orvik
