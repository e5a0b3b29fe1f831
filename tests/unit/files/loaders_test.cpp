#include <string>

#include "app/working_text.h"
#include "unit/failure.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::BoxIs;
using test::Items;
using testing::Ref;
using testing::Return;

class LoadersTest : public test::CommandTest {
 protected:
    void ExpectRefusal(Answer answer) {
        EXPECT_CALL(platform, ShowBox(BoxIs(UnknownFormat(), "Error", Buttons::YesNo)))
            .WillOnce(Return(answer));
    }
    // The chooser is shown and stays open.
    void ExpectChooser() { EXPECT_CALL(platform, ShowForm(Ref(module1.form3), Showing::Modeless)); }
    void ShowChooser() {
        ExpectChooser();
        module1.form3.Show(Showing::Modeless);
    }
};

TEST_F(LoadersTest, Ldif_IsListedAndShownInAsciiForm) {
    module1.WorkText = "dn: x\r\nxmozillanickname: Al\r\nmail: A1\r\nsn: y\r\n\r\n";
    module1.OpenNetscape4();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"Al"});
    EXPECT_EQ(form1.Text1.Text(), "\"Al\" <A1>\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(LoadersTest, LdifBeyondTheLimit_IsListedButNotShown) {
    const std::string address(kTextLimit, 'a');
    module1.WorkText = "dn: x\r\nmail: " + address + "\r\nsn: y\r\n\r\n";
    module1.OpenNetscape4();
    EXPECT_EQ(ItemsOf(form1.List1), Items{address});
    EXPECT_EQ(form1.Text1.Text(), "");
    EXPECT_EQ(module1.WorkText, "<" + address + ">\r\n");
}

TEST_F(LoadersTest, EmptyLdifAndNo_PutsTheCaptionBack) {
    module1.OldCaption = "Orvik - old";
    ExpectRefusal(Answer::No);
    module1.OpenNetscape4();
    EXPECT_EQ(form1.Caption, "Orvik - old");
    EXPECT_EQ(module1.MsgAnswer, "7");
    EXPECT_EQ(module1.WorkText, "");
}

TEST_F(LoadersTest, TextList_IsListedAndShown) {
    module1.WorkText = "A1\r\n";
    module1.OpenTextList();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(form1.Text1.Text(), "A1\r\n-nick-\r\n\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
}

TEST_F(LoadersTest, TextListInEditMode_IsShownButNotSplit) {
    module1.EditMode = true;
    module1.WorkText = "A1\r\n";
    module1.OpenTextList();
    EXPECT_EQ(form1.Text1.Text(), "A1\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
    EXPECT_TRUE(form1.List1.Items().empty());
}

TEST_F(LoadersTest, TextListWithExtraction_OnlyTells) {
    module1.AutoExtract = true;
    module1.WorkText = "A1\r\n";
    ExpectTold("Extraction routines have not been cleaned up yet");
    module1.OpenTextList();
    EXPECT_EQ(module1.WorkText, "A1\r\n");
    EXPECT_EQ(module1.TextMode, "none");
}

TEST_F(LoadersTest, EmptyTextListAndNo_PutsTheCaptionBack) {
    module1.OldCaption = "Orvik - old";
    ExpectRefusal(Answer::No);
    module1.OpenTextList();
    EXPECT_EQ(form1.Caption, "Orvik - old");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(LoadersTest, TextListThatIsAskedFor_BringsTheChooserOnly) {
    module1.OpenMode = kAskForTextFiles;
    module1.WorkText = "A1\r\n";
    ExpectChooser();
    module1.OpenTextList();
    EXPECT_EQ(module1.WorkText, "A1\r\n");
    EXPECT_EQ(module1.TextMode, "none");
}

TEST_F(LoadersTest, EmptyTextListAndYes_BringsTheChooser) {
    module1.OldCaption = "Orvik - old";
    ExpectRefusal(Answer::Yes);
    ExpectChooser();
    module1.OpenTextList();
    EXPECT_EQ(form1.Caption, "Orvik");
}

// Who is choosing is asked all the same, and the answer is of no use.
TEST_F(LoadersTest, EmptyTextListFromTheChooser_PutsTheCaptionBack) {
    ShowChooser();
    module1.OldCaption = "Orvik - old";
    ExpectRefusal(Answer::Yes);
    module1.OpenTextList();
    EXPECT_EQ(form1.Caption, "Orvik - old");
}

TEST_F(LoadersTest, Netscape3_IsListedButNotShown) {
    module1.textSep = ",";
    module1.WorkText = "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>";
    module1.OpenNetscape3();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"A1"});
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(form1.Text1.Text(), "");
}

TEST_F(LoadersTest, Netscape3InEditMode_IsShownButNotSplit) {
    module1.EditMode = true;
    module1.textSep = ",";
    module1.WorkText = "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>";
    module1.OpenNetscape3();
    EXPECT_EQ(form1.Text1.Text(), "\"A1\" Al");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(LoadersTest, Juno_IsListedAndNative) {
    module1.WorkText = "\r\nName:Al\r\nEmail:A1\r\n";
    module1.OpenJuno();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"Al"});
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_FALSE(module1.EditMode);
}

TEST_F(LoadersTest, CsvThatEndsInAColumn_FailsWith5AndKeepsTheText) {
    module1.WorkText = "h\r\nAl";
    ExpectTold("Error!");
    EXPECT_EQ(test::FailureOf([&] { module1.OpenCsv(); }), 5);
    EXPECT_EQ(module1.WorkText, "h\r\nAl");
}

TEST_F(LoadersTest, WordPerfect_IsListed) {
    module1.WorkText = "h\r\n1,Al,3,4,5,A1,7\r\n";
    module1.OpenWordPerfect();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"Al"});
}

// The line feed that is left of a comment is no separator.
TEST_F(LoadersTest, Pegasus_IsFilteredListedAndShown) {
    module1.WorkText = "\\TITLE x\r\nA1\r\n\\NOSIG\r\nA2\r\n";
    module1.OpenPegasus();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1A2"});
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
}

TEST_F(LoadersTest, PegasusOfCommentsOnly_ClearsTheLists) {
    SetAscii("A9\r\n");
    module1.RefreshLists();
    module1.WorkText = "\\TITLE x\r\n\\NOSIG\r\n";
    module1.OpenPegasus();
    EXPECT_TRUE(form1.List1.Items().empty());
    EXPECT_TRUE(form1.List2.Items().empty());
    EXPECT_EQ(Panel(2), "0 items");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(LoadersTest, AliasFile_BecomesEntriesInTheModeItHad) {
    module1.WorkText = "alias Al A1\r\n";
    module1.OpenAliasFile();
    EXPECT_EQ(module1.WorkText, "\"Al\"A1\r\n");
    EXPECT_EQ(module1.TextMode, "none");
}

struct NoteRow {
    const char* name;
    void (Module1::*loader)();
    std::string contents;
    const char* note;
};

class NoteTest : public LoadersTest, public testing::WithParamInterface<NoteRow> {};

TEST_P(NoteTest, Loader_NotesWhatItLeavesOut) {
    module1.Note = {{9, 9}, "a vCard"};
    module1.WorkText = GetParam().contents;
    (module1.*GetParam().loader)();
    EXPECT_EQ(module1.Note.Text(), GetParam().note);
}

constexpr const char* kOne = "1 attribute of 1 entry was not read";

INSTANTIATE_TEST_SUITE_P(
    ,
    NoteTest,
    testing::Values(
        NoteRow{"Ldif", &Module1::OpenNetscape4, "dn: x\r\nmail: A1\r\no: z\r\n", kOne},
        NoteRow{"Netscape3",
                &Module1::OpenNetscape3,
                "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Alan</A>\r\n<DD>rows\r\n",
                kOne},
        NoteRow{"Juno", &Module1::OpenJuno, "\r\nName:Al\r\nEmail:A1\r\nBirth:x\r\n", kOne},
        NoteRow{"Csv", &Module1::OpenCsv, "h\r\nAl,A1,5,,,,,,,,,,,,,\r\n", kOne},
        NoteRow{"WordPerfect", &Module1::OpenWordPerfect, "h\r\nU,Al,,,,A1,5\r\n", kOne},
        NoteRow{"Pegasus", &Module1::OpenPegasus, "\\TITLE x\r\nA1\r\n", kOne},
        NoteRow{"Aliases", &Module1::OpenAliasFile, "alias Al A1\r\nnote Al x\r\n", kOne},
        NoteRow{"List", &Module1::OpenTextList, "\"Al\" <A1>\r\n", ""},
        NoteRow{"VCardAsAList",
                &Module1::OpenTextList,
                "BEGIN:VCARD\r\nFN:Al\r\nEND:VCARD\r\n",
                "The contents look like a vCard"},
        NoteRow{"MailFolderAsLdif",
                &Module1::OpenNetscape4,
                "From a@b\r\nX-Status: 0\r\nmail: A1\r\nsn: x\r\n",
                "The contents look like a mail folder"}),
    [](const auto& row) { return row.param.name; });

TEST_F(LoadersTest, RefusedFile_IsOnlyNotedForWhatItIs) {
    ExpectRefusal(Answer::No);
    module1.WorkText = "\r\nBirth:x\r\n";
    module1.OpenJuno();
    EXPECT_EQ(module1.Note.Text(), "");
    ExpectRefusal(Answer::No);
    module1.WorkText = "BEGIN:VCARD\r\nFN:Al\r\n";
    module1.OpenJuno();
    EXPECT_EQ(module1.Note.Text(), "The contents look like a vCard");
}

struct RefusalRow {
    const char* name;
    void (Module1::*loader)();
    std::string_view contents;
};

// A file that its format's loader does not know.
class RefusalTest : public LoadersTest, public testing::WithParamInterface<RefusalRow> {
 protected:
    void Load() {
        module1.WorkText = GetParam().contents;
        module1.OldCaption = "Orvik - old";
        (module1.*GetParam().loader)();
    }
};

TEST_P(RefusalTest, No_PutsTheCaptionBack) {
    ExpectRefusal(Answer::No);
    Load();
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(form1.Caption, "Orvik - old");
}

TEST_P(RefusalTest, Yes_BringsTheChooserOverTheRawText) {
    ExpectRefusal(Answer::Yes);
    ExpectChooser();
    Load();
    EXPECT_EQ(module1.WorkText, GetParam().contents);
    EXPECT_EQ(form1.Caption, "Orvik");
}

TEST_P(RefusalTest, InTheChooser_OnlyTells) {
    ShowChooser();
    ExpectTold("This file is not recognizable. Please select another format", "Error");
    Load();
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(form1.Caption, "Orvik");
}

INSTANTIATE_TEST_SUITE_P(
    ,
    RefusalTest,
    testing::Values(RefusalRow{"EmptyNetscape3", &Module1::OpenNetscape3, ""},
                    RefusalRow{"EmptyLdif", &Module1::OpenNetscape4, ""},
                    RefusalRow{"EmptyCsv", &Module1::OpenCsv, ""},
                    RefusalRow{"EmptyWordPerfect", &Module1::OpenWordPerfect, ""},
                    RefusalRow{"EmptyJuno", &Module1::OpenJuno, ""},
                    RefusalRow{"OtherTextAsJuno", &Module1::OpenJuno, "A1\r\n"}),
    [](const auto& row) { return row.param.name; });

TEST_F(LoadersTest, OtherTextAsNetscape3_TellsTheFailureFirst) {
    module1.WorkText = "A1\r\n";
    const testing::InSequence in_order;
    ExpectTold("Error #5");
    ExpectRefusal(Answer::No);
    module1.OpenNetscape3();
    EXPECT_EQ(module1.WorkText, "");
}

}  // namespace
}  // namespace orvik
