// How much memory the process takes.

#pragma once

#include <cstddef>
#include <fstream>
#include <string>
#include <string_view>

#include <malloc.h>

namespace orvik::bench {

// Bytes in memory, now (VmRSS:) or the most since ForgetMost (VmHWM:).
inline std::size_t Resident(std::string_view field) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::size_t kilobytes = 0;
        if (word == field && status >> kilobytes) {
            return kilobytes * 1024;
        }
    }
    return 0;
}

inline void ForgetMost() {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5;
}

}  // namespace orvik::bench
