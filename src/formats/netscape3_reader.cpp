#include "formats/netscape3_reader.h"

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
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

std::string Form1::UnNet3(const std::string& what) {
    std::string list = ReadNetscape3(what, module_.textSep);
    // With CR this takes the last character of the last link text as well: the lists count on a
    // last character that is dropped.
    Guard([&] { CutEnd(list, module_.textSep == "\r" ? 2 : 1); },
          [&](const RunTimeError& failure) {
              module_.Tell("Error #" + std::to_string(failure.Number()));
          });
    return list;
}

void Form1::mnuClearPasteNet3_Click() {
    if (!OfferSave("Save before clearing?")) {
        return;
    }
    module_.WorkText.clear();
    module_.WorkText = UnNet3(module_.platform.ClipboardText());
    ShowTextIfShort();
    module_.RefreshLists();
    module_.TextMode = mode::kNative;
    Caption = kTitle;
}

}  // namespace orvik
