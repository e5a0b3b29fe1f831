// Looks at any bytes as an e-mail address, quickly and by the grammars.

#include "book/address_check.h"
#include "book/utf8.h"
#include "fuzz/fuzz_target.h"
#include "unit/book/address_twin.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvik::book;
    using orvik::fuzz::Check;
    const std::string_view text = orvik::fuzz::TextOf(data, size);
    const CheckedAddress checked = CheckAddress(text);
    Check((checked.Class() == AddressClass::Valid) == checked.Reason().empty(),
          "a reason for all but a valid address");
    Check(CountUtf8(text).Bad == 0 || checked.Class() == AddressClass::Bad, "valid text is UTF-8");
    if (!checked.Ascii.empty()) {
        const CheckedAddress ascii = CheckAddress(checked.Ascii);
        Check(AsciiLength(checked.Ascii) == checked.Ascii.size(), "the form is ASCII");
        Check(ascii.Class() != AddressClass::Bad, "the form is an address");
        Check(ascii.Ascii.empty(), "the form has no other form");
    }
    Check(text.size() > test::kLongestDerived || test::AgreesWithTwin(text),
          "the grammars say the same");
    return 0;
}
