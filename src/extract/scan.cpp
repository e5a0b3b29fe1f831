#include "extract/scan.h"

#include <algorithm>
#include <array>
#include <limits>

#include "app/run_time_error.h"
#include "app/text.h"

namespace orvik {
namespace {

// A second word that marks an address. Lists of subscribers were to be found by it; it is off.
constexpr std::string_view kKeyword = "subscribe";
constexpr bool kByKeyword = false;

// What a character ends. Each character of an address is looked up here once.
constexpr unsigned char kEndsOnTheLeft = 1;
constexpr unsigned char kEndsOnTheRight = 2;

constexpr auto kEnds = [] {
    std::array<unsigned char, std::numeric_limits<unsigned char>::max() + 1> ends{};
    for (unsigned char c = 0; c <= ' '; ++c) {
        ends[c] = kEndsOnTheLeft | kEndsOnTheRight;
    }
    ends[','] = kEndsOnTheLeft | kEndsOnTheRight;
    ends['<'] = kEndsOnTheLeft;
    ends['>'] = kEndsOnTheRight;
    return ends;
}();

bool Ends(char c, unsigned char side) {
    return (kEnds[static_cast<unsigned char>(c)] & side) != 0;
}

// Reports the percentages of the positions that the scan comes to. Between two of them a position
// costs no more than a comparison.
class Meter {
 public:
    Meter(std::size_t total, ScanProgress& progress)
        : total_(total), progress_(progress), next_(total > 0 ? 0 : kNever) {}

    // The scan examines every position from first to last, and goes on behind them.
    void Walk(std::size_t first, std::size_t last) {
        for (first = std::max(first, next_); first <= last; first = next_) {
            ShowPercent(first);
        }
    }

 private:
    static constexpr std::size_t kMost = 100;
    static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

    void ShowPercent(std::size_t position) {
        const std::size_t percent = std::min(position * kMost / total_, kMost);
        progress_.Percent(static_cast<int>(percent));
        next_ = percent == kMost ? kNever : ((percent + 1) * total_ + kMost - 1) / kMost;
    }

    std::size_t total_;
    ScanProgress& progress_;
    std::size_t next_;  // The first position of the next percentage.
};

// Whether there is a hit at i. The keyword counts in any case.
bool IsKeyword(std::string_view text, std::size_t i) {
    return kByKeyword && ToLower(Mid(text, i, kKeyword.size())) == kKeyword;
}

// The position of the next hit at or behind i, or one past the last character.
std::size_t NextHit(std::string_view text, std::size_t i) {
    if (!kByKeyword) {
        const std::size_t mark = text.find('@', i - 1);
        return mark == std::string_view::npos ? text.size() + 1 : mark + 1;
    }
    while (i <= text.size() && text[i - 1] != '@' && !IsKeyword(text, i)) {
        ++i;
    }
    return i;
}

}  // namespace

void ScanChunk(const Chunk& chunk,
               std::string& found,
               std::int16_t& count,
               ScanProgress& progress) {
    const std::string_view text = chunk.Text;
    const std::size_t last = chunk.Start + text.size();
    // The last position that an address can have.
    const std::size_t last_taken = chunk.Total > 0 ? std::min(text.size(), chunk.Total - 1) : 0;
    Meter meter(chunk.Total, progress);
    for (std::size_t i = chunk.Start; i <= last; ++i) {
        const std::size_t hit = NextHit(text, i);
        meter.Walk(i, hit > text.size() ? last : hit);
        if (hit > text.size()) {
            return;
        }
        if (count == std::numeric_limits<std::int16_t>::max()) {
            throw RunTimeError(Failure::Overflow);
        }
        ++count;
        std::size_t first = hit;
        if (IsKeyword(text, hit)) {
            first += kKeyword.size();
        } else {
            while (first > 1 && !Ends(text[first - 1], kEndsOnTheLeft)) {
                --first;
            }
        }
        ++first;
        // Up to the mark everything belongs to the address, also what would end it.
        i = std::max(first, hit);
        while (i <= last_taken && !Ends(text[i - 1], kEndsOnTheRight)) {
            ++i;
        }
        found.append(Mid(text, first, i - first)).append(kCrLf);
    }
}

}  // namespace orvik
