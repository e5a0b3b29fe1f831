#include "formats/conversion_progress.h"

#include "unit/mock_platform.h"

namespace orvik {
namespace {

class ConversionProgressTest : public testing::Test {
 protected:
    [[nodiscard]] const std::string& Panel() const { return form1_.StatusBar1.Panels(1).Text; }

    testing::StrictMock<test::MockPlatform> platform_;
    SystemFiles files_;
    Program program_{platform_, files_};
    Form1& form1_ = program_.form1;
};

TEST_F(ConversionProgressTest, Start_ShowsTheBar) {
    const ConversionProgress progress(form1_, platform_);
    EXPECT_TRUE(form1_.ProgressBar1.Visible);
    EXPECT_EQ(form1_.StatusBar1.PanelSizing, AutoSize::Contents);
}

TEST_F(ConversionProgressTest, Percentage_IsShownTwice) {
    ConversionProgress progress(form1_, platform_);
    progress.Percent(28);
    EXPECT_EQ(form1_.ProgressBar1.Value, 28);
    EXPECT_EQ(Panel(), "Converting: 28%");
}

TEST_F(ConversionProgressTest, RecordsOfOnePercentage_RepaintOnce) {
    ConversionProgress progress(form1_, platform_);
    EXPECT_CALL(platform_, Repaint());
    progress.Record();
    progress.Percent(1);
    progress.Record();
    progress.Record();
}

TEST_F(ConversionProgressTest, Finish_HidesTheBar) {
    ConversionProgress progress(form1_, platform_);
    progress.Percent(100);
    progress.Finish();
    EXPECT_EQ(Panel(), "Ready");
    EXPECT_EQ(form1_.StatusBar1.PanelSizing, AutoSize::Spring);
    EXPECT_FALSE(form1_.ProgressBar1.Visible);
}

TEST_F(ConversionProgressTest, NoFinish_LeavesTheDisplayAsItStands) {
    { ConversionProgress(form1_, platform_).Percent(7); }
    EXPECT_EQ(Panel(), "Converting: 7%");
    EXPECT_TRUE(form1_.ProgressBar1.Visible);
}

}  // namespace
}  // namespace orvik
