// The measure itself: loops that take the square of a text's length are found, wherever they hide.

#include <cstddef>
#include <functional>
#include <numeric>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include "work/work_limits.h"

namespace orvik::test {
namespace {

constexpr std::size_t kLetters = 32000;
// A book of that size has this many entries.
constexpr std::size_t kEntries = 400;

// What loops compute, so that the compiler keeps them.
volatile std::size_t kept = 0;

Work Count(const std::function<void(std::string& text)>& loop) {
    std::string text(kLetters, 'x');
    StartCounting();
    loop(text);
    return WorkDone();
}

// Whether a loop is found as one that does too much.
bool IsFound(const std::function<void(std::string& text)>& loop) {
    return !Excess(kLetters, Count(loop)).empty();
}

TEST(PlantedLoopsTest, OneInsideAnotherIsFound) {
    EXPECT_TRUE(IsFound([](const std::string& text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            for (std::size_t j = i; j < text.size(); ++j) {
                kept = kept + static_cast<std::size_t>(text[i] == text[j]);
            }
        }
    }));
    // Only for each entry, and only over what stands before it.
    EXPECT_TRUE(IsFound([](const std::string& text) {
        for (std::size_t i = 0; i < text.size(); i += text.size() / kEntries) {
            for (std::size_t j = 0; j < i; ++j) {
                kept = kept + static_cast<std::size_t>(text[j]);
            }
        }
    }));
    // And one that reads nothing.
    EXPECT_TRUE(IsFound([](const std::string& text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                kept = j;
            }
        }
    }));
}

TEST(PlantedLoopsTest, OneInTheStandardLibraryIsFound) {
    const std::vector<std::function<void(std::string & text)>> loops = {
        [](std::string& text) {
            while (!text.empty()) {
                text.erase(0, 1);
            }
        },
        [](std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                text.insert(0, "y");
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = text.find('y');
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = text.find("yx");
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = text.rfind('y');
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = text.find_first_not_of('x');
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = std::string_view(text).find_first_of("yz");
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = text.substr(i).size();
            }
        },
        [](const std::string& text) {
            const std::string other = text;
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = static_cast<std::size_t>(text == other);
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = std::string_view(text.c_str()).size();
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = std::hash<std::string>()(text);
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = std::string(text.size(), 'y').size();
            }
        },
        [](const std::string& text) {
            const std::vector<char> bytes(text.begin(), text.end());
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = std::vector<char>(bytes).size();
            }
        },
        [](const std::string& text) {
            for (std::size_t i = 0; i < kEntries; ++i) {
                kept = std::accumulate(text.begin(), text.end(), std::size_t{0});
            }
        },
    };
    for (std::size_t i = 0; i < loops.size(); ++i) {
        EXPECT_TRUE(IsFound(loops[i])) << "loop " << i;
    }
}

TEST(PlantedLoopsTest, ATextOfTheSquareOfTheLengthIsFound) {
    EXPECT_TRUE(IsFound([](const std::string& text) {
        std::string all;
        for (std::size_t i = 0; i < kEntries; ++i) {
            all += text;
        }
        kept = all.size();
    }));
}

TEST(PlantedLoopsTest, OneOverTheTextIsNone) {
    EXPECT_FALSE(IsFound([](std::string& text) {
        std::string all;
        for (const char c : text) {
            all += c;
        }
        text += all;
        kept = text.find('y');
    }));
}

}  // namespace
}  // namespace orvik::test
