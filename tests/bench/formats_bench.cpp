// Every other format, read and written.

#include <string>

#include "bench/measure.h"
#include "files/list_filters.h"
#include "files/netscape3_merge.h"
#include "formats/csv_reader.h"
#include "formats/juno_reader.h"
#include "formats/juno_writer.h"
#include "formats/netscape3_reader.h"
#include "formats/netscape3_writer.h"
#include "formats/pim_export.h"
#include "formats/unread.h"

namespace orvik::bench {
namespace {

template <class Convert>
void Measure(benchmark::State& state, const std::string& larger, Convert&& convert) {
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(convert());
    }
    Finish(state, larger);
}

void MemcpyHtml(benchmark::State& state) {
    Copy(state, BookFor(state).html);
}

void Netscape3Write(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.html, [&] { return WriteNetscape3(book.native); });
}

void Netscape3Read(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.html, [&] { return ReadNetscape3(book.html, "\r"); });
}

void Netscape3Merge(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.html, [&] { return MergeNetscape3(book.html, book.html); });
}

void JunoWrite(benchmark::State& state) {
    const Book& book = BookFor(state);
    NoProgress progress;
    Measure(state, book.juno, [&] { return WriteJuno(book.native, "\r", progress); });
}

void JunoRead(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.juno, [&] { return ReadJuno(book.juno); });
}

void CsvRead(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.csv, [&] { return CsvToNative(book.csv); });
}

void WordPerfectRead(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.wordperfect, [&] { return WordPerfectToNative(book.wordperfect); });
}

void PegasusRead(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.pegasus, [&] { return FilterPegasus(book.pegasus); });
}

void AliasRead(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.aliases, [&] { return FilterAliases(book.aliases); });
}

void PimExport(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.ldif, [&] {
        return ExportPim(book.ldif, ",", [](std::size_t /*position*/) {});
    });
}

// What opening costs beside the reading.
void LdifUnread(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.ldif, [&] { return CountUnread(Format::Netscape4, book.ldif); });
}

void Netscape3Unread(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.html, [&] { return CountUnread(Format::Netscape3, book.html); });
}

void CsvUnread(benchmark::State& state) {
    const Book& book = BookFor(state);
    Measure(state, book.csv, [&] { return CountUnread(Format::Csv, book.csv); });
}

BENCHMARK(MemcpyHtml)->Apply(Sizes);
BENCHMARK(Netscape3Write)->Apply(Sizes);
BENCHMARK(Netscape3Read)->Apply(Sizes);
BENCHMARK(Netscape3Merge)->Apply(Sizes);
BENCHMARK(JunoWrite)->Apply(Sizes);
BENCHMARK(JunoRead)->Apply(Sizes);
BENCHMARK(PimExport)->Apply(Sizes);
BENCHMARK(CsvRead)->Apply(Sizes);
BENCHMARK(WordPerfectRead)->Apply(Sizes);
BENCHMARK(PegasusRead)->Apply(Sizes);
BENCHMARK(AliasRead)->Apply(Sizes);
BENCHMARK(LdifUnread)->Apply(Sizes);
BENCHMARK(Netscape3Unread)->Apply(Sizes);
BENCHMARK(CsvUnread)->Apply(Sizes);

}  // namespace
}  // namespace orvik::bench
