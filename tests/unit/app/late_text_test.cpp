#include "app/late_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvik {
namespace {

// A text of two pieces that counts how often it is made.
LateText TwoPieces(int& made) {
    return LateText([&made](const TakePiece& take) {
        ++made;
        take("ab");
        take("c");
    });
}

std::vector<std::string> PiecesOf(const LateText& text) {
    std::vector<std::string> pieces;
    text.Give([&](std::string_view piece) { pieces.emplace_back(piece); });
    return pieces;
}

TEST(LateText, Text_IsMadeWhenItIsRead) {
    int made = 0;
    const LateText text = TwoPieces(made);
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(made, 0);
    EXPECT_EQ(text, "abc");
    EXPECT_GT(made, 0);
}

TEST(LateText, TextThatWasRead_IsNotMadeAgain) {
    int made = 0;
    const LateText text = TwoPieces(made);
    const LateText copy = text;
    EXPECT_EQ(text.View(), "abc");
    made = 0;
    EXPECT_EQ(copy.View().data(), text.View().data());
    EXPECT_EQ(PiecesOf(copy), std::vector<std::string>{"abc"});
    EXPECT_EQ(made, 0);
}

TEST(LateText, TextThatIsGiven_ComesInPieces) {
    int made = 0;
    const LateText text = TwoPieces(made);
    EXPECT_EQ(PiecesOf(text), (std::vector<std::string>{"ab", "c"}));
    EXPECT_EQ(PiecesOf(text), (std::vector<std::string>{"ab", "c"}));
    EXPECT_EQ(made, 2);
}

TEST(LateText, TextThatIsThere_IsShared) {
    const SharedText shared = "abc";
    const LateText text = shared;
    EXPECT_EQ(text.View().data(), shared.View().data());
    EXPECT_EQ(text.Revision(), shared.Revision());
}

TEST(LateText, Revision_IsThatOfTheCopiesAlone) {
    int made = 0;
    LateText text = TwoPieces(made);
    const LateText copy = text;
    EXPECT_EQ(copy.Revision(), text.Revision());
    EXPECT_NE(TwoPieces(made).Revision(), text.Revision());
    EXPECT_NE(SharedText("abc").Revision(), text.Revision());
    text.clear();
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.Revision(), 0U);
    EXPECT_EQ(text, "");
}

TEST(LateText, EmptyText_GivesOneEmptyPiece) {
    EXPECT_TRUE(LateText("").empty());
    EXPECT_EQ(PiecesOf(LateText("")), std::vector<std::string>{""});
}

}  // namespace
}  // namespace orvik
