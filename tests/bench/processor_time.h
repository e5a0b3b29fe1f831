// How long the processor works.

#pragma once

#include <ctime>

namespace orvik::bench {

// The processor time of a function, in milliseconds.
template <class Work>
double Milliseconds(const Work& work) {
    const auto now = [] {
        std::timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double before = now();
    work();
    return now() - before;
}

}  // namespace orvik::bench
