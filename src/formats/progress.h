// How long conversions report what they have done.

#pragma once

#include <cstddef>

namespace orvik {

class Progress {
 public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    Progress(Progress&&) = delete;
    Progress& operator=(Progress&&) = delete;
    virtual ~Progress() = default;

    // The whole percentage has changed (0 to 100).
    virtual void Percent(int percent) = 0;
    // A record is finished: a good moment to repaint.
    virtual void Record() = 0;
};

// Tells which whole percentages a walk over positions 1 to total passes, in order, each once, at no
// cost between two of them. A percentage is the whole part of position / total * 100 in double
// precision, so 29 of 100 is 28: the product falls just short.
class PercentMeter {
 public:
    PercentMeter(Progress& progress, std::size_t total) : progress_(progress), total_(total) {}

    // The walk has arrived at position, which never goes back.
    void Reach(std::size_t position) {
        while (next_ <= position && next_ <= total_) {
            Report();
        }
    }

 private:
    [[nodiscard]] int PercentAt(std::size_t position) const;
    void Report();

    Progress& progress_;
    std::size_t total_;
    std::size_t next_ = 1;  // where the percentage changes next
};

}  // namespace orvik
