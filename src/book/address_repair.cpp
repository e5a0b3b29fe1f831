#include "book/address_repair.h"

#include <algorithm>
#include <array>
#include <utility>

#include "book/address_check.h"
#include "book/field_names.h"
#include "book/old/mailboxes.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Nobody types more; longer ones are no addresses.
constexpr std::size_t kLongest = 1024;

// What keyboards of East Asia type for these.
std::string WithPlainSigns(std::string_view text) {
    constexpr std::array kSigns = {
        std::pair<std::string_view, char>{"\xEF\xBC\xA0", '@'},  // U+FF20
        std::pair<std::string_view, char>{"\xEF\xBC\x8E", '.'},  // U+FF0E
        std::pair<std::string_view, char>{"\xE3\x80\x82", '.'},  // U+3002
        std::pair<std::string_view, char>{"\xE3\x80\x80", ' '},  // U+3000
        std::pair<std::string_view, char>{"\xC2\xA0", ' '},      // U+00A0
    };
    std::string plain;
    while (!text.empty()) {
        const auto* const sign = std::find_if(kSigns.begin(), kSigns.end(), [&](const auto& one) {
            return text.starts_with(one.first);
        });
        plain += sign == kSigns.end() ? text.front() : sign->second;
        text.remove_prefix(sign == kSigns.end() ? 1 : sign->first.size());
    }
    return plain;
}

std::string_view WithoutPunctuation(std::string_view text) {
    text = WithoutBlanksAround(text);
    const auto is_mark = [](char c) { return c == ',' || c == ';' || c == ':' || c == '.'; };
    while (!text.empty() && is_mark(text.back())) {
        text = WithoutBlanksAround(text.substr(0, text.size() - 1));
    }
    while (!text.empty() && is_mark(text.front())) {
        text = WithoutBlanksAround(text.substr(1));
    }
    return text;
}

std::string_view WithoutScheme(std::string_view text) {
    constexpr std::string_view kMailto = "mailto:";
    if (!StartsAsName(text, kMailto)) {
        return text;
    }
    text.remove_prefix(kMailto.size());
    return text.substr(0, text.find('?'));
}

bool IsValid(std::string_view address) {
    return CheckAddress(address).Class() == AddressClass::Valid;
}

}  // namespace

std::string SurelyMeant(std::string_view address) {
    if (address.size() > kLongest || IsValid(address)) {
        return {};
    }
    const std::string plain = WithPlainSigns(address);
    const std::string boxed = MailboxOf(WithoutScheme(WithoutPunctuation(plain))).Address;
    const std::string_view meant = WithoutPunctuation(WithoutScheme(WithoutPunctuation(boxed)));
    return IsValid(meant) ? std::string(meant) : std::string();
}

}  // namespace orvik::book
