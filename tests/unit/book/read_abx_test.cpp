#include "book/old/read_abx.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::Shown;
using test::Told;

struct ReadTable {
    explicit ReadTable(const std::string& text, std::span<const CsvMapping> asked = {}) {
        const std::uint32_t file = book.AddSource(std::make_unique<Source>("file", text));
        Charset letters(book.SourceAt(file), {});
        found = ReadAbx(book, file, letters, asked);
    }

    Book book;
    CsvFound found;
};

TEST(ReadAbx, TakesATableByItsTags) {
    const ReadTable read(
        ":::TAGMAP:::0FFE0003:***,3001001E:Name,3A06001E:Vorname,3A11001E:Last Name,39FE001E:SMTP,"
        "3003001E:E-Mail Address,3002001E:Sort,3A16001E:Organization,3A42001E:Born,"
        "3a09001e:Phone,8001001E:Boat No.,3A29001E:Street,3A27001E:Town,3004001E:Notes\r\n"
        "U,Ada Abbott,Ada,Abbott,ada@example.org,ada@example.org,SMTP,Club,4/13/1980,555,7,Lane 3,"
        "Ulm,\"one\r\ntwo\"\r\n"
        "C,Rowing Club,,,club@example.org,club@example.net,EX\r\n"
        "R,Boat house\r\n");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:Ada Abbott\nEMAIL:ada@example.org\nBDAY:1980-04-13\nTEL;TYPE=home:555\n"
              "X-ORVIK-ABX-Boat-No;X-ORVIK-HEADER=Boat No.:7\nNOTE:one\\x0D\\x0Atwo\n"
              "N:Abbott;Ada;;;\nORG:Club\nADR;TYPE=work:;;Lane 3;Ulm;;;\n"
              "person\nX-ORVIK-ABX-type:C\nFN:Rowing Club\nEMAIL:club@example.org\n"
              "EMAIL:club@example.net\nX-ORVIK-ABX-Sort:EX\nORG:Rowing Club\n"
              "person\nX-ORVIK-ABX-type:R\nFN:Boat house\n");
    EXPECT_TRUE(read.found.Sentence.starts_with("columns matched by tags")) << read.found.Sentence;
}

TEST(ReadAbx, GroupsAreLists) {
    const ReadTable read(
        ":::TAGMAP:::0FFE0003:***\t3001001E:Name\t39FE001E:Mail\n"
        "U\tAda\tada@example.org\n"
        "G>\tRowers\n"
        "U\tAda\tada@example.org\n"
        "U\tBen\tben@example.org\n"
        "<G\n"
        "G>\tCoxes\n"
        "G>\tOpen\n"
        "U\tBen\tben@example.org\n");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:Ada\nEMAIL:ada@example.org\n"
              "person\nFN:Ben\nEMAIL:ben@example.org\n"
              "list\nFN:Rowers\nMEMBER:x-orvik-line:2\nMEMBER:x-orvik-line:5\n"
              "list\nFN:Coxes\n"
              "list\nFN:Open\nMEMBER:x-orvik-line:5\n");
    EXPECT_EQ(Told(read.book),
              "doubtful 7 : G>: has no end\n"
              "doubtful 8 : G>: is cut off by the end of the file\n");
}

TEST(ReadAbx, TakesATableByItsWordsOrByPosition) {
    const ReadTable words(
        "\"Type\",\"Name\",\"First\",\"Last\",\"Organization\",\"E-mail\",\"Phone\"\r\n"
        "\"P\",\"Ada Abbott\",\"Ada\",\"Abbott\",\"\",\"ada@example.org\",\"555\"\r\n");
    EXPECT_EQ(Shown(words.book),
              "person\nX-ORVIK-ABX-Type:P\nFN:Ada Abbott\nEMAIL:ada@example.org\n"
              "TEL:555\nN:Abbott;Ada;;;\n");
    EXPECT_TRUE(words.found.Sentence.starts_with("columns matched by common words"))
        << words.found.Sentence;
    const std::string text = "A,B,C,D,E,F,G\r\n1,Ada,3,4,5,ada@example.org,\r\n";
    const ReadTable bare(text);
    EXPECT_EQ(Shown(bare.book),
              "person\nX-ORVIK-ABX-A:1\nFN:Ada\nX-ORVIK-ABX-C:3\nX-ORVIK-ABX-D:4\nX-ORVIK-ABX-E:5\n"
              "EMAIL:ada@example.org\n");
    EXPECT_TRUE(bare.found.Sentence.starts_with("columns matched by position, unproven"))
        << bare.found.Sentence;
    const std::vector<CsvMapping> asked = {ParseMapping("B=nickname"), ParseMapping("Z=note")};
    const ReadTable mapped(text, asked);
    EXPECT_NE(Shown(mapped.book).find("NICKNAME:Ada\n"), std::string::npos);
    EXPECT_EQ(mapped.found.NotThere, std::vector<std::string>{"Z"});
}

TEST(ReadAbx, ForgivesWhatIsMissing) {
    const struct {
        std::string Text;
        std::string Expected;
    } rows[] = {
        {":::TAGMAP:::", ""},
        {":::TAGMAP:::0FFE0003:***\nU\n", ""},
        {":::TAGMAP:::3001001E:Name;zz:x\nAda;1\n",
         "person\nFN:Ada\nX-ORVIK-ABX-zz-x;X-ORVIK-HEADER=zz:x:1\n"},
        {":::TAGMAP:::3001001E:Name,0FFE0003:***\nAda\n", "person\nFN:Ada\n"},
        {":::TAGMAP:::0FFE0003:***,3001001E:Name\n<G\n", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Shown(ReadTable(row.Text).book), row.Expected) << row.Text;
    }
}

}  // namespace
}  // namespace orvik::book
