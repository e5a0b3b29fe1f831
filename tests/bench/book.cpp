#include "bench/book.h"

#include <array>
#include <map>
#include <random>
#include <string_view>

#include "app/working_text.h"
#include "formats/juno_writer.h"
#include "formats/ldif_writer.h"
#include "formats/netscape3_writer.h"
#include "formats/progress.h"

namespace orvik::bench {
namespace {

constexpr std::array<std::string_view, 8> kFirst = {
    "mary", "john", "anne-marie", "li", "fatima", "oluwaseun", "jo", "alexander"};
constexpr std::array<std::string_view, 8> kLast = {
    "miller", "o.brien", "ng", "garcia", "papadopoulos", "lee", "van.der.berg", "smith"};
constexpr std::array<std::string_view, 4> kHosts = {
    "mail.example", "example.org", "students.university.example", "x.example"};

class NoProgress : public Progress {
 public:
    void Percent(int /*percent*/) override {}
    void Record() override {}
};

std::string AsciiOf(std::size_t entries) {
    std::mt19937 random(42);
    std::string text;
    for (std::size_t i = 0; i < entries; ++i) {
        const std::string_view first = kFirst[random() % kFirst.size()];
        const std::string_view last = kLast[random() % kLast.size()];
        std::string address(first);
        address.append(".").append(last).append(std::to_string(random() % 1000)).append("@");
        address.append(kHosts[random() % kHosts.size()]);
        // One in eight has no nickname.
        if (random() % 8 == 0) {
            text.append(address);
        } else {
            text.append("\"").append(first).append(" ").append(last).append("\" <");
            text.append(address).append(">");
        }
        text.append("\r\n");
    }
    return text;
}

// The books that Orvik does not write.
void AddForeignBooks(Book& book) {
    book.csv = "Name,E-mail Address\r\n";
    book.wordperfect = "Class,Name\r\n";
    NativeReader reader(book.native);
    for (std::size_t i = 0; reader.Next(); ++i) {
        std::string address(reader.RawAddress());
        std::erase(address, '\n');
        const std::string nickname(reader.TakeNickname());
        book.csv += nickname + "," + address + ",,,,,,,,,,,,,,x\r\n";
        book.wordperfect += "Person,\"" + nickname + "\",,,,\"" + address + "\",x\r\n";
        book.pegasus += nickname + " <" + address + ">\r\n";
        if (i % 8 == 0) {
            book.pegasus += "\\NOSIG\r\n";
        }
        book.aliases += "alias \"" + nickname + "\" " + address + "\r\n";
    }
}

}  // namespace

const Book& BookOf(std::size_t entries) {
    static std::map<std::size_t, Book> books;
    Book& book = books[entries];
    if (book.ascii.empty()) {
        NoProgress progress;
        book.ascii = AsciiOf(entries);
        book.native = SplitBlocks(book.ascii, "\r").Native;
        book.ldif = WriteLdif(book.native, progress);
        book.html = WriteNetscape3(book.native);
        book.juno = WriteJuno(book.native, "\r", progress);
        AddForeignBooks(book);
    }
    return book;
}

}  // namespace orvik::bench
