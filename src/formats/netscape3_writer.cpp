#include "formats/netscape3_writer.h"

#include <algorithm>

#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

constexpr std::string_view kHeader =
    "<!DOCTYPE NETSCAPE-Addressbook-file-1>\r\n"
    "<!-- This is an automatically generated file.\r\n"
    "It will be read and overwritten.\r\n"
    "Do Not Edit! -->\r\n"
    "<TITLE>Address Book</TITLE>\r\n"
    "<H1>Address Book</H1>\r\n"
    "<DL><p>";

// What a mailto link does not take: the line break goes, quotes and blanks are replaced.
std::string LinkAddress(std::string_view line) {
    std::string address(line);
    CutEnd(address, kCrLf.size());
    std::replace(address.begin(), address.end(), '"', '\'');
    std::replace(address.begin(), address.end(), ' ', '_');
    return address;
}

}  // namespace

std::string WriteNetscape3(std::string_view text) {
    const NativeText native(text);
    std::string book(kHeader);
    std::size_t address = 1;
    std::size_t nickname = native.Nicknames();
    for (std::size_t number = 0; address < native.Separator(); ++number) {
        const std::size_t end = FindFrom(native.Text(), "\n", address);
        const std::string_view line = Mid(native.Text(), address, end + 1 - address);
        address = end + 1;
        book.append("\r\n    <DT><A HREF=\"mailto:").append(LinkAddress(line));
        book.append("\" ALIASID=\"").append(std::to_string(number)).append("\">");
        book.append(TakeUntil(native.Text(), nickname, kCrLf)).append("</A>\r\n<DD>\r\n");
        nickname += kCrLf.size();
    }
    return book.append("\r\n</DL><p>");
}

}  // namespace orvik
