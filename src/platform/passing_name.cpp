#include "platform/passing_name.h"

#include <random>

namespace orvik {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";
constexpr int kLength = 16;

}  // namespace

std::string PassingName(std::string_view ending) {
    std::random_device random;
    std::uniform_int_distribution<std::size_t> any(0, kDigits.size() - 1);
    std::string name(kPassingBeginning);
    for (int i = 0; i < kLength; ++i) {
        name.push_back(kDigits[any(random)]);
    }
    return name.append(ending);
}

bool IsPassingName(std::string_view name) {
    if (!name.starts_with(kPassingBeginning)) {
        return false;
    }
    name.remove_prefix(kPassingBeginning.size());
    if (name.size() < kLength ||
        name.substr(0, kLength).find_first_not_of(kDigits) != std::string_view::npos) {
        return false;
    }
    name.remove_prefix(kLength);
    return name == kPassingNew || name == kPassingWhole;
}

}  // namespace orvik
