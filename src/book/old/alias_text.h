// What stands behind the name of an alias of mailx or mutt.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "book/old/mailboxes.h"

namespace orvik::book {

struct AliasText {
    std::vector<Mailbox> Boxes;
    std::string Comment;  // behind #, without blanks around it
};

// MailxAliasOf: parted by blanks and commas. Words before an address in brackets are its name, what
// is in quotes is one word.
//   "ada Ben Berg <b@x>, \"Cy Coe\"<c@x> # we" -> ada, Ben Berg <b@x>, Cy Coe <c@x>, "we"
//
// Words right before a bracket cannot be told from aliases; a comma tells them.
[[nodiscard]] AliasText MailxAliasOf(std::string_view text);

// MuttAliasOf: addresses by commas, as the file of settings quotes them: a backslash takes the next
// letter as it is. Nothing is run or put in for ` and $. Encoded words are letters.
//   "\\\"Abbott, Ada\\\" <ada@x> # rows" and "\"Abbott, Ada\" <ada@x> # rows" -> Abbott, Ada
[[nodiscard]] AliasText MuttAliasOf(std::string_view text);

}  // namespace orvik::book
