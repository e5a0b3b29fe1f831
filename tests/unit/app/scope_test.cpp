#include "app/scope.h"

#include <stdexcept>

namespace orvik {
namespace {

TEST(OnExit, EveryWayOut_RunsTheAction) {
    int runs = 0;
    {
        const OnExit action([&] { ++runs; });
        EXPECT_EQ(runs, 0);
    }
    EXPECT_EQ(runs, 1);
    EXPECT_THROW(
        {
            const OnExit action([&] { ++runs; });
            throw std::runtime_error("out");
        },
        std::runtime_error);
    EXPECT_EQ(runs, 2);
}

TEST(OnFailure, Exception_RunsTheAction) {
    int runs = 0;
    EXPECT_THROW(
        {
            const OnFailure action([&] { ++runs; });
            throw std::runtime_error("out");
        },
        std::runtime_error);
    EXPECT_EQ(runs, 1);
}

TEST(OnFailure, NormalWayOut_DoesNothing) {
    int runs = 0;
    {
        const OnFailure action([&] { ++runs; });
    }
    EXPECT_EQ(runs, 0);
}

// An exception that was under way before is none of this block's.
TEST(OnFailure, NormalWayOutWhileUnwinding_DoesNothing) {
    int runs = 0;
    EXPECT_THROW(
        {
            const OnExit unwinding([&] { const OnFailure action([&] { ++runs; }); });
            throw std::runtime_error("out");
        },
        std::runtime_error);
    EXPECT_EQ(runs, 0);
}

TEST(Mark, Flag_IsSetAsLongAsItLives) {
    bool flag = false;
    {
        const Mark mark(flag);
        EXPECT_TRUE(flag);
    }
    EXPECT_FALSE(flag);
}

}  // namespace
}  // namespace orvik
