// The nicknames of a book in which lists name their members so.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "book/old/entry_builder.h"
#include "book/old/mailboxes.h"

namespace orvik::book {

class Nicknames {
 public:
    // The record that begins on a line has a nickname; of several records the first one is meant.
    void Add(std::string_view nickname, std::uint32_t line);

    // Adds the members of a list: a nickname of this book is its record; other names are looked for
    // in all files.
    void PushMembers(EntryBuilder& list,
                     std::span<const Mailbox> members,
                     std::uint32_t line) const;
    [[nodiscard]] bool Has(std::string_view nickname) const;

 private:
    std::unordered_map<std::string, std::uint32_t> lines_;
};

}  // namespace orvik::book
