#include "book/match/folding.h"

#include <array>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvik::book {
namespace {

using testing::ElementsAre;

using Rows = std::vector<std::pair<std::string_view, std::string_view>>;

std::string Text(std::string_view text) {
    std::string to = "what was there";
    FoldText(text, to);
    return to;
}

TEST(FoldTextTest, CapitalsAccentsAndBlanksDoNotCount) {
    const Rows rows = {{"", ""},
                       {" Ada\t  Abbott\n", "ada abbott"},
                       {"J\u00D6RG", "jorg"},
                       {"Jo\u0308rg", "jorg"},
                       {"Stra\u00DFe", "strasse"},
                       {"\u00D8rsted, \u0141ukasz", "orsted, lukasz"},
                       {"\uFF21\uFF44\uFF41", "ada"},
                       {"\u03A3\u03CC\u03BB\u03C9\u03BD\u03BF\u03C2",
                        "\u03C3\u03BF\u03BB\u03C9\u03BD\u03BF\u03C3"},
                       {"\u0418\u0412\u0410\u041D", "\u0438\u0432\u0430\u043D"},
                       {"A\u200Bda\u00A0B", "ada b"},
                       {"\xFF", "\uFFFD"}};
    for (const auto& [text, folded] : rows) {
        EXPECT_EQ(Text(text), folded) << text;
    }
}

// These marks make other letters, not the same one with an accent.
TEST(FoldTextTest, VowelSignsAndVoiceMarksCount) {
    EXPECT_NE(Text("\u0915\u0941"), Text("\u0915"));
    EXPECT_NE(Text("\u304C"), Text("\u304B"));
}

TEST(FoldNameTest, WordsStandInAnyOrder) {
    EXPECT_THAT(FoldName("Berg, Ben").Words, ElementsAre("ben", "berg"));
    EXPECT_EQ(FoldName("Berg, Ben").Key, FoldName("Ben  BERG").Key);
    EXPECT_EQ(FoldName("Berg;Ben;;;").Key, "ben berg");
    EXPECT_EQ(FoldName("Berg, Ben").Glued, "bergben");
    EXPECT_THAT(FoldName("O\u2019Brien-Lee J.R.").Words, ElementsAre("j", "lee", "obrien", "r"));
    EXPECT_EQ(FoldName("O'Brien").Key, FoldName("OBrien").Key);
    EXPECT_TRUE(FoldName(" -.?").IsEmpty());
    EXPECT_TRUE(FoldName("").IsEmpty());
    EXPECT_THAT(FoldName("\u263A").Words, ElementsAre("\u263A"));
    EXPECT_THAT(FoldName("\u5C71\u7530\u3000\u592A\u90CE").Words,
                ElementsAre("\u592A\u90CE", "\u5C71\u7530"));
}

TEST(FoldAddressTest, DomainsAreAscii) {
    const Rows rows = {{"Al@Example.ORG", "al@example.org"},
                       {" <al@example.org> ", "al@example.org"},
                       {"mailto:al@example.org", "al@example.org"},
                       {"al@B\u00FCcher.example", "al@xn--bcher-kva.example"},
                       {"al@XN--BCHER-KVA.example", "al@xn--bcher-kva.example"},
                       {"J\u00D6RG@example.org", "j\u00F6rg@example.org"},
                       {"a@b@B\u00FCcher.example", "a@b@xn--bcher-kva.example"},
                       {"al@\u00FC..example", "al@\u00FC..example"},
                       {"al", "al"},
                       {"\"A b\"@c.example", "\"a b\"@c.example"}};
    for (const auto& [text, folded] : rows) {
        std::string to;
        FoldAddress(text, to);
        EXPECT_EQ(to, folded) << text;
    }
}

TEST(FoldAddressTest, AccentsOfNamesCount) {
    std::string one;
    std::string other;
    FoldAddress("j\u00F6rg@example.org", one);
    FoldAddress("jorg@example.org", other);
    EXPECT_NE(one, other);
}

TEST(FoldPhoneTest, DigitsAndLettersStay) {
    const Rows rows = {{"+1 (555) 010-0", "15550100"},
                       {"tel:+1-555", "1555"},
                       {"555 x2", "555x2"},
                       {"1-800-FLOWERS", "1800flowers"},
                       {"\uFF11\u0662\u00B3", "123"},
                       {"\u0434\u043E\u0431. 5", "\u0434\u043E\u04315"},
                       {"--", ""}};
    for (const auto& [text, folded] : rows) {
        std::string to;
        FoldPhone(text, to);
        EXPECT_EQ(to, folded) << text;
    }
}

}  // namespace
}  // namespace orvik::book
