// What is odd in a book, written in an old format, is read from it again, or told.

#include <gtest/gtest.h>

#include "book/detect.h"
#include "book/old/old_formats.h"
#include "book/old/old_writers.h"
#include "unit/book/written_table.h"

namespace orvik::book {
namespace {

using test::Card;
using test::ReadBook;
using test::Shown;

// A book in an old format, and what is read from it under a name that says nothing.
struct Trip {
    Trip(Dialect form, std::string cards)
        : read(ReadVCard, std::move(cards)),
          text(OldWriterOf(form)->Write(read.book)),
          found(Detect(Source("file", text)).Form) {
        if (const OldFormat* const old = OldFormatOf(found)) {
            again = Shown(ReadBook(old->Read, text).book);
        }
    }
    [[nodiscard]] std::string Told() const { return test::Told(read.book); }

    ReadBook read;
    std::string text;
    Format found;
    std::string again;
};

std::string List(const std::string& lines) {
    return Card("X-ADDRESSBOOKSERVER-KIND:group\n" + lines);
}

TEST(WriteOldOdd, NamesWithCommasMakeNoTable) {
    const Trip list(Dialect::PlainList,
                    Card("FN:Abbott, Ada\nEMAIL:a@b.org\n") + Card("FN:Berg; Al\nEMAIL:b@b.org\n"));
    EXPECT_EQ(list.found, Format::PlainList);
    EXPECT_EQ(list.again,
              "person\nFN:Abbott, Ada\nN:Abbott;Ada;;;\nEMAIL:a@b.org\n"
              "person\nFN:Berg; Al\nN:Al;Berg\\;;;;\nEMAIL:b@b.org\n");
}

TEST(WriteOldOdd, AListOfWhoeverHasNoDomainIsAList) {
    const Trip list(Dialect::PlainList, Card("FN:Ada\nEMAIL:/O=X/CN=A\n"));
    EXPECT_EQ(list.again, "person\nFN:Ada\nN:;Ada;;;\nEMAIL:/O=X/CN=A\n");
    const Trip aliases(Dialect::Mutt, Card("FN:Ada\nEMAIL:/O=X/CN=A\n"));
    EXPECT_EQ(aliases.found, Format::Mutt);
    EXPECT_EQ(aliases.again, "person\nNICKNAME:ada\nFN:Ada\nN:;Ada;;;\nEMAIL:/O=X/CN=A\n");
}

TEST(WriteOldOdd, APineBookIsNoTable) {
    const struct {
        std::string Cards;
        std::string Text;
    } rows[] = {
        {Card("FN:Ada\nEMAIL:a@b.org\n"), "\tAda\t\n   a@b.org\n"},
        {Card("EMAIL:a@b.org\n") + Card("FN:Al\nEMAIL:b@b.org\n"),
         "\t\ta@b.org\n\tAl\t\n   b@b.org\n"},
        {Card("NICKNAME:7\nFN:Ada Abbott\nEMAIL:a@b.org\n"), "7\tAda Abbott\t\n   a@b.org\n"},
        {Card("FN:Ada\nTEL:1\n"), "\tAda\t\n   \n"},
        {Card("FN:Ada\nEMAIL:root\n"), "\tAda\t\n   root\n"},
        {Card("FN:Ada Abbott\nEMAIL:a@b.org\n"), "\tAda Abbott\ta@b.org\n"},
    };
    for (const auto& row : rows) {
        const Trip pine(Dialect::Pine, row.Cards);
        EXPECT_EQ(pine.text, row.Text);
        EXPECT_EQ(pine.found, Format::Pine) << row.Text;
        EXPECT_EQ(Trip(Dialect::Pine, row.Cards).again, pine.again);
        EXPECT_NE(pine.again.find("person\n"), std::string::npos);
    }
}

TEST(WriteOldOdd, ALongNameOfPineBeginsNoEntry) {
    const std::string name =
        "\xD0\x90\xD0\xBD\xD0\xBD\xD0\xB0, \xD0\x9F\xD0\xB5\xD1\x82\xD1\x80\xD0\xBE\xD0\xB2\xD0"
        "\xB0-\xD0\x92\xD0\xBE\xD0\xB4\xD0\xBA\xD0\xB8\xD0\xBD\xD0\xB0";
    const Trip pine(Dialect::Pine,
                    Card("UID:1\nFN:" + name + "\nEMAIL:a@b.org\n") +
                        List("FN:Crew\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\n"));
    // The comma of a name that is encoded parts no members.
    EXPECT_EQ(pine.again,
              "person\nFN:" + name + "\nEMAIL:a@b.org\nlist\nFN:Crew\nMEMBER:cn=" + name +
                  ",mail=a@b.org\n");
    const Trip endless(Dialect::Pine, Card("FN:" + std::string(2000, 'a') + "\nEMAIL:a@b.org\n"));
    EXPECT_NE(endless.Told().find("doubtful 1 FN: aaa"), std::string::npos);
    EXPECT_EQ(endless.found, Format::Pine);
}

TEST(WriteOldOdd, QuotesOfAPineNameStay) {
    EXPECT_EQ(Trip(Dialect::Pine, Card("FN:\"Q\"\nEMAIL:a@b.org\n")).again,
              "person\nFN:\"Q\"\nEMAIL:a@b.org\n");
}

TEST(WriteOldOdd, ShortNamesAreFoundByLists) {
    const std::string cards = Card("UID:1\nFN:Ada\nNICKNAME::)\nEMAIL:a@b.org\n") +
                              List("FN:Crew\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\n");
    EXPECT_NE(Trip(Dialect::Mutt, cards).again.find("MEMBER:x-orvik-line:1\n"), std::string::npos);
    EXPECT_NE(Trip(Dialect::Pine, cards).again.find("MEMBER:x-orvik-line:1\n"), std::string::npos);
    const Trip slash(Dialect::Mutt, Card("FN:Ada\nNICKNAME:a/b=c\nEMAIL:a@b.org\n"));
    EXPECT_EQ(slash.text, "alias a_b_c \\\"Ada\\\" <a@b.org>\n");
    EXPECT_EQ(slash.Told(), "doubtful 1 NICKNAME: a/b=c: has signs that the target cannot hold\n");
}

TEST(WriteOldOdd, PeopleOfOneNameAndNicknameStayTwo) {
    const Trip pine(Dialect::Pine,
                    Card("FN:Ada Abbott\nNICKNAME:ada\nEMAIL:a@b.org\n") +
                        Card("FN:Ada Abbott\nNICKNAME:ada\nEMAIL:b@b.org\nEMAIL:c@b.org\n"));
    EXPECT_EQ(pine.text,
              "ada\tAda Abbott\ta@b.org\nada_2\tAda Abbott\tb@b.org\n"
              "ada_2-2\tAda Abbott\tc@b.org\n");
    EXPECT_EQ(pine.again,
              "person\nNICKNAME:ada\nFN:Ada Abbott\nN:Abbott;Ada;;;\nEMAIL:a@b.org\n"
              "person\nNICKNAME:ada_2\nFN:Ada Abbott\nN:Abbott;Ada;;;\nEMAIL:b@b.org\n"
              "EMAIL:c@b.org\n");
}

TEST(WriteOldOdd, TheSecondOfANicknameIsToldAsSuch) {
    const std::string cards = Card("FN:Ada\nNICKNAME:x\nEMAIL:a@b.org\n") +
                              Card("FN:Ben\nNICKNAME:x\nEMAIL:b@b.org\n") +
                              Card("FN:Cy\nNICKNAME:x\\, y\nEMAIL:c@b.org\n");
    for (const Dialect form : {Dialect::Mutt, Dialect::Pine}) {
        const std::string told = Trip(form, cards).Told();
        EXPECT_NE(
            told.find("NICKNAME: x: is the nickname of another record, too, and was numbered\n"),
            std::string::npos)
            << told;
        EXPECT_NE(told.find("NICKNAME: x\\, y: has signs that the target cannot hold\n"),
                  std::string::npos)
            << told;
    }
}

TEST(WriteOldOdd, AnAddressThatWouldBeAnotherOneIsTold) {
    const std::string told = "doubtful 1 EMAIL: ";
    for (const Dialect form : {Dialect::Mutt, Dialect::Pine}) {
        const Trip bracket(form, Card("FN:Ada\nEMAIL:<b>@c.org\n"));
        EXPECT_TRUE(bracket.Told().starts_with(told)) << bracket.Told();
    }
    const Trip list(Dialect::PlainList, Card("FN:Ada\nEMAIL:<b>@c.org\n"));
    EXPECT_EQ(list.text, "");
    EXPECT_EQ(list.Told(),
              "lost 1 EMAIL: <b>@c.org: has signs that the target cannot hold\n"
              "lost 1 FN: Ada: has no address, and the target has nothing else\n");
    EXPECT_EQ(Trip(Dialect::PlainList, Card("FN:Ada\nEMAIL:a@b.org,c\n")).text, "");
    // What is no address of the net is in no row of addresses.
    const Trip row(Dialect::PegasusText, Card("FN:Ada\nEMAIL:/O=X\nEMAIL:b@c.org\n"));
    EXPECT_NE(row.text.find("E-mail address:  /O=X\r\n"), std::string::npos);
    EXPECT_NE(row.text.find("Notes:           Address: b@c.org\r\n"), std::string::npos);
}

TEST(WriteOldOdd, AListThatNamesItselfLeavesNobodyOut) {
    const Trip list(Dialect::PegasusList,
                    Card("UID:1\nFN:Ada\nEMAIL:a@b.org\n") + Card("FN:Al\nEMAIL:b@b.org\n") +
                        List("UID:2\nFN:Crew\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\n"
                             "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:2\n"));
    EXPECT_EQ(list.text, "\"Ada\" <a@b.org>\r\n\"Al\" <b@b.org>\r\n");
    EXPECT_NE(list.Told().find("lost 12 FN: Crew"), std::string::npos) << list.Told();
}

TEST(WriteOldOdd, SettingsAndBackslashesOfAPegasusList) {
    const std::string list =
        List("UID:2\nFN:Crew\nX-ORVIK-PML-a-b:x\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\n");
    const Trip odd(Dialect::PegasusList, Card("UID:1\nFN:a;b=\\\\\nEMAIL:a=b@b.org\n") + list);
    EXPECT_EQ(odd.text, "\\TITLE Crew\r\n\"a;b=/\" <a=b@b.org>\r\n");
    EXPECT_EQ(odd.found, Format::PegasusList);
    EXPECT_NE(odd.Told().find("lost 7 X-ORVIK-PML-a-b: x"), std::string::npos) << odd.Told();
    EXPECT_NE(odd.Told().find("doubtful 1 FN"), std::string::npos) << odd.Told();
}

TEST(WriteOldOdd, NobodyIsWhoIsCalledAlikeInTheFilesLetters) {
    const Trip juno(Dialect::Juno,
                    Card("UID:1\nFN:\xD0\x96\n") + Card("UID:2\nFN:\xD0\x97\n") +
                        List("FN:Crew\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:2\n"));
    EXPECT_EQ(juno.again.find("MEMBER"), std::string::npos);
    EXPECT_NE(juno.Told().find("lost 11 X-ADDRESSBOOKSERVER-MEMBER"), std::string::npos)
        << juno.Told();
}

TEST(WriteOldOdd, OwnFieldsMakeNothingElse) {
    const struct {
        Dialect Form;
        std::string Start;
        std::vector<std::string> Fields;
    } rows[] = {
        {Dialect::Juno,
         "JUNO",
         {"Name:Evil", "Email:e@x", "Deleted:1", "Type:MList", "no-field:Alias:e", "no-field:"}},
        {Dialect::Abook, "ABOOK", {"name:Evil", "email:e@x", "no-field:[9]", "no-field:nick=e"}},
        {Dialect::PegasusText, "PEGASUS", {"Name:Evil", "Key:e", "no-field:--", "no-field:Key: e"}},
        {Dialect::Netscape3, "NETSCAPE3", {"HREF:mailto:e@x", "ALIASOF:0", "NICKNAME:e"}},
    };
    for (const auto& row : rows) {
        for (const std::string& field : row.Fields) {
            const Trip trip(
                row.Form, Card("FN:Ada\nEMAIL:a@b.org\nX-ORVIK-" + row.Start + "-" + field + "\n"));
            EXPECT_TRUE(trip.again.starts_with("person\nFN:Ada\nN:;Ada;;;\nEMAIL:a@b.org\n"))
                << field << "\n"
                << trip.again;
            EXPECT_EQ(trip.again.find("person", 1), std::string::npos) << field;
            EXPECT_EQ(trip.again.find("\nNICKNAME:"), std::string::npos) << field;
        }
    }
}

}  // namespace
}  // namespace orvik::book
