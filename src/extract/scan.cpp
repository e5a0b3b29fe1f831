#include "extract/scan.h"

#include <algorithm>
#include <limits>

#include "app/run_time_error.h"
#include "app/text.h"

namespace orvik {
namespace {

// A second word that marks an address. Lists of subscribers were to be found by it; it is off.
constexpr std::string_view kKeyword = "subscribe";
constexpr bool kByKeyword = false;

bool IsBlank(char c) {
    return static_cast<unsigned char>(c) <= ' ';
}

bool EndsOnTheLeft(char c) {
    return IsBlank(c) || c == '<' || c == ',';
}

bool EndsOnTheRight(char c) {
    return IsBlank(c) || c == '>' || c == ',';
}

// Reports the percentages of the positions that the scan comes to.
class Meter {
 public:
    Meter(std::size_t total, ScanProgress& progress) : total_(total), progress_(progress) {}

    // The scan examines every position from first to last.
    void Walk(std::size_t first, std::size_t last) {
        while (total_ > 0 && first <= last) {
            const int percent = PercentAt(first);
            if (percent != shown_) {
                shown_ = percent;
                progress_.Percent(percent);
            }
            if (percent == kMost) {
                return;
            }
            // The first position of the next percentage.
            first = ((static_cast<std::size_t>(percent) + 1) * total_ + kMost - 1) / kMost;
        }
    }

 private:
    static constexpr int kMost = 100;

    [[nodiscard]] int PercentAt(std::size_t position) const {
        return static_cast<int>(std::min<std::size_t>(position * kMost / total_, kMost));
    }

    std::size_t total_;
    ScanProgress& progress_;
    int shown_ = -1;
};

// Whether there is a hit at i. The keyword counts in any case.
bool IsKeyword(std::string_view text, std::size_t i) {
    return kByKeyword && ToLower(Mid(text, i, kKeyword.size())) == kKeyword;
}

// The position of the next hit at or behind i, or one past the last character.
std::size_t NextHit(std::string_view text, std::size_t i) {
    if (!kByKeyword) {
        return FindFrom(text, "@", i);
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
            while (first > 1 && !EndsOnTheLeft(text[first - 1])) {
                --first;
            }
        }
        ++first;
        // Up to the mark everything belongs to the address, also what would end it.
        i = std::max(first, hit);
        while (i < chunk.Total && i <= text.size() && !EndsOnTheRight(text[i - 1])) {
            ++i;
        }
        found.append(Mid(text, first, i - first)).append(kCrLf);
    }
}

}  // namespace orvik
