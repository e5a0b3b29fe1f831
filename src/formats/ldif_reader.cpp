#include "formats/ldif_reader.h"

#include "app/form1.h"
#include "app/module1.h"
#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

constexpr std::string_view kNicknameKey = "\r\nxmozillanickname: ";
constexpr std::string_view kMailKey = "\r\nmail: ";
constexpr std::string_view kRecordEnd = "\r\n\r\n";

// Appends the value that starts at i and moves i to the CR LF that ends it, or one past the last
// character of the text.
void CopyValue(std::string& list, std::string_view text, std::size_t& i) {
    const std::size_t end = FindFrom(text, kCrLf, i);
    list.append(Mid(text, i, end - i));
    i = end;
}

}  // namespace

std::string ReadLdif(std::string_view ldif, std::string_view separator) {
    const std::string entry_end = EntryEnd(separator);
    std::string list;
    list.reserve(ldif.size() / 4);
    std::size_t i = FindFrom(ldif, kCrLf, 1);
    while (i <= ldif.size()) {
        const std::string_view rest = ldif.substr(i - 1);
        if (rest.starts_with(kNicknameKey)) {
            i += kNicknameKey.size();
            list += '"';
            CopyValue(list, ldif, i);
            list += "\" ";
        } else if (rest.starts_with(kMailKey)) {
            i += kMailKey.size();
            list += '<';
            CopyValue(list, ldif, i);
            list += '>';
            // The line break behind an address is passed over, so the line that follows is never
            // recognised. Books of the 3.x series end their records behind that line.
            ++i;
        } else {
            if (rest.starts_with(kRecordEnd)) {
                list += entry_end;
            }
            ++i;
        }
        i = FindFrom(ldif, kCrLf, i);
    }
    if (list.empty() ||
        (!separator.empty() && list.back() != separator.back() && list.back() != '\n')) {
        list += entry_end;
    }
    return list;
}

void Form1::unconvert() {
    module_.WorkText = ReadLdif(module_.LdifText, module_.textSep);
    module_.TextMode = mode::kAscii;
}

void Form1::mnuUn_Click() {
    unconvert();
}

void Form1::mnuClearPasteNet4_Click() {
    if (!OfferSave("Save before clearing?")) {
        return;
    }
    module_.WorkText.clear();
    module_.LdifText = module_.platform.ClipboardText();
    unconvert();
    mnuParse_Click();
    ShowTextIfShort();
    module_.RefreshLists();
    Caption = kTitle;
}

}  // namespace orvik
