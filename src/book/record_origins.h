// Which record a line of a file belongs to, for whatever names only a file and a line.

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

#include "book/record.h"

namespace orvik::book {

class RecordOrigins {
 public:
    static constexpr std::uint32_t kNobody = ~std::uint32_t{0};

    // The contacts must outlive this. Those that came from no file have no lines.
    explicit RecordOrigins(const std::deque<Contact>& contacts) : contacts_(contacts) {}

    // Takes the contacts that have come behind those that it knows.
    void Grow();

    // RecordAt: the number of the record that this line is in, found by halves; kNobody for a line
    // outside of all. Of several that begin on one line the first is meant.
    [[nodiscard]] std::uint32_t RecordAt(std::uint32_t file, std::uint32_t line) const;
    // The same for one line after the other: near is where the last one was found, and is looked at
    // first; 0 at the beginning.
    [[nodiscard]] std::uint32_t RecordAt(std::uint32_t file,
                                         std::uint32_t line,
                                         std::size_t& near) const;
    // LastBegun: the last record of the file that begins on this line or before it.
    [[nodiscard]] std::uint32_t LastBegun(std::uint32_t file, std::uint32_t line) const;

 private:
    using Place = std::pair<std::uint32_t, std::uint32_t>;

    [[nodiscard]] Place PlaceOf(std::uint32_t contact) const;
    [[nodiscard]] std::size_t BehindOf(const Place& wanted) const;
    [[nodiscard]] std::uint32_t LastBegun(std::uint32_t file,
                                          std::uint32_t line,
                                          std::size_t& near) const;

    const std::deque<Contact>& contacts_;
    std::size_t known_ = 0;
    // By file and line.
    std::vector<std::uint32_t> order_;
};

}  // namespace orvik::book
