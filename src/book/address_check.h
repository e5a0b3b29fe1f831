// Whether an e-mail address can be one: by the syntax of RFC 5321, 5322 and 6531, nobody is asked.

#pragma once

#include <string>
#include <string_view>

#include "book/address_flaw.h"

namespace orvik::book {

struct CheckedAddress {
    // The gravest thing that is to be said of it; none for a valid one.
    Finding Worst;
    // With its domain in ASCII, where that is written in other letters and has such a form, and the
    // name is ASCII.
    std::string Ascii;

    [[nodiscard]] AddressClass Class() const { return ClassOf(Worst.What); }
    // In words; empty for a valid one.
    [[nodiscard]] std::string Reason() const { return WordsFor(Worst); }
};

// CheckAddress: any bytes, in linear time. Errors: std::bad_alloc.
//   "al@example.org" -> valid;  "al@@example.org" -> bad, "two @"
//   "al@b\xC3\xBC" "cher.example" -> valid, "al@xn--bcher-kva.example"
[[nodiscard]] CheckedAddress CheckAddress(std::string_view address);

}  // namespace orvik::book
