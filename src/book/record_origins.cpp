#include "book/record_origins.h"

#include <algorithm>

namespace orvik::book {

RecordOrigins::Place RecordOrigins::PlaceOf(std::uint32_t contact) const {
    const Origin& from = contacts_[contact].From;
    return {from.File, from.Line};
}

void RecordOrigins::Grow() {
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
    const Place wanted{file, line};
    const auto behind = std::upper_bound(
        order_.begin(), order_.end(), wanted, [this](const Place& place, std::uint32_t one) {
            return place < PlaceOf(one);
        });
    if (behind == order_.begin()) {
        return kNobody;
    }
    const Place found = PlaceOf(*(behind - 1));
    if (found.first != file) {
        return kNobody;
    }
    return *std::lower_bound(
        order_.begin(), behind, found, [this](std::uint32_t one, const Place& place) {
            return PlaceOf(one) < place;
        });
}

std::uint32_t RecordOrigins::RecordAt(std::uint32_t file, std::uint32_t line) const {
    const std::uint32_t found = LastBegun(file, line);
    if (found == kNobody) {
        return kNobody;
    }
    const Origin& from = contacts_[found].From;
    return line - from.Line < from.Lines ? found : kNobody;
}

}  // namespace orvik::book
