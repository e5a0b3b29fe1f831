#include "book/mail/unseen_mail.h"

#include <algorithm>
#include <charconv>

#include "book/address_letters.h"
#include "book/field_names.h"
#include "book/lines.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// The value of a line of a header; empty for another field.
std::string_view ValueOf(std::string_view line, std::string_view field) {
    return StartsAsName(line, field) ? WithoutBlanksAround(line.substr(field.size()))
                                     : std::string_view();
}

bool IsDeleted(std::string_view status) {
    constexpr unsigned kDeleted = 0x0008;
    constexpr int kHex = 16;
    unsigned flags = 0;
    const auto read = std::from_chars(status.data(), status.data() + status.size(), flags, kHex);
    return read.ec == std::errc() && read.ptr == status.data() + status.size() &&
           (flags & kDeleted) != 0;
}

}  // namespace

Unseen UnseenKindOf(std::string_view message) {
    bool has_subject = false;
    bool is_of_system = false;
    Line line;
    for (Lines lines(message, true); lines.Next(line) && !line.Text.empty();) {
        if (IsDeleted(ValueOf(line.Text, "X-Mozilla-Status:"))) {
            return Unseen::Deleted;
        }
        has_subject = has_subject || ValueOf(line.Text, "Subject:") ==
                                         "DON'T DELETE THIS MESSAGE -- FOLDER INTERNAL DATA";
        is_of_system = is_of_system ||
                       ValueOf(line.Text, "From:").find("MAILER-DAEMON") != std::string_view::npos;
    }
    return has_subject && is_of_system ? Unseen::FolderData : Unseen::None;
}

bool IsTrashedName(std::string_view name) {
    // Where a colon cannot stand in names, programs write another sign.
    constexpr std::string_view kSigns = ":;!";
    const std::size_t mark = name.rfind("2,");
    if (mark == std::string_view::npos || mark == 0 ||
        kSigns.find(name[mark - 1]) == std::string_view::npos) {
        return false;
    }
    const std::string_view flags = name.substr(mark + 2);
    return flags.find('T') != std::string_view::npos &&
           std::all_of(flags.begin(), flags.end(), [](char flag) {
               return IsLetterOrDigit(flag) && !IsDigit(flag);
           });
}

}  // namespace orvik::book
