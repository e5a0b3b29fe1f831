#include "platform/passing_name.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

TEST(PassingName, IsOneAndNoTwoAreEqual) {
    for (const std::string_view ending : {kPassingNew, kPassingWhole}) {
        EXPECT_TRUE(IsPassingName(PassingName(ending)));
        EXPECT_NE(PassingName(ending), PassingName(ending));
    }
}

TEST(IsPassingName, OtherNames_AreNone) {
    EXPECT_TRUE(IsPassingName(".orvik-0123456789abcdef.tmp"));
    for (const char* const name : {"",
                                   ".orvik-",
                                   ".orvik-.tmp",
                                   ".orvik-0123456789abcde.tmp",
                                   ".orvik-0123456789abcdef0.tmp",
                                   ".orvik-0123456789ABCDEF.tmp",
                                   ".orvik-0123456789abcdeg.tmp",
                                   ".orvik-0123456789abcdef",
                                   ".orvik-0123456789abcdef.bak",
                                   ".orvik-0123456789abcdef.tmp2",
                                   "x.orvik-0123456789abcdef.tmp",
                                   "orvik-0123456789abcdef.tmp"}) {
        EXPECT_FALSE(IsPassingName(name)) << name;
    }
}

}  // namespace
}  // namespace orvik
