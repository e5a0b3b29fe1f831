#include "extract/extraction_display.h"

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using ScanDisplayTest = test::CommandTest;

TEST_F(ScanDisplayTest, Start_ShowsTheBar) {
    const ScanDisplay display(form1, platform, module1.AddressCount);
    EXPECT_TRUE(form1.ProgressBar1.Visible);
    EXPECT_EQ(form1.StatusBar1.PanelSizing, AutoSize::Contents);
}

TEST_F(ScanDisplayTest, End_HidesTheBar) {
    { const ScanDisplay display(form1, platform, module1.AddressCount); }
    EXPECT_FALSE(form1.ProgressBar1.Visible);
    EXPECT_EQ(form1.StatusBar1.PanelSizing, AutoSize::Spring);
}

TEST_F(ScanDisplayTest, Percentage_IsShownWithTheCountBeforeTheYield) {
    ScanDisplay display(form1, platform, module1.AddressCount);
    module1.AddressCount = 7;
    EXPECT_CALL(platform, Yield()).WillOnce([this] {
        EXPECT_EQ(Panel(1), "Extracting: 28%");
        EXPECT_EQ(Panel(2), "7 addresses found ");
        EXPECT_EQ(form1.ProgressBar1.Value, 28);
    });
    display.Percent(28);
}

class ExtractionControlsTest : public test::CommandTest {
 protected:
    void ExpectEnabled(bool enabled) {
        EXPECT_EQ(form1.cmdEmail.Enabled, enabled);
        EXPECT_EQ(form1.cmdNick.Enabled, enabled);
        EXPECT_EQ(form1.mnuFile.Enabled, enabled);
        EXPECT_EQ(form1.mnuEdit.Enabled, enabled);
        EXPECT_EQ(form1.mnuOrvik.Enabled, enabled);
        EXPECT_EQ(form1.mnuHelp.Enabled, enabled);
    }
};

TEST_F(ExtractionControlsTest, Start_OnlyCentresCancel) {
    form1.ScaleWidth = 6000;
    form1.ScaleHeight = 4000;
    form1.cmdCancel.Width = 1000;
    form1.cmdCancel.Height = 500;
    const ExtractionControls controls(form1);
    EXPECT_EQ(form1.cmdCancel.Left, 2500);
    EXPECT_EQ(form1.cmdCancel.Top, 1750);
    EXPECT_FALSE(form1.cmdCancel.Visible);
    ExpectEnabled(true);
}

TEST_F(ExtractionControlsTest, ShowCancel_LeavesNoOtherCommand) {
    ExtractionControls controls(form1);
    controls.ShowCancel();
    EXPECT_TRUE(form1.cmdCancel.Visible);
    ExpectEnabled(false);
}

TEST_F(ExtractionControlsTest, EndAfterTwoChunks_PutsTheCommandsBack) {
    {
        ExtractionControls controls(form1);
        controls.ShowCancel();
        controls.ShowCancel();
    }
    ExpectEnabled(true);
    EXPECT_FALSE(form1.cmdCancel.Visible);
}

TEST_F(ExtractionControlsTest, MenuThatWasOff_StaysOff) {
    form1.mnuOrvik.Enabled = false;
    { ExtractionControls(form1).ShowCancel(); }
    EXPECT_FALSE(form1.mnuOrvik.Enabled);
    EXPECT_TRUE(form1.mnuFile.Enabled);
}

}  // namespace
}  // namespace orvik
