// How long the processor works.

#pragma once

#include <ctime>

namespace orvik::bench {

// What a clock of the system says, in milliseconds: of the process, or of this thread.
inline double MillisecondsOn(clockid_t clock) {
    std::timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// The processor time of a function, in milliseconds.
template <class Work>
double Milliseconds(const Work& work) {
    const double before = MillisecondsOn(CLOCK_PROCESS_CPUTIME_ID);
    work();
    return MillisecondsOn(CLOCK_PROCESS_CPUTIME_ID) - before;
}

}  // namespace orvik::bench
