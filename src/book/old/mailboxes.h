// Addresses as mail programs write them behind each other: "Ada" <ada@example.org>, ben, (cy) ...

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvik::book {

struct Mailbox {
    std::string Name;     // without quotes
    std::string Address;  // empty for a name or nickname alone
};

// MailboxOf: one of them.
//   "\"Abbott, Ada\" <ada@x>" -> "Abbott, Ada", "ada@x";  "ada@x (Ada)" -> "Ada", "ada@x"
//   "Ada Abbott ada@x" -> "Ada Abbott", "ada@x";  "rowers" -> "rowers", ""
[[nodiscard]] Mailbox MailboxOf(std::string_view text);

// MailboxesOf: all between commas, which do not count in quotes, brackets and comments; empty ones
// are left out. A quote or bracket that is never closed is a letter like any other.
[[nodiscard]] std::vector<Mailbox> MailboxesOf(std::string_view text);

// IsAddressAlone: whether a text is read as one address and nothing else.
//   "ada@x", "\"a,b\"@x" -> true;  "a@x,b@x", "rowers", "(ada)@x" -> false
[[nodiscard]] bool IsAddressAlone(std::string_view text);

// QuotedPhrase: a name in quotes, as it is read from before an address.
//   "Al \"the\" Bo" -> "\"Al \\\"the\\\" Bo\""
[[nodiscard]] std::string QuotedPhrase(std::string_view name);

}  // namespace orvik::book
