#include "formats/netscape3_reader.h"

#include "app/text.h"

namespace orvik {
namespace {

constexpr std::string_view kLinkStart = "<DT><A HREF=\"mailto:";
constexpr std::string_view kAliasKey = "ALIASID=\"";
constexpr std::string_view kNicknameTag = "NICKNAME=\"";
constexpr std::string_view kTagEnd = "\">";
constexpr std::string_view kLinkEnd = "</A>";

// What one of the three kinds of place can begin with; all other characters are passed over.
constexpr std::string_view kFirstCharacters = "<AN>";

}  // namespace

std::string ReadNetscape3(std::string_view html, std::string_view separator) {
    std::string list;
    const auto take_link_text = [&](std::size_t& i) {
        list.append(TakeUntil(html, i, kLinkEnd)).append(separator);
    };
    // The scan starts at the second character, so a book that begins with a link loses that link.
    for (std::size_t i = 2; i <= html.size(); ++i) {
        i = html.find_first_of(kFirstCharacters, i - 1);
        if (i == std::string_view::npos) {
            break;
        }
        ++i;
        const std::string_view rest = html.substr(i - 1);
        if (rest.starts_with(kLinkStart)) {
            i += kLinkStart.size();
            list.append("\"").append(TakeUntil(html, i, "\"")).append("\" ");
        } else if (rest.starts_with(kAliasKey) || rest.starts_with(kNicknameTag)) {
            // Both keys are passed over at the length of the longer one, so an empty ALIASID loses
            // its tag's end and takes the text behind the next one.
            i += kNicknameTag.size();
            i = FindFrom(html, kTagEnd, i) + kTagEnd.size();
            take_link_text(i);
        } else if (Mid(html, i - 1, kTagEnd.size()) == kTagEnd) {
            i += kTagEnd.size();
            take_link_text(i);
        }
    }
    return list;
}

}  // namespace orvik
