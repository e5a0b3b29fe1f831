#include "book/old/old_formats.h"

#include <algorithm>
#include <array>

namespace orvik::book {
namespace {

constexpr std::array<OldFormat, 0> kFormats = {};

}  // namespace

std::span<const OldFormat> OldFormats() {
    return kFormats;
}

const OldFormat* OldFormatOf(Format form) {
    const auto formats = OldFormats();
    const auto found = std::find_if(
        formats.begin(), formats.end(), [form](const OldFormat& one) { return one.Form == form; });
    return found == formats.end() ? nullptr : &*found;
}

}  // namespace orvik::book
