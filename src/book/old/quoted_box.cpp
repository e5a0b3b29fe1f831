#include "book/old/quoted_box.h"

#include <algorithm>

#include "book/old/mailboxes.h"
#include "book/old/plain_entry.h"

namespace orvik::book {

bool FitsBox(std::string_view address) {
    const std::string box = "<" + std::string(address) + ">";
    std::string_view rest = box;
    const std::vector<Mailbox> boxes = MailboxesOf(box);
    return IsQuotedEntry(box) && TakePlainEntry(rest) == box && boxes.size() == 1 &&
           boxes[0].Address == address;
}

void AppendBox(std::string_view name, std::string_view address, std::string& to) {
    if (!name.empty()) {
        std::string quoted(name);
        std::replace(quoted.begin(), quoted.end(), '"', '\'');
        // At the end it would take the quote for its own.
        if (quoted.ends_with('\\')) {
            quoted.back() = '/';
        }
        to.append("\"").append(quoted).append("\" ");
    }
    to.append("<").append(address).append(">\r\n");
}

void AppendBoxes(Fitting& person, std::string_view signs, std::string& to) {
    std::vector<const Property*> addresses = person.Addresses();
    const auto unfit =
        std::stable_partition(addresses.begin(), addresses.end(), [](const Property* one) {
            return FitsBox(OneLine(one->Value));
        });
    for (auto one = unfit; one != addresses.end(); ++one) {
        person.Lose(**one, Reason::ChangedSigns);
    }
    addresses.erase(unfit, addresses.end());
    if (addresses.empty()) {
        return person.LoseAll(Reason::NoAddress);
    }
    const Property* const shown = person.Next(field::kFn);
    std::string name = person.TakeName();
    if (shown != nullptr &&
        (name.find_first_of(signs) != std::string::npos || name.ends_with('\\'))) {
        person.Doubt(*shown, Reason::ChangedSigns);
    }
    if (name.empty()) {
        const Property* const nickname = person.Next(field::kNickname);
        if (nickname != nullptr) {
            name = OneLine(Fitting::FirstWordOf(*nickname));
            person.Carry(*nickname);
        }
    }
    for (const Property* const one : addresses) {
        const std::string address = OneLine(one->Value);
        AppendBox(name, address, to);
        if (one == addresses.front()) {
            person.Keep(*one, address);
        } else {
            person.Carry(*one);
        }
    }
}

}  // namespace orvik::book
