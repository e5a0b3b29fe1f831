// How often each handler ran.

#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace orvik::depth {

class Tally {
 public:
    // A handler that is to run; it counts as one that never did until then.
    void Expect(std::string_view handler) { Find(handler); }
    void Count(std::string_view handler) { ++Find(handler); }
    [[nodiscard]] std::size_t Of(std::string_view handler) const {
        const auto found = runs_.find(handler);
        return found == runs_.end() ? 0 : found->second;
    }
    void Add(const Tally& other) {
        for (const auto& [handler, runs] : other.runs_) {
            Find(handler) += runs;
        }
    }
    [[nodiscard]] const auto& All() const { return runs_; }

 private:
    std::size_t& Find(std::string_view handler) {
        const auto found = runs_.find(handler);
        return found != runs_.end() ? found->second : runs_[std::string(handler)];
    }

    std::map<std::string, std::size_t, std::less<>> runs_;
};

}  // namespace orvik::depth
