// Reads any bytes as LDIF, writes them as a Native text, and takes the entries of a list to LDIF
// and back.

#include <string>
#include <string_view>

#include "app/working_text.h"
#include "formats/ldif_reader.h"
#include "formats/ldif_writer.h"
#include "fuzz/checked_progress.h"
#include "fuzz/fuzz_target.h"

namespace orvik::fuzz {
namespace {

void CheckRead(std::string_view ldif, std::string_view separator) {
    const std::string list = ReadLdif(ldif, separator);
    const std::string end = EntryEnd(separator);
    Check(list.size() >= end.size() && list.substr(list.size() - end.size()) == end,
          "the last entry is ended");
}

// Returns the LDIF text, empty if there is no entry.
std::string WriteAndCheck(std::string_view native) {
    CheckedProgress progress;
    std::string ldif;
    const int failure = FailureOf([&] { ldif = WriteLdif(native, progress); });
    Check(progress.LastPercent() == 100, "the walk comes to its end");
    Check((failure == 0) == (progress.Records() > 0), "it fails without an entry only");
    Check(failure == 0 || failure == 5, "no entry is failure 5");
    return ldif;
}

void CheckRoundTrip(std::string_view text) {
    NativeBlocks blocks;
    if (FailureOf([&] { blocks = SplitBlocks(text, "\r"); }) != 0 ||
        blocks.Emails().find(kNick) != std::string_view::npos) {
        return;
    }
    const NativeBlocks back = SplitBlocks(ReadLdif(WriteAndCheck(blocks.Native), "\r"), "\r");
    Check(back.Emails() == blocks.Emails(), "addresses come back");
    Check(back.Nicks() == blocks.Nicks(), "nicknames come back");
}

}  // namespace
}  // namespace orvik::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = orvik::fuzz::TextOf(data, size);
    orvik::fuzz::CheckRead(text, "\r");
    orvik::fuzz::CheckRead(text, ",");
    orvik::fuzz::WriteAndCheck(text);
    orvik::fuzz::CheckRoundTrip(text);
    return 0;
}
