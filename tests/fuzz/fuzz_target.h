// What every fuzz target has: its entry point and its checks.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "app/run_time_error.h"

// Runs the target on one input. Returns 0; a check that fails ends the program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace orvik::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline void Check(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

// The number of the run-time failure that a statement ends with, 0 if it ends well.
template <class Statement>
int FailureOf(Statement&& statement) {
    try {
        statement();
    } catch (const RunTimeError& failure) {
        return failure.Number();
    }
    return 0;
}

}  // namespace orvik::fuzz
