// orvik-book-addresses: checks addresses that hold any bytes. Standard input has one a line, in
// hexadecimal digits; for each there is a line with its class, a tab and the reason.

#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>

#include "book/address_check.h"

namespace {

// The bytes that pairs of digits stand for.
std::string BytesOf(std::string_view digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(std::string(digits.substr(i, 2)), nullptr, 16));
    }
    return bytes;
}

}  // namespace

int main() {
    std::string line;
    while (std::getline(std::cin, line)) {
        const orvik::book::CheckedAddress checked = orvik::book::CheckAddress(BytesOf(line));
        std::cout << orvik::book::NameOf(checked.Class()) << '\t' << checked.Reason() << '\n';
    }
    return 0;
}
