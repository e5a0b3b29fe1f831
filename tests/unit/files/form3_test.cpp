#include "files/form3.h"

#include <string>

#include "app/messages.h"
#include "app/working_text.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::BoxIs;
using test::Items;
using testing::_;
using testing::Ref;
using testing::Return;
using testing::Throw;

class Form3Test : public test::CommandTest {
 protected:
    // Shows the chooser over a file's contents.
    void Choose(std::string_view contents) {
        module1.WorkText = contents;
        form1.StatusBar1.SetPanelText(1, "Opening . . .");
        EXPECT_CALL(platform, ShowForm(Ref(form3), Showing::Modeless));
        form3.Show(Showing::Modeless);
    }
    void ExpectClosed() { EXPECT_CALL(platform, CloseForm(Ref(form3))); }

    Form3& form3 = module1.form3;
};

TEST_F(Form3Test, Buttons_HaveTheirCaptionsInOrder) {
    std::vector<std::string> captions;
    for (const NamedControl& row : form3.Controls()) {
        if (const auto* const button = std::get_if<Button*>(&row.Ref)) {
            captions.push_back(std::string(row.Name) + " " + (*button)->Caption);
        }
    }
    EXPECT_EQ(captions,
              (std::vector<std::string>{
                  "Command10 &WordPerfect Addressbook",
                  "Command9 &Help",
                  "Command8 &Open another file",
                  "Command7 &Cancel",
                  "Command4 Microsoft's &Internet Explorer, Outlook, etc Addressbook",
                  "Command3 N&etscape 3.x HTML Addressbook",
                  "Command5 &Juno Addressbook",
                  "Command2 &Netscape 4 + LDIF/LDAP Addressbook",
                  "Command1 &ASCII list",
                  "Command6 &Pegasus Mail Distribution List"}));
    EXPECT_EQ(form3.Caption, "User input required");
    EXPECT_EQ(form3.Label1.Caption, " Please indicate the format this file is in.");
}

TEST_F(Form3Test, CloseBox_ShowsTheRawText) {
    Choose("raw");
    ExpectClosed();
    form3.Unload();
    EXPECT_EQ(form1.Text1.Text(), "raw");
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_FALSE(form3.Loaded());
}

TEST_F(Form3Test, CloseBoxOverLongestTextShown_TellsTheLimit) {
    Choose(std::string(32766, 'x'));
    ExpectClosed();
    ExpectTold(TooMuchText(), "Error");
    form3.Unload();
}

TEST_F(Form3Test, CloseBoxOverLongerText_ShowsNothing) {
    Choose(std::string(32767, 'x'));
    ExpectClosed();
    form3.Unload();
    EXPECT_EQ(form1.Text1.Text(), "");
    EXPECT_EQ(Panel(1), "Ready");
}

TEST_F(Form3Test, Cancel_PutsTheOldTextBackAndKeepsTheRest) {
    module1.TextBeforeOpen = "old";
    module1.NoteBeforeOpen = {{}, "a vCard"};
    form1.Caption = "Orvik - new";
    Choose("raw");
    ExpectClosed();
    form3.Command7_Click();
    EXPECT_EQ(module1.WorkText, "old");
    EXPECT_EQ(module1.Note.LooksLike, "a vCard");
    EXPECT_EQ(form1.Text1.Text(), "");
    EXPECT_EQ(form1.Caption, "Orvik - new");
    EXPECT_EQ(Panel(1), "Opening . . .");
}

TEST_F(Form3Test, CloseBoxAfterAnEarlierCancel_ShowsTheRawText) {
    Choose("raw");
    ExpectClosed();
    form3.Command7_Click();
    Choose("raw again");
    ExpectClosed();
    form3.Unload();
    EXPECT_EQ(form1.Text1.Text(), "raw again");
}

TEST_F(Form3Test, Format_LoadsListsAndCloses) {
    Choose("A1\r\n");
    ExpectClosed();
    form3.Command1_Click();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
    EXPECT_EQ(Panel(1), "Ready");
}

TEST_F(Form3Test, RefusedFormat_TellsAndKeepsTheTextAndTheForm) {
    Choose("x<DT><A HREF=\"mailto:A1\">Al</A>");
    EXPECT_CALL(
        platform,
        ShowBox(BoxIs("This file is not recognizable. Please select another format", "Error")))
        .WillOnce(Return(Answer::OK));
    form3.Command5_Click();
    EXPECT_EQ(module1.WorkText, "x<DT><A HREF=\"mailto:A1\">Al</A>");
    EXPECT_TRUE(form3.Visible());
    EXPECT_EQ(Panel(1), "Opening . . .");
}

TEST_F(Form3Test, FormatAfterARefusedOne_Loads) {
    module1.textSep = ",";
    Choose("x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>");
    EXPECT_CALL(platform, ShowBox(_)).WillOnce(Return(Answer::OK));
    form3.Command5_Click();
    ExpectClosed();
    form3.Command3_Click();
    EXPECT_EQ(ItemsOf(form1.List2), Items{"A1"});
}

TEST_F(Form3Test, LackOfMemoryForTheChooser_LeavesTheBookOfBefore) {
    module1.TextBeforeOpen = "\"Al\" <A1>\r\n";
    module1.NoteBeforeOpen.LooksLike = "a vCard";
    module1.WorkText = "raw";
    module1.Note.LooksLike = {};
    EXPECT_CALL(platform, ShowForm(Ref(form3), Showing::Modal)).WillOnce(Throw(std::bad_alloc()));
    EXPECT_THROW(module1.ChooseFormat(Showing::Modal), std::bad_alloc);
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\n");
    EXPECT_EQ(module1.Note.LooksLike, "a vCard");
    EXPECT_FALSE(form3.Visible());
}

TEST_F(Form3Test, ListOfTextFilesThatAreAskedFor_StaysAsItIs) {
    module1.OpenMode = kAskForTextFiles;
    Choose("A1\r\n");
    // The loader shows the form that is there already.
    EXPECT_CALL(platform, ShowForm(Ref(form3), Showing::Modeless));
    ExpectClosed();
    form3.Command1_Click();
    EXPECT_EQ(module1.WorkText, "A1\r\n");
    EXPECT_EQ(form1.Text1.Text(), "A1\r\n");
    EXPECT_TRUE(form1.List1.Items().empty());
}

TEST_F(Form3Test, OpenAnother_ClosesAsTheCloseBoxAndOpens) {
    Choose("raw");
    const testing::InSequence in_order;
    ExpectClosed();
    ExpectSaveQuestion("Save before opening?", Answer::No);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    form3.Command8_Click();
    EXPECT_EQ(form1.Text1.Text(), "raw");
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_FALSE(form3.Loaded());
}

TEST_F(Form3Test, F1AndHelp_ShowTheSameTopic) {
    EXPECT_CALL(platform, ProgramFolder()).WillRepeatedly(Return("/opt"));
    EXPECT_CALL(platform,
                ShowHelp(HelpCommand::Topic,
                         std::string_view("/opt\\help.chm>Stripped"),
                         std::string_view("manopen.html")))
        .Times(2);
    form3.Command9_Click();
    form3.Form_KeyUp(112);
    form3.Form_KeyUp(113);
}

struct FormatRow {
    const char* name;
    std::string_view button;
    std::string_view contents;
    Items addresses;
};

class Form3FormatTest : public Form3Test, public testing::WithParamInterface<FormatRow> {};

TEST_P(Form3FormatTest, Button_LoadsItsFormat) {
    module1.textSep = ",";
    Choose(GetParam().contents);
    ExpectClosed();
    form3.ControlNamed(GetParam().button).Click();
    EXPECT_EQ(ItemsOf(form1.List1), GetParam().addresses);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    Form3FormatTest,
    testing::Values(FormatRow{"WordPerfect", "Command10", "h\r\n1,Al,3,4,5,A1,7\r\n", {"A1"}},
                    FormatRow{"Csv", "Command4", "h\r\nAl,A1,,,,,,,,,,,,,,\r\n", {"A1"}},
                    FormatRow{"Netscape3",
                              "Command3",
                              "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>",
                              {"A"}},
                    FormatRow{"Ldif", "Command2", "x\r\nmail: A1\r\nsn: y\r\n", {"A1"}},
                    FormatRow{"List", "Command1", "A1,A2,", {"A1", "A2"}},
                    FormatRow{"Pegasus", "Command6", "\\x\r\nA1,", {"", "A1"}}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace orvik
