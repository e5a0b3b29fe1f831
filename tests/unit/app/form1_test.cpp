#include "app/form1.h"

#include <set>
#include <string>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::BoxIs;
using testing::Return;

using Form1Test = test::CommandTest;

TEST_F(Form1Test, Start_ShowsTheTwoLists) {
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_TRUE(form1.Text1.Visible);
    EXPECT_TRUE(form1.List1.Visible);
    EXPECT_TRUE(form1.List2.Visible);
    EXPECT_FALSE(form1.List3.Visible);
    EXPECT_FALSE(form1.Text3.Visible);
    EXPECT_FALSE(form1.cmdDone.Visible);
    EXPECT_FALSE(form1.cmdCancel.Visible);
    EXPECT_FALSE(form1.ProgressBar1.Visible);
    EXPECT_EQ(Panel(1), "Welcome to Orvik");
    EXPECT_EQ(Panel(2), "0 Items");
}

TEST_F(Form1Test, Start_AllowsNoEditCommand) {
    for (const MenuItem* item :
         {&form1.mnuSelCopy, &form1.mnuPaste, &form1.mnuDel, &form1.mnuClear}) {
        EXPECT_FALSE(item->Enabled) << item->Caption;
    }
    EXPECT_TRUE(form1.mnuOrvik.Enabled);
    EXPECT_TRUE(form1.mnuOpen.Enabled);
}

TEST_F(Form1Test, Load_ReadsTheSettings) {
    const auto give = [&](std::string_view key, const char* value) {
        EXPECT_CALL(platform, GetSetting(std::string_view("Settings"), key))
            .Times(testing::AtLeast(1))
            .WillRepeatedly(Return(value));
    };
    give("textSep", "6");
    give("Open", "2");
    give("Extract", "False");
    give("Sep", ";");
    EXPECT_CALL(platform, GetSetting(std::string_view("Settings"), std::string_view("Auto")))
        .Times(testing::AnyNumber())
        .WillRepeatedly(Return("False"));
    module1.TextMode = "";
    form1.LdifCurrent = true;
    form1.Load();
    EXPECT_EQ(module1.TextMode, "none");
    EXPECT_EQ(module1.textSep, ",");
    EXPECT_EQ(module1.OpenMode, 2);
    EXPECT_EQ(module1.PimSep, ";");
    EXPECT_TRUE(module1.JustStarted);
    EXPECT_FALSE(module1.StartingUp);
    EXPECT_FALSE(form1.LdifCurrent);
}

TEST_F(Form1Test, Exit_AsksAlsoWithoutText) {
    ExpectSaveQuestion("Save before exiting?", Answer::No);
    EXPECT_CALL(platform, Ended());
    EXPECT_THROW(form1.Form_Unload(), ProgramEnded);
    EXPECT_EQ(module1.MsgAnswer, "7");
}

TEST_F(Form1Test, ExitAndCancel_KeepsTheWindow) {
    ExpectSaveQuestion("Save before exiting?", Answer::Cancel);
    EXPECT_FALSE(form1.Form_Unload());
}

TEST_F(Form1Test, ExitDuringExtractionAndNo_KeepsTheWindow) {
    form1.cmdCancel.Visible = true;
    EXPECT_CALL(platform,
                ShowBox(BoxIs("Are you sure you want to stop the extraction process?",
                              "Really cancel?",
                              Buttons::YesNo,
                              Icon::Question)))
        .WillOnce(Return(Answer::No));
    EXPECT_FALSE(form1.Form_Unload());
    EXPECT_FALSE(module1.CancelRequested);
}

TEST_F(Form1Test, ExitDuringExtractionAndYes_AsksToSaveToo) {
    form1.cmdCancel.Visible = true;
    const testing::InSequence in_order;
    EXPECT_CALL(platform,
                ShowBox(BoxIs("Are you sure you want to stop the extraction process?",
                              "Really cancel?",
                              Buttons::YesNo,
                              Icon::Question)))
        .WillOnce(Return(Answer::Yes));
    ExpectSaveQuestion("Save before exiting?", Answer::Cancel);
    EXPECT_FALSE(form1.Form_Unload());
    EXPECT_TRUE(module1.CancelRequested);
}

TEST_F(Form1Test, F1_ShowsTheHelpTopic) {
    EXPECT_CALL(platform, ProgramFolder()).WillOnce(Return("/opt"));
    EXPECT_CALL(platform,
                ShowHelp(HelpCommand::Topic,
                         std::string_view("/opt\\help.chm>secWin"),
                         std::string_view("screenshot.html")));
    form1.Form_KeyUp(kKeyF1);
}

TEST_F(Form1Test, OtherKey_DoesNothing) {
    form1.Form_KeyUp(kKeyF1 + 1);
}

TEST_F(Form1Test, Resize_SharesTheWindowHalfAndHalf) {
    form1.ScaleWidth = form1.Width = 7001;
    form1.ScaleHeight = form1.Height = 5000;
    form1.Form_Resize();
    EXPECT_EQ(form1.Text1.Width, 7001);
    EXPECT_EQ(form1.Text1.Height, 4625);
    EXPECT_EQ(form1.List1.Width, 3500.5);
    EXPECT_EQ(form1.List1.Height, 4400);
    EXPECT_EQ(form1.List2.Left, 3500.5);
    EXPECT_EQ(form1.List2.Width, 3500.5);
    EXPECT_EQ(form1.List2.Height, 4400);
    EXPECT_EQ(form1.List3.Left, 3245.5);
    EXPECT_EQ(form1.List3.Height, 4400);
    for (const Button* button :
         {&form1.cmdEmail, &form1.cmdDone, &form1.cmdNick, &form1.cmdCancel}) {
        EXPECT_EQ(button->Width, 3500.5) << button->Caption;
    }
    EXPECT_EQ(form1.cmdNick.Left, 3500.5);
    EXPECT_EQ(form1.cmdCancel.Left, 3500.5);
}

TEST_F(Form1Test, TooSmallWindow_SnapsBack) {
    form1.Width = form1.ScaleWidth = 3399;
    form1.Height = form1.ScaleHeight = 1;
    form1.Form_Resize();
    EXPECT_EQ(form1.Width, 3400);
    EXPECT_EQ(form1.Height, 1500);
    EXPECT_EQ(form1.Text1.Width, 3400);
    EXPECT_EQ(form1.Text1.Height, 1125);
}

TEST_F(Form1Test, MinimisedWindow_IsNotLaidOut) {
    form1.Minimised = true;
    form1.Width = 0;
    form1.Form_Resize();
    EXPECT_EQ(form1.Width, 0);
}

TEST_F(Form1Test, ControlNames_AreUnique) {
    std::set<std::string_view> names;
    for (const NamedControl& control : form1.Controls()) {
        EXPECT_TRUE(names.insert(control.Name).second) << control.Name;
    }
}

TEST_F(Form1Test, EveryMenuCommand_IsAHandlerToo) {
    std::set<std::string> handlers;
    for (const NamedHandler& handler : form1.Handlers()) {
        EXPECT_TRUE(handlers.emplace(handler.Name).second) << handler.Name;
    }
    for (const Form1::Menu& menu : form1.Menus()) {
        for (const NamedControl& row : menu.Rows) {
            const bool separates = std::get<MenuItem*>(row.Ref)->IsSeparator();
            EXPECT_EQ(!separates, handlers.contains(std::string(row.Name) + "_Click")) << row.Name;
        }
    }
}

}  // namespace
}  // namespace orvik
