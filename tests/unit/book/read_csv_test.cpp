#include "book/read_csv.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using namespace std::string_literals;
using test::ReadBook;
using test::Shown;
using test::Told;

void ReadPlain(Book& book, std::uint32_t file, Charset& charset) {
    ReadCsv(book, file, charset, {});
}

std::string Read(const std::string& csv) {
    return Shown(ReadBook(ReadPlain, csv).book);
}

std::string ToldOf(const std::string& csv) {
    return Told(ReadBook(ReadPlain, csv).book);
}

TEST(ReadCsv, TakesAPersonOfOutlook) {
    EXPECT_EQ(
        Read("Title,First Name,Last Name,Company,Department,Business Street,Business Street 2,"
             "Business Street 3,Business City,Home Phone,Company Main Phone,Birthday,Categories,"
             "E-mail Address,E-mail Type,E-mail Display Name,Gender,Mileage,Notes,Web Page\r\n"
             "Ms,Ada,Abbott,\"Rowing; Club\",Boats,Mill Lane 3,Shed,Left,Ulm,+1 555 0100,555,"
             "4/12/1980,Rowers;Friends,ada@example.org,SMTP,Ada Abbott (ada@example.org),"
             "Unspecified,12,\"one\r\ntwo\",www.example.org\r\n"),
        "person\n"
        "TEL;TYPE=home:+1 555 0100\n"
        "TEL;TYPE=work;TYPE=x-company:555\n"
        "BDAY:1980-04-12\n"
        "CATEGORIES:Rowers,Friends\n"
        "EMAIL:ada@example.org\n"
        "X-ORVIK-CSV-Mileage:12\n"
        "NOTE:one\\x0D\\x0Atwo\n"
        "URL:www.example.org\n"
        "N:Abbott;Ada;;Ms;\n"
        "ORG:Rowing\\; Club;Boats\n"
        "ADR;TYPE=work:;Shed,Left;Mill Lane 3;Ulm;;;\n");
}

TEST(ReadCsv, TakesAPersonOfGoogle) {
    EXPECT_EQ(
        Read("First Name,Last Name,Organization Name,Birthday,Photo,Labels,E-mail 1 - Label,"
             "E-mail 1 - Value,Phone 1 - Label,Phone 1 - Value,Address 1 - Label,Address 1 - "
             "Street,Address 1 - City,Website 1 - Label,Website 1 - Value,Phone 2 - Label,"
             "Phone 2 - Value\n"
             "Ada,Abbott,Club,--04-12,https://example.org/a.jpg,* myContacts ::: Rowers,* Home,"
             "ada@example.org ::: ada@example.net,Mobile ::: Boat,1 ::: 2,Home,Lane 3,Ulm,"
             "Work,example.org,Work Fax,\n"),
        "person\n"
        "BDAY:--04-12\n"
        "PHOTO;VALUE=uri:https://example.org/a.jpg\n"
        "CATEGORIES:* myContacts,Rowers\n"
        "EMAIL;TYPE=home;TYPE=pref:ada@example.org\n"
        "EMAIL;TYPE=home:ada@example.net\n"
        "TEL;TYPE=cell:1\n"
        "item1.TEL:2\n"
        "item1.X-ABLabel:Boat\n"
        "URL;TYPE=work:example.org\n"
        "N:Abbott;Ada;;;\n"
        "ORG:Club\n"
        "ADR;TYPE=home:;;Lane 3;Ulm;;;\n"
        "X-ORVIK-CSV-Phone-2-Label;X-ORVIK-HEADER=Phone 2 - Label:Work Fax\n");
}

// A kind belongs to the value in its place, and is looked up there: a cell may have very many.
TEST(ReadCsv, TakesManyValuesOfACell) {
    constexpr std::size_t kValues = 100000;
    std::string values = "1";
    std::string kinds = "Home";
    for (std::size_t i = 1; i < kValues; ++i) {
        values += " ::: 1";
        kinds += " ::: Work";
    }
    const ReadBook read(ReadPlain,
                        "Name,Phone 1 - Type,Phone 1 - Value\nAda," + kinds + "," + values + "\n");
    EXPECT_EQ(read.book.Contacts.at(0).Properties.size(), kValues + 1);
    EXPECT_EQ(Read("Name,Phone 1 - Type,Phone 1 - Value\nAda,Home ::: Work,1\n"),
              "person\nFN:Ada\nTEL;TYPE=home:1\n"
              "X-ORVIK-CSV-Phone-1-Type;X-ORVIK-HEADER=Phone 1 - Type:Home ::: Work\n");
    EXPECT_EQ(Read("Name,Phone 1 - Type,Phone 1 - Value\n"
                   "Ada,Boat,1 ::: 2\nBen,Home ::: Work,1 ::: 2 ::: 3\n"),
              "person\nFN:Ada\nitem1.TEL:1\nitem1.X-ABLabel:Boat\n"
              "item2.TEL:2\nitem2.X-ABLabel:Boat\n"
              "person\nFN:Ben\nTEL;TYPE=home:1\nTEL;TYPE=work:2\nTEL:3\n");
}

TEST(ReadCsv, TakesAPersonOfThunderbird) {
    EXPECT_EQ(
        Read("First Name,Last Name,Display Name,Nickname,Primary Email,Screen Name,Home ZipCode,"
             "Birth Year,Birth Month,Birth Day,Custom 1\n"
             "Ada,Abbott,Ada A.,\"ada, aa\",ada@example.org,adas,89073,1980,4,12,x\n"
             ",,Ben,,ben@example.org,,,,4,12,\n"),
        "person\n"
        "FN:Ada A.\n"
        "NICKNAME:ada\\, aa\n"
        "EMAIL:ada@example.org\n"
        "X-AIM:adas\n"
        "X-CUSTOM1:x\n"
        "N:Abbott;Ada;;;\n"
        "ADR;TYPE=home:;;;;;89073;\n"
        "BDAY:1980-04-12\n"
        "person\n"
        "FN:Ben\n"
        "EMAIL:ben@example.org\n"
        "BDAY:--04-12\n");
}

TEST(ReadCsv, KeepsEachColumnUnderItsHeader) {
    EXPECT_EQ(Read("Name,Email,Sch\xC3\xBCler \"Nr.\" 100%,\xE6\x97\xA5\n"
                   "Ada,ada@example.org,7,8\n"),
              "person\n"
              "FN:Ada\n"
              "EMAIL:ada@example.org\n"
              "X-ORVIK-CSV-Sch-ler-Nr-100;X-ORVIK-HEADER=Sch\xC3\xBCler %22Nr.%22 100%25:7\n"
              "X-ORVIK-CSV-column-4;X-ORVIK-HEADER=\xE6\x97\xA5:8\n");
    // Names are the same in any case, headers are not.
    EXPECT_EQ(Read("Name,Email,foo,FOO\nAda,a@example.org,1,2\n"),
              "person\nFN:Ada\nEMAIL:a@example.org\nX-ORVIK-CSV-foo:1\n"
              "X-ORVIK-CSV-foo;X-ORVIK-HEADER=FOO:2\n");
    // A second column of a name that there can be only one of.
    EXPECT_EQ(Read("Name,Email,Full Name\nAda,a@example.org,Abbott\n"),
              "person\nFN:Ada\nEMAIL:a@example.org\n"
              "X-ORVIK-CSV-Full-Name;X-ORVIK-HEADER=Full Name:Abbott\n");
}

TEST(ReadCsv, TakesWhatIsKnownToMeanNothing) {
    EXPECT_EQ(Read("First Name,Last Name,E-mail Address,Birthday,Gender,Priority,Private\n"
                   "Ada,Abbott,ada@example.org,0/0/00,Unspecified,Normal,False\n"),
              "person\nEMAIL:ada@example.org\nN:Abbott;Ada;;;\n");
    // No address of the internet: what it is stays beside it.
    EXPECT_EQ(Read("First Name,Last Name,E-mail Address,E-mail Type\nAda,Abbott,/O=CLUB,EX\n"),
              "person\nEMAIL:/O=CLUB\nX-ORVIK-CSV-E-mail-Type;X-ORVIK-HEADER=E-mail Type:EX\n"
              "N:Abbott;Ada;;;\n");
    EXPECT_EQ(Read("Name,Email,Birthday\nAda,a@example.org,4/12/80\n"),
              "person\nFN:Ada\nEMAIL:a@example.org\nBDAY;VALUE=text:4/12/80\n");
}

TEST(ReadCsv, TellsOfRaggedRows) {
    const std::string csv =
        "Name,Email\nAda,ada@example.org,more\nBen\n,\n\nName,Email\nCy,cy@example.org\n\x1A";
    EXPECT_EQ(Read(csv),
              "person\nFN:Ada\nEMAIL:ada@example.org\nX-ORVIK-CSV-column-3:more\n"
              "person\nFN:Ben\nperson\nFN:Cy\nEMAIL:cy@example.org\n");
    EXPECT_EQ(ToldOf(csv),
              "doubtful 2 : more: stands behind the last column\n"
              "skipped 6 : Name: is the header once more\n");
    EXPECT_EQ(ToldOf("Name,Email\nAda,\"ada@example.org\nBen,ben@example.org\n"),
              "doubtful 2 : \"ada@example.org: has a quote without an end\n");
}

// A person without an address is no header.
TEST(ReadCsv, TakesTheFirstRowForWhatItIs) {
    EXPECT_EQ(Read("Ada,\nBen,ben@example.org\nCy,cy@example.org\n"),
              "person\nFN:Ada\nperson\nFN:Ben\nEMAIL:ben@example.org\n"
              "person\nFN:Cy\nEMAIL:cy@example.org\n");
    EXPECT_EQ(Read("Wer,Wohin\nBen,ben@example.org\nCy,cy@example.org\n"),
              "person\nX-ORVIK-CSV-Wer:Ben\nEMAIL:ben@example.org\n"
              "person\nX-ORVIK-CSV-Wer:Cy\nEMAIL:cy@example.org\n");
}

TEST(ReadCsv, KnowsWhereEachRowStands) {
    const ReadBook read(ReadPlain,
                        "sep=;\nName;Email\n\"Ada\nA.\";ada@example.org\nBen;b@example.org");
    ASSERT_EQ(read.book.Contacts.size(), 2U);
    EXPECT_EQ(read.book.Contacts[0].From.Line, 3U);
    EXPECT_EQ(read.book.Contacts[0].From.Lines, 2U);
    EXPECT_EQ(read.book.BytesOf(read.book.Contacts[0]), "\"Ada\nA.\";ada@example.org\n");
    EXPECT_EQ(read.book.Contacts[1].From.Line, 5U);
}

TEST(ReadCsv, TakesEachSeparatorAndSet) {
    const std::string expected = "person\nFN:J\xC3\xB6rg\nEMAIL:j@example.org\n";
    EXPECT_EQ(Read("Name;Email\nJ\xC3\xB6rg;j@example.org\n"), expected);
    EXPECT_EQ(Read("\xEF\xBB\xBFName\tEmail\rJ\xC3\xB6rg\tj@example.org\r"), expected);
    EXPECT_EQ(Read("Name|Email\r\nJ\xF6rg|j@example.org\r\n"), expected);
    EXPECT_EQ(Read("\"sep=|\"\nName|Email\nJ\xC3\xB6rg|j@example.org\n"), expected);
    EXPECT_EQ(Read("\xFF\xFEN\0a\0m\0e\0;\0E\0m\0a\0i\0l\0\n\0J\0\xF6\0r\0g\0;\0"
                   "j\0@\0e\0x\0a\0m\0p\0l\0e\0.\0o\0r\0g\0\n\0"s),
              expected);
    const ReadBook old(ReadPlain, "Name,Email\nJ\xF6rg,j@example.org\n");
    EXPECT_EQ(Shown(old.book), expected);
    EXPECT_EQ(old.sentence, "windows-1252 (assumed; e.g. \"J\xC3\xB6rg\")");
    // One row of another set than the rest.
    const ReadBook mixed(ReadPlain,
                         "Name,Email\nZo\xC3\xAB,z@example.org\nJ\xF6rg,j@example.org\n");
    EXPECT_EQ(Shown(mixed.book), "person\nFN:Zo\xC3\xAB\nEMAIL:z@example.org\n" + expected);
}

// Escapes may hold separators, so the text is letters before it is rows.
TEST(ReadCsv, TakesSetsWhoseLettersHoldSeparators) {
    EXPECT_EQ(Read("Name,Email\n\x1B$B$,\x1B(B,y@example.org\n"),
              "person\nFN:\xE3\x81\x8C\nEMAIL:y@example.org\n");
    EXPECT_EQ(Shown(ReadBook(ReadPlain, "Name|Email\n\x83|X|y@example.org\n", "Shift_JIS").book),
              "person\nFN:\xE3\x83\x9DX\nEMAIL:y@example.org\n");
}

TEST(ReadCsv, TellsLettersThatAreNone) {
    EXPECT_EQ(ToldOf("Name,Email\nZo\xC3\xAB \xC3,z@example.org\n"),
              "doubtful 2 Name: Zo\xC3\xAB \xEF\xBF\xBD: has bytes that are no text\n");
}

TEST(ReadCsv, TellsHeadersThatAreNotThere) {
    Book book;
    const std::uint32_t file =
        book.AddSource(std::make_unique<Source>("file", "Name,Club\nAda,Rowers\nBen,Singers\n"));
    Charset charset(book.SourceAt(file), {});
    const std::vector<CsvMapping> asked = {ParseMapping("Club=groups"), ParseMapping("Age=note")};
    const CsvFound found = ReadCsv(book, file, charset, asked);
    EXPECT_EQ(found.NotThere, std::vector<std::string>{"Age"});
    EXPECT_EQ(found.Sentence,
              "columns matched by common words, English: \"Name\" -> name, \"Club\" -> groups (as "
              "asked)");
    EXPECT_EQ(found.Program, "");
    EXPECT_EQ(Shown(book),
              "person\nFN:Ada\nCATEGORIES:Rowers\nperson\nFN:Ben\nCATEGORIES:Singers\n");
}

}  // namespace
}  // namespace orvik::book
