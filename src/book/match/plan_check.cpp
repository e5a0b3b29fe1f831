#include "book/match/plan_check.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "app/printable.h"
#include "app/text.h"

namespace orvik::book {
namespace {

// Sets of records that become one.
class Joined {
 public:
    explicit Joined(std::size_t records) : root_(records) {
        std::iota(root_.begin(), root_.end(), 0U);
    }

    std::uint32_t Find(std::uint32_t record) {
        while (root_[record] != record) {
            root_[record] = root_[root_[record]];
            record = root_[record];
        }
        return record;
    }

    void Join(std::uint32_t one, std::uint32_t other) {
        const std::uint32_t left = Find(one);
        const std::uint32_t right = Find(other);
        root_[std::max(left, right)] = std::min(left, right);
    }

 private:
    std::vector<std::uint32_t> root_;
};

class PlanChecker {
 public:
    PlanChecker(const Plan& plan, const Book& book)
        : plan_(plan),
          book_(book),
          merged_in_(book.Contacts.size(), 0),
          named_in_(book.Contacts.size(), 0) {
        found_.Errors = plan.Errors;
    }

    CheckedPlan Check() && {
        if (CheckSources()) {
            CheckLines();
        }
        std::stable_sort(
            found_.Errors.begin(),
            found_.Errors.end(),
            [](const PlanError& one, const PlanError& other) { return one.Line < other.Line; });
        return std::move(found_);
    }

 private:
    void CheckLines() {
        FindPlaces();
        std::vector<MatchLine>& lines = found_.Lines;
        lines.reserve(plan_.Lines.size());
        for (const PlannedLine& line : plan_.Lines) {
            lines.push_back({line.Do, Tier::Plan, RecordsOf(line), line.Comment});
            CheckKinds(line, lines.back());
        }
        CheckApart(lines);
        if (found_.Errors.empty()) {
            found_.Groups = GroupsOf(lines, book_.Contacts.size());
        }
    }

    // Whether they are what the plan was made for.
    bool CheckSources() {
        const std::size_t before = found_.Errors.size();
        for (std::uint32_t i = 0; i < book_.SourceCount(); ++i) {
            files_.emplace(book_.SourceAt(i).Name(), i);
        }
        for (const PlanSource& source : plan_.Sources) {
            const auto file = files_.find(source.Name);
            if (file == files_.end()) {
                Fail(source.Line, source.Name, " was not read");
            } else if (Sha256(book_.SourceAt(file->second).Bytes()) != ToLower(source.Sum)) {
                Fail(source.Line, source.Name, " is not what it was when the plan was made");
            }
        }
        return found_.Errors.size() == before;
    }

    static std::uint64_t PlaceOf(std::uint32_t file, std::uint32_t line) {
        return std::uint64_t{file} << 32U | line;
    }

    void FindPlaces() {
        places_.reserve(book_.Contacts.size());
        for (std::uint32_t i = 0; i < book_.Contacts.size(); ++i) {
            const Origin& from = book_.Contacts[i].From;
            if (from.Lines == 0) {
                continue;
            }
            const auto [place, is_new] = places_.try_emplace(PlaceOf(from.File, from.Line), i);
            if (!is_new) {
                place->second = std::nullopt;
            }
        }
    }

    std::vector<std::uint32_t> RecordsOf(const PlannedLine& line) {
        std::vector<std::uint32_t> records;
        records.reserve(line.Places.size());
        for (const PlanPlace& place : line.Places) {
            const auto file = files_.find(place.File);
            if (file == files_.end()) {
                Fail(line.Line, place.File, " is no source of the plan");
                continue;
            }
            const auto found = places_.find(PlaceOf(file->second, place.Line));
            const std::string name = place.File + ":" + std::to_string(place.Line);
            if (found == places_.end()) {
                Fail(line.Line, name, ": no record begins on this line");
            } else if (!found->second) {
                Fail(line.Line, name, ": several records begin on this line");
            } else if (std::exchange(named_in_[*found->second], line.Line) == line.Line) {
                Fail(line.Line, name, ": the line names this record twice");
            } else {
                records.push_back(*found->second);
            }
        }
        return records;
    }

    void CheckKinds(const PlannedLine& line, const MatchLine& records) {
        if (line.Do != Action::Merge) {
            return;
        }
        for (const std::uint32_t record : records.Records) {
            if (book_.Contacts[record].Kind != book_.Contacts[records.Records.front()].Kind) {
                Fail(line.Line, {}, "a person and a list cannot become one");
                return;
            }
            merged_in_[record] = merged_in_[record] == 0 ? line.Line : merged_in_[record];
        }
    }

    void CheckApart(const std::vector<MatchLine>& lines) {
        Joined joined(book_.Contacts.size());
        for (const MatchLine& line : lines) {
            for (const std::uint32_t record : line.Records) {
                if (line.Do == Action::Merge) {
                    joined.Join(line.Records.front(), record);
                }
            }
        }
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].Do != Action::Keep) {
                continue;
            }
            std::unordered_map<std::uint32_t, std::uint32_t> there;
            for (const std::uint32_t record : lines[i].Records) {
                const auto [place, is_new] = there.try_emplace(joined.Find(record), record);
                if (!is_new && place->second != record) {
                    Fail(plan_.Lines[i].Line,
                         {},
                         "this keeps apart what line " +
                             std::to_string(
                                 std::max(merged_in_[place->second], merged_in_[record])) +
                             " merges");
                    break;
                }
            }
        }
    }

    void Fail(std::size_t line, const std::string& name, const std::string& text) {
        found_.Errors.push_back({line, Printable(name) + text});
    }

    const Plan& plan_;
    const Book& book_;
    std::unordered_map<std::string, std::uint32_t> files_;
    std::unordered_map<std::uint64_t, std::optional<std::uint32_t>> places_;
    // The first line that merges a record, 0 for none.
    std::vector<std::size_t> merged_in_;
    // The last line that names a record, 0 for none.
    std::vector<std::size_t> named_in_;
    CheckedPlan found_;
};

}  // namespace

MergeGroups GroupsOf(std::span<const MatchLine> lines, std::size_t records) {
    Joined joined(records);
    for (const MatchLine& line : lines) {
        if (line.Do == Action::Merge) {
            for (const std::uint32_t record : line.Records) {
                joined.Join(line.Records.front(), record);
            }
        }
    }
    MergeGroups groups;
    std::unordered_map<std::uint32_t, std::size_t> numbers;
    std::vector<bool> taken(records, false);
    for (const MatchLine& line : lines) {
        for (const std::uint32_t record : line.Records) {
            if (line.Do != Action::Merge || taken[record]) {
                continue;
            }
            taken[record] = true;
            const auto [place, is_new] = numbers.try_emplace(joined.Find(record), groups.size());
            if (is_new) {
                groups.emplace_back();
            }
            groups[place->second].push_back(record);
        }
    }
    std::erase_if(groups, [](const auto& group) { return group.size() < 2; });
    return groups;
}

void FindSources(Plan& plan, const Book& book) {
    std::unordered_map<std::string_view, bool> is_named;
    for (std::uint32_t i = 0; i < book.SourceCount(); ++i) {
        is_named.emplace(book.SourceAt(i).Name(), false);
    }
    const auto is_known = [&is_named](const PlanSource& source) {
        const auto known = is_named.find(source.Name);
        return known != is_named.end() && (known->second = true);
    };
    if (std::count_if(plan.Sources.begin(), plan.Sources.end(), is_known) ==
        static_cast<std::ptrdiff_t>(plan.Sources.size())) {
        return;
    }
    // Of several files with the same bytes each is meant once, in their order.
    std::unordered_map<std::string, std::deque<std::string>> by_sum;
    for (std::uint32_t i = 0; i < book.SourceCount(); ++i) {
        const Source& source = book.SourceAt(i);
        if (!is_named.at(source.Name())) {
            by_sum[Sha256(source.Bytes())].push_back(source.Name());
        }
    }
    std::unordered_map<std::string, std::string> found;
    for (PlanSource& source : plan.Sources) {
        const auto same = by_sum.find(ToLower(source.Sum));
        if (!is_named.contains(source.Name) && same != by_sum.end() && !same->second.empty()) {
            found.emplace(std::exchange(source.Name, same->second.front()), same->second.front());
            same->second.pop_front();
        }
    }
    for (PlannedLine& line : plan.Lines) {
        for (PlanPlace& place : line.Places) {
            const auto other = found.find(place.File);
            place.File = other == found.end() ? place.File : other->second;
        }
    }
}

CheckedPlan CheckPlan(const Plan& plan, const Book& book) {
    return PlanChecker(plan, book).Check();
}

}  // namespace orvik::book
