// What the measurements have in common.

#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "bench/book.h"
#include "formats/progress.h"

namespace orvik::bench {

class NoProgress : public Progress {
 public:
    void Percent(int percent) override { benchmark::DoNotOptimize(percent); }
    void Record() override {}
};

// The book of as many entries as the measurement's argument says.
inline const Book& BookFor(const benchmark::State& state) {
    return BookOf(static_cast<std::size_t>(state.range(0)));
}

// Bytes are those of the larger of input and output.
inline void CountBytes(benchmark::State& state, std::string_view text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

inline void Finish(benchmark::State& state, std::string_view text) {
    state.SetComplexityN(state.range(0));
    CountBytes(state, text);
}

// What the machine can do at best: copying the bytes, and looking at each.
inline void Copy(benchmark::State& state, std::string_view text) {
    std::vector<char> target(text.size());
    for ([[maybe_unused]] const auto _ : state) {
        std::memcpy(target.data(), text.data(), text.size());
        benchmark::ClobberMemory();
    }
    Finish(state, text);
}

inline void Scan(benchmark::State& state, std::string_view text) {
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(std::memchr(text.data(), '\0', text.size()));
    }
    Finish(state, text);
}

// From a thousand to a million entries.
inline void Sizes(benchmark::internal::Benchmark* conversion) {
    conversion->RangeMultiplier(10)->Range(1000, 1'000'000)->Complexity(benchmark::oN);
    conversion->Unit(benchmark::kMicrosecond);
}

}  // namespace orvik::bench
