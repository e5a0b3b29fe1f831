#include "book/record_lines.h"

#include <charconv>

namespace orvik::book {
namespace {

std::uint64_t KeyOf(std::uint32_t file, std::uint32_t line) {
    constexpr unsigned kBits = 32;
    return (std::uint64_t{file} << kBits) | line;
}

}  // namespace

std::optional<std::size_t> RecordLines::RecordOf(const Property& member) const {
    if (!member.Value.starts_with(kLineScheme)) {
        return std::nullopt;
    }
    const std::string_view digits = member.Value.substr(kLineScheme.size());
    std::uint32_t line = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, line);
    if (read.ec != std::errc() || read.ptr != end) {
        return std::nullopt;
    }
    if (records_.empty()) {
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            const Origin& from = book_.Contacts[i].From;
            records_.emplace(KeyOf(from.File, from.Line), i);
        }
    }
    const auto found = records_.find(KeyOf(member.File, line));
    return found == records_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace orvik::book
