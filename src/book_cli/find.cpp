#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

#include "app/printable.h"
#include "book/mail/mail_search.h"
#include "book/mail/people_book.h"
#include "book/old/old_writers.h"
#include "book_cli/find_told.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"

namespace orvik::book_cli {
namespace {

// What is printed is no mail, though it may go to a file in a folder that is looked through.
constexpr const char* kPrintedTo = "/dev/stdout";

// The people that are asked for, the most frequent ones first.
std::vector<std::uint32_t> Chosen(const book::People& people,
                                  const FindArguments& asked,
                                  FindTold& told,
                                  FindCounts& counts) {
    std::unordered_set<std::string> mine;
    for (const std::string& one : asked.Mine) {
        mine.insert(book::FoldedAddress(one));
    }
    std::vector<std::uint32_t> chosen;
    for (std::uint32_t i = 0; i < people.All().size(); ++i) {
        const auto& [key, person] = people.All()[i];
        const std::string& place = people.PlaceAt(person.Places.front().File);
        if (mine.contains(key)) {
            ++counts.Mine;
            told.AddLeftOut(place, person.Address, "is one of --me");
        } else if (!asked.NoReply && book::IsNoReply(key)) {
            ++counts.NoReply;
            told.AddLeftOut(place, person.Address, "nobody reads what is sent there");
        } else {
            ++counts.Addresses;
            counts.Twice += person.Count >= 2 ? 1U : 0U;
            if (person.Count >= asked.Least) {
                chosen.push_back(i);
            }
        }
    }
    std::stable_sort(chosen.begin(), chosen.end(), [&](std::uint32_t one, std::uint32_t other) {
        return people.All()[one].Who.Count > people.All()[other].Who.Count;
    });
    return chosen;
}

FoundEntry EntryOf(const book::People& people, const book::Person& person) {
    FoundEntry entry;
    entry.Count = person.Count;
    entry.First = book::TimeText(person.First);
    entry.Last = book::TimeText(person.Last);
    for (const book::Person::Place& place : person.Places) {
        entry.Seen.push_back({people.PlaceAt(place.File), book::FieldsOf(place), place.Count});
    }
    entry.SeenElsewhere = person.MorePlaces;
    return entry;
}

void PrintPeople(Console& console,
                 const book::Book& book,
                 const book::People& people,
                 const std::vector<std::uint32_t>& chosen) {
    const Catalogue catalogue(book);
    for (std::size_t i = 0; i < chosen.size() && console.Out(); ++i) {
        PrintFound(console.Out(), catalogue, i, EntryOf(people, people.All()[chosen[i]].Who));
    }
}

std::string WrittenText(const Console& console,
                        const Arguments& arguments,
                        const book::Book& book,
                        std::span<const FilePart> parts) {
    const std::size_t people = book.Contacts.size();
    std::string text;
    if (arguments.Output != kStandardStream) {
        text = WherePut(console, arguments, parts) + ": " +
               GroupedCount(people, "person", "people") + ", " + TargetName(arguments, false) +
               ".\n";
    }
    return text + PartsText(arguments, book, parts);
}

}  // namespace

cli::ExitStatus Find(const Arguments& arguments, Console& console, Outputs& outputs) {
    FindTold told(console, !arguments.Report.empty());
    std::string path;
    const book::MailSearch* running = nullptr;
    book::MailSearch search(console.Files(),
                            {arguments.Find.HeadersOnly, arguments.Find.Since},
                            {[&](const book::SearchNote& note) { told.Take(note); },
                             [&](const std::string& begun) {
                                 path = begun;
                                 told.ShowHowFar(path, running->Totals().Messages, 0, 0);
                             },
                             [&](std::uint64_t done, std::uint64_t all) {
                                 told.ShowHowFar(path, running->Totals().Messages, done, all);
                             }});
    running = &search;
    told.Begin();
    book::SearchMail(
        console.Files(), arguments.Files, {arguments.Output, arguments.Report, kPrintedTo}, search);
    FindCounts counts;
    const auto chosen = Chosen(search.Found(), arguments.Find, told, counts);
    told.End();
    Loaded loaded;
    // Nobody has written the notes, so that nothing is lost where there is no place for them.
    const book::OldWriter* const old = book::OldWriterOf(arguments.Target);
    book::AddPeople(search.Found(), chosen, old == nullptr || old->HoldsNotes, loaded.Book);
    const std::string found = FoundText(search.Totals(), counts, !arguments.Report.empty());
    const auto print = [&] { PrintPeople(console, loaded.Book, search.Found(), chosen); };
    if (arguments.Json && arguments.Output == kStandardStream) {
        print();
        console.TellLines(found);
        const cli::ExitStatus status = Worse(told.Status(), outputs.FinishPrinting());
        return Worse(status, outputs.WriteReport(told.Report()));
    }
    Extra extra;
    extra.Summary = [&](const Arguments& asked, const Written&, std::span<const FilePart> parts) {
        return found + WrittenText(console, asked, loaded.Book, parts);
    };
    extra.PrintJson = print;
    extra.Report = told.Report();
    extra.IsOfMail = true;
    return Worse(told.Status(), WriteLoaded(arguments, console, outputs, loaded, extra));
}

}  // namespace orvik::book_cli
