// How long the window's thread is held when a book that is not saved is kept: it gives the text to
// the worker, and the one before to let go of it. It may take 20 milliseconds of a million entries.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "app/shared_text.h"
#include "bench/measure.h"
#include "platform/system_files.h"
#include "store/recovery_writer.h"

namespace orvik::bench {
namespace {

// Real files in a folder of their own, on the disk where people keep theirs.
class OwnFolder : public SystemFiles {
 public:
    OwnFolder() {
        if (mkdtemp(name_.data()) == nullptr) {
            std::abort();
        }
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;
    OwnFolder(OwnFolder&&) = delete;
    OwnFolder& operator=(OwnFolder&&) = delete;
    ~OwnFolder() override { std::filesystem::remove_all(name_); }
    Path StateFolder() override { return name_; }

 private:
    std::string name_ = "/var/tmp/orvik-bench-XXXXXX";
};

void KeepSnapshot(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    const Book& book = BookFor(state);
    OwnFolder files;
    RecoveryStore store(files);
    RecoveryWriter writer(store);
    RecoveryCopy seen;
    double longest = 0;
    for ([[maybe_unused]] const auto _ : state) {
        // Each change makes another text.
        SharedText text(book.native);
        const auto start = Clock::now();
        RecoveryWriter::Copies earlier(1);
        earlier.front() = std::move(seen);
        seen = {.Text = text, .Mode = "Native", .Caption = "Orvik - /b/al.ldif", .Box = text};
        writer.Keep(seen, {}, std::move(earlier));
        const std::chrono::duration<double> held = Clock::now() - start;
        state.SetIterationTime(held.count());
        longest = std::max(longest, held.count());
    }
    state.counters["longest_ms"] = longest * 1000;
    CountBytes(state, book.native);
}

// From the change to the disk, by the worker.
void WriteSnapshot(benchmark::State& state) {
    const Book& book = BookFor(state);
    OwnFolder files;
    RecoveryStore store(files);
    const RecoveryCopy copy{.Text = book.native, .Mode = "Native", .Caption = "Orvik"};
    for ([[maybe_unused]] const auto _ : state) {
        store.Keep(copy);
    }
    CountBytes(state, book.native);
}

BENCHMARK(KeepSnapshot)
    ->Arg(1'000'000)
    ->Iterations(50)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(WriteSnapshot)
    ->Arg(1'000'000)
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace orvik::bench
