#include "formats/pim_export.h"

#include <string>

#include "unit/generated_texts.h"
#include "unit/literal_text.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using test::LiteralText;

std::string Export(std::string_view ldif, std::string_view separator = ",") {
    std::size_t reached = 0;
    return ExportPim(ldif, separator, [&](std::size_t position) {
        EXPECT_GT(position, reached);
        EXPECT_LE(position, ldif.size());
        reached = position;
    });
}

struct Row {
    const char* name;
    std::string_view ldif;
    std::string_view lines;
};

class ExportPimTest : public testing::TestWithParam<Row> {};

TEST_P(ExportPimTest, Row) {
    EXPECT_EQ(Export(GetParam().ldif), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    ExportPimTest,
    testing::Values(
        Row{"TwoValues_AreJoined", "dn: x\r\ngivenname: Al\r\nmail: A1\r\n\r\n", "Al,A1\r\n"},
        Row{"SecondRecord_HasNoSeparatorBeforeIt",
            "dn: x\r\nmail: A1\r\n\r\ndn: y\r\nsn: B\r\nmail: A2\r\n\r\n",
            "A1\r\nB,A2\r\n"},
        Row{"EachDroppedKey_IsLeftOut",
            "dn: x\r\ncn: x\r\nobjectclass: x\r\nxmozillausex: x\r\nxnavx: x\r\nmail: A1\r\n",
            "A1"},
        Row{"OtherCase_IsKept", "dn: x\r\nDN: y\r\n", "y"},
        Row{"ValueWithColon_IsKeptWhole", "dn: x\r\nurl: http://x\r\n", "http://x"},
        Row{"KeyInsideAValue_DropsTheRestOfItsLine", "dn: x\r\nsn: a cn: b\r\nsn: c\r\n", "a ,c"},
        Row{"KeyWithoutBlank_LosesItsFirstCharacter", "dn: x\r\nsn:abc\r\n", "bc"},
        Row{"LastLineBreak_BelongsToNoValue", "dn: x\r\nmail: A1\r\n", "A1"},
        Row{"DroppedKeyWithoutLineFeed_EndsTheExport", "mail: A1 cn: x", "mail: A1 "},
        Row{"LinesWithoutCr_AreOneLine", "mail: A1\nsn: x\n", "mail: A1\nsn: x\n"},
        Row{"EmptyText_GivesNothing", "", ""}),
    [](const auto& row) { return row.param.name; });

TEST(ExportPim, AnySeparator_JoinsTheValues) {
    EXPECT_EQ(Export("dn: x\r\na: 1\r\nb: 2\r\n", ""), "12");
    EXPECT_EQ(Export("dn: x\r\na: 1\r\nb: 2\r\n", " / "), "1 / 2");
}

// The export once more, slow and literal.
class Literally {
 public:
    explicit Literally(std::string_view ldif) : text_(ldif) {}

    std::string Run() {
        for (; i_ <= text_.size() && !over_; ++i_) {
            if (IsDropped()) {
                SkipLine();
            } else if (text_(i_, 2) == "\r\n" && text_(i_, 4) != "\r\n\r\n") {
                TakeKey();
            } else {
                output_ += text_(i_);
            }
            if (text_(i_, 4) == "\r\n\r\n") {
                begins_record_ = true;
            }
        }
        return output_;
    }

 private:
    [[nodiscard]] bool IsDropped() const {
        return text_(i_, 4) == "dn: " || text_(i_, 4) == "cn: " ||
               text_(i_, 13) == "objectclass: " || text_(i_, 11) == "xmozillause" ||
               text_(i_, 4) == "xnav";
    }

    void SkipLine() {
        while (text_(i_) != "\n") {
            if (i_ > text_.size()) {
                over_ = true;
                return;
            }
            ++i_;
        }
        i_ -= 2;
    }

    void TakeKey() {
        while (text_(i_) != ":") {
            if (IsDropped()) {
                SkipLine();
                return;
            }
            if (i_ >= text_.size()) {
                over_ = true;
                return;
            }
            ++i_;
        }
        ++i_;
        if (!output_.empty() && !begins_record_) {
            output_ += ",";
        } else {
            begins_record_ = false;
        }
    }

    LiteralText text_;
    std::size_t i_ = 1;
    bool over_ = false;
    bool begins_record_ = false;
    std::string output_;
};

void Compare(const std::string& text) {
    ASSERT_EQ(Export(text), Literally(text).Run()) << testing::PrintToString(text);
}

TEST(ExportPim, EveryShortText_EqualsLiteralExport) {
    ForEveryText({"a", "\r", "\n", "\r\n", ": ", "dn: ", "xnav"}, 6, Compare);
}

TEST(ExportPim, RandomLongTexts_EqualLiteralExport) {
    ForRandomTexts({"a",
                    "\r",
                    "\n",
                    "\r\n",
                    "\r\n\r\n",
                    ":",
                    ": x",
                    "dn: ",
                    "cn: ",
                    "objectclass: ",
                    "xmozillause",
                    "xnav",
                    "\xE9"},
                   60,
                   4000,
                   Compare);
}

TEST(CountExported, Lines_AreEntriesUnlessEmpty) {
    EXPECT_EQ(CountExported(""), 0);
    EXPECT_EQ(CountExported("Al,A1"), 1);
    EXPECT_EQ(CountExported("Al,A1\r\n\r\nBo,B2\r\n"), 2);
    EXPECT_EQ(CountExported("\r\n\r\n"), 0);
}

}  // namespace
}  // namespace orvik
