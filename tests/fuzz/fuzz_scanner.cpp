// The first two bytes are the chunk's position and what its file is longer or shorter than the
// chunk. The bytes behind them are scanned for addresses, and sorted as a Native text.

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/encoding.h"
#include "app/text.h"
#include "app/working_text.h"
#include "extract/scan.h"
#include "fuzz/fuzz_target.h"
#include "listops/sort_entries.h"
#include "listops/upper_case.h"

namespace orvik::fuzz {
namespace {

class CheckedScan : public ScanProgress {
 public:
    void Percent(int percent) override {
        Check(percent > last && percent <= 100, "percentages grow up to 100");
        last = percent;
    }

    int last = -1;
};

void CheckScan(const Chunk& chunk) {
    std::string found;
    std::int16_t count = 0;
    CheckedScan progress;
    ScanChunk(chunk, found, count, progress);
    Check(std::count(found.begin(), found.end(), '\n') == count, "a line is counted");
    Check(std::count(chunk.Text.begin(), chunk.Text.end(), '@') >= count, "a line has its mark");
    // What ends an address on its right does not end the next one on its left, which may hold all
    // the addresses before it.
    const std::size_t longest = chunk.Text.size() + kCrLf.size();
    Check(found.size() <= static_cast<std::size_t>(count) * longest, "a line is of the chunk");
    Check(chunk.Total == 0 || progress.last >= 0, "a percentage is shown");
    if (chunk.Start == 1 && chunk.Total == chunk.Text.size() && !chunk.Text.empty()) {
        Check(progress.last == 100 || !found.empty(), "the walk comes to its end");
    }
}

std::vector<std::string> LinesOf(std::string_view block) {
    std::vector<std::string> lines;
    for (std::size_t end = block.find('\n'); end != std::string_view::npos;
         end = block.find('\n')) {
        lines.emplace_back(block.substr(0, end + 1));
        block.remove_prefix(end + 1);
    }
    return lines;
}

std::vector<std::string> InUpperCase(std::vector<std::string> lines, Encoding encoding) {
    for (std::string& line : lines) {
        line = ToUpper(line, encoding);
    }
    return lines;
}

std::vector<std::string> InOrder(std::vector<std::string> lines) {
    std::sort(lines.begin(), lines.end());
    return lines;
}

void CheckSort(std::string_view text, SortKey key) {
    const auto sorted = SortEntries(text, key);
    const NativeText native(text);
    const auto addresses = LinesOf(Mid(native.Text(), 1, native.Separator() - 1));
    const auto nicknames = LinesOf(Mid(native.Text(), native.Nicknames()));
    const std::size_t most = std::max(addresses.size(), nicknames.size());
    Check(sorted.has_value() == (most <= kMostSorted), "it fails with too many lines only");
    if (!sorted) {
        return;
    }
    const auto keys = InUpperCase(
        LinesOf(key == SortKey::Address ? sorted->Addresses : sorted->Nicknames), EncodingOf(text));
    Check(std::is_sorted(keys.begin(), keys.end()), "the keys are in order");
    if (most < kMostSorted) {
        Check(InOrder(LinesOf(sorted->Addresses)) == InOrder(addresses), "addresses stay");
        Check(InOrder(LinesOf(sorted->Nicknames)) == InOrder(nicknames), "nicknames stay");
    }
}

}  // namespace
}  // namespace orvik::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvik::fuzz;
    if (size < 2) {
        return 0;
    }
    const std::string_view text = TextOf(data + 2, size - 2);
    CheckScan({text, 1, text.size()});
    CheckScan({text, 1U + data[0], text.size() + data[1]});
    CheckScan({text, 1U + data[0], text.size() - std::min<std::size_t>(text.size(), data[1])});
    CheckSort(text, orvik::SortKey::Address);
    CheckSort(text, orvik::SortKey::Nickname);
    return 0;
}
