// The scan for addresses, beside memchr over the same bytes, and the sort of as many entries as can
// be sorted.

#include <array>
#include <cstring>
#include <random>
#include <string>
#include <string_view>

#include "app/working_text.h"
#include "bench/measure.h"
#include "bench/processor_time.h"
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

std::string Base64(std::mt19937& random, std::size_t lines) {
    constexpr std::string_view kLetters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr std::size_t kLine = 76;
    std::string text;
    for (std::size_t i = 0; i < lines; ++i) {
        for (std::size_t j = 0; j < kLine; ++j) {
            text += kLetters[random() % kLetters.size()];
        }
        text += '\n';
    }
    return text;
}

// The lines before a message's text: fourteen addresses and numbers that look like them.
std::string Headers(std::mt19937& random) {
    constexpr std::array<std::string_view, 4> kNames = {
        "mary.miller", "li", "anne-marie.papadopoulos", "o.brien"};
    const auto person = [&] {
        std::string address(kNames[random() % kNames.size()]);
        return address + std::to_string(random() % 1000) + "@mail.example";
    };
    const auto number = [&] { return std::to_string(random()) + "." + std::to_string(random()); };
    const std::string from = person();
    std::string text = "From " + from + " Mon May  4 10:11:12 1998\nReturn-Path: <" + from + ">\n";
    for (int hop = 0; hop < 3; ++hop) {
        text +=
            "Received: from relay.example (relay.example [192.0.2.7])\n\tby mail.example with "
            "ESMTP id " +
            number() + "\n\tfor <" + person() + ">; Mon, 4 May 1998 10:11:12 +0200\n";
    }
    text += "Message-ID: <" + number() + "@mail.example>\nFrom: Mary Miller <" + from + ">\nTo: ";
    for (int to = 0; to < 4; ++to) {
        text += person() + ", ";
    }
    text += person() + "\nReferences: <" + number() + "@x.example>\n\t<" + number() +
            "@x.example>\nSubject: the meeting of the choir\nMIME-Version: 1.0\nContent-Type: "
            "multipart/mixed; boundary=\"part\"\n\n";
    return text;
}

// A mail folder whose messages have attachments. It has as many addresses as an extraction takes,
// less some.
std::string MailFolder() {
    constexpr std::size_t kMessage = 48U * 1024;
    std::mt19937 random(5);
    const std::string attachment = Base64(random, 2000);
    std::string text;
    text.reserve(kLongFile + 4 * kMessage);
    while (text.size() < kLongFile) {
        text += Headers(random) + "--part\n\n";
        for (std::size_t i = random() % 40; i > 0; --i) {
            text += "and so the meeting of the choir was put off until May.\n";
        }
        text += "\n--part\nContent-Type: image/jpeg\nContent-Transfer-Encoding: base64\n\n";
        text += attachment.substr(0, random() % (2 * kMessage)) + "\n--part--\n\n";
    }
    return text;
}

const std::string& Folder() {
    static const std::string text = MailFolder();
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

void Scan(const std::string& text) {
    NoDisplay progress;
    std::string found;
    std::int16_t count = 0;
    ScanChunk({text, 1, text.size()}, found, count, progress);
    benchmark::DoNotOptimize(found);
}

// Goes from mark to mark.
void Memchr(const std::string& text) {
    const char* const end = text.data() + text.size();
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

void ScanText(benchmark::State& state, const std::string& (*text_of)()) {
    const std::string& text = text_of();
    for ([[maybe_unused]] const auto _ : state) {
        Scan(text);
    }
    CountBytes(state, text);
}

void MemchrText(benchmark::State& state, const std::string& (*text_of)()) {
    const std::string& text = text_of();
    for ([[maybe_unused]] const auto _ : state) {
        Memchr(text);
    }
    CountBytes(state, text);
}

// One and the other in turn, so that both meet the same machine. The report reads the counters.
void ScanBesideMemchr(benchmark::State& state, const std::string& (*text_of)()) {
    const std::string& text = text_of();
    double memchr_ms = 0;
    double scan_ms = 0;
    for ([[maybe_unused]] const auto _ : state) {
        memchr_ms += Milliseconds([&] { Memchr(text); });
        scan_ms += Milliseconds([&] { Scan(text); });
    }
    state.counters["memchr_ms"] = benchmark::Counter(memchr_ms, benchmark::Counter::kAvgIterations);
    state.counters["scan_ms"] = benchmark::Counter(scan_ms, benchmark::Counter::kAvgIterations);
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
BENCHMARK_CAPTURE(MemchrText, 100MiBMailFolder, &Folder)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScanText, 100MiBMailFolder, &Folder)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MemchrText, 32767Addresses, &Dense)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ScanText, 32767Addresses, &Dense)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ScanBesideMemchr, 100MiBWithoutMark, &WithoutMark)->Iterations(10);
BENCHMARK_CAPTURE(ScanBesideMemchr, 100MiBMailFolder, &Folder)->Iterations(10);
BENCHMARK_CAPTURE(SortText, 500Shuffled, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SortText, 500Equal, true)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orvik::bench
