#include "book/mail/mail_kind.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "app/text.h"
#include "book/field_names.h"
#include "book/lines.h"
#include "book/mail/mbox.h"
#include "book/source.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// A header of mail has one of these; other files have lines with a colon, too.
bool IsOfMail(std::string_view line) {
    constexpr std::array<std::string_view, 14> kNames = {"From:",
                                                         "To:",
                                                         "Date:",
                                                         "Subject:",
                                                         "Message-ID:",
                                                         "Received:",
                                                         "Return-Path:",
                                                         "MIME-Version:",
                                                         "Content-Type:",
                                                         "Delivered-To:",
                                                         "Reply-To:",
                                                         "Sender:",
                                                         "Cc:",
                                                         "X-Mozilla-Status:"};
    return std::any_of(kNames.begin(), kNames.end(), [line](std::string_view one) {
        return StartsAsName(line, one);
    });
}

// Whether a text begins with nothing but fields, up to an empty line.
bool BeginsWithHeader(std::string_view text) {
    bool of_mail = false;
    Line line;
    for (Lines lines(text); lines.Next(line) && !line.Text.empty();) {
        const bool goes_on = line.Number > 1 && (line.Text[0] == ' ' || line.Text[0] == '\t');
        if (!goes_on && !IsMailHeader(line.Text)) {
            return false;
        }
        of_mail = of_mail || IsOfMail(line.Text);
    }
    return of_mail;
}

bool BeginsWithMarker(std::string_view text) {
    Line first;
    Line second;
    Lines lines(text);
    return lines.Next(first) && IsMarker(true, first.Text, lines.Next(second) ? second.Text : "");
}

}  // namespace

MailKind KindOfMail(std::string_view beginning, std::string_view name) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (WideFormOf(beginning) != WideForm::None) {
        return MailKind::WideText;
    }
    if (beginning.starts_with(kMmdfLine)) {
        return MailKind::Folder;
    }
    if (beginning.starts_with(kMark)) {
        beginning.remove_prefix(kMark.size());
    }
    const std::size_t text = beginning.find_first_not_of("\r\n");
    beginning.remove_prefix(std::min(text, beginning.size()));
    // Messages may hold bytes of any kind, but these begin with letters.
    if (BeginsWithMarker(beginning)) {
        return MailKind::Folder;
    }
    if (HasEnding(name, ".eml") || BeginsWithHeader(beginning) ||
        (HasEnding(name, ".emlx") && !EmlxMessage(beginning).empty())) {
        return MailKind::Message;
    }
    return beginning.find('\0') == std::string_view::npos ? MailKind::Text : MailKind::Binary;
}

std::string_view EmlxMessage(std::string_view text) {
    std::size_t length = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), length);
    const std::size_t end = text.find('\n');
    if (read.ec != std::errc() || end == std::string_view::npos) {
        return {};
    }
    const auto digits = static_cast<std::size_t>(read.ptr - text.data());
    return digits <= end && WithoutBlanksAround(text.substr(digits, end - digits)).empty()
               ? text.substr(end + 1, length)
               : std::string_view();
}

}  // namespace orvik::book
