#include "book/old/quoted_box.h"

#include <algorithm>

namespace orvik::book {

void AppendBox(std::string_view name, std::string_view address, std::string& to) {
    if (!name.empty()) {
        std::string quoted(name);
        std::replace(quoted.begin(), quoted.end(), '"', '\'');
        to.append("\"").append(quoted).append("\" ");
    }
    to.append("<").append(address).append(">\r\n");
}

void AppendBoxes(Fitting& person, std::string& to) {
    const std::vector<const Property*> addresses = person.Addresses();
    if (addresses.empty()) {
        return person.LoseAll(Reason::NoAddress);
    }
    const Property* const shown = person.Next(field::kFn);
    std::string name = person.TakeName();
    if (shown != nullptr && name.find('"') != std::string::npos) {
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
        std::string address = OneLine(one->Value);
        AppendBox(name, address, to);
        if (one == addresses.front()) {
            person.Keep(*one, address);
        } else {
            person.Carry(*one);
        }
    }
}

}  // namespace orvik::book
