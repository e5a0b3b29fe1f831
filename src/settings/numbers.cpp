#include "settings/numbers.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "app/run_time_error.h"

namespace orvik {
namespace {

// Whether a number that no double can hold is too small for it, not too large.
bool IsTiny(std::string_view number) {
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos) {
        return number.substr(exponent + 1).starts_with('-');
    }
    return number.substr(0, number.find('.')).find_first_of("123456789") == std::string_view::npos;
}

}  // namespace

double ToNumber(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        throw RunTimeError(Failure::TypeMismatch);
    }
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    // std::from_chars takes no plus sign, and takes the names of infinity and of no number.
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            throw RunTimeError(Failure::TypeMismatch);
        }
    }
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc::result_out_of_range) {
        if (IsTiny(text)) {
            return 0;
        }
        throw RunTimeError(Failure::Overflow);
    }
    if (error != std::errc{} || stop != end || !std::isfinite(number)) {
        throw RunTimeError(Failure::TypeMismatch);
    }
    return number;
}

int ToInteger(std::string_view text) {
    const double rounded = std::nearbyint(ToNumber(text));
    if (rounded < -32768 || rounded > 32767) {
        throw RunTimeError(Failure::Overflow);
    }
    return static_cast<int>(rounded);
}

}  // namespace orvik
