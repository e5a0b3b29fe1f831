#include "book/mail/mail_headers.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include <gmime/gmime.h>

#include "book/address_check.h"
#include "book/field_names.h"
#include "book/mail/gmime_use.h"
#include "book/mail/text_addresses.h"
#include "book/utf8.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

struct FieldRow {
    std::string_view Name;
    MailField Field;
};
constexpr std::array kPeopleFields = {FieldRow{"From", MailField::From},
                                      FieldRow{"Sender", MailField::Sender},
                                      FieldRow{"Reply-To", MailField::ReplyTo},
                                      FieldRow{"To", MailField::To},
                                      FieldRow{"Cc", MailField::Cc},
                                      FieldRow{"Bcc", MailField::Bcc},
                                      FieldRow{"Resent-From", MailField::Resent},
                                      FieldRow{"Resent-Sender", MailField::Resent},
                                      FieldRow{"Resent-Reply-To", MailField::Resent},
                                      FieldRow{"Resent-To", MailField::Resent},
                                      FieldRow{"Resent-Cc", MailField::Resent},
                                      FieldRow{"Resent-Bcc", MailField::Resent}};

std::optional<MailField> FieldCalled(std::string_view name) {
    const auto* const found =
        std::find_if(kPeopleFields.begin(), kPeopleFields.end(), [name](const FieldRow& one) {
            return SameName(one.Name, name);
        });
    return found == kPeopleFields.end() ? std::nullopt : std::optional(found->Field);
}

bool HoldsIds(std::string_view name) {
    constexpr std::array<std::string_view, 6> kNames = {
        "Message-ID", "References", "In-Reply-To", "Content-ID", "Resent-Message-ID", "Supersedes"};
    return std::any_of(
        kNames.begin(), kNames.end(), [name](std::string_view one) { return SameName(one, name); });
}

std::string Decoded(const char* text) {
    const GText decoded(g_mime_utils_header_decode_text(MailOptions(), text));
    std::string plain;
    AppendUtf8(decoded ? decoded.get() : "", plain);
    return plain;
}

void AddIds(std::string_view name, std::string_view value, MailFindings& findings) {
    while (!value.empty()) {
        const std::size_t open = value.find('<');
        const std::size_t close = value.find('>', open == std::string_view::npos ? 0 : open);
        if (open == std::string_view::npos || close == std::string_view::npos) {
            return;
        }
        const std::string_view id = value.substr(open + 1, close - open - 1);
        findings.Ids.emplace_back(id);
        if (findings.MessageId.empty() && SameName(name, "Message-ID")) {
            findings.MessageId = id;
        }
        value.remove_prefix(close + 1);
    }
}

// An address without what some programs put around it.
std::string PlainAddress(const char* address) {
    std::string_view text = address;
    if (text.find("=?") != std::string_view::npos) {
        return Decoded(address);
    }
    while (text.size() > 2 && (text.front() == '\'' || text.front() == '"') &&
           text.back() == text.front()) {
        text = text.substr(1, text.size() - 2);
    }
    return std::string(text);
}

class ListReader {
 public:
    ListReader(MailField field, MailTime time, MailFindings& findings)
        : field_(field), time_(time), findings_(findings) {}

    // Returns how many people were added.
    std::size_t Add(InternetAddressList* list) {
        std::size_t added = 0;
        // Groups inside of groups are none of the format, but the library reads them.
        std::vector<std::pair<InternetAddressList*, int>> open = {{list, 0}};
        while (!open.empty()) {
            auto& [members, next] = open.back();
            if (members == nullptr || next >= internet_address_list_length(members)) {
                open.pop_back();
                continue;
            }
            InternetAddress* const one = internet_address_list_get_address(members, next++);
            if (INTERNET_ADDRESS_IS_GROUP(one) != 0) {
                open.emplace_back(internet_address_group_get_members(INTERNET_ADDRESS_GROUP(one)),
                                  0);
            } else {
                added += AddOne(one);
            }
        }
        return added;
    }

 private:
    std::size_t AddOne(InternetAddress* one) {
        const char* const address =
            internet_address_mailbox_get_addr(INTERNET_ADDRESS_MAILBOX(one));
        if (address == nullptr) {
            return 0;
        }
        const std::string text = PlainAddress(address);
        if (CheckAddress(text).Class() == AddressClass::Bad) {
            return 0;
        }
        const char* const name = internet_address_get_name(one);
        findings_.Mentions.push_back(
            {text, name == nullptr ? std::string() : DecodedName(name), field_, time_});
        return 1;
    }

    MailField field_;
    MailTime time_;
    MailFindings& findings_;
};

void AddPeople(const char* value, MailField field, MailTime time, MailFindings& findings) {
    const GRef<InternetAddressList> list(internet_address_list_parse(MailOptions(), value));
    if (ListReader(field, time, findings).Add(list.get()) > 0) {
        return;
    }
    // What is no list by any rule may have an address all the same.
    const std::string text = Decoded(value);
    if (text.find('@') == std::string::npos) {
        return;
    }
    TextAddresses search([&](std::string_view address, std::string_view name) {
        findings.Mentions.push_back({std::string(address), DecodedName(name), field, time});
    });
    search.Look(text);
}

}  // namespace

std::string_view NameOf(MailField field) {
    constexpr std::array<std::string_view, kMailFields> kNames = {
        "From", "Sender", "Reply-To", "To", "Cc", "Bcc", "Resent", "body"};
    return kNames[static_cast<std::size_t>(field)];
}

std::string DecodedName(std::string_view name) {
    std::string plain;
    AppendUtf8(name, plain);
    std::string text;
    for (const char c : plain) {
        const bool blank = static_cast<unsigned char>(c) <= ' ';
        if (!blank) {
            text += c;
        } else if (!text.empty() && text.back() != ' ') {
            text += ' ';
        }
    }
    std::string_view rest = WithoutBlanksAround(text);
    while (rest.size() > 2 && (rest.front() == '\'' || rest.front() == '"') &&
           rest.back() == rest.front()) {
        rest = WithoutBlanksAround(rest.substr(1, rest.size() - 2));
    }
    return std::string(rest);
}

MailTime TimeOf(const char* date) {
    const GRefOf<GDateTime, g_date_time_unref> time(g_mime_utils_header_decode_date(date));
    return time ? g_date_time_to_unix(time.get()) : kNoTime;
}

void AddHeader(std::string_view name, const char* value, MailTime time, MailFindings& findings) {
    if (HoldsIds(name)) {
        AddIds(name, value, findings);
    } else if (const auto field = FieldCalled(name)) {
        AddPeople(value, *field, time, findings);
    }
}

}  // namespace orvik::book
