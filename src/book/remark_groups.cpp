#include "book/remark_groups.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace orvik::book {
namespace {

constexpr std::array kOrder = {What::Lost, What::Doubtful, What::Skipped, What::Carried};

std::size_t RankOf(What kind) {
    return static_cast<std::size_t>(std::find(kOrder.begin(), kOrder.end(), kind) - kOrder.begin());
}

// Which group each remark is in, as the groups come.
class Grouping {
 public:
    std::vector<std::uint32_t>& Of(const Remark& remark) {
        const bool carried = remark.Kind == What::Carried;
        std::size_t& number =
            carried ? fields_[remark.Field]
                    : reasons_[RankOf(remark.Kind)][static_cast<std::size_t>(remark.Why)];
        if (number == 0) {
            groups_.push_back({remark.Kind,
                               carried ? Reason::None : remark.Why,
                               carried ? remark.Field : std::string_view(),
                               {}});
            number = groups_.size();
        }
        return groups_[number - 1].Remarks;
    }

    [[nodiscard]] std::vector<RemarkGroup> Take() {
        std::stable_sort(
            groups_.begin(), groups_.end(), [](const RemarkGroup& one, const RemarkGroup& other) {
                return RankOf(one.Kind) < RankOf(other.Kind);
            });
        return std::move(groups_);
    }

 private:
    using Reasons = std::array<std::size_t, static_cast<std::size_t>(Reason::kCount)>;

    // Numbers count from 1.
    std::vector<RemarkGroup> groups_;
    std::array<Reasons, kOrder.size()> reasons_{};
    std::unordered_map<std::string_view, std::size_t> fields_;
};

}  // namespace

std::vector<RemarkGroup> GroupRemarks(const Report& told) {
    Grouping groups;
    for (std::size_t i = 0; i < told.Remarks().size(); ++i) {
        const Remark& one = told.Remarks()[i];
        if (RankOf(one.Kind) < kOrder.size()) {
            groups.Of(one).push_back(static_cast<std::uint32_t>(i));
        }
    }
    return groups.Take();
}

}  // namespace orvik::book
