// Address books with all of their fields: reading LDIF beside memchr over the same bytes, reading
// and writing of each format, and how much memory it takes.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/memory.h"
#include "bench/processor_time.h"
#include "bench/rich_person.h"
#include "book/address_book.h"
#include "book/charset.h"
#include "book/read_csv.h"
#include "book/read_ldif.h"
#include "book/read_vcard.h"
#include "book/write_csv.h"
#include "book/write_ldif.h"
#include "book/write_vcard.h"

namespace orvik::bench {
namespace {

using book::Book;
using book::Dialect;

constexpr std::size_t kLongFile = 100U * 1024 * 1024;

// So many people, or as many as 100 MiB hold for 0.
const std::string& LdifOf(std::size_t people) {
    static std::map<std::size_t, std::string> texts;
    std::string& text = texts[people];
    if (text.empty()) {
        constexpr std::size_t kMost = 700;
        text.reserve(people == 0 ? kLongFile + kMost : people * kMost);
        for (std::size_t i = 0; people == 0 ? text.size() < kLongFile : i < people; ++i) {
            AppendPerson(i, text);
        }
    }
    return text;
}

std::unique_ptr<Book> Read(void (*read)(Book&, std::uint32_t, book::Charset&),
                           const std::string& text) {
    auto book = std::make_unique<Book>();
    const auto file = book->AddSource(std::make_unique<book::Source>("bench", text));
    book::Charset charset(book->SourceAt(file), {});
    read(*book, file, charset);
    return book;
}

// Goes from line end to line end.
void Memchr(const std::string& text) {
    const char* const end = text.data() + text.size();
    std::size_t count = 0;
    for (const char* p = text.data(); p < end; ++p, ++count) {
        p = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
        if (p == nullptr) {
            break;
        }
    }
    benchmark::DoNotOptimize(count);
}

void CountTimes(benchmark::State& state, const char* name, double part, double whole) {
    state.counters[name] = whole > 0 ? part / whole : 0;
}

// One and the other in turn, so that both meet the same machine. The file is in the book already:
// its bytes are moved there, not copied.
void ReadBesideMemchr(benchmark::State& state) {
    const std::string& text = LdifOf(0);
    double memchr_ms = 0;
    double read_ms = 0;
    std::vector<double> times;
    for ([[maybe_unused]] const auto _ : state) {
        std::string bytes = text;
        const double one_memchr = Milliseconds([&] { Memchr(bytes); });
        Book book;
        const double one_read = Milliseconds([&] {
            const auto file =
                book.AddSource(std::make_unique<book::Source>("bench", std::move(bytes)));
            book::Charset charset(book.SourceAt(file), {});
            ReadLdif(book, file, charset);
        });
        memchr_ms += one_memchr;
        read_ms += one_read;
        times.push_back(one_read / one_memchr);
    }
    CountTimes(state, "memchr_ms", memchr_ms, static_cast<double>(state.iterations()));
    CountTimes(state, "read_ms", read_ms, static_cast<double>(state.iterations()));
    // The middle one of the turns, as the machine may have something else to do in some.
    std::sort(times.begin(), times.end());
    state.counters["times_memchr"] = times[times.size() / 2];
    state.counters["times_memchr_least"] = times.front();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

// The most memory while a file becomes another one, in sizes of the file. The file counts once.
void MemoryOfLdifToVCard(benchmark::State& state) {
    const std::string& text = LdifOf(0);
    double read_most = 0;
    double most = 0;
    for ([[maybe_unused]] const auto _ : state) {
        ForgetMost();
        const std::size_t before = Resident("VmRSS:");
        const auto book = Read(book::ReadLdif, text);
        read_most = static_cast<double>(Resident("VmHWM:") - before);
        benchmark::DoNotOptimize(WriteVCard(*book, Dialect::VCard30));
        most = static_cast<double>(Resident("VmHWM:") - before);
    }
    CountTimes(state, "read_files", read_most, static_cast<double>(text.size()));
    CountTimes(state, "most_files", most, static_cast<double>(text.size()));
}

void Finish(benchmark::State& state, std::size_t bytes) {
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void ReadPeopleOfLdif(benchmark::State& state) {
    const std::string& text = LdifOf(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(Read(book::ReadLdif, text));
    }
    Finish(state, text.size());
}

void ReadPeopleOfVCard(benchmark::State& state) {
    const std::string& ldif = LdifOf(static_cast<std::size_t>(state.range(0)));
    const std::string text = WriteVCard(*Read(book::ReadLdif, ldif), Dialect::VCard30);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(Read(book::ReadVCard, text));
    }
    Finish(state, text.size());
}

void WritePeopleAsVCard(benchmark::State& state) {
    const auto book = Read(book::ReadLdif, LdifOf(static_cast<std::size_t>(state.range(0))));
    std::size_t bytes = 0;
    for ([[maybe_unused]] const auto _ : state) {
        bytes = WriteVCard(*book, Dialect::VCard30).size();
    }
    Finish(state, bytes);
}

// The attributes are named, so that each record is written anew.
void WritePeopleAsLdif(benchmark::State& state) {
    const auto book = Read(book::ReadLdif, LdifOf(static_cast<std::size_t>(state.range(0))));
    std::size_t bytes = 0;
    for ([[maybe_unused]] const auto _ : state) {
        bytes = WriteLdif(*book, book::LdifAttributes::Netscape).size();
    }
    Finish(state, bytes);
}

void ReadTable(Book& book, std::uint32_t file, book::Charset& charset) {
    ReadCsv(book, file, charset, {});
}

void ReadPeopleOfCsv(benchmark::State& state) {
    const std::string& ldif = LdifOf(static_cast<std::size_t>(state.range(0)));
    const std::string text = WriteCsv(*Read(book::ReadLdif, ldif), book::CsvProgram::Outlook);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(Read(ReadTable, text));
    }
    Finish(state, text.size());
}

template <book::CsvProgram program>
void WritePeopleAsCsv(benchmark::State& state) {
    const auto book = Read(book::ReadLdif, LdifOf(static_cast<std::size_t>(state.range(0))));
    std::size_t bytes = 0;
    for ([[maybe_unused]] const auto _ : state) {
        bytes = WriteCsv(*book, program).size();
    }
    Finish(state, bytes);
}

void Sizes(benchmark::internal::Benchmark* work) {
    work->RangeMultiplier(10)->Range(1000, 1'000'000)->Complexity(benchmark::oN);
    work->Unit(benchmark::kMillisecond);
}

BENCHMARK(ReadBesideMemchr)->Iterations(11)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryOfLdifToVCard)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadPeopleOfLdif)->Apply(Sizes);
BENCHMARK(ReadPeopleOfVCard)->Apply(Sizes);
BENCHMARK(WritePeopleAsVCard)->Apply(Sizes);
BENCHMARK(WritePeopleAsLdif)->Apply(Sizes);
BENCHMARK(ReadPeopleOfCsv)->Apply(Sizes);
BENCHMARK(WritePeopleAsCsv<book::CsvProgram::Thunderbird>)->Apply(Sizes);
BENCHMARK(WritePeopleAsCsv<book::CsvProgram::Google>)->Apply(Sizes);
BENCHMARK(WritePeopleAsCsv<book::CsvProgram::Outlook>)->Apply(Sizes);

}  // namespace
}  // namespace orvik::bench
