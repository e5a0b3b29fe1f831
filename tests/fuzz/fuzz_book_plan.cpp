// Reads any bytes as a plan, and does what it says; and finds, plans and merges what any bytes hold
// as cards.

#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "book/match/decisions.h"
#include "book/match/matches.h"
#include "book/match/merge_records.h"
#include "book/match/plan.h"
#include "book/match/plan_check.h"
#include "book/match/side_by_side.h"
#include "fuzz/book_trip.h"
#include "fuzz/fuzz_target.h"

namespace {

using namespace orvik::book;
using orvik::fuzz::Check;

constexpr std::string_view kCards =
    "BEGIN:VCARD\nVERSION:3.0\nUID:1\nFN:Al\nEMAIL:a@b.c\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:3.0\nFN:AL\nEMAIL:A@b.c\nTEL:1\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:3.0\nFN:L\nX-ADDRESSBOOKSERVER-KIND:group\n"
    "X-ADDRESSBOOKSERVER-MEMBER:mailto:a@b.c\nEND:VCARD\n";

void Apply(Book& book, const Plan& plan) {
    const CheckedPlan checked = CheckPlan(plan, book);
    Check(checked.Errors.empty() || checked.Groups.empty(), "a wrong plan does nothing");
    const std::size_t before = book.Contacts.size();
    const Merged merged = MergeRecords(book, checked.Groups);
    Check(merged.Lost == 0, "no value is lost");
    Check(book.Contacts.size() + merged.Gone.size() == before, "each record is somewhere");
}

// The names of a plan come back from the text that is made of them.
void CheckNames(const Plan& plan) {
    for (const PlanSource& source : plan.Sources) {
        const Plan again = ParsePlan("# source " + QuotedName(source.Name) + " " + source.Sum);
        Check(again.Errors.empty() && again.Sources.front().Name == source.Name,
              "a name survives its quotes");
    }
}

// All that a plan finds can be done, and leaves nothing of the kind.
void CheckTrip(std::string_view text) {
    const auto book = orvik::fuzz::ReadBook(ReadVCard, std::string(text));
    const Matches found = FindMatches(*book, true);
    const Plan plan = ParsePlan(PlanText(*book, found));
    Check(plan.Errors.empty(), "a plan can be read");
    Check(plan.Lines.size() == found.Lines.size(), "each line is there");
    Check(CheckPlan(plan, *book).Errors.empty(), "a plan can be done");
    Apply(*book, plan);
}

// A window finds and plans the same, and shows any of the groups.
void CheckWindow(std::string_view text) {
    const auto book = orvik::fuzz::ReadBook(ReadVCard, std::string(text));
    Matches found = FindMatches(*book, false);
    const std::string plan = PlanText(*book, found);
    std::vector<std::uint32_t> numbers(book->Contacts.size());
    std::iota(numbers.begin(), numbers.end(), 0U);
    const StandingOf all_hold = [](std::uint32_t /*line*/) { return Standing::Holds; };
    DecidedLines lines = WithFound(found, *book, numbers, {}, all_hold);
    Check(PlanOf(*book, lines, found.Notes, all_hold).Text == plan, "a plan is that of the tool");
    for (const DecidedLine& line : lines) {
        for (const SideRow& row : Compare(*book, line.Match.Records).Rows) {
            Check(!row.Values.empty(), "a row has a value");
        }
    }
    const CheckedPlan checked = CheckPlan(ParsePlan(plan), *book);
    const std::vector<bool> all_there(numbers.size(), true);
    const std::size_t count = lines.size();
    Check(TakePlan(checked, *book, all_there, lines) == 0, "a plan of the book is taken whole");
    Check(lines.size() == count, "a plan adds nothing to what it is of");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = orvik::fuzz::TextOf(data, size);
    const Plan plan = ParsePlan(text);
    CheckNames(plan);
    const auto book = orvik::fuzz::ReadBook(ReadVCard, std::string(kCards));
    // The sum is not to be guessed.
    Apply(*book, ParsePlan("# source file " + Sha256(kCards) + "\n" + std::string(text)));
    CheckTrip(text);
    CheckWindow(text);
    return 0;
}
