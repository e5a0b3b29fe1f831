// Finding people in mail beside a plain pass of GMime over the same bytes, which parses each
// message and decodes each part, and how much memory the finding takes.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>
#include <gmime/gmime.h>
#include <unistd.h>

#include "bench/mail.h"
#include "bench/memory.h"
#include "bench/processor_time.h"
#include "book/mail/mail_search.h"
#include "platform/system_files.h"

namespace orvik::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLong = 100UL * 1024 * 1024;

// A folder that goes when the program ends.
class Shelf {
 public:
    Shelf() : folder_(fs::temp_directory_path() / ("orvik-mail-" + std::to_string(getpid()))) {
        fs::create_directories(folder_);
    }
    Shelf(const Shelf&) = delete;
    Shelf& operator=(const Shelf&) = delete;
    Shelf(Shelf&&) = delete;
    Shelf& operator=(Shelf&&) = delete;
    ~Shelf() { fs::remove_all(folder_); }

    // An mbox of so many bytes, made once.
    std::string Mbox(std::size_t bytes, std::string (*make)(std::size_t) = MessageOf) {
        const fs::path path =
            folder_ / ((make == MessageOf ? "mixed" : "letters") + std::to_string(bytes));
        if (!fs::exists(path)) {
            std::ofstream file(path, std::ios::binary);
            std::size_t written = 0;
            for (std::size_t i = 0; written < bytes; ++i) {
                const std::string message = MarkerOf(i) + make(i) + "\n";
                file << message;
                written += message.size();
            }
        }
        return path;
    }

    // A Maildir of so many messages.
    std::string Maildir(std::size_t messages) {
        const fs::path path = folder_ / ("maildir" + std::to_string(messages));
        if (!fs::exists(path)) {
            for (const char* const part : {"cur", "new", "tmp"}) {
                fs::create_directories(path / part);
            }
            for (std::size_t i = 0; i < messages; ++i) {
                std::ofstream(path / "cur" / (std::to_string(i) + ":2,S"), std::ios::binary)
                    << MessageOf(i);
            }
        }
        return path;
    }

 private:
    fs::path folder_;
};

Shelf& Mail() {
    static Shelf shelf;
    return shelf;
}

std::size_t PeopleIn(const std::string& path) {
    SystemFiles files;
    book::MailSearch search(files,
                            {},
                            {[](const book::SearchNote&) {},
                             [](const std::string&) {},
                             [](std::uint64_t, std::uint64_t) {}});
    book::SearchMail(files, {path}, {}, search);
    return search.Found().All().size();
}

void DecodePart(GMimeObject* /*parent*/, GMimeObject* part, void* nowhere) {
    if (GMIME_IS_PART(part) != 0) {
        if (GMimeDataWrapper* const content = g_mime_part_get_content(GMIME_PART(part))) {
            g_mime_data_wrapper_write_to_stream(content, GMIME_STREAM(nowhere));
        }
    }
}

// What any program would do first with this library.
void PlainPass(const std::string& path) {
    g_mime_init();
    GMimeStream* const stream = g_mime_stream_fs_open(path.c_str(), 0, 0, nullptr);
    GMimeStream* const nowhere = g_mime_stream_null_new();
    GMimeParser* const parser = g_mime_parser_new_with_stream(stream);
    g_mime_parser_set_format(parser, GMIME_FORMAT_MBOX);
    while (g_mime_parser_eos(parser) == 0) {
        GMimeMessage* const message = g_mime_parser_construct_message(parser, nullptr);
        if (message == nullptr) {
            break;
        }
        g_mime_message_foreach(message, &DecodePart, nowhere);
        g_object_unref(message);
    }
    g_object_unref(parser);
    g_object_unref(nowhere);
    g_object_unref(stream);
}

// One and the other in turn, so that both meet the same machine.
void FindBesidePlainPass(benchmark::State& state, const std::string& path) {
    PlainPass(path);
    double plain_ms = 0;
    double find_ms = 0;
    std::vector<double> times;
    std::size_t people = 0;
    for ([[maybe_unused]] const auto _ : state) {
        const double plain = Milliseconds([&] { PlainPass(path); });
        const double find = Milliseconds([&] { people = PeopleIn(path); });
        plain_ms += plain;
        find_ms += find;
        times.push_back(find / plain);
    }
    const auto turns = static_cast<double>(state.iterations());
    state.counters["plain_ms"] = plain_ms / turns;
    state.counters["find_ms"] = find_ms / turns;
    // The middle one of the turns, as the machine may have something else to do in some.
    std::sort(times.begin(), times.end());
    state.counters["times_plain"] = times[times.size() / 2];
    state.counters["people"] = static_cast<double>(people);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kLong));
}

void FindInMixedMail(benchmark::State& state) {
    FindBesidePlainPass(state, Mail().Mbox(kLong));
}

void FindInLetters(benchmark::State& state) {
    FindBesidePlainPass(state, Mail().Mbox(kLong, &LetterOf));
}

void CountMemory(benchmark::State& state, const std::string& path) {
    std::size_t people = 0;
    std::size_t most = 0;
    for ([[maybe_unused]] const auto _ : state) {
        ForgetMost();
        people = PeopleIn(path);
        most = Resident("VmHWM:");
    }
    constexpr double kMegabyte = 1024 * 1024;
    state.counters["most_MiB"] = static_cast<double>(most) / kMegabyte;
    state.counters["people"] = static_cast<double>(people);
}

// The argument is the length of the file in MiB.
void MemoryOfMbox(benchmark::State& state) {
    CountMemory(state, Mail().Mbox(static_cast<std::size_t>(state.range(0)) * 1024 * 1024));
}

void MemoryOfMaildir(benchmark::State& state) {
    CountMemory(state, Mail().Maildir(static_cast<std::size_t>(state.range(0))));
}

BENCHMARK(FindInMixedMail)->Iterations(7)->Unit(benchmark::kMillisecond);
BENCHMARK(FindInLetters)->Iterations(7)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryOfMbox)->Arg(100)->Arg(2048)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryOfMaildir)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvik::bench
