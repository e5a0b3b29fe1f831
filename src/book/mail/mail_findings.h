// What a message or a text says about people.

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::book {

// Where an address stands.
enum class MailField : std::uint8_t { From, Sender, ReplyTo, To, Cc, Bcc, Resent, Body };
inline constexpr std::size_t kMailFields = 8;
// "From", "Reply-To", "body"
[[nodiscard]] std::string_view NameOf(MailField field);

// Seconds since 1970 in UTC.
using MailTime = std::int64_t;
inline constexpr MailTime kNoTime = std::numeric_limits<MailTime>::min();

// An address as it stands there, and the name beside it, if any; both are UTF-8.
struct Mention {
    std::string Address;
    std::string Name;
    MailField Field = MailField::Body;
    MailTime Time = kNoTime;
};

// A part that could not be read, or not wholly.
struct PartNote {
    bool IsEncrypted = false;
    std::string Part;  // "2.1 (text/plain)"
    std::string Reason;
};

struct MailFindings {
    std::vector<Mention> Mentions;
    // The identifiers of messages and parts that the headers name, without brackets.
    std::vector<std::string> Ids;
    // How many identifiers look like addresses but are left out.
    std::size_t IdCount = 0;
    // When it was sent.
    MailTime Time = kNoTime;
    std::string MessageId;
    std::vector<PartNote> Notes;
};

}  // namespace orvik::book
