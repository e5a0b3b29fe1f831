#include "work/hostile_texts.h"

#include <string_view>

#include "unit/written_books.h"

namespace orvik::test {
namespace {

constexpr std::size_t kLimit = 32000;

std::string Repeated(std::string_view part, std::size_t size) {
    std::string text;
    text.reserve(size + part.size());
    while (text.size() < size) {
        text += part;
    }
    return text;
}

// A book in the Native form.
std::string NativeBook(std::size_t size) {
    constexpr std::string_view kAddress = "mary.miller@example.org\r\n";
    constexpr std::string_view kNickname = "Mary Miller\r\n";
    const std::size_t entries = size / (kAddress.size() + kNickname.size());
    return Repeated(kAddress, entries * kAddress.size()) + "-nick-\r\n" +
           Repeated(kNickname, entries * kNickname.size());
}

std::string Cut(std::string text, std::size_t size) {
    text.resize(size, 'x');
    return text;
}

}  // namespace

std::vector<HostileText> HostileTexts(std::size_t size) {
    const auto repeated = [size](std::string_view part) { return Repeated(part, size); };
    const std::string entry = "\"Mary Miller\" <mary.miller@example.org>\r\n";
    const std::string addresses = repeated("a@x.org\r\n");
    return {
        {"empty", ""},
        {"one letter", "x"},
        {"a book", NativeBook(size)},
        {"a list", repeated(entry)},
        {"a list of one line", repeated("\"Mary\" <mary@x.org>, "), ","},
        {"no -nick-", addresses},
        {"no end of the nicknames", addresses + "-nick-\r\nx"},
        {"only separators: CR", repeated("\r")},
        {"only separators: comma", repeated(","), ","},
        {"only separators: CR LF", repeated("\r\n")},
        {"only quotes", repeated("\"")},
        {"only <", repeated("<")},
        {"only >", repeated(">")},
        {"only < and >", repeated("<>")},
        {"quotes and separators", repeated("\"\r")},
        {"only commas", repeated(",")},
        {"only blanks", repeated(" ")},
        {"quotes and blanks", repeated("\" ")},
        {"-nick- inside an address", repeated("a-nick-@x.org\r\n") + "-nick-\r\nx\r\n"},
        {"-nick- begins each address", repeated("-nick-a@x.org\r\n") + "-nick-\r\nx\r\n"},
        {"only lines of -nick-", repeated("-nick-\r\n")},
        {"only -nick-", repeated("-nick-")},
        {"only -", repeated("-")},
        {"-nick- comes first", "-nick-\r\n" + addresses},
        {"-nick- comes last", addresses + "-nick-"},
        {"one address of 32000", Cut("a@", kLimit)},
        {"one address of 32001", Cut("a@", kLimit + 1)},
        {"a list of 32000", Cut(Repeated(entry, kLimit), kLimit)},
        {"a list of 32001", Cut(Repeated(entry, kLimit + 1), kLimit + 1)},
        {"a book of 32000", Cut(NativeBook(kLimit), kLimit)},
        {"a book of 32001", Cut(NativeBook(kLimit), kLimit + 1)},
        {"only LF", repeated("\n")},
        {"lone CR", repeated("a@x.org\r")},
        {"lone LF", repeated("a@x.org\n"), "\n"},
        {"LF before each line", repeated("\na@x.org\r")},
        {"only NUL", repeated(std::string_view("\0", 1))},
        {"NUL in each address", repeated(std::string_view("a\0@x.org\r\n", 10))},
        {"only @", repeated("@")},
        {"a@a@a@", repeated("a@")},
        {"@ without an end", "x@" + repeated("y@")},
        {"only bytes of 0xFF", repeated("\xFF")},
        {"UTF-8 cut off", repeated("\xE2\x82")},
        {"only =", repeated("=")},
        {"LDIF of one line", repeated("mail: a@x.org ")},
        {"LDIF without an address", repeated("dn: cn=x,mail=\r\n")},
        {"LDIF in base64", repeated("cn:: YQ==\r\nmail:: YUB4\r\n\r\n")},
        {"LDIF that goes on and on", "dn: cn=x\r\n" + repeated(" x\r\n")},
        {"LDIF, a record", repeated(LdifRecord("cy@x.org", "Cy"))},
        {"HTML that never ends", repeated("<A HREF=\"mailto:")},
        {"HTML without addresses", repeated("<DT><A HREF=\"\">x</A>\r\n")},
        {"HTML, a book",
         std::string(kNetscape3Head) + repeated(Netscape3Entry("cy@x.org", "1", "Cy")) +
             std::string(kNetscape3Tail) + "\r\n"},
        {"HTML, many ends", std::string(kNetscape3Head) + repeated(kNetscape3Tail)},
        {"Juno without ends", repeated("Type:Entry\r\nName:x\r\n")},
        {"Juno, a book", "\r\n\r\n" + repeated(JunoRecord("cy@x.org", "Cy") + "\r\n")},
        {"Juno, lists of lists", "\r\n\r\n" + repeated("Type:List\r\nName:x\r\nMember:x\r\n\r\n")},
        {"CSV with columns", CsvLine("Name", "E-mail") + repeated(CsvLine("Cy", "cy@x.org"))},
        {"CSV with an open quote", CsvLine("Name", "E-mail") + "\"" + repeated("x,\r\n")},
        {"CSV of WordPerfect",
         "\"Type\",\"Name\",\"E-mail\"\r\n" + repeated("\"P\",\"Cy\",\"cy@x.org\"\r\n")},
        {"Pegasus", "\\TITLE x\r\n" + repeated("\\NOSIG x\r\nCy <cy@x.org>\r\n")},
        {"alias lines", repeated("alias \"Cy\" cy@x.org\r\n")},
        {"alias lines that never end", repeated("alias \"")},
    };
}

}  // namespace orvik::test
