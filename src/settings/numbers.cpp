#include "settings/numbers.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "app/run_time_error.h"

namespace orvik {

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
