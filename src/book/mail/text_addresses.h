// Finds e-mail addresses in the text of messages and files, as people write them there.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orvik::book {

class TextAddresses {
 public:
    // Gets an address and the name beside it, empty for none; both stand in the text.
    using Take = std::function<void(std::string_view address, std::string_view name)>;
    explicit TextAddresses(Take take) : take_(std::move(take)) {}

    // Looks at more lines of a text in UTF-8, in linear time. Message-IDs, content ids, file names,
    // places in the web and what quoted lines of a header say that name no people are left out.
    //   "write to <ada@example.org>." -> "ada@example.org"
    //   "> Message-ID: <1998@example.org>" -> none
    void Look(std::string_view lines);
    // How many identifiers were left out.
    [[nodiscard]] std::size_t Ids() const { return ids_; }

 private:
    void LookAtLine(std::string_view line);
    [[nodiscard]] bool BeginsOrEndsBlock(std::string_view line);

    Take take_;
    std::size_t ids_ = 0;
    // The header line that the last lines belong to names no people.
    bool names_nobody_ = false;
    bool is_uuencoded_ = false;
};

// NamesNobody: whether a field of a header has no people in it, however much looks like addresses.
//   "Message-ID" "X-Sender" "List-Post" "Return-Path" -> true;  "To" -> false
[[nodiscard]] bool NamesNobody(std::string_view field);

}  // namespace orvik::book
