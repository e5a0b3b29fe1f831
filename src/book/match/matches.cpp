#include "book/match/matches.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "book/identity.h"
#include "book/match/contained.h"
#include "book/match/keyed_book.h"
#include "book/match/shared.h"
#include "book/members.h"

namespace orvik::book {
namespace {

using Groups = std::map<std::uint32_t, std::vector<std::uint32_t>>;

class MatchFinder {
 public:
    MatchFinder(const Book& book, bool merges, TakesPart who)
        : keyed_(book, who), merges_(merges) {}

    Matches Find() && {
        AddEqual();
        Containment contained = FindContained(keyed_);
        AddEqualLists(contained);
        Shared shared = FindShared(keyed_, contained, merges_);
        Take(contained.Lines);
        Take(shared.Lines);
        if (keyed_.LeftOut() > 0) {
            found_.Notes.push_back(std::to_string(keyed_.LeftOut()) +
                                   " records were left out: no line is theirs alone");
        }
        if (contained.Crowded > 0) {
            found_.Notes.push_back(
                "contained: " + std::to_string(contained.Crowded) +
                " records share all their addresses, phones and names with more than " +
                std::to_string(kMostCompared) + " others, and were compared with so many");
        }
        std::move(shared.Notes.begin(), shared.Notes.end(), std::back_inserter(found_.Notes));
        found_.AskedContained = static_cast<std::size_t>(
            std::count(contained.IsAsked.begin(), contained.IsAsked.end(), true));
        Sort();
        return std::move(found_);
    }

 private:
    void AddEqual() {
        Groups groups;
        for (std::uint32_t i = 0; i < keyed_.Count(); ++i) {
            if (keyed_.FirstEqual(i) != i) {
                groups[keyed_.FirstEqual(i)].push_back(i);
            }
        }
        AddGroups(groups);
    }

    void AddGroups(Groups& groups) {
        for (auto& [first, records] : groups) {
            records.insert(records.begin(), first);
            found_.Lines.push_back(
                {Action::Merge, Tier::Same, std::move(records), Described(keyed_.From(), first)});
        }
    }

    // Lists are the same if all that they say is, and their members are.
    void AddEqualLists(const Containment& contained) {
        const Book& book = keyed_.From();
        const Identities identities(book);
        const Directory directory(book, identities);
        std::unordered_map<std::string, std::uint32_t> first;
        Groups groups;
        KeyList keys;
        for (std::uint32_t i = 0; i < book.Contacts.size(); ++i) {
            keyed_.Tell(MatchStep::Lists, i, book.Contacts.size());
            const Contact& list = book.Contacts[i];
            if (list.Kind != ContactKind::List || !keyed_.TakesPartAt(i)) {
                continue;
            }
            keyed_.Keys().Fill(list, keys);
            std::vector<std::string> lines = keys.Sorted();
            const std::size_t own = lines.size();
            for (const ListMember& member : directory.MembersOf(list)) {
                lines.push_back(MemberText(member, contained));
            }
            const auto members = lines.begin() + static_cast<std::ptrdiff_t>(own);
            std::sort(members, lines.end());
            lines.erase(std::unique(members, lines.end()), lines.end());
            std::string text;
            for (const std::string& line : lines) {
                text.append(line).append("\n");
            }
            const auto [place, is_new] = first.try_emplace(std::move(text), i);
            if (!is_new && !lines.empty()) {
                groups[place->second].push_back(i);
            }
        }
        AddGroups(groups);
    }

    [[nodiscard]] std::string MemberText(const ListMember& member,
                                         const Containment& contained) const {
        if (member.Record != ListMember::kNobody) {
            return "record " + std::to_string(contained.Into[keyed_.FirstEqual(member.Record)]);
        }
        std::string address;
        FoldAddress(member.Address.empty() ? std::string_view(member.Field->Value)
                                           : std::string_view(member.Address),
                    address);
        return "address " + address;
    }

    void Take(std::vector<MatchLine>& lines) {
        std::move(lines.begin(), lines.end(), std::back_inserter(found_.Lines));
    }

    void Sort() {
        for (const MatchLine& line : found_.Lines) {
            if (line.Why != Tier::Contained || line.Do == Action::Merge) {
                found_.Counts[static_cast<std::size_t>(line.Why)] += line.Records.size() - 1;
            }
        }
        std::sort(found_.Lines.begin(),
                  found_.Lines.end(),
                  [](const MatchLine& one, const MatchLine& other) {
                      return std::tie(one.Why, one.Records) < std::tie(other.Why, other.Records);
                  });
    }

    KeyedBook keyed_;
    bool merges_;
    Matches found_;
};

}  // namespace

Matches FindMatches(const Book& book, bool merges_agreeing, TakesPart who) {
    return MatchFinder(book, merges_agreeing, who).Find();
}

}  // namespace orvik::book
