// Reads any bytes by each of the readers of old formats, and takes them to each format and back.
// The first byte picks the reader.

#include <array>
#include <cstdint>
#include <string_view>

#include "book/old/read_cc_mail.h"
#include "book/old/read_juno.h"
#include "book/old/read_netscape3.h"
#include "book/old/read_plain_list.h"
#include "fuzz/book_trip.h"
#include "fuzz/fuzz_target.h"

namespace {

struct Choice {
    char First;
    orvik::fuzz::BookReader Read;
};

constexpr std::array kChoices = {
    Choice{'n', orvik::book::ReadNetscape3},
    Choice{'j', orvik::book::ReadJuno},
    Choice{'c', orvik::book::ReadCcMail},
    Choice{'l', orvik::book::ReadPlainList},
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text = orvik::fuzz::TextOf(data, size);
    for (const Choice& one : kChoices) {
        if (text.starts_with(one.First)) {
            text.remove_prefix(1);
            orvik::fuzz::CheckTrips(one.Read, text);
            break;
        }
    }
    return 0;
}
