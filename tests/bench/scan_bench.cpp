// The scan for addresses, beside memchr over the same bytes, and the sort of as many entries as can
// be sorted.

#include <cstring>
#include <random>
#include <string>
#include <string_view>

#include "app/working_text.h"
#include "bench/measure.h"
#include "extract/scan.h"
#include "listops/sort_entries.h"

namespace orvik::bench {
namespace {

class NoDisplay : public ScanProgress {
 public:
    void Percent(int percent) override { benchmark::DoNotOptimize(percent); }
};

constexpr std::size_t kLongFile = 100U * 1024 * 1024;
constexpr std::size_t kMostAddresses = 32767;

// A long mail folder with an address after so many bytes each, none for 0.
std::string LongFile(std::size_t distance) {
    constexpr std::string_view kWords =
        "and so the meeting of the choir was put off until May.\r\n";
    constexpr std::string_view kAddress = " <mary.miller17@mail.example>\r\n";
    std::string text;
    text.reserve(kLongFile + kWords.size());
    std::size_t next = distance;
    while (text.size() < kLongFile) {
        text += kWords;
        if (distance > 0 && text.size() >= next) {
            text += kAddress;
            next += distance;
        }
    }
    return text;
}

const std::string& WithoutMark() {
    static const std::string text = LongFile(0);
    return text;
}
const std::string& WithFew() {
    static const std::string text = LongFile(100'000);
    return text;
}
const std::string& Dense() {
    static const std::string text = [] {
        std::string list;
        for (std::size_t i = 0; i < kMostAddresses; ++i) {
            list += "mary.miller" + std::to_string(i) + "@mail.example\r\n";
        }
        return list;
    }();
    return text;
}

void ScanText(benchmark::State& state, const std::string& (*text_of)()) {
    const std::string& text = text_of();
    NoDisplay progress;
    for ([[maybe_unused]] const auto _ : state) {
        std::string found;
        std::int16_t count = 0;
        ScanChunk({text, 1, text.size()}, found, count, progress);
        benchmark::DoNotOptimize(found);
    }
    CountBytes(state, text);
}

// Goes from mark to mark.
void MemchrText(benchmark::State& state, const std::string& (*text_of)()) {
    const std::string& text = text_of();
    const char* const end = text.data() + text.size();
    for ([[maybe_unused]] const auto _ : state) {
        std::size_t count = 0;
        const char* p = text.data();
        while (p < end) {
            const auto* const mark =
                static_cast<const char*>(std::memchr(p, '@', static_cast<std::size_t>(end - p)));
            if (mark == nullptr) {
                break;
            }
            ++count;
            p = mark + 1;
        }
        benchmark::DoNotOptimize(count);
    }
    CountBytes(state, text);
}

std::string Shuffled(std::size_t entries, bool equal) {
    std::mt19937 random(7);
    std::string addresses;
    std::string nicknames;
    for (std::size_t i = 0; i < entries; ++i) {
        const std::string number = std::to_string(equal ? 0 : random() % 100'000);
        addresses += "Mary.Miller" + number + "@mail.example\r\n";
        nicknames += "Mary " + number + "\r\n";
    }
    return addresses + std::string(kNick) + "\r\n" + nicknames;
}

void SortText(benchmark::State& state, bool equal) {
    const std::string text = Shuffled(kMostSorted, equal);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(SortEntries(text, SortKey::Address));
    }
    CountBytes(state, text);
}

BENCHMARK_CAPTURE(MemchrText, 100MiBWithoutMark, &WithoutMark)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScanText, 100MiBWithoutMark, &WithoutMark)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MemchrText, 100MiBWithFew, &WithFew)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScanText, 100MiBWithFew, &WithFew)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MemchrText, 32767Addresses, &Dense)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ScanText, 32767Addresses, &Dense)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SortText, 500Shuffled, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SortText, 500Equal, true)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orvik::bench
