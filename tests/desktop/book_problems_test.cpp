#include "desktop/book/problems_page.h"

#include <QSignalSpy>

#include "desktop/book_problems_fixture.h"

namespace orvik {
namespace {

using test::BookProblemsTest;
using test::Find;
using test::kOneOfEach;
using test::NamesIn;
using test::ReadInto;
using testing::HasSubstr;
using testing::Not;

TEST_F(BookProblemsTest, EachKindWithItsCountItsRecordAndItsPlace) {
    open("a.ldif", kOneOfEach);
    EXPECT_EQ(rows(),
              "What was assumed about files (1) |  | \n"
              "LDIF (line 5 begins a record); letters: ASCII |  | a.ldif\n"
              "Skipped (1) |  | \n"
              "\"nonsense\": belongs to no record |  | line 3\n"
              "Doubtful (1) |  | \n"
              "description \"***\": is no base64 | Bo | line 9\n"
              "Bad addresses (1) |  | \n"
              "\"<al@example.org>\": the sign < in the name | Al | line 7\n"
              "Odd addresses (1) |  | \n"
              "\"bo@localhost\": a domain without a dot | Bo | line 11\n"
              "Members who are no record (1) |  | \n"
              "\"cn=No,mail=no@example.org\": is not in these files | Team | line 17\n");
}

TEST_F(BookProblemsTest, WhatWasAssumedAboutATable) {
    open("a.csv", "Name,E-mail,Shoe\nJ\xF6rg,j@example.org,9\nZo\xEB,z@example.org,8\n");
    EXPECT_THAT(rows(), HasSubstr("letters doubtful: windows-1252 (assumed; e.g."));
    EXPECT_THAT(rows(), HasSubstr("CSV ("));
    EXPECT_THAT(box("problemDetail"), HasSubstr("a.csv\n"));
    EXPECT_THAT(box("problemDetail"), HasSubstr("\nletters doubtful: windows-1252"));
    click("problemSourceLink");
    EXPECT_THAT(box("problemSourceLines"), HasSubstr("2  J\xC3\xB6rg,j@example.org,9\n"));
}

TEST_F(BookProblemsTest, ShowsOneKindAlone) {
    open("a.ldif", kOneOfEach);
    auto& kinds = Find<QComboBox>(*page, "problemKinds");
    EXPECT_EQ(kinds.count(), 7);
    EXPECT_EQ(kinds.itemText(0), QStringLiteral("All (6)"));
    kinds.setCurrentIndex(kinds.findText(QStringLiteral("Odd addresses (1)")));
    EXPECT_EQ(rows(),
              "Odd addresses (1) |  | \n"
              "\"bo@localhost\": a domain without a dot | Bo | line 11\n");
    click("problemKeep");
    EXPECT_EQ(rows(), "");
    EXPECT_EQ(kinds.currentText(), QStringLiteral("Odd addresses (0)"));
    kinds.setCurrentIndex(0);
    EXPECT_THAT(rows(), HasSubstr("Bad addresses (1)"));
    EXPECT_THAT(rows(), Not(HasSubstr("Odd")));
}

TEST_F(BookProblemsTest, AClickAndEnterGoToTheRecord) {
    open("a.ldif", kOneOfEach);
    QSignalSpy asked(page.get(), &ProblemsPage::recordAsked);
    goTo("the sign < in the name");
    QTest::keyClick(&table(), Qt::Key_Return);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toUInt(), 0U);
    goTo("is not in these files");
    QTest::mouseClick(table().viewport(),
                      Qt::LeftButton,
                      {},
                      table().visualRect(table().currentIndex()).center());
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(asked[1][0].toUInt(), 2U);
    goTo("belongs to no record");
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(asked.size(), 2);
}

TEST_F(BookProblemsTest, ShowsTheLinesAround) {
    open("a.ldif", kOneOfEach);
    goTo("belongs to no record");
    click("problemSourceLink");
    EXPECT_EQ(box("problemSourceLines"),
              "1  version: 1\n2  \n3  nonsense\n4  \n5  dn: cn=Al\n6  cn: Al\n");
    goTo("bo@localhost");
    EXPECT_THAT(box("problemSourceLines"), HasSubstr("11  mail: bo@localhost\n"));
    EXPECT_THAT(box("problemDetail"), HasSubstr("Bo (a.ldif, line 11)\n"));
}

TEST_F(BookProblemsTest, FixingAnAddress) {
    open("a.ldif", kOneOfEach);
    goTo("the sign < in the name");
    click("problemFixButton");
    auto& text = Find<QLineEdit>(*page, "problemFixText");
    const auto& verdict = Find<QLabel>(*page, "problemFixVerdict");
    EXPECT_EQ(text.text(), QStringLiteral("<al@example.org>"));
    EXPECT_EQ(verdict.text(), QStringLiteral("bad: the sign < in the name"));
    EXPECT_FALSE(button("problemFixChange").isEnabled());
    text.setText(QStringLiteral("al@@x"));
    EXPECT_EQ(verdict.text(), QStringLiteral("bad: two @"));
    EXPECT_TRUE(Find<LinkButton>(*page, "problemFixOffer").isHidden());
    text.setText(QStringLiteral(" mailto:al@example.org"));
    EXPECT_EQ(Find<LinkButton>(*page, "problemFixOffer").text(),
              QStringLiteral("Use al@example.org"));
    click("problemFixOffer");
    EXPECT_EQ(text.text(), QStringLiteral("al@example.org"));
    EXPECT_EQ(verdict.text(), QStringLiteral("A valid address"));
    click("problemFixChange");
    EXPECT_EQ(lastStep(), "2 Fix a problem");
    EXPECT_EQ(book::AddressesOf(document.at(0)).front(), "al@example.org");
    EXPECT_THAT(rows(), Not(HasSubstr("Bad addresses")));
    EXPECT_FALSE(text.isVisible());
    undo();
    EXPECT_EQ(book::AddressesOf(document.at(0)).front(), "<al@example.org>");
    EXPECT_THAT(rows(), HasSubstr("Bad addresses (1)"));
}

TEST_F(BookProblemsTest, FixingWhatARemarkIsAboutAndAMember) {
    open("a.ldif", kOneOfEach);
    goTo("is no base64");
    ASSERT_TRUE(button("problemFixButton").isEnabled());
    click("problemFixButton");
    auto& text = Find<QLineEdit>(*page, "problemFixText");
    EXPECT_EQ(text.text(), QStringLiteral("***"));
    EXPECT_TRUE(Find<QLabel>(*page, "problemFixVerdict").isHidden());
    text.setText(QStringLiteral("stars"));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(lastStep(), "2 Fix a problem");
    EXPECT_THAT(rows(), Not(HasSubstr("Doubtful")));
    undo();
    EXPECT_THAT(rows(), HasSubstr("Doubtful (1)"));
    goTo("is not in these files");
    click("problemFixButton");
    text.setText(QStringLiteral("cn=Al"));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_THAT(rows(), Not(HasSubstr("Members")));
    EXPECT_EQ(checks.listsOf(0), BookDocument::Numbers{2});
    undo();
    EXPECT_THAT(rows(), HasSubstr("Members who are no record (1)"));
}

TEST_F(BookProblemsTest, KeepingAProblemOfEachKind) {
    open("a.ldif", kOneOfEach);
    const std::string all = rows();
    for (const char* const text : {"begins a record",
                                   "belongs to no record",
                                   "is no base64",
                                   "the sign < in the name",
                                   "bo@localhost",
                                   "is not in these files"}) {
        goTo(text);
        click("problemKeep");
        EXPECT_EQ(lastStep(), "2 Keep a problem as it is");
        EXPECT_THAT(rows(), Not(HasSubstr(text)));
        EXPECT_EQ(NamesIn(document), "Al Bo Team ");
        undo();
        EXPECT_EQ(rows(), all);
    }
    table().selectAll();
    click("problemKeep");
    EXPECT_EQ(lastStep(), "2 Keep problems as they are");
    EXPECT_EQ(rows(), "");
    EXPECT_EQ(box("problemDetail"), "Nothing looks wrong.");
    EXPECT_FALSE(button("problemKeep").isEnabled());
    undo();
    EXPECT_EQ(rows(), all);
}

// Numbers of fields are others when one before them goes.
TEST_F(BookProblemsTest, WhatIsKeptStaysWhenTheRecordChanges) {
    open("a.ldif", "dn: cn=Al\ncn: Al\nmail: a@\nmail: b@\n");
    goTo("b@");
    click("problemKeep");
    goTo("a@");
    click("problemLeaveOut");
    EXPECT_THAT(rows(), Not(HasSubstr("Bad")));
    EXPECT_EQ(book::AddressesOf(document.at(0)), std::vector<std::string>{"b@"});
    undo();
    undo();
    EXPECT_THAT(rows(), HasSubstr("Bad addresses (2)"));
}

TEST_F(BookProblemsTest, LeavingOutValues) {
    open("a.ldif", kOneOfEach);
    const std::string all = rows();
    goTo("bo@localhost");
    click("problemLeaveOut");
    EXPECT_EQ(lastStep(), "2 Leave out a value");
    EXPECT_EQ(book::AddressesOf(document.at(1)).size(), 0U);
    EXPECT_THAT(rows(), Not(HasSubstr("Odd")));
    undo();
    EXPECT_EQ(rows(), all);
    goTo("is no base64");
    click("problemLeaveOut");
    EXPECT_THAT(rows(), Not(HasSubstr("Doubtful")));
    EXPECT_EQ(NamesIn(document), "Al Bo Team ");
    undo();
    EXPECT_EQ(rows(), all);
    goTo("is not in these files");
    click("problemLeaveOut");
    EXPECT_THAT(rows(), Not(HasSubstr("Members")));
    undo();
    EXPECT_EQ(rows(), all);
    goTo("belongs to no record");
    EXPECT_FALSE(button("problemLeaveOut").isEnabled());
    EXPECT_FALSE(button("problemFixButton").isEnabled());
}

TEST_F(BookProblemsTest, LeavingOutARecord) {
    open("a.vcf",
         "BEGIN:VCARD\r\nFN:Al\r\nEND:VCARD\r\nBEGIN:VCARD\r\nVERSION:3.0\r\nFN:Bo\r\nEND:"
         "VCARD\r\n");
    goTo("has no version");
    EXPECT_FALSE(button("problemFixButton").isEnabled());
    click("problemLeaveOut");
    EXPECT_EQ(lastStep(), "2 Leave out a record");
    EXPECT_EQ(NamesIn(document), "Bo ");
    EXPECT_THAT(rows(), Not(HasSubstr("has no version")));
    undo();
    EXPECT_EQ(NamesIn(document), "Al Bo ");
    EXPECT_THAT(rows(), HasSubstr("has no version"));
}

TEST_F(BookProblemsTest, LeavingOutSeveralIsOneStep) {
    open("a.ldif",
         "dn: cn=Al\ncn: Al\nmail: a@\nmail: b@\nmail: ok@x.org\n\ndn: cn=Bo\ncn: Bo\nmail: c@\n");
    const std::string all = rows();
    table().selectAll();
    click("problemLeaveOut");
    EXPECT_EQ(lastStep(), "2 Leave out what is wrong");
    EXPECT_EQ(book::AddressesOf(document.at(0)), std::vector<std::string>{"ok@x.org"});
    EXPECT_EQ(book::AddressesOf(document.at(1)).size(), 0U);
    undo();
    EXPECT_EQ(rows(), all);
}

TEST_F(BookProblemsTest, ProblemsOfRecordsAndFilesThatAreGone) {
    open("a.ldif", kOneOfEach);
    document.remove(QStringLiteral("Delete"), {1});
    EXPECT_THAT(rows(), Not(HasSubstr("is no base64")));
    EXPECT_THAT(rows(), Not(HasSubstr("localhost")));
    EXPECT_THAT(rows(), HasSubstr("belongs to no record"));
    undo();
    EXPECT_THAT(rows(), HasSubstr("is no base64"));
    ReadInto(document, "/far/b.ldif", "dn: cn=Di\ncn: Di\nmail: di@\n");
    EXPECT_THAT(rows(), HasSubstr("What was assumed about files (2)"));
    EXPECT_THAT(rows(), HasSubstr("Bad addresses (2)"));
    EXPECT_THAT(rows(), HasSubstr("| Di | b.ldif, line 3\n"));
    // Below, there is room for the folder.
    goTo("di@");
    EXPECT_THAT(box("problemDetail"), HasSubstr("Di (/far/b.ldif, line 3)\n"));
    undo();
    EXPECT_THAT(rows(), HasSubstr("What was assumed about files (1)"));
    undo();
    EXPECT_EQ(rows(), "");
    EXPECT_EQ(box("problemDetail"), "There is no record yet.");
}

}  // namespace
}  // namespace orvik
