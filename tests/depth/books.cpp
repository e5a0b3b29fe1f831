#include "depth/books.h"

#include <algorithm>
#include <array>

namespace orvik::depth {
namespace {

using namespace std::string_view_literals;

// Few of each, so that a book often has two that are the same but for their case.
constexpr std::array kNames = {"Al"sv,
                               "al"sv,
                               "Bo"sv,
                               "BO"sv,
                               "Cy Berg"sv,
                               "Zo\xC3\xAB"sv,
                               ""sv,
                               "J\xF6rg"sv,
                               "d.e."sv,
                               "Al Berg"sv,
                               "O'Neil"sv,
                               "(no name)"sv};
constexpr std::array kPlaces = {"example.org"sv, "EXAMPLE.org"sv, "a.example"sv, "b"sv};
// What the formats are made of, and what they are not.
constexpr std::array kNoise = {"\r"sv,
                               "\n"sv,
                               "\r\n"sv,
                               "\r\n\r\n"sv,
                               "\""sv,
                               "<"sv,
                               ">"sv,
                               ","sv,
                               "-nick-"sv,
                               "\r\n-nick-\r\n"sv,
                               "\0"sv,
                               "\\"sv,
                               "\xFF"sv,
                               "\xC3"sv,
                               " "sv,
                               "@"sv,
                               "mail: "sv,
                               "\r\nxmozillanickname: "sv,
                               "\r\nName:"sv,
                               "\r\nEmail:"sv,
                               "<DT><A HREF=\"mailto:"sv,
                               "ALIASID=\""sv,
                               "NICKNAME=\""sv,
                               "\">"sv,
                               "</A>"sv,
                               "<DD>"sv,
                               "a"sv,
                               "\t"sv};

constexpr std::string_view kNetscape3Head =
    "<!DOCTYPE NETSCAPE-Addressbook-file-1>\r\n"
    "<!-- This is an automatically generated file.\r\n"
    "It will be read and overwritten.\r\n"
    "Do Not Edit! -->\r\n"
    "<TITLE>Address Book</TITLE>\r\n"
    "<H1>Address Book</H1>\r\n"
    "<DL><p>";

std::size_t CountOf(Dice& dice) {
    const std::size_t chance = dice.Below(2000);
    if (chance == 0) {
        return 1200 + dice.Below(800);
    }
    if (chance < 4) {
        return 490 + dice.Below(20);
    }
    return chance < 100 ? 20 + dice.Below(40) : 1 + dice.Below(8);
}

void AppendHead(std::string& text, Kind kind) {
    switch (kind) {
        case Kind::Ldif:
            text.append("version: 1\r\n\r\n");
            break;
        case Kind::Netscape3:
            text.append(kNetscape3Head);
            break;
        case Kind::Juno:
            text.append("\r\n\r\n");
            break;
        case Kind::Csv:
            text.append("Name,E-mail,3,4,5,6,7,8,9,10,11,12,13,14,15,16\r\n");
            break;
        case Kind::WordPerfect:
            text.append("Kind,Name,3,4,5,Address,7\r\n");
            break;
        case Kind::Pegasus:
            text.append("\\TITLE Friends\r\n");
            break;
        case Kind::Mail:
            text.append("From x\r\n");
            break;
        case Kind::List:
        case Kind::Native:
            break;
    }
}

void AppendEntry(std::string& text, Kind kind, const Entry& entry, std::size_t number) {
    const std::string& address = entry.Address;
    const std::string& nickname = entry.Nickname;
    switch (kind) {
        case Kind::Ldif:
            text.append("dn: cn=" + nickname + ",mail=" + address + "\r\nxmozillanickname: " +
                        nickname + "\r\nmail: " + address + "\r\nxnavusehtmlmail: TRUE\r\n\r\n");
            break;
        case Kind::Netscape3:
            text.append("\r\n    <DT><A HREF=\"mailto:" + address + "\" ALIASID=\"" +
                        std::to_string(number) + "\">" + nickname + "</A>\r\n<DD>\r\n");
            break;
        case Kind::Juno:
            text.append("Type:Entry\r\nName:" + nickname + "\r\nEmail:" + address +
                        "\r\nAlias:" + nickname + "\r\n\r\n");
            break;
        case Kind::Csv:
            text.append(nickname + "," + address + ",,,,,,,,,,,,,,\r\n");
            break;
        case Kind::WordPerfect:
            text.append("P," + nickname + ",,,," + address + ",\r\n");
            break;
        case Kind::Mail:
            text.append("To: \"" + nickname + "\" <" + address + ">\r\n");
            break;
        case Kind::List:
        case Kind::Native:
        case Kind::Pegasus:
            text.append("\"" + nickname + "\" <" + address + ">\r\n");
            break;
    }
}

void Spoil(Dice& dice, std::string& text) {
    for (std::size_t i = dice.Below(4) + 1; i > 0; --i) {
        const std::size_t at = dice.Below(text.size() + 1);
        if (dice.Percent(40)) {
            text.erase(at, dice.Below(6));
        } else {
            text.insert(at, dice.Of(kNoise));
        }
    }
    if (dice.Percent(10)) {
        text.resize(dice.Below(text.size() + 1));
    }
}

}  // namespace

Entry MakeEntry(Dice& dice) {
    Entry entry;
    entry.Nickname = dice.Of(kNames);
    entry.Address = std::string(1, static_cast<char>('a' + dice.Below(6))) + "@" +
                    std::string(dice.Of(kPlaces));
    return entry;
}

std::string MakeNoise(Dice& dice) {
    std::string noise;
    for (std::size_t i = dice.Below(5); i > 0; --i) {
        noise += dice.Of(kNoise);
    }
    return noise;
}

Book MakeBook(Dice& dice, Kind kind) {
    if (dice.Percent(1)) {
        return {MakeNoise(dice), std::nullopt};
    }
    Entries entries(CountOf(dice));
    std::generate(entries.begin(), entries.end(), [&] { return MakeEntry(dice); });
    Book book;
    AppendHead(book.Text, kind);
    if (kind == Kind::Native) {
        book.Text = NativeOf(entries);
    } else {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            AppendEntry(book.Text, kind, entries[i], i);
        }
    }
    if (kind == Kind::Netscape3) {
        book.Text.append("\r\n</DL><p>\r\n");
    }
    if (dice.Percent(30)) {
        Spoil(dice, book.Text);
    } else {
        book.Exact = std::move(entries);
    }
    return book;
}

Kind KindOf(std::string_view name) {
    const auto ends = [&](std::string_view ending) { return name.ends_with(ending); };
    if (ends(".ldif")) {
        return Kind::Ldif;
    }
    if (ends(".htm") || ends(".html")) {
        return Kind::Netscape3;
    }
    if (ends(".nv")) {
        return Kind::Juno;
    }
    if (ends(".csv")) {
        return Kind::Csv;
    }
    if (ends(".abx")) {
        return Kind::WordPerfect;
    }
    if (ends(".pml")) {
        return Kind::Pegasus;
    }
    return ends(".xtr") ? Kind::Mail : Kind::List;
}

}  // namespace orvik::depth
