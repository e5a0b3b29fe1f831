#include "store/setting_text.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

TEST(EscapeSettingTest, KeepsWhatAPersonCanRead) {
    EXPECT_EQ(EscapeSetting(" a\r\nb", SettingPart::Value), "\\040a\\r\\nb");
    EXPECT_EQ(EscapeSetting("\xFC", SettingPart::Value), "\\374");
    EXPECT_EQ(EscapeSetting("c:\\new\\a", SettingPart::Value), "c:\\\\new\\a");
    EXPECT_EQ(EscapeSetting("a=[b]", SettingPart::Value), "a=[b]");
    EXPECT_EQ(EscapeSetting("a=[b]", SettingPart::Name), "a\\075\\133b\\135");
}

TEST(EscapeSettingTest, ABackslashWithoutAnEscapeIsOne) {
    EXPECT_EQ(UnescapeSetting("c:\\quenvale\\400"), "c:\\quenvale\\400");
    EXPECT_EQ(UnescapeSetting("a\\"), "a\\");
    EXPECT_EQ(UnescapeSetting("\\07"), "\\07");
}

}  // namespace
}  // namespace orvik
