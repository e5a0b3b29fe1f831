// Entries as they stand in the books that Orvik writes, made by hand.

#pragma once

#include <string>
#include <string_view>

namespace orvik::test {

// A line of a comma-separated book with its sixteen columns.
inline std::string CsvLine(std::string_view nickname, std::string_view address) {
    constexpr std::string_view kThirteenCommas = ",,,,,,,,,,,,,";
    std::string line(nickname);
    line.append(",").append(address).append(",");
    return line.append(kThirteenCommas).append("\r\n");
}

inline std::string JunoRecord(const std::string& address, const std::string& nickname) {
    return "Type:Entry\r\nName:" + nickname + "\r\nEmail:" + address + "\r\nAlias:" + nickname +
           "\r\n";
}

// A record as a program that knows the format would write it by hand.
inline std::string LdifRecord(const std::string& address, const std::string& nickname) {
    return "dn: cn=" + nickname + ",mail=" + address + "\r\ncn: " + nickname +
           "\r\ngivenname: " + nickname + "\r\nxmozillanickname: " + nickname +
           "\r\nobjectclass: top\r\nobjectclass: person\r\nmail: " + address +
           "\r\nxnavusehtmlmail: TRUE\r\n";
}

// What stands before and behind the entries of a Netscape 3 book.
inline constexpr std::string_view kNetscape3Head =
    "<!DOCTYPE NETSCAPE-Addressbook-file-1>\r\n"
    "<!-- This is an automatically generated file.\r\n"
    "It will be read and overwritten.\r\n"
    "Do Not Edit! -->\r\n"
    "<TITLE>Address Book</TITLE>\r\n"
    "<H1>Address Book</H1>\r\n"
    "<DL><p>";
inline constexpr std::string_view kNetscape3Tail = "\r\n</DL><p>";

inline std::string Netscape3Entry(std::string_view address,
                                  std::string_view number,
                                  std::string_view nickname) {
    std::string entry = "\r\n    <DT><A HREF=\"mailto:";
    entry.append(address).append("\" ALIASID=\"").append(number).append("\">");
    return entry.append(nickname).append("</A>\r\n<DD>\r\n");
}

}  // namespace orvik::test
