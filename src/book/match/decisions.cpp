#include "book/match/decisions.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "book/match/plan.h"

namespace orvik::book {
namespace {

using Records = std::vector<std::uint32_t>;
using LinesByRecords = std::map<Records, std::uint32_t>;

Records Sorted(Records records) {
    std::sort(records.begin(), records.end());
    records.erase(std::unique(records.begin(), records.end()), records.end());
    return records;
}

Action ActionOf(const DecidedLine& line) {
    switch (line.Said) {
        case Decision::Merge:
            return Action::Merge;
        case Decision::Keep:
            return Action::Keep;
        case Decision::Later:
            return Action::Ask;
        case Decision::Open:
            break;
    }
    return line.Match.Do;
}

// Which records a plan can name, as nothing else stands at their place.
class PlanPlaces {
 public:
    explicit PlanPlaces(const Book& book) : book_(book), is_single_(book.SourceCount(), false) {
        std::unordered_map<std::string_view, std::uint32_t> names;
        for (std::uint32_t i = 0; i < book.SourceCount(); ++i) {
            const auto [place, is_new] = names.try_emplace(book.SourceAt(i).Name(), i);
            is_single_[i] = is_new;
            is_single_[place->second] = is_new;
        }
        count_.reserve(book.Contacts.size());
        for (const Contact& contact : book.Contacts) {
            ++count_[PlaceOf(contact)];
        }
    }

    [[nodiscard]] bool IsSingle(std::uint32_t source) const { return is_single_[source]; }
    [[nodiscard]] bool Has(std::uint32_t record) const {
        const Contact& contact = book_.Contacts[record];
        return contact.From.Lines > 0 && IsSingle(contact.From.File) &&
               count_.at(PlaceOf(contact)) == 1;
    }

 private:
    static std::uint64_t PlaceOf(const Contact& contact) {
        return std::uint64_t{contact.From.File} << 32U | contact.From.Line;
    }

    const Book& book_;
    std::vector<bool> is_single_;
    std::unordered_map<std::uint64_t, std::uint32_t> count_;
};

// Plans that were saved with such lines name the tier again.
std::string ReasonOf(const std::string& comment) {
    const std::string tier = std::string(NameOf(Tier::Plan)) + ": ";
    return comment.starts_with(tier) ? comment.substr(tier.size()) : comment;
}

class PlanTaker {
 public:
    PlanTaker(const Book& book, const std::vector<bool>& is_there, DecidedLines& lines)
        : book_(book), is_there_(is_there), lines_(lines) {
        for (std::uint32_t i = 0; i < lines.size(); ++i) {
            by_records_.emplace(Sorted(lines[i].Match.Records), i);
        }
    }

    std::size_t Take(const CheckedPlan& plan) && {
        // To be merged says more than to be kept apart, and to be asked about says nothing.
        for (const Action action : {Action::Ask, Action::Keep, Action::Merge}) {
            for (const MatchLine& line : plan.Lines) {
                if (line.Do == action) {
                    TakeLine(line);
                }
            }
        }
        return left_out_;
    }

 private:
    void TakeLine(const MatchLine& line) {
        Records sorted = Sorted(line.Records);
        if (sorted.size() < 2) {
            return;
        }
        const bool as_read =
            std::all_of(sorted.begin(), sorted.end(), [this](std::uint32_t record) {
                return is_there_[record] && !book_.Contacts[record].Changed;
            });
        const auto known = by_records_.find(sorted);
        if (!as_read) {
            const bool done = known != by_records_.end() && lines_[known->second].MergedIn != 0;
            left_out_ += done ? 0 : 1;
            return;
        }
        DecidedLine& decided =
            known == by_records_.end() ? Added(line, std::move(sorted)) : lines_[known->second];
        decided.Match.Records = InOrder(line.Records);
        decided.Said = line.Do == Action::Merge  ? Decision::Merge
                       : line.Do == Action::Keep ? Decision::Keep
                                                 : Decision::Later;
    }

    DecidedLine& Added(const MatchLine& line, Records sorted) {
        by_records_.emplace(std::move(sorted), static_cast<std::uint32_t>(lines_.size()));
        lines_.push_back({{Action::Ask, Tier::Plan, {}, ReasonOf(line.Reason)}});
        return lines_.back();
    }

    // The first one is kept, and each counts once.
    static Records InOrder(const Records& records) {
        Records once;
        std::unordered_set<std::uint32_t> there;
        std::copy_if(records.begin(),
                     records.end(),
                     std::back_inserter(once),
                     [&there](std::uint32_t record) { return there.insert(record).second; });
        return once;
    }

    const Book& book_;
    const std::vector<bool>& is_there_;
    DecidedLines& lines_;
    LinesByRecords by_records_;
    std::size_t left_out_ = 0;
};

}  // namespace

DecidedLines WithFound(Matches& found,
                       const Book& copy,
                       std::span<const std::uint32_t> numbers,
                       const DecidedLines& before,
                       const StandingOf& standing) {
    LinesByRecords said;
    DecidedLines lines;
    for (std::uint32_t i = 0; i < before.size(); ++i) {
        const DecidedLine& line = before[i];
        const Standing stands = standing(i);
        if (stands == Standing::Done) {
            lines.push_back(line);
        } else if (stands == Standing::Holds &&
                   (line.Said != Decision::Open || line.MergedIn != 0 ||
                    line.Match.Why == Tier::Plan)) {
            said.emplace(Sorted(line.Match.Records), i);
        }
    }
    for (MatchLine& line : found.Lines) {
        DecidedLine decided;
        for (std::uint32_t& record : line.Records) {
            decided.IsAsRead = decided.IsAsRead && !copy.Contacts[record].Changed;
            record = numbers[record];
        }
        decided.Match = std::move(line);
        if (const auto known = said.find(Sorted(decided.Match.Records)); known != said.end()) {
            decided.Said = before[known->second].Said;
            decided.MergedIn = before[known->second].MergedIn;
            decided.Match.Records = before[known->second].Match.Records;
            said.erase(known);
        }
        lines.push_back(std::move(decided));
    }
    for (const auto& [records, line] : said) {
        if (before[line].Match.Why == Tier::Plan) {
            lines.push_back(before[line]);
        }
    }
    std::stable_sort(
        lines.begin(), lines.end(), [](const DecidedLine& one, const DecidedLine& other) {
            return std::tie(one.Match.Why, one.Match.Records) <
                   std::tie(other.Match.Why, other.Match.Records);
        });
    return lines;
}

bool IsSure(const DecidedLine& line) {
    return (line.Match.Why == Tier::Same || line.Match.Why == Tier::Contained) &&
           line.Match.Do == Action::Merge &&
           (line.Said == Decision::Open || line.Said == Decision::Merge);
}

ChosenGroups GroupsOfChosen(const DecidedLines& lines,
                            std::span<const std::uint32_t> chosen,
                            std::size_t records) {
    std::vector<MatchLine> merged;
    std::vector<bool> is_chosen(lines.size(), false);
    merged.reserve(chosen.size());
    for (const std::uint32_t line : chosen) {
        merged.push_back({Action::Merge, Tier::Plan, lines[line].Match.Records, {}});
        is_chosen[line] = true;
    }
    ChosenGroups made;
    made.Groups = GroupsOf(merged, records);
    constexpr std::uint32_t kNone = ~std::uint32_t{0};
    std::vector<std::uint32_t> group_of(records, kNone);
    for (std::uint32_t i = 0; i < made.Groups.size(); ++i) {
        for (const std::uint32_t record : made.Groups[i]) {
            group_of[record] = i;
        }
    }
    std::vector<bool> is_apart(made.Groups.size(), false);
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        if (lines[i].Said != Decision::Keep || is_chosen[i]) {
            continue;
        }
        std::unordered_set<std::uint32_t> there;
        for (const std::uint32_t record : lines[i].Match.Records) {
            if (group_of[record] != kNone && !there.insert(group_of[record]).second) {
                is_apart[group_of[record]] = true;
            }
        }
    }
    for (const std::uint32_t line : chosen) {
        const std::uint32_t group = group_of[lines[line].Match.Records.front()];
        if (group != kNone && is_apart[group]) {
            ++made.KeptApart;
        } else if (group != kNone) {
            made.Lines.push_back(line);
        }
    }
    std::uint32_t number = 0;
    std::erase_if(made.Groups, [&](const auto& /*group*/) { return is_apart[number++]; });
    return made;
}

DecidedPlan PlanOf(const Book& book,
                   const DecidedLines& lines,
                   const std::vector<std::string>& notes,
                   const StandingOf& standing) {
    DecidedPlan plan;
    const PlanPlaces places(book);
    for (std::uint32_t i = 0; i < book.SourceCount(); ++i) {
        plan.Text += places.IsSingle(i) ? SourceLine(book.SourceAt(i)) : "";
    }
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        book.TellFar(i, lines.size());
        MatchLine line = lines[i].Match;
        if (!lines[i].IsAsRead || standing(i) == Standing::Old ||
            !std::all_of(line.Records.begin(), line.Records.end(), [&places](std::uint32_t record) {
                return places.Has(record);
            })) {
            ++plan.LeftOut;
            continue;
        }
        line.Do = standing(i) == Standing::Done ? Action::Merge : ActionOf(lines[i]);
        plan.Text += PlanLine(book, line);
    }
    for (const std::string& note : notes) {
        plan.Text += NoteLine(note);
    }
    return plan;
}

std::size_t TakePlan(const CheckedPlan& plan,
                     const Book& book,
                     const std::vector<bool>& is_there,
                     DecidedLines& lines) {
    return PlanTaker(book, is_there, lines).Take(plan);
}

}  // namespace orvik::book
