#include "desktop/book/person_page.h"

#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <memory>

#include <gmock/gmock.h>

#include "book/transfer.h"
#include "desktop/book/embedded_picture.h"
#include "desktop/book_fixture.h"
#include "desktop/views/link_button.h"

namespace orvik {
namespace {

using test::Find;
using test::GoTo;
using test::ReadInto;
using test::RowsOf;
using testing::ElementsAre;
using testing::HasSubstr;

class BookPersonTest : public testing::Test {
 protected:
    void open(const std::string& name, const std::string& bytes) {
        ReadInto(document, name, bytes);
        page = std::make_unique<PersonPage>(document, checks, nullptr);
        page->resize(400, 700);
        page->QWidget::show();
    }
    void openCard(const std::string& lines) {
        open("a.vcf", "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n");
        page->show({0});
    }
    [[nodiscard]] QTableView& table() const { return Find<QTableView>(*page, "personFields"); }
    [[nodiscard]] std::string rows() const { return RowsOf(*table().model()); }
    [[nodiscard]] std::string label(const char* name) const {
        const auto& one = Find<QLabel>(*page, name);
        return one.isHidden() ? "(hidden)" : one.text().toStdString();
    }
    [[nodiscard]] std::string box(const char* name) const {
        return Find<QPlainTextEdit>(*page, name).toPlainText().toStdString();
    }

    BookDocument document;
    BookChecks checks{document};
    std::unique_ptr<PersonPage> page;
};

std::string Base64OfPicture(int width, int height, const char* format) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return book::ToBase64({bytes.data(), static_cast<std::size_t>(bytes.size())});
}

TEST_F(BookPersonTest, AllThatIsKnown) {
    openCard(
        "FN:Al Berg\r\nTEL;TYPE=work:555\r\nADR;TYPE=home:;;Pier 5;Oslo;;;\r\n"
        "NOTE:one\\ntwo\r\nX-OWN:1\r\n");
    EXPECT_EQ(rows(),
              "Name | Al Berg | line 3\n"
              "Work phone | 555 | line 4\n"
              "Address, home | Pier 5, Oslo | line 5\n"
              "Note | one two | line 6\n"
              "X-OWN | 1 | line 7\n");
    EXPECT_EQ(label("personTitle"), "Al Berg");
    EXPECT_EQ(label("personOrigin"), "A person from a.vcf, line 1");
    EXPECT_EQ(label("personPicture"), "(hidden)");
    EXPECT_EQ(box("personValue"), "Al Berg");
    GoTo(table(), QStringLiteral("Note"));
    EXPECT_EQ(box("personValue"), "one\ntwo");
    page->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(page.get()));
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "one\ntwo");
    table().selectAll();
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
              "Al Berg\n555\nPier 5, Oslo\none\ntwo\n1");
}

TEST_F(BookPersonTest, LettersThatLieAreEscapes) {
    openCard(
        "FN:<b>Al</b>\xE2\x80\xAE gr\x01"
        "e\r\n");
    EXPECT_EQ(label("personTitle"),
              "<b>Al</b>\\u202E gr\\x01"
              "e");
    EXPECT_THAT(rows(),
                HasSubstr("<b>Al</b>\\u202E gr\\x01"
                          "e |"));
    EXPECT_EQ(Find<QLabel>(*page, "personTitle").textFormat(), Qt::PlainText);
}

TEST_F(BookPersonTest, FollowsWhatIsSelectedAndWhatChanges) {
    open("a.ldif", "dn: cn=Al\ncn: Al\n\ndn: cn=Bo\ncn: Bo\n\ndn: cn=Cy\ncn: Cy\n");
    EXPECT_EQ(label("personTitle"), "Nobody is selected");
    EXPECT_TRUE(table().isHidden());
    page->show({0, 2});
    EXPECT_EQ(label("personTitle"), "2 records are selected");
    EXPECT_EQ(label("personOrigin"), "(hidden)");
    document.remove(QStringLiteral("Delete"), {0});
    EXPECT_EQ(label("personTitle"), "Cy");
    EXPECT_FALSE(table().isHidden());
    std::vector<book::Property> fields(document.at(2).Properties.begin(),
                                       document.at(2).Properties.end());
    fields.front().Value = document.keep("Cyd");
    fields.push_back({document.keep("new"), book::field::kNote, 0, 0, 0});
    document.change(QStringLiteral("Change"), {{2, document.withFields(document.at(2), fields)}});
    EXPECT_EQ(label("personTitle"), "Cyd");
    EXPECT_THAT(rows(), HasSubstr("Note | new | added here"));
    EXPECT_THAT(label("personOrigin"), HasSubstr("changed since"));
    document.undoStack().undo();
    document.undoStack().undo();
    EXPECT_EQ(label("personTitle"), "2 records are selected");
    page->show({});
    EXPECT_EQ(label("personTitle"), "Nobody is selected");
    document.undoStack().undo();
    page->show({1});
    EXPECT_EQ(label("personTitle"), "Nobody is selected");
}

TEST_F(BookPersonTest, WhoWasAddedHasNoLines) {
    open("a.ldif", "dn: cn=Al\ncn: Al\n");
    std::vector<book::Property> fields{{document.keep("Di"), book::field::kFn, 0, 0, 0}};
    page->show({document.add(QStringLiteral("Add"), {document.withFields({}, fields)})});
    EXPECT_EQ(label("personOrigin"), "A person, added here");
    EXPECT_FALSE(Find<LinkButton>(*page, "personSourceLink").isEnabled());
}

TEST_F(BookPersonTest, ShowsTheLinesOfTheFile) {
    open("a.ldif", "dn: cn=Al\ncn: Al\n\ndn: cn=J\xF6rg\ncn: J\xF6rg\n");
    page->show({1});
    auto& link = Find<LinkButton>(*page, "personSourceLink");
    auto& lines = Find<QPlainTextEdit>(*page, "personSourceLines");
    EXPECT_TRUE(lines.isHidden());
    QTest::mouseClick(&link, Qt::LeftButton);
    EXPECT_FALSE(lines.isHidden());
    EXPECT_TRUE(lines.isReadOnly());
    EXPECT_EQ(lines.toPlainText(), QStringLiteral("4  dn: cn=J\u00F6rg\n5  cn: J\u00F6rg\n"));
    page->show({0});
    EXPECT_EQ(lines.toPlainText(), QStringLiteral("1  dn: cn=Al\n2  cn: Al\n"));
    QTest::mouseClick(&link, Qt::LeftButton);
    EXPECT_TRUE(lines.isHidden());
}

TEST_F(BookPersonTest, ListsAndTheirMembers) {
    open("a.ldif",
         "dn: cn=Al,mail=al@x.org\ncn: Al\nmail: al@x.org\n\n"
         "dn: cn=Team\nobjectclass: groupofnames\ncn: Team\n"
         "member: cn=Al,mail=al@x.org\nmember: cn=No,mail=no@x.org\n");
    QSignalSpy asked(page.get(), &PersonPage::recordAsked);
    page->show({1});
    EXPECT_THAT(label("personOrigin"), HasSubstr("A list from a.ldif, line 5"));
    EXPECT_THAT(rows(), HasSubstr("Member | Al | line 8\n"));
    EXPECT_THAT(rows(), HasSubstr("Member | cn=No,mail=no@x.org | line 9\n"));
    const int row = GoTo(table(), QStringLiteral("Al"));
    QTest::mouseClick(table().viewport(),
                      Qt::LeftButton,
                      {},
                      table().visualRect(table().model()->index(row, 1)).center());
    ASSERT_GE(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toUInt(), 0U);
    GoTo(table(), QStringLiteral("cn=No"));
    asked.clear();
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(asked.size(), 0);
    page->show({0});
    EXPECT_THAT(rows(), HasSubstr("In the list | Team | \n"));
    GoTo(table(), QStringLiteral("Team"));
    QTest::keyClick(&table(), Qt::Key_Return);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toUInt(), 1U);
}

TEST_F(BookPersonTest, ThePictureThatStandsInTheRecord) {
    openCard("FN:Al\r\nPHOTO;ENCODING=b:" + Base64OfPicture(300, 100, "PNG") + "\r\n");
    const auto& picture = Find<QLabel>(*page, "personPicture");
    ASSERT_FALSE(picture.isHidden());
    EXPECT_EQ(picture.pixmap(Qt::ReturnByValue).width(), 128);
    EXPECT_EQ(picture.accessibleName(), QStringLiteral("Picture of Al"));
    EXPECT_THAT(rows(), HasSubstr("Picture | "));
    EXPECT_THAT(rows(), HasSubstr(" bytes | "));
}

TEST_F(BookPersonTest, PicturesThatAreNotShown) {
    openCard("FN:Al\r\nPHOTO;VALUE=uri:file:///etc/hostname\r\n");
    EXPECT_EQ(label("personPicture"), "The picture is somewhere else, and is not fetched.");
    ReadInto(document,
             "b.vcf",
             "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Bo\r\nPHOTO;ENCODING=b:/9j/4AAQSkZJRg==\r\n"
             "END:VCARD\r\n");
    page->show({1});
    EXPECT_EQ(label("personPicture"), "The picture is damaged.");
}

TEST(EmbeddedPictureTest, EachFormIsShown) {
    for (const char* const format : {"PNG", "JPG", "BMP"}) {
        const EmbeddedPicture picture = ReadPicture(Base64OfPicture(400, 200, format), {50, 50});
        EXPECT_EQ(picture.Why, QString()) << format;
        EXPECT_EQ(picture.Image.size(), QSize(50, 25)) << format;
        // A small one is not blown up.
        EXPECT_EQ(ReadPicture(Base64OfPicture(8, 4, format), {50, 50}).Image.size(), QSize(8, 4));
    }
    EXPECT_EQ(
        ReadPicture("R0lGODlhAQABAIAAAP///wAAACwAAAAAAQABAAACAkQBADs=", {50, 50}).Image.size(),
        QSize(1, 1));
}

std::string Because(const std::string& bytes) {
    const EmbeddedPicture picture = ReadPicture(book::ToBase64(bytes), {50, 50});
    return picture.Image.isNull() ? picture.Why.toStdString() : "shown";
}

TEST(EmbeddedPictureTest, AnyBytesMayCome) {
    EXPECT_EQ(Because("no picture"), "The picture is of a kind that is not shown.");
    EXPECT_EQ(Because(""), "The picture is of a kind that is not shown.");
    EXPECT_EQ(Because("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
              "The picture is of a kind that is not shown.");
    EXPECT_EQ(Because("\x89PNG\r\n\x1A\n"), "The picture is damaged.");
    EXPECT_EQ(Because("\xFF\xD8\xFF\xE0 and so on"), "The picture is damaged.");
    EXPECT_EQ(ReadPicture("!!!", {50, 50}).Why, QStringLiteral("The picture is damaged."));
}

TEST(EmbeddedPictureTest, WhatWouldTakeLongIsNotDrawn) {
    // Thirty million pixels in a few bytes.
    QImage large(6000, 5000, QImage::Format_Mono);
    large.fill(0);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    large.save(&buffer, "PNG");
    EXPECT_LT(png.size(), 100000);
    EXPECT_EQ(Because(png.toStdString()), "The picture is too large to be shown.");
    EXPECT_EQ(Because("BM" + std::string(17U << 20U, '\0')),
              "The picture is too large to be shown.");
    std::string jpeg;
    ASSERT_TRUE(book::AppendBase64(Base64OfPicture(1000, 1000, "JPG"), jpeg));
    EXPECT_EQ(Because(jpeg), "shown");
    // As if it were drawn a hundred times.
    for (int i = 0; i < 100; ++i) {
        jpeg += "\xFF\xDA";
    }
    EXPECT_EQ(Because(jpeg), "The picture is too large to be shown.");
}

TEST_F(BookPersonTest, ThousandsOfFieldsAndLongValues) {
    std::string lines = "FN:Al\r\n";
    for (int i = 0; i < 20000; ++i) {
        lines += "TEL:" + std::to_string(i) + "\r\n";
    }
    lines += "NOTE:" + std::string(3000000, 'x') + "\r\n";
    openCard(lines);
    ASSERT_EQ(table().model()->rowCount(), 20002);
    EXPECT_LT(table().model()->index(20001, 1).data().toString().size(), 2000);
    table().setCurrentIndex(table().model()->index(20001, 0));
    EXPECT_LT(box("personValue").size(), 33000U);
    // A widget for what is seen, none for a row.
    EXPECT_LT(page->findChildren<QWidget*>().size(), 60);
    page->grab();
}

TEST_F(BookPersonTest, TabReachesAll) {
    openCard("FN:Al\r\nTEL:5\r\n");
    ASSERT_TRUE(QTest::qWaitForWindowActive(page.get()));
    EXPECT_THAT(test::ReachedByTab(table()),
                ElementsAre("personFields", "personValue", "personSourceLink"));
    auto& link = Find<LinkButton>(*page, "personSourceLink");
    link.setFocus();
    QTest::keyClick(&link, Qt::Key_Space);
    EXPECT_THAT(
        test::ReachedByTab(table()),
        ElementsAre("personFields", "personValue", "personSourceLink", "personSourceLines"));
}

}  // namespace
}  // namespace orvik
