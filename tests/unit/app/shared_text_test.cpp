#include "app/shared_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

namespace orvik {
namespace {

TEST(SharedText, NewText_IsEmpty) {
    const SharedText text;
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.size(), 0U);
    EXPECT_EQ(text, "");
    EXPECT_EQ(text.Revision(), 0U);
    EXPECT_EQ(SharedText(std::string()).Revision(), 0U);
}

TEST(SharedText, AnyBytes_Stay) {
    const std::string bytes("a\0\r\n\xFF", 5);
    EXPECT_EQ(SharedText(bytes), bytes);
    EXPECT_EQ(SharedText(bytes).size(), 5U);
    EXPECT_EQ(std::string(SharedText(bytes)), bytes);
}

TEST(SharedText, Copy_HasTheSameBytesAndRevision) {
    const SharedText text("a long text that no string keeps inside itself");
    const SharedText copy =
        text;  // NOLINT(performance-unnecessary-copy-initialization): it is tested
    EXPECT_EQ(copy.View().data(), text.View().data());
    EXPECT_EQ(copy.Revision(), text.Revision());
    EXPECT_EQ(copy, text);
}

TEST(SharedText, StringThatIsMovedIn_IsNotCopied) {
    std::string bytes(1000, 'x');
    const char* const place = bytes.data();
    EXPECT_EQ(SharedText(std::move(bytes)).View().data(), place);
}

TEST(SharedText, OtherTextInOneCopy_LeavesTheOthers) {
    SharedText text("one");
    std::array copies = {text, text, text};
    text = "two";
    copies[1].clear();
    copies[2] = text;
    EXPECT_EQ(text, "two");
    EXPECT_EQ(copies[0], "one");
    EXPECT_EQ(copies[1], "");
    EXPECT_EQ(copies[2].View().data(), text.View().data());
}

TEST(SharedText, ViewOfACopy_OutlivesTheOriginal) {
    SharedText copy;
    {
        const SharedText text(std::string(1000, 'x'));
        copy = text;
    }
    EXPECT_EQ(copy, std::string(1000, 'x'));
}

TEST(SharedText, EqualTextsMadeApart_AreEqualWithOtherRevisions) {
    const SharedText one("equal");
    const SharedText other("equal");
    EXPECT_EQ(one, other);
    EXPECT_NE(one.Revision(), other.Revision());
    EXPECT_NE(one, SharedText("Equal"));
}

TEST(SharedText, RevisionOfATextThatIsGone_DoesNotComeBack) {
    std::uint64_t last = 0;
    for (int i = 0; i < 100; ++i) {
        const SharedText text("the next one may stand where this stood");
        EXPECT_GT(text.Revision(), last);
        last = text.Revision();
    }
}

}  // namespace
}  // namespace orvik
