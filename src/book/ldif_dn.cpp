#include "book/ldif_dn.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <glib.h>

#include "book/field_names.h"

namespace orvik::book {
namespace {

constexpr std::string_view kCn = "cn=";
constexpr std::string_view kMail = "mail=";

// Where the last ",mail=" begins, in any case; npos for none.
std::size_t LastMail(std::string_view dn) {
    for (std::size_t comma = dn.rfind(','); comma != std::string_view::npos && comma > 0;
         comma = dn.rfind(',', comma - 1)) {
        if (StartsAsName(dn.substr(comma + 1), kMail)) {
            return comma;
        }
    }
    return std::string_view::npos;
}

// The attributes that stand behind a name in directories.
bool BeginsAttribute(std::string_view text) {
    constexpr std::array<std::string_view, 8> kNames = {
        "ou=", "o=", "dc=", "c=", "l=", "st=", "uid=", "cn="};
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return std::any_of(kNames.begin(), kNames.end(), [text](std::string_view name) {
        return StartsAsName(text, name);  // NOLINT(readability-suspicious-call-argument)
    });
}

// The end of the first value: a comma with another attribute behind it.
std::size_t EndOfValue(std::string_view text) {
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            quoted = !quoted;
        } else if (text[i] == ',' && !quoted && BeginsAttribute(text.substr(i + 1))) {
            return i;
        }
    }
    return text.size();
}

std::string WithoutEscapes(std::string_view value) {
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
        value = value.substr(1, value.size() - 2);
    }
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const bool byte = i + 2 < value.size() && g_ascii_isxdigit(value[i + 1]) &&
                          g_ascii_isxdigit(value[i + 2]);
        text += byte ? static_cast<char>(g_ascii_xdigit_value(value[i + 1]) * 16 +
                                         g_ascii_xdigit_value(value[i + 2]))
                     : value[i + 1];
        i += byte ? 2 : 1;
    }
    return text;
}

}  // namespace

void AppendDn(std::string_view name, std::string_view address, std::string& to) {
    if (!name.empty()) {
        to.append(kCn).append(name);
    }
    if (!address.empty()) {
        to.append(name.empty() ? "" : ",").append(kMail).append(address);
    }
}

std::string DnOf(std::string_view name, std::string_view address) {
    std::string dn;
    AppendDn(name, address, dn);
    return dn;
}

DnParts PartsOfDn(std::string_view dn) {
    DnParts parts;
    const std::size_t mail = LastMail(dn);
    if (StartsAsName(dn, kMail) || mail != std::string_view::npos) {
        std::string_view address = dn.substr(StartsAsName(dn, kMail) ? 0 : mail + 1);
        address.remove_prefix(kMail.size());
        parts.Address = WithoutEscapes(address.substr(0, EndOfValue(address)));
        dn = StartsAsName(dn, kMail) ? std::string_view{} : dn.substr(0, mail);
    }
    if (StartsAsName(dn, kCn)) {
        dn.remove_prefix(kCn.size());
        parts.Name = WithoutEscapes(dn.substr(0, EndOfValue(dn)));
    }
    return parts;
}

std::string FirstOfDn(std::string_view dn) {
    const std::size_t equal = dn.find('=');
    dn.remove_prefix(equal == std::string_view::npos ? 0 : equal + 1);
    return WithoutEscapes(dn.substr(0, EndOfValue(dn)));
}

}  // namespace orvik::book
