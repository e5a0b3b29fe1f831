#include "formats/progress.h"

#include <array>
#include <random>
#include <vector>

namespace orvik {
namespace {

class Recorder : public Progress {
 public:
    void Percent(int percent) override { percents.push_back(percent); }
    void Record() override { FAIL() << "A meter knows no records."; }

    std::vector<int> percents;
};

int PercentAt(std::size_t j, std::size_t p) {
    return static_cast<int>(static_cast<double>(j) / static_cast<double>(p) * 100);
}

// What a walk that computes the percentage at every single position shows.
std::vector<int> PercentsLiterally(std::size_t p) {
    std::vector<int> shown;
    for (std::size_t j = 1; j <= p; ++j) {
        const int percent = PercentAt(j, p);
        if (shown.empty() || shown.back() != percent) {
            shown.push_back(percent);
        }
    }
    return shown;
}

TEST(PercentMeter, OnePosition_Shows100) {
    Recorder shown;
    PercentMeter(shown, 1).Reach(1);
    EXPECT_EQ(shown.percents, std::vector{100});
}

TEST(PercentMeter, ThreePositions_ShowWholeParts) {
    Recorder shown;
    PercentMeter(shown, 3).Reach(3);
    EXPECT_EQ(shown.percents, (std::vector{33, 66, 100}));
}

TEST(PercentMeter, Position29Of100_Shows28Again) {
    Recorder shown;
    PercentMeter meter(shown, 100);
    meter.Reach(28);
    EXPECT_EQ(shown.percents.back(), 28);
    meter.Reach(29);
    EXPECT_EQ(shown.percents.back(), 28);
    meter.Reach(30);
    EXPECT_EQ(shown.percents.back(), 30);
}

TEST(PercentMeter, FirstOfMany_ShowsZero) {
    Recorder shown;
    PercentMeter(shown, 1000).Reach(1);
    EXPECT_EQ(shown.percents, std::vector{0});
}

TEST(PercentMeter, SamePositionAgain_ShowsNothingMore) {
    Recorder shown;
    PercentMeter meter(shown, 10);
    meter.Reach(5);
    const std::vector<int> before = shown.percents;
    meter.Reach(5);
    EXPECT_EQ(shown.percents, before);
}

TEST(PercentMeter, PositionZero_ShowsNothing) {
    Recorder shown;
    PercentMeter(shown, 10).Reach(0);
    EXPECT_TRUE(shown.percents.empty());
}

TEST(PercentMeter, BeyondTotal_EndsAt100) {
    Recorder shown;
    PercentMeter(shown, 2).Reach(1000);
    EXPECT_EQ(shown.percents, (std::vector{50, 100}));
}

TEST(PercentMeter, NoPositions_ShowsNothing) {
    Recorder shown;
    PercentMeter(shown, 0).Reach(5);
    EXPECT_TRUE(shown.percents.empty());
}

TEST(PercentMeter, OneStride_ShowsEveryPercentageOnTheWay) {
    for (std::size_t p = 1; p <= 3000 && !HasFailure(); ++p) {
        Recorder shown;
        PercentMeter(shown, p).Reach(p);
        EXPECT_EQ(shown.percents, PercentsLiterally(p)) << "p = " << p;
    }
}

TEST(PercentMeter, EverySingleStep_ShowsThePercentageOfItsPosition) {
    for (std::size_t p = 1; p <= 700 && !HasFailure(); ++p) {
        Recorder shown;
        PercentMeter meter(shown, p);
        for (std::size_t j = 1; j <= p; ++j) {
            meter.Reach(j);
            ASSERT_EQ(shown.percents.back(), PercentAt(j, p)) << "p = " << p << ", j = " << j;
        }
        EXPECT_EQ(shown.percents, PercentsLiterally(p)) << "p = " << p;
    }
}

TEST(PercentMeter, RandomStrides_ShowThePercentageOfTheirPosition) {
    std::mt19937 random(7);  // NOLINT: the same strides each time
    for (int round = 0; round < 200 && !HasFailure(); ++round) {
        const std::size_t p = 1 + random() % 20000;
        Recorder shown;
        PercentMeter meter(shown, p);
        for (std::size_t j = 1; j <= p; j += 1 + random() % 300) {
            meter.Reach(j);
            ASSERT_EQ(shown.percents.back(), PercentAt(j, p)) << "p = " << p << ", j = " << j;
        }
        meter.Reach(p);
        EXPECT_EQ(shown.percents, PercentsLiterally(p)) << "p = " << p;
    }
}

// The first position behind last whose percentage is higher than that of last.
std::size_t NextChange(std::size_t last, std::size_t p) {
    std::size_t low = last + 1;
    std::size_t high = p;
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (PercentAt(middle, p) > PercentAt(last, p)) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    return low;
}

TEST(PercentMeter, HugeTotals_ChangeExactlyAtTheirPositions) {
    for (const std::size_t p : std::to_array<std::size_t>({1'000'000,
                                                           1'234'567,
                                                           16'777'217,
                                                           1'000'000'007,
                                                           4'294'967'295,
                                                           4'294'967'297,
                                                           1'000'000'000'039,
                                                           281'474'976'710'657})) {
        Recorder shown;
        PercentMeter meter(shown, p);
        meter.Reach(1);
        for (std::size_t j = NextChange(1, p); j < p; j = NextChange(j, p)) {
            meter.Reach(j - 1);
            ASSERT_EQ(shown.percents.back(), PercentAt(j - 1, p)) << "p = " << p << ", j = " << j;
            meter.Reach(j);
            ASSERT_EQ(shown.percents.back(), PercentAt(j, p)) << "p = " << p << ", j = " << j;
        }
        meter.Reach(p);
        EXPECT_EQ(shown.percents.size(), 101U);
        EXPECT_EQ(shown.percents.back(), 100);
    }
}

}  // namespace
}  // namespace orvik
