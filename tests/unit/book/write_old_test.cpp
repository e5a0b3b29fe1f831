#include <gtest/gtest.h>

#include "book/old/old_writers.h"
#include "book/old/read_abook.h"
#include "book/old/read_aliases.h"
#include "book/old/read_juno.h"
#include "book/old/read_netscape3.h"
#include "book/old/read_pegasus_text.h"
#include "book/old/read_pine.h"
#include "book/old/read_plain_list.h"
#include "unit/book/written_table.h"

namespace orvik::book {
namespace {

using test::Card;
using test::ReadBook;
using test::Shown;

// A book of cards in an old format.
struct Old {
    Old(Dialect form, std::string cards)
        : read(ReadVCard, std::move(cards)), text(OldWriterOf(form)->Write(read.book)) {}

    [[nodiscard]] std::string Told() const { return test::Told(read.book); }
    [[nodiscard]] bool Has(std::string_view piece) const {
        return text.find(piece) != std::string::npos;
    }

    ReadBook read;
    std::string text;
};

std::string Person(const std::string& uid, const std::string& lines) {
    return Card("UID:" + uid + "\n" + lines);
}
std::string List(const std::string& lines) {
    return Card("X-ADDRESSBOOKSERVER-KIND:group\n" + lines);
}
std::string Member(const std::string& reference) {
    return "X-ADDRESSBOOKSERVER-MEMBER:" + reference + "\n";
}

TEST(WriteOld, EndingsAskForFormats) {
    EXPECT_EQ(OldWriterFor("A.HTML")->Form, Dialect::Netscape3);
    EXPECT_EQ(OldWriterFor("a.htm")->Form, Dialect::Netscape3);
    EXPECT_EQ(OldWriterFor("a.nv")->Form, Dialect::Juno);
    EXPECT_EQ(OldWriterFor("TEAM.PML")->Form, Dialect::PegasusList);
    EXPECT_EQ(OldWriterFor("a.txt")->Form, Dialect::PlainList);
    EXPECT_EQ(OldWriterFor("a.vcf"), nullptr);
    EXPECT_EQ(OldWriterFor("aliases"), nullptr);
    EXPECT_EQ(OldWriterOf(Dialect::VCard30), nullptr);
}

TEST(WriteOld, NamesKeepTheirParts) {
    const std::string both = "N:Abbott;Ada;;;\nEMAIL:a@b.org\n";
    EXPECT_TRUE(Old(Dialect::Juno, Card("FN:Ada Abbott\n" + both)).Has("Name:Ada Abbott\r\n"));
    EXPECT_EQ(Old(Dialect::Juno, Card("FN:Ada Abbott\n" + both)).Told(), "");
    EXPECT_TRUE(Old(Dialect::Juno, Card(both)).Has("Name:Ada Abbott\r\n"));
    const Old von(Dialect::Juno, Card("N:von Abbott;Ada;;;\nEMAIL:a@b.org\n"));
    EXPECT_TRUE(von.Has("Name:von Abbott, Ada\r\n"));
    EXPECT_EQ(von.Told(), "");
    const Old doctor(Dialect::Juno, Card("FN:Dr. Ada Abbott\nN:Abbott;Ada;;Dr.;\nEMAIL:a@b.org\n"));
    EXPECT_EQ(
        doctor.Told(),
        "doubtful 1 N: Abbott;Ada;;Dr.;: is in one piece, and may be parted otherwise when it "
        "is read\n");
    const Old other(Dialect::Juno, Card("FN:Rower\nN:Abbott;Ada;;;\nEMAIL:a@b.org\n"));
    EXPECT_EQ(other.Told(), "lost 1 N: Abbott;Ada;;;: has no place in the target\n");
    EXPECT_TRUE(Old(Dialect::Juno, Card("ORG:Club\nEMAIL:a@b.org\n")).Has("Name:Club\r\n"));
    EXPECT_TRUE(Old(Dialect::Juno, Card("NICKNAME:al\nEMAIL:a@b.org\n")).Has("Name:al\r\n"));
}

TEST(WriteOld, APageHoldsAllInItsNotes) {
    const Old page(
        Dialect::Netscape3,
        Card("FN:R&D <\"x\">\nNICKNAME:ada\\, A,al\nEMAIL:a%40 \"b@c.org\nEMAIL:2@c.org\n"
             "TEL;TYPE=work:1\nTITLE:Cox\nNOTE:one\\ntwo & \xD0\x96\xC3\xA9\n"
             "X-ORVIK-NETSCAPE3-COLOR:red\nPHOTO;ENCODING=b;TYPE=JPEG:/9j/\n"));
    EXPECT_TRUE(
        page.Has("<A HREF=\"mailto:a%2540%20%22b@c.org\" ALIASID=\"0\" NICKNAME=\"al\" "
                 "COLOR=\"red\">R&amp;D &lt;&quot;x&quot;&gt;</A>\r\n"))
        << page.text;
    EXPECT_TRUE(
        page.Has("<DD>one<BR>\r\ntwo &amp; &#1046;\xE9<BR>\r\nNickname: ada, A<BR>\r\n"
                 "Address: 2@c.org<BR>\r\nPhone (Work): 1<BR>\r\nJob title: Cox\r\n"))
        << page.text;
    EXPECT_NE(page.Told().find("lost 1 PHOTO"), std::string::npos);
    const ReadBook again(ReadNetscape3, page.text);
    EXPECT_NE(Shown(again.book).find("EMAIL:a%40 \"b@c.org\n"), std::string::npos)
        << Shown(again.book);
    EXPECT_NE(Shown(again.book).find("FN:R&D <\"x\">\n"), std::string::npos);
    EXPECT_NE(Shown(again.book).find("NOTE:one\\x0Atwo & \xD0\x96\xC3\xA9\\x0A"),
              std::string::npos);
}

TEST(WriteOld, MembersOfJunoAreThoseThatAreMeant) {
    // The alias of one is the name of another, and two share an address.
    const std::string book = Person("1", "FN:Ada\nNICKNAME:ben\nEMAIL:x@y.org\n") +
                             Person("2", "FN:Ben\nEMAIL:x@y.org\n") +
                             Person("3", "FN:Cy\nNICKNAME:cy\n") +
                             List("UID:4\nFN:Crew\n" + Member("urn:uuid:1") + Member("urn:uuid:2") +
                                  Member("urn:uuid:3") + Member("mailto:no@y.org"));
    const Old juno(Dialect::Juno, book);
    EXPECT_TRUE(
        juno.Has("Type:MList\r\nName:Crew\r\nMember:ben\r\nMember:cy\r\nMember:no@y.org\r\n"))
        << juno.text;
    EXPECT_NE(juno.Told().find("lost 20 X-ADDRESSBOOKSERVER-MEMBER: Ben"), std::string::npos)
        << juno.Told();
}

TEST(WriteOld, JunoHasOneSetOfLetters) {
    const Old juno(Dialect::Juno,
                   Card("FN:Ren\xC3\xA9"
                        "e\nEMAIL:r@b.org\nADR;TYPE=home:;;Quay 1\\nRear;Bonn;;;\n") +
                       Card("FN:\xD0\x96\nEMAIL:z@b.org\nTEL;TYPE=fax:1\nNOTE:no\n"));
    EXPECT_TRUE(
        juno.Has("Name:Ren\xE9"
                 "e\r\n"));
    EXPECT_TRUE(juno.Has("Address:Quay 1\r\nAddress:Rear\r\nAddress:Bonn\r\n"));
    EXPECT_TRUE(juno.Has("Name:?\r\n"));
    EXPECT_NE(juno.Told().find("lost 7 FN: \xD0\x96: has letters that the target's set has not"),
              std::string::npos);
    EXPECT_NE(juno.Told().find("lost 7 TEL: 1:"), std::string::npos);
    EXPECT_NE(juno.Told().find("lost 7 NOTE: no:"), std::string::npos);
}

TEST(WriteOld, AliasesAreQuotedForSettings) {
    const Old mutt(Dialect::Mutt,
                   Person("1",
                          "FN:Al \"the; #1\" $Bo\\\nNICKNAME:al b\nEMAIL:a@b.org\nEMAIL:c@d.org\n"
                          "CATEGORIES:club,two words\nNOTE:a  b\\ntags:x \\\\\n") +
                       Person("2", "FN:Al Bo\nEMAIL:o'n@b.org\nEMAIL:\"q r\"@b.org\n") +
                       Person("3", "FN:Al Bo\nEMAIL:e@b.org\n") + Person("4", "FN:Nobody\n"));
    EXPECT_EQ(mutt.text,
              "alias -group club al_b \\\"Al \\\\\\\"the\\; \\#1\\\\\\\" \\$Bo\\\\\\\\\\\" "
              "<a@b.org> # a b "
              "tags :x /\n"
              "alias al_b__c@d.org \\\"Al \\\\\\\"the\\; \\#1\\\\\\\" \\$Bo\\\\\\\\\\\" <c@d.org>\n"
              "alias al-bo \\\"Al Bo\\\" <o\\'n@b.org>\n"
              "alias al-bo-3 \\\"Al Bo\\\" <\\\"q r\\\"@b.org>\n"
              "alias al-bo_2 \\\"Al Bo\\\" <e@b.org>\n");
    EXPECT_NE(mutt.Told().find("lost 24 FN: Nobody: has no address"), std::string::npos)
        << mutt.Told();
    const ReadBook again(ReadMutt, mutt.text);
    EXPECT_NE(Shown(again.book).find("FN:Al \"the; #1\" $Bo\\\n"), std::string::npos)
        << Shown(again.book);
    EXPECT_NE(Shown(again.book).find("EMAIL:c@d.org\n"), std::string::npos);
}

TEST(WriteOld, ListsOfMuttNameTheirMembers) {
    const std::string book = Person("1", "FN:Ada\nEMAIL:a@b.org\n") + Person("2", "FN:Bo\n") +
                             List("UID:3\nFN:Crew\n" + Member("urn:uuid:1") + Member("urn:uuid:4") +
                                  Member("urn:uuid:2")) +
                             List("UID:4\nFN:Inner crew\n" + Member("mailto:x@y.org")) +
                             List("UID:5\nFN:None\n");
    const Old mutt(Dialect::Mutt, book);
    EXPECT_EQ(mutt.text,
              "alias ada \\\"Ada\\\" <a@b.org>\nalias Crew ada, inner-crew\nalias inner-crew "
              "x@y.org\n");
    EXPECT_NE(mutt.Told().find("MEMBER: Bo: has no address"), std::string::npos) << mutt.Told();
    EXPECT_NE(mutt.Told().find("FN: None: holds nothing"), std::string::npos);
    EXPECT_NE(mutt.Told().find("FN: Inner crew: is a list, and the target knows none"),
              std::string::npos);
}

TEST(WriteOld, PineEncodesAndBreaksLines) {
    std::string note;
    for (int i = 0; i < 300; ++i) {
        note += "word ";
    }
    const std::string book =
        Person("1",
               "FN:Abbott, J\xC3\xB6rg\nNICKNAME:j;b\nEMAIL:j@b.org\nEMAIL:k@b.org\nNOTE:" + note +
                   "\n") +
        Person("2", "FN:Club, Inc.\nEMAIL:c@b.org\n") +
        List("UID:3\nFN:Crew\n" + Member("urn:uuid:1") + Member("urn:uuid:2") +
             Member("urn:uuid:4")) +
        List("UID:4\nFN:Crew inside\n");
    const Old pine(Dialect::Pine, book);
    std::string_view rest = pine.text;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        EXPECT_LT(end, 1000U);
        rest.remove_prefix(end + 1);
    }
    EXPECT_TRUE(pine.text.starts_with("j_b\t=?UTF-8?Q?=22Abbott=2C_J=C3=B6rg=22?=\tj@b.org\t\t"))
        << pine.text;
    EXPECT_TRUE(pine.Has("\nj_b-2\t=?UTF-8?Q?=22Abbott=2C_J=C3=B6rg=22?=\tk@b.org\n"));
    EXPECT_TRUE(pine.Has("\n\t\"Club, Inc.\"\tc@b.org\n"));
    EXPECT_TRUE(pine.Has("\n\tCrew\t(j_b,\"Club, Inc.\" <c@b.org>,crew-inside)\n")) << pine.text;
    EXPECT_TRUE(pine.Has("\ncrew-inside\tCrew inside\t()\n"));
    const ReadBook again(ReadPine, pine.text);
    EXPECT_EQ(again.book.Contacts.size(), 4U);
    EXPECT_NE(Shown(again.book).find("EMAIL:j@b.org\nEMAIL:k@b.org\n"), std::string::npos);
    EXPECT_NE(Shown(again.book).find("NOTE:" + note.substr(0, note.size() - 1) + "\n"),
              std::string::npos);
}

TEST(WriteOld, AbookHasNineAddressesOfEighty) {
    std::string lines = "FN:Ada\n";
    for (int i = 0; i < 10; ++i) {
        lines += "EMAIL:" + std::to_string(i) + "@b.org\n";
    }
    lines += "EMAIL:" + std::string(80, 'x') +
             "@b.org\nCATEGORIES:a\\,b,c\nNOTE:1\\n2\nBDAY:1980-04-12\n"
             "ANNIVERSARY:20010409\nADR;TYPE=work:Box;;S1\\nS2;T;;;\nTEL;TYPE=work:7\n";
    const std::string book = Person("1", lines) + Person("2", "NOTE:nameless\n") +
                             List("UID:3\nFN:Crew\\, big\n" + Member("urn:uuid:1"));
    const Old abook(Dialect::Abook, book);
    EXPECT_TRUE(abook.Has(
        "email=0@b.org,1@b.org,2@b.org,3@b.org,4@b.org,5@b.org,6@b.org,7@b.org,8@b.org\n"));
    EXPECT_TRUE(abook.Has("\ngroups=c,Crew  big\n")) << abook.text;
    EXPECT_TRUE(abook.Has("address=S1\naddress2=S2, Box\ncity=T\nworkphone=7\n")) << abook.text;
    EXPECT_TRUE(abook.Has("anniversary=2001-04-09\n")) << abook.text;
    EXPECT_TRUE(abook.Has("notes=1 / 2 / Group: a,b / Birthday: 1980-04-12\n")) << abook.text;
    EXPECT_TRUE(abook.Has("\n[1]\nname=?\nnotes=nameless\n"));
    EXPECT_NE(abook.Told().find("EMAIL: 9@b.org: is one more than the program takes"),
              std::string::npos);
    EXPECT_NE(abook.Told().find("is larger than the program takes"), std::string::npos);
}

TEST(WriteOld, PegasusIsToldWhatIsTooLong) {
    const Old text(Dialect::PegasusText,
                   Card("FN:" + std::string(40, 'n') +
                        "\nEMAIL:a@b.org\nNICKNAME:ada\nROLE:r\n"
                        "X-LONG:" +
                        std::string(90, 'x') + "\n"));
    EXPECT_TRUE(text.Has("Key:             ada\r\n"));
    EXPECT_TRUE(text.Has("Notes:           Role: r\r\n")) << text.text;
    EXPECT_NE(text.Told().find("doubtful 1 Name: " + std::string(40, 'n')), std::string::npos);
    EXPECT_NE(text.Told().find("lost 1 X-LONG"), std::string::npos);
    const ReadBook again(ReadPegasusText, text.text);
    EXPECT_NE(Shown(again.book).find("NICKNAME:ada\n"), std::string::npos);
}

TEST(WriteOld, APegasusListIsTheOneThatHoldsAll) {
    const std::string people =
        Person("1", "FN:Ada\nEMAIL:a@b.org\n") + Person("2", "FN:Al \"x\"\nEMAIL:b@b.org\n");
    const std::string list =
        List("UID:3\nFN:Crew\nX-ORVIK-PML-NOSIG:Y\n" + Member("urn:uuid:2") + Member("urn:uuid:1"));
    const Old all(Dialect::PegasusList, people + list);
    EXPECT_EQ(all.text,
              "\\TITLE Crew\r\n\\NOSIG Y\r\n\"Al 'x'\" <b@b.org>\r\n\"Ada\" <a@b.org>\r\n");
    const Old more(Dialect::PegasusList, people + list + Person("4", "FN:Cy\nEMAIL:c@b.org\n"));
    EXPECT_TRUE(more.text.starts_with("\"Ada\" <a@b.org>\r\n"));
    EXPECT_NE(more.Told().find("FN: Crew: is not all that the book holds"), std::string::npos);
}

TEST(WriteOld, APlainListHasNamesAndAddresses) {
    const Old list(Dialect::PlainList,
                   Card("FN:Berg, J\xC3\xB6\nEMAIL:a@b.org\nEMAIL:c@d.org\n") +
                       Card("NICKNAME:al\nEMAIL:al@b.org\n") + Card("EMAIL:x@y.org\n"));
    EXPECT_EQ(list.text,
              "\"Berg, J\xC3\xB6\" <a@b.org>\r\n\"Berg, J\xC3\xB6\" <c@d.org>\r\n\"al\" "
              "<al@b.org>\r\n<x@y.org>\r\n");
    EXPECT_EQ(
        list.Told(),
        "carried 1 EMAIL: c@d.org: has no place in the target\ncarried 7 NICKNAME: al: has no "
        "place in the target\n");
}

TEST(WriteOld, NothingMakesNothing) {
    for (const OldWriter& writer : OldWriters()) {
        Book book;
        const std::string text = writer.Write(book);
        EXPECT_EQ(text.find('@'), std::string::npos) << writer.Title;
    }
}

}  // namespace
}  // namespace orvik::book
