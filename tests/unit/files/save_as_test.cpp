#include <string>

#include "app/messages.h"
#include "app/working_text.h"
#include "unit/failure.h"
#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::ReadFile;
using test::WriteFile;
using testing::_;
using testing::AllOf;
using testing::Field;
using testing::Return;

class SaveAsTest : public test::CommandTest {
 protected:
    void SaveAs(std::string_view name) {
        EXPECT_CALL(platform, ShowFileDialog(_))
            .WillOnce(Return(folder_.Name(name)))
            .RetiresOnSaturation();
        form1.mnuSave_Click();
    }

    test::TempFolder folder_;
};

TEST_F(SaveAsTest, EmptyText_TellsAndWritesNothing) {
    ExpectTold(TextNonexistant("An error type"), "Error");
    form1.mnuSave_Click();
}

TEST_F(SaveAsTest, Dialog_OffersTheFormats) {
    SetAscii("A1\r\n");
    EXPECT_CALL(platform,
                ShowFileDialog(AllOf(
                    Field(&FileDialog::Kind, DialogKind::Save),
                    Field(&FileDialog::Title, "Save As"),
                    Field(&FileDialog::Filter,
                          "Netscape 4.x or IE|*.ldif|Netscape 3.x|*.htm|Juno|*.nv|Pegasus|*.pml|"
                          "Text|*.txt|All Files|*.*"),
                    Field(&FileDialog::Flags, 2097158U),
                    Field(&FileDialog::FileName, ""))))
        .WillOnce(Return(""));
    form1.mnuSave_Click();
    EXPECT_EQ(form1.Caption, "Orvik");
}

TEST_F(SaveAsTest, Ldif_IsTheConvertedText) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    SaveAs("book.ldif");
    const std::string ldif = ReadFile(folder_.Name("book.ldif"));
    EXPECT_TRUE(ldif.starts_with("dn: cn=Al,mail=A1\r\n")) << ldif;
    EXPECT_TRUE(ldif.ends_with("xnavusehtmlmail: TRUE\r\n")) << ldif;
    EXPECT_EQ(form1.Caption, "Orvik - " + folder_.Name("book.ldif"));
}

TEST_F(SaveAsTest, NameCutToLdi_GetsItsLastLetterBack) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    SaveAs("book.LDI");
    EXPECT_EQ(folder_.Files(), std::vector<std::string>{"book.LDIf"});
}

TEST_F(SaveAsTest, LdifTwice_IsTheSame) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    SaveAs("a.ldif");
    SaveAs("b.ldif");
    EXPECT_EQ(ReadFile(folder_.Name("a.ldif")), ReadFile(folder_.Name("b.ldif")));
}

TEST_F(SaveAsTest, LdifBeyondTheLimit_IsConvertedAgain) {
    const std::string address(kTextLimit, 'a');
    SetNative(address + "\r\n-nick-\r\nAl\r\n");
    module1.LdifText = "old";
    form1.LdifCurrent = true;
    EXPECT_CALL(platform, ShowBox(test::BoxIs(TooMuchText(), "Error")))
        .Times(2)
        .WillRepeatedly(Return(Answer::OK));
    SaveAs("a.ldif");
    EXPECT_TRUE(ReadFile(folder_.Name("a.ldif")).starts_with("dn: cn=Al,mail=aaa"));
}

TEST_F(SaveAsTest, Text_IsTheAsciiForm) {
    WriteFile(folder_.Name("a.txt"), "a longer text that was there before");
    SetNative("A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n");
    SaveAs("a.txt");
    EXPECT_EQ(ReadFile(folder_.Name("a.txt")), "\"Al\" <A1>\r\n\"\" <A2>\r\n");
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\n\"\" <A2>\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(SaveAsTest, UnknownEnding_FailsWith52AndWritesNothing) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(FailureOf([&] { SaveAs("a.dat"); }), 52);
    EXPECT_TRUE(folder_.Files().empty());
    EXPECT_EQ(form1.Caption, "Orvik - " + folder_.Name("a.dat"));
}

TEST_F(SaveAsTest, FailedWriting_KeepsTheText) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(FailureOf([&] { SaveAs("missing/a.ldif"); }), 76);
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
}

TEST_F(SaveAsTest, Pegasus_IsAddedBehindALineBreak) {
    WriteFile(folder_.Name("a.pml"), "old");
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    SaveAs("a.pml");
    EXPECT_EQ(ReadFile(folder_.Name("a.pml")), "old\r\n\"Al\" <A1>\r\n\r\n");
}

TEST_F(SaveAsTest, Juno_IsAdded) {
    WriteFile(folder_.Name("a.nv"), "old");
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    SaveAs("a.nv");
    EXPECT_EQ(ReadFile(folder_.Name("a.nv")),
              "old\r\n\r\nType:Entry\r\nName:Al\r\nEmail:A1\r\nAlias:Al\r\n\r\n");
}

TEST_F(SaveAsTest, NewNetscape3_IsTheWholeBook) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    SaveAs("a.html");
    const std::string book = ReadFile(folder_.Name("a.html"));
    EXPECT_TRUE(book.starts_with("<!DOCTYPE NETSCAPE-Addressbook-file-1>\r\n")) << book;
    EXPECT_TRUE(book.ends_with("\">Al</A>\r\n<DD>\r\n\r\n</DL><p>\r\n")) << book;
}

TEST_F(SaveAsTest, OldNetscape3_GetsTheEntriesAdded) {
    WriteFile(folder_.Name("a.htm"), "OLD<dd>\r\n</DL><p>\r\n");
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    SaveAs("a.htm");
    EXPECT_EQ(ReadFile(folder_.Name("a.htm")),
              "OLD<dd>\r\r\n\r\n    <DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>\r\n<DD>\r\n"
              "\r\n</DL><p>\r\n");
}

TEST_F(SaveAsTest, FileThatIsNoNetscape3Book_EndsTheProgram) {
    WriteFile(folder_.Name("a.htm"), "<HTML>");
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    ExpectTold("Bad Netscape 3.x Address Book!");
    EXPECT_CALL(platform, Ended());
    EXPECT_THROW(SaveAs("a.htm"), ProgramEnded);
    EXPECT_EQ(ReadFile(folder_.Name("a.htm")), "<HTML>");
}

TEST_F(SaveAsTest, EmptyNetscape3File_BecomesTheWholeBook) {
    WriteFile(folder_.Name("a.htm"), "");
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    SaveAs("a.htm");
    EXPECT_TRUE(ReadFile(folder_.Name("a.htm")).starts_with("<!DOCTYPE"));
}

TEST_F(SaveAsTest, EditMode_StaysAsItWas) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    form1.mnuEntEd_Click();
    SaveAs("a.ldif");
    EXPECT_TRUE(module1.EditMode);
    EXPECT_TRUE(ReadFile(folder_.Name("a.ldif")).starts_with("dn: cn=Al,mail=A1\r\n"));
}

}  // namespace
}  // namespace orvik
