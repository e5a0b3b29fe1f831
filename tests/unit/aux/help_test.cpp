#include <string>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using testing::Return;

using HelpTest = test::CommandTest;

TEST_F(HelpTest, KnownNumber_IsAFileInTheProgramFolder) {
    EXPECT_CALL(platform, ProgramFolder()).WillRepeatedly(Return("/opt"));
    EXPECT_EQ(module1.HelpFilePath(1), "/opt\\help.chm");
    EXPECT_EQ(module1.HelpFilePath(2), "/opt\\HelpTutorial.chm");
}

TEST_F(HelpTest, UnknownNumber_IsEmpty) {
    EXPECT_EQ(module1.HelpFilePath(0), "");
    EXPECT_EQ(module1.HelpFilePath(3), "");
}

TEST_F(HelpTest, Topic_IsShownInTheNamedWindow) {
    EXPECT_CALL(platform, ProgramFolder()).WillOnce(Return("/opt"));
    EXPECT_CALL(platform,
                ShowHelp(HelpCommand::Topic,
                         std::string_view("/opt\\HelpTutorial.chm>Stripped"),
                         std::string_view("manopen.html")));
    module1.ShowHelpTopic(2, "Stripped", "manopen.html");
}

}  // namespace
}  // namespace orvik
