#include <string>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using testing::Field;
using testing::Return;

class ShortcutTest : public test::CommandTest {
 protected:
    // Creates the link from a program in this folder, and expects its target.
    void ExpectTarget(const std::string& folder, const std::string& target, bool succeeds) {
        EXPECT_CALL(platform, ProgramFolder()).WillOnce(Return(folder));
        EXPECT_CALL(platform, ProgramName()).WillOnce(Return("orvik"));
        EXPECT_CALL(platform,
                    CreateShellLink(testing::AllOf(Field(&ShellLink::Folder, "StartUp"),
                                                   Field(&ShellLink::Name, "Orvik Auto"),
                                                   Field(&ShellLink::Target, target),
                                                   Field(&ShellLink::Arguments, ""),
                                                   Field(&ShellLink::Private, true),
                                                   Field(&ShellLink::Parent, "$(Programs)"))))
            .WillOnce(Return(succeeds));
        module1.CreateStartUpLink();
    }
};

TEST_F(ShortcutTest, Target_IsTheProgramsFile) {
    ExpectTarget("/opt/orvik", "/opt/orvik\\orvik.exe", true);
}

TEST_F(ShortcutTest, RootOfADrive_DoublesTheSeparator) {
    ExpectTarget("c:\\", "c:\\\\orvik.exe", true);
}

TEST_F(ShortcutTest, Failure_IsTold) {
    ExpectTold("Error creating startup icon!");
    ExpectTarget("/opt", "/opt\\orvik.exe", false);
}

TEST_F(ShortcutTest, Removal_NeedsNoLink) {
    EXPECT_CALL(platform,
                RemoveShellLink(std::string_view("StartUp"), std::string_view("Orvik Auto")));
    module1.RemoveStartUpLink();
}

}  // namespace
}  // namespace orvik
