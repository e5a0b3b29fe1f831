// Members that lists name in words, or by the line of their record.

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "book/members.h"
#include "book/old/entry_builder.h"
#include "book/write_ldif.h"
#include "book/write_vcard.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;

struct Named {
    std::string File;
    std::string Text;
};

std::string Person(const std::string& name, const std::string& nickname = {}) {
    return "BEGIN:VCARD\nVERSION:3.0\nFN:" + name + "\nEMAIL:" + name.substr(0, 1) + "@x\n" +
           (nickname.empty() ? "" : "NICKNAME:" + nickname + "\n") + "END:VCARD\n";
}

std::string List(const std::string& name, const std::vector<std::string>& members) {
    std::string text = "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:" + name + "\n";
    for (const std::string& member : members) {
        text += "MEMBER;VALUE=text:" + member + "\n";
    }
    return text + "END:VCARD\n";
}

std::unique_ptr<Book> Read(const std::vector<Named>& files) {
    auto book = std::make_unique<Book>();
    for (const Named& one : files) {
        const std::uint32_t file = book->AddSource(std::make_unique<Source>(one.File, one.Text));
        Charset charset(book->SourceAt(file), {});
        ReadVCard(*book, file, charset);
    }
    return book;
}

// "2" for the number of the record that is found, "2?" where another one has the name too, "-".
std::string FoundAs(const Book& book, const Contact& list) {
    const Identities identities(book);
    const Directory directory(book, identities);
    std::string found;
    for (const ListMember& one : directory.MembersOf(list)) {
        found += one.Record == ListMember::kNobody ? "-" : std::to_string(one.Record);
        found += one.Shared ? "? " : " ";
    }
    return found;
}

TEST(MembersByName, AreLookedForInAllFiles) {
    const auto people = Person("Ada Abbott", "ada") + Person("Berg, Ben") +
                        Person("Zo\xC3\x8B  Quist", "zo_q") + Person("Ada Abbott");
    const struct {
        const char* Member;
        const char* Found;
    } rows[] = {
        {"Berg\\, Ben", "2 "},
        {"Ben Berg", "2 "},
        {"ben  BERG", "2 "},
        {"BERG\\,ben", "2 "},
        {"zo\xC3\xAB quist", "3 "},
        {"Quist\\, Zo\xC3\xAB", "3 "},
        {"ZO Q", "3 "},
        {"zo_q", "3 "},
        {"ada", "1 "},
        {"Ada Abbott", "1? "},
        {"Abbott\\, Ada", "1? "},
        {"Inner", "5 "},
        {"@inner.pml", "5 "},
        {"@C:\\\\MAIL\\\\INNER.PML", "5 "},
        {"@Inner", "5 "},
        {"@other.pml", "- "},
        {"Ada", "1 "},
        {"Cy", "- "},
        {"", "- "},
        {"a=b", "- "},
    };
    for (const auto& row : rows) {
        const auto book = Read({{"list.vcf", List("Team", {row.Member})},
                                {"people.vcf", people},
                                {"lists/Inner.Pml", List("Inner", {"Team"})}});
        EXPECT_EQ(FoundAs(*book, book->Contacts.front()), row.Found) << row.Member;
    }
    // Two files of that name, and a list that holds itself by way of another one.
    const auto book = Read({{"a/x.pml", List("Team", {"Inner", "@X.PML", "@y.pml"})},
                            {"b/X.PML", List("Team", {"Team"})},
                            {"y.pml", List("Inner", {"Team"})}});
    EXPECT_EQ(FoundAs(*book, book->Contacts[0]), "2 0? 2 ");
    EXPECT_EQ(FoundAs(*book, book->Contacts[2]), "0? ");
}

TEST(MembersByName, ArePeopleBeforeLists) {
    const auto book = Read({{"a", List("Ada", {"ada"}) + Person("Ada")}});
    EXPECT_EQ(FoundAs(*book, book->Contacts.front()), "1? ");
}

TEST(MembersByName, AreWrittenAsTheirRecords) {
    const std::string people = Person("Ada");
    const auto files = [&] {
        return Read({{"a", List("Team", {"ADA", "Berg\\, Ben"})}, {"b", people}});
    };
    auto book = files();
    const std::string uid(Identities(*book).UidAt(1));
    const std::string newer = WriteVCard(*book, Dialect::VCard40);
    const std::string members = "MEMBER:urn:uuid:" + uid + "\r\nMEMBER;VALUE=text:Berg\\, Ben\r\n";
    // Nobody changed the list, so its lines stay.
    EXPECT_NE(newer.find("MEMBER;VALUE=text:ADA"), std::string::npos) << newer;
    EXPECT_EQ(test::Told(*book), "");
    book = files();
    book->Contacts.front().Changed = true;
    const std::string changed = WriteVCard(*book, Dialect::VCard40);
    EXPECT_NE(changed.find(members), std::string::npos) << changed;
    EXPECT_EQ(test::Told(*book), "skipped 1 MEMBER: Berg, Ben: is not in these files\n");
    const std::string old = WriteVCard(*book, Dialect::VCard30);
    EXPECT_NE(old.find("X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:" + uid +
                       "\r\nX-ADDRESSBOOKSERVER-MEMBER;VALUE=text:Berg\\, Ben\r\n"),
              std::string::npos)
        << old;
    const std::string ldif = WriteLdif(*book, {});
    EXPECT_NE(ldif.find("\nmember: cn=Ada,mail=A@x\nmember: cn=Berg, Ben\n"), std::string::npos)
        << ldif;
    // What nobody found comes back in words.
    const ReadBook back(ReadLdif, ldif);
    const std::string shown = Shown(back.book, back.book.Contacts.front());
    EXPECT_NE(shown.find("\nMEMBER:cn=Ada,mail=A@x\nMEMBER;VALUE=text:Berg\\, Ben\n"),
              std::string::npos)
        << shown;
}

TEST(MembersByName, OfWhomThereAreTwoAreTold) {
    auto book = Read({{"a", List("Team", {"Ada"}) + Person("Ada") + Person("Ada")}});
    book->Contacts.front().Changed = true;
    EXPECT_NE(WriteVCard(*book, Dialect::VCard40).find("MEMBER:urn"), std::string::npos);
    EXPECT_EQ(test::Told(*book),
              "doubtful 1 MEMBER: Ada: is the name of more than one record, of which the first was "
              "taken\n");
}

// A book of one file with a record a line: "name" or "list: line name ...".
std::unique_ptr<Book> OfLines(std::uint32_t first, std::uint32_t member) {
    auto book = std::make_unique<Book>();
    for (const char* const name : {"one", "two"}) {
        const std::uint32_t file = book->AddSource(std::make_unique<Source>(name, "Ada\nTeam\n"));
        Charset charset(book->SourceAt(file), {});
        EntryBuilder entry(*book, file, charset);
        const std::string_view text = book->SourceAt(file).Text();
        entry.Begin(text.substr(0, 4), first, 1, ContactKind::Person, {});
        entry.PushName(name, first);
        entry.PushKept(field::kEmail, std::string(name) + "@x", first);
        entry.End();
        entry.Begin(text.substr(4), first + 1, 1, ContactKind::List, {});
        entry.Push(field::kFn, "Team", first + 1);
        entry.PushMemberAt(member, first + 1);
        entry.PushMember({}, "TWO", first + 1);
        entry.PushMember({}, "Else, Any", first + 1);
        entry.PushMember("ben@x", "Ben Berg", first + 1);
        entry.PushMember("cy@x", {}, first + 1);
        entry.End();
    }
    return book;
}

TEST(MembersByLine, AreTheRecordsOfTheirOwnFile) {
    const auto book = OfLines(1, 1);
    EXPECT_EQ(FoundAs(*book, book->Contacts[1]), "0 2 - - - ");
    EXPECT_EQ(FoundAs(*book, book->Contacts[3]), "2 2 - - - ");
    const auto nobody = OfLines(1, 7);
    EXPECT_EQ(FoundAs(*nobody, nobody->Contacts[1]), "- 2 - - - ");
    const std::string uid(Identities(*book).UidAt(0));
    const std::string card = WriteVCard(*book, Dialect::VCard40);
    EXPECT_NE(card.find("\r\nMEMBER:urn:uuid:" + uid + "\r\n"), std::string::npos) << card;
    EXPECT_NE(card.find("\r\nMEMBER;VALUE=text:Else\\, Any\r\n"
                        "MEMBER;X-ORVIK-DN=\"cn=Ben Berg,mail=ben@x\":mailto:ben@x\r\n"
                        "MEMBER:mailto:cy@x\r\n"),
              std::string::npos)
        << card;
    EXPECT_EQ(card.find("x-orvik-line"), std::string::npos);
    const std::string ldif = WriteLdif(*book, {});
    EXPECT_NE(ldif.find("\nmember: cn=one,mail=one@x\nmember: cn=two,mail=two@x\n"
                        "member: cn=Else, Any\n"),
              std::string::npos)
        << ldif;
    EXPECT_NE(ldif.find("\nmember: cn=Ben Berg,mail=ben@x\nmember: mail=cy@x\n"),
              std::string::npos);
    EXPECT_EQ(ldif.find("x-orvik-line"), std::string::npos);
}

// Another line in the file must not make other UIDs.
TEST(MembersByLine, DoNotDecideTheUidOfTheirList) {
    const auto book = OfLines(1, 1);
    const auto moved = OfLines(8, 8);
    EXPECT_EQ(Identities(*book).UidAt(1), Identities(*moved).UidAt(1));
    EXPECT_NE(Identities(*book).UidAt(1), Identities(*book).UidAt(3));
    EXPECT_NE(Identities(*book).UidAt(1), Identities(*OfLines(1, 7)).UidAt(1));
}

}  // namespace
}  // namespace orvik::book
