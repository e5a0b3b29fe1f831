// The conversions between the forms of a book, beside what the machine can do at best: copying and
// scanning the same number of bytes. Bytes are those of the larger of input and output.

#include <string>

#include "app/controls.h"
#include "app/entry_sum.h"
#include "app/working_text.h"
#include "bench/measure.h"
#include "formats/ldif_reader.h"
#include "formats/ldif_writer.h"

namespace orvik::bench {
namespace {

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
        benchmark::DoNotOptimize(SplitBlocks(book.ascii, "\r").Native);
    }
    Finish(state, book.ascii);
}

// Parse nicknames: every line of the Native form is split once more.
void ParseNicknames(benchmark::State& state) {
    const Book& book = BookFor(state);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(SplitBlocks(book.native, "\r").Native);
    }
    Finish(state, book.native);
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

// What the windows do behind a command, in either form.
void SumOfList(benchmark::State& state) {
    const Book& book = BookFor(state);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(SumEntries(book.ascii, false, "\r"));
    }
    Finish(state, book.ascii);
}
void SumOfNative(benchmark::State& state) {
    const Book& book = BookFor(state);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(SumEntries(book.native, true, "\r"));
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

BENCHMARK(MemcpyList)->Apply(Sizes);
BENCHMARK(MemchrList)->Apply(Sizes);
BENCHMARK(Split)->Apply(Sizes);
BENCHMARK(ParseNicknames)->Apply(Sizes);
BENCHMARK(List)->Apply(Sizes);
BENCHMARK(SumOfList)->Apply(Sizes);
BENCHMARK(SumOfNative)->Apply(Sizes);
BENCHMARK(MemcpyLdif)->Apply(Sizes);
BENCHMARK(MemchrLdif)->Apply(Sizes);
BENCHMARK(LdifWrite)->Apply(Sizes);
BENCHMARK(LdifRead)->Apply(Sizes);

}  // namespace
}  // namespace orvik::bench
