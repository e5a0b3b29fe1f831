#include "book/record_origins.h"

#include <algorithm>

namespace orvik::book {

RecordOrigins::Place RecordOrigins::PlaceOf(std::uint32_t contact) const {
    const Origin& from = contacts_[contact].From;
    return {from.File, from.Line};
}

void RecordOrigins::Grow() {
    if (known_ == contacts_.size()) {
        return;
    }
    for (; known_ < contacts_.size(); ++known_) {
        if (contacts_[known_].From.Lines > 0) {
            order_.push_back(static_cast<std::uint32_t>(known_));
        }
    }
    // Readers add nearly all in this order; a list may come behind its members.
    const auto before = [this](std::uint32_t one, std::uint32_t other) {
        const Place place = PlaceOf(one);
        const Place other_place = PlaceOf(other);
        return place < other_place || (place == other_place && one < other);
    };
    if (!std::is_sorted(order_.begin(), order_.end(), before)) {
        std::sort(order_.begin(), order_.end(), before);
    }
}

std::uint32_t RecordOrigins::LastBegun(std::uint32_t file, std::uint32_t line) const {
    std::size_t near = 0;
    return LastBegun(file, line, near);
}

std::uint32_t RecordOrigins::LastBegun(std::uint32_t file,
                                       std::uint32_t line,
                                       std::size_t& near) const {
    const Place wanted{file, line};
    const auto is_behind = [&](std::size_t at) {
        return at >= order_.size() || wanted < PlaceOf(order_[at]);
    };
    // The next one or the one after it, where somebody goes through the lines.
    if (near == 0 || is_behind(near - 1)) {
        near = BehindOf(wanted);
    } else if (!is_behind(near)) {
        near = is_behind(near + 1) ? near + 1 : BehindOf(wanted);
    }
    if (near == 0 || PlaceOf(order_[near - 1]).first != file) {
        return kNobody;
    }
    const Place found = PlaceOf(order_[near - 1]);
    if (near == 1 || PlaceOf(order_[near - 2]) != found) {
        return order_[near - 1];
    }
    return *std::lower_bound(
        order_.begin(),
        order_.begin() + static_cast<std::ptrdiff_t>(near),
        found,
        [this](std::uint32_t one, const Place& place) { return PlaceOf(one) < place; });
}

std::size_t RecordOrigins::BehindOf(const Place& wanted) const {
    const auto behind = std::upper_bound(
        order_.begin(), order_.end(), wanted, [this](const Place& place, std::uint32_t one) {
            return place < PlaceOf(one);
        });
    return static_cast<std::size_t>(behind - order_.begin());
}

std::uint32_t RecordOrigins::RecordAt(std::uint32_t file, std::uint32_t line) const {
    std::size_t near = 0;
    return RecordAt(file, line, near);
}

std::uint32_t RecordOrigins::RecordAt(std::uint32_t file,
                                      std::uint32_t line,
                                      std::size_t& near) const {
    const std::uint32_t found = LastBegun(file, line, near);
    if (found == kNobody) {
        return kNobody;
    }
    const Origin& from = contacts_[found].From;
    return line - from.Line < from.Lines ? found : kNobody;
}

}  // namespace orvik::book
