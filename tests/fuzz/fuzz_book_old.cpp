// Reads any bytes by each of the readers of old formats, and takes them to each format and back.
// The first byte picks the reader.

#include <array>
#include <cstdint>
#include <string_view>

#include "book/old/read_abook.h"
#include "book/old/read_abx.h"
#include "book/old/read_aliases.h"
#include "book/old/read_cc_mail.h"
#include "book/old/read_eudora.h"
#include "book/old/read_juno.h"
#include "book/old/read_netscape3.h"
#include "book/old/read_pegasus_list.h"
#include "book/old/read_pegasus_text.h"
#include "book/old/read_pine.h"
#include "book/old/read_plain_list.h"
#include "fuzz/book_trip.h"
#include "fuzz/fuzz_target.h"

namespace {

struct Choice {
    char First;
    orvik::fuzz::BookReader Read;
};

void ReadAbxTable(orvik::book::Book& book, std::uint32_t file, orvik::book::Charset& charset) {
    const auto found = orvik::book::ReadAbx(book, file, charset, {});
    orvik::fuzz::Check(!found.Sentence.empty(), "what was decided is told");
}

constexpr std::array kChoices = {
    Choice{'a', ReadAbxTable},
    Choice{'n', orvik::book::ReadNetscape3},
    Choice{'j', orvik::book::ReadJuno},
    Choice{'c', orvik::book::ReadCcMail},
    Choice{'l', orvik::book::ReadPlainList},
    Choice{'d', orvik::book::ReadPegasusList},
    Choice{'p', orvik::book::ReadPegasusText},
    Choice{'e', orvik::book::ReadEudora},
    Choice{'m', orvik::book::ReadMailrc},
    Choice{'u', orvik::book::ReadMutt},
    Choice{'i', orvik::book::ReadPine},
    Choice{'b', orvik::book::ReadAbook},
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
