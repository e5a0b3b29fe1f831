// The conversions between the forms of a book, beside what the machine can do at best: copying and
// scanning the same number of bytes. Bytes are those of the larger of input and output.

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "app/controls.h"
#include "app/working_text.h"
#include "book.h"
#include "formats/ldif_reader.h"
#include "formats/ldif_writer.h"
#include "formats/progress.h"

namespace orvik::bench {
namespace {

class NoProgress : public Progress {
 public:
    void Percent(int percent) override { benchmark::DoNotOptimize(percent); }
    void Record() override {}
};

const Book& BookFor(const benchmark::State& state) {
    return BookOf(static_cast<std::size_t>(state.range(0)));
}

void Finish(benchmark::State& state, const std::string& text) {
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void Copy(benchmark::State& state, const std::string& text) {
    std::vector<char> target(text.size());
    for ([[maybe_unused]] const auto _ : state) {
        std::memcpy(target.data(), text.data(), text.size());
        benchmark::ClobberMemory();
    }
    Finish(state, text);
}

void Scan(benchmark::State& state, const std::string& text) {
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(std::memchr(text.data(), '\0', text.size()));
    }
    Finish(state, text);
}

void MemcpyList(benchmark::State& state) {
    Copy(state, BookFor(state).ascii);
}
void MemchrList(benchmark::State& state) {
    Scan(state, BookFor(state).ascii);
}
void MemcpyLdif(benchmark::State& state) {
    Copy(state, BookFor(state).ldif);
}
void MemchrLdif(benchmark::State& state) {
    Scan(state, BookFor(state).ldif);
}

void Split(benchmark::State& state) {
    const Book& book = BookFor(state);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(JoinBlocks(SplitBlocks(book.ascii, "\r")));
    }
    Finish(state, book.ascii);
}

void List(benchmark::State& state) {
    const Book& book = BookFor(state);
    ListBox emails;
    ListBox nicks;
    for ([[maybe_unused]] const auto _ : state) {
        emails.Clear();
        nicks.Clear();
        benchmark::DoNotOptimize(ListNative(
            book.native,
            [&](std::string_view item) { emails.AddItem(item); },
            [&](std::string_view item) { nicks.AddItem(item); }));
    }
    Finish(state, book.native);
}

void LdifWrite(benchmark::State& state) {
    const Book& book = BookFor(state);
    NoProgress progress;
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(WriteLdif(book.native, progress));
    }
    Finish(state, book.ldif);
}

void LdifRead(benchmark::State& state) {
    const Book& book = BookFor(state);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(ReadLdif(book.ldif, "\r"));
    }
    Finish(state, book.ldif);
}

void Sizes(benchmark::internal::Benchmark* conversion) {
    conversion->RangeMultiplier(10)->Range(1000, 1'000'000)->Complexity(benchmark::oN);
    conversion->Unit(benchmark::kMicrosecond);
}

BENCHMARK(MemcpyList)->Apply(Sizes);
BENCHMARK(MemchrList)->Apply(Sizes);
BENCHMARK(Split)->Apply(Sizes);
BENCHMARK(List)->Apply(Sizes);
BENCHMARK(MemcpyLdif)->Apply(Sizes);
BENCHMARK(MemchrLdif)->Apply(Sizes);
BENCHMARK(LdifWrite)->Apply(Sizes);
BENCHMARK(LdifRead)->Apply(Sizes);

}  // namespace
}  // namespace orvik::bench
