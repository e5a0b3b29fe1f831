// Runs the program at depth: steps by chance, each checked, in rounds that begin anew.
//
//   orvik-depth [--steps N] [--seed S] [--round R]
//
// Says how often each handler ran and how many steps changed the text. Fails if a handler ran in
// less than half a percent of the steps, or if less than half of them changed the text, where there
// were enough steps to tell. --round runs one round alone, as a check that failed names it; with
// ORVIK_PRINT_SCENARIO set in the environment each statement of it is printed.

#include <algorithm>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "depth/run.h"

namespace orvik::depth {
namespace {

constexpr std::size_t kStepsInRound = 2000;
// With fewer steps a handler may be missing by chance.
constexpr std::size_t kMeaningful = 20000;

struct Place {
    std::uint64_t Seed = 1;
    std::size_t Round = 0;
    const Run* Now = nullptr;
};
Place place;  // NOLINT: for the signal that a failed check raises

extern "C" void TellPlace(int /*signal*/) {
    std::fprintf(stderr,
                 "seed %llu, round %zu, step %zu, in all %zu: %s\n",
                 static_cast<unsigned long long>(place.Seed),
                 place.Round,
                 place.Now == nullptr ? 0 : place.Now->Told().Steps,
                 place.Round * kStepsInRound + (place.Now == nullptr ? 0 : place.Now->Told().Steps),
                 place.Now == nullptr ? "" : place.Now->Doing().substr(0, 2000).c_str());
}

std::size_t TakeNumber(std::string_view text) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) {
        std::fprintf(stderr, "not a number: %s\n", std::string(text).c_str());
        std::exit(2);
    }
    return number;
}

Figures RunRound(std::uint64_t seed, std::size_t round, std::size_t steps) {
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
    Run run(seed * kSpread + round);
    place.Round = round;
    place.Now = &run;
    for (std::size_t i = 0; i < steps; ++i) {
        run.Take();
    }
    place.Now = nullptr;
    return run.Told();
}

bool Print(const Figures& all, double seconds) {
    bool enough = true;
    const auto steps = static_cast<double>(all.Steps);
    for (const auto& [handler, runs] : all.Handlers.All()) {
        const double percent = 100.0 * static_cast<double>(runs) / steps;
        const bool few = runs * 1000 < Acts::kLeastPerThousand * all.Steps;
        std::printf("%9zu  %5.2f %%  %s%s\n", runs, percent, handler.c_str(), few ? "  (!)" : "");
        enough = enough && !few;
    }
    const double changing = 100.0 * static_cast<double>(all.Changing) / steps;
    const double empty = 100.0 * static_cast<double>(all.Empty) / steps;
    std::printf("%zu steps, %.0f a second; %.1f %% changed the text, %.1f %% began with none\n",
                all.Steps,
                steps / seconds,
                changing,
                empty);
    const bool meaningful = all.Steps >= kMeaningful;
    if (meaningful && !enough) {
        std::fprintf(stderr, "a handler ran in less than half a percent of the steps\n");
    }
    if (meaningful && changing < 50) {
        std::fprintf(stderr, "less than half of the steps changed the text\n");
    }
    return !meaningful || (enough && changing >= 50);
}

int Main(int argc, char** argv) {
    std::size_t steps = kMeaningful;
    std::optional<std::size_t> only;
    for (int i = 1; i < argc; ++i) {
        const std::string_view option = argv[i];
        if (i + 1 == argc || (option != "--steps" && option != "--seed" && option != "--round")) {
            std::fprintf(stderr, "usage: orvik-depth [--steps N] [--seed S] [--round R]\n");
            return 2;
        }
        const std::size_t number = TakeNumber(argv[++i]);
        if (option == "--steps") {
            steps = number;
        } else if (option == "--seed") {
            place.Seed = number;
        } else {
            only = number;
        }
    }
    std::signal(SIGABRT, &TellPlace);
    const auto start = std::chrono::steady_clock::now();
    Figures all;
    const auto add = [&](const Figures& figures) {
        all.Handlers.Add(figures.Handlers);
        all.Steps += figures.Steps;
        all.Changing += figures.Changing;
        all.Empty += figures.Empty;
    };
    if (only) {
        add(RunRound(place.Seed, *only, kStepsInRound));
    }
    for (std::size_t round = 0; !only && all.Steps < steps; ++round) {
        add(RunRound(place.Seed, round, std::min(kStepsInRound, steps - all.Steps)));
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    return Print(all, seconds.count()) ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace orvik::depth

int main(int argc, char** argv) {
    try {
        return orvik::depth::Main(argc, argv);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
