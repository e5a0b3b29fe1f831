// Run-time failures in expectations.

#pragma once

#include "app/run_time_error.h"

namespace orvik::test {

// The number of the run-time failure that a statement ends with, 0 if it ends well.
//   EXPECT_EQ(FailureOf([&] { CutEnd(text, 2); }), 5);
template <class Statement>
[[nodiscard]] int FailureOf(Statement&& statement) {
    try {
        statement();
    } catch (const RunTimeError& failure) {
        return failure.Number();
    }
    return 0;
}

}  // namespace orvik::test
