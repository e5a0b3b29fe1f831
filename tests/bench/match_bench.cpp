// Duplicates: finding and merging them and sorting what is left, beside reading the same book.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "bench/processor_time.h"
#include "book/address_book.h"
#include "book/charset.h"
#include "book/match/matches.h"
#include "book/match/merge_records.h"
#include "book/order.h"
#include "book/read_vcard.h"

namespace orvik::bench {
namespace {

using book::Book;

// A person of an address book of today, 250 bytes. Every fifth one is there twice, every tenth with
// less, and every twentieth shares an address.
void AppendCard(std::size_t number, bool is_short, std::string& to) {
    constexpr std::array<std::string_view, 8> kFirst = {
        "Mary", "John", "Anne-Marie", "Li", "F\xC3\xA1tima", "Oluwaseun", "Jo", "Alexander"};
    constexpr std::array<std::string_view, 7> kLast = {"M\xC3\xBCller",
                                                       "O'Brien",
                                                       "Ng",
                                                       "Garc\xC3\xAD"
                                                       "a",
                                                       "Papadopoulos",
                                                       "Lee",
                                                       "Berg"};
    const std::string digits = std::to_string(number);
    const std::string given(kFirst[number % kFirst.size()]);
    const std::string family =
        std::string(kLast[number % kLast.size()]) + "-" + std::to_string(number / 3);
    to += "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + std::to_string(to.size()) + "\r\nN:" + family +
          ";" + given + ";;;\r\nFN:" + given + " " + family + "\r\nEMAIL;TYPE=INTERNET:person" +
          digits + "@mail.example\r\n";
    if (number % 20 == 0) {
        to += "EMAIL:firm" + std::to_string(number / 60) + "@firm.example\r\n";
    }
    if (!is_short) {
        to += "TEL;TYPE=CELL:+1 555 " + digits + "\r\nADR;TYPE=HOME:;;" + digits +
              " Main Street;Springfield;IL;62701;US\r\nORG:The choir of the town\r\n"
              "NOTE:met at the meeting of May\r\n";
    }
    to += "END:VCARD\r\n";
}

enum class Shape : std::uint8_t { Usual, AllEqual, OneAddress, OneName };

std::string CardsOf(std::size_t people, Shape shape) {
    std::string text;
    for (std::size_t i = 0; i < people; ++i) {
        const std::string digits = std::to_string(i);
        if (shape == Shape::Usual) {
            AppendCard(i - (i % 5 == 4 ? 1 : 0), i % 10 == 4, text);
            continue;
        }
        text += "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:" +
                (shape == Shape::OneAddress ? "Person " + digits : "Ben Berg") + "\r\nEMAIL:" +
                (shape == Shape::OneName ? "ben" + digits + "@mail.example" : "info@firm.example") +
                "\r\nEND:VCARD\r\n";
    }
    return text;
}

std::unique_ptr<Book> ReadCards(const std::string& text) {
    auto book = std::make_unique<Book>();
    const auto file = book->AddSource(std::make_unique<book::Source>("bench", text));
    book::Charset charset(book->SourceAt(file), {});
    ReadVCard(*book, file, charset);
    return book;
}

// How many times as long as reading the rest takes.
void CleanBesideReading(benchmark::State& state, Shape shape) {
    const std::string text = CardsOf(static_cast<std::size_t>(state.range(0)), shape);
    double read_ms = 0;
    double find_ms = 0;
    double merge_ms = 0;
    double sort_ms = 0;
    for ([[maybe_unused]] const auto _ : state) {
        std::unique_ptr<Book> book;
        book::Matches found;
        read_ms += Milliseconds([&] { book = ReadCards(text); });
        find_ms += Milliseconds([&] { found = book::FindMatches(*book, false); });
        merge_ms += Milliseconds([&] {
            benchmark::DoNotOptimize(
                book::MergeRecords(*book, book::GroupsOf(found.Lines, book->Contacts.size())));
        });
        sort_ms += Milliseconds([&] { book::SortBook(*book, book::SortBy::Family, "en"); });
    }
    const auto count = static_cast<double>(state.iterations());
    state.counters["read_ms"] = read_ms / count;
    state.counters["find_ms"] = find_ms / count;
    state.counters["merge_ms"] = merge_ms / count;
    state.counters["sort_ms"] = sort_ms / count;
    state.counters["times_read"] = (find_ms + merge_ms + sort_ms) / read_ms;
    state.SetComplexityN(state.range(0));
}

void CleanPeople(benchmark::State& state) {
    CleanBesideReading(state, Shape::Usual);
}
void CleanEqualPeople(benchmark::State& state) {
    CleanBesideReading(state, Shape::AllEqual);
}
void CleanPeopleOfOneAddress(benchmark::State& state) {
    CleanBesideReading(state, Shape::OneAddress);
}
void CleanPeopleOfOneName(benchmark::State& state) {
    CleanBesideReading(state, Shape::OneName);
}

void Sizes(benchmark::internal::Benchmark* work) {
    work->RangeMultiplier(10)->Range(10'000, 1'000'000)->Complexity(benchmark::oNLogN);
    work->Iterations(1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(CleanPeople)->Apply(Sizes);
BENCHMARK(CleanEqualPeople)->Apply(Sizes);
BENCHMARK(CleanPeopleOfOneAddress)->Apply(Sizes);
BENCHMARK(CleanPeopleOfOneName)->Apply(Sizes);

}  // namespace
}  // namespace orvik::bench
