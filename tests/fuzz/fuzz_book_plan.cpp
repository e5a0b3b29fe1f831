// Reads any bytes as a plan, and does what it says; and finds, plans and merges what any bytes hold
// as cards.

#include <cstdint>
#include <string>
#include <string_view>

#include "book/match/matches.h"
#include "book/match/merge_records.h"
#include "book/match/plan.h"
#include "book/match/plan_check.h"
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

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = orvik::fuzz::TextOf(data, size);
    const Plan plan = ParsePlan(text);
    CheckNames(plan);
    const auto book = orvik::fuzz::ReadBook(ReadVCard, std::string(kCards));
    // The sum is not to be guessed.
    Apply(*book, ParsePlan("# source file " + Sha256(kCards) + "\n" + std::string(text)));
    CheckTrip(text);
    return 0;
}
