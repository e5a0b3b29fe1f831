#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

#include "app/printable.h"
#include "book/match/matches.h"
#include "book/match/merge_records.h"
#include "book/match/plan.h"
#include "book/match/plan_check.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"

namespace orvik::book_cli {
namespace {

using cli::ExitStatus;

// Nobody reads more at a terminal; the report has all.
constexpr std::size_t kMostTold = 20;

void TellErrors(Console& console, const std::string& plan, std::vector<book::PlanError> errors) {
    const std::size_t more = errors.size() - std::min(errors.size(), kMostTold);
    errors.resize(errors.size() - more);
    console.Begin(plan);
    for (const book::PlanError& error : errors) {
        console.Tell("line " + std::to_string(error.Line) + ": " + error.Text);
    }
    if (more > 0) {
        console.Tell(std::to_string(more) + " more lines are wrong");
    }
    console.Tell("Nothing is written");
    console.End();
}

// What is to be merged, or nothing after telling what is wrong with the plan.
std::optional<book::MergeGroups> GroupsFor(const Arguments& arguments,
                                           Console& console,
                                           const book::Plan& plan,
                                           const book::Book& book) {
    if (arguments.Plan.empty()) {
        const book::Matches found = book::FindMatches(book, arguments.MergesAgreeing);
        TellNotCompared(console, found.Notes);
        return book::GroupsOf(found.Lines, book.Contacts.size());
    }
    book::CheckedPlan checked = book::CheckPlan(plan, book);
    if (!checked.Errors.empty()) {
        TellErrors(console, arguments.Plan, std::move(checked.Errors));
        return std::nullopt;
    }
    return std::move(checked.Groups);
}

// "a.vcf, line 3".
std::string PlaceText(const book::Book& book, const book::Origin& from) {
    return Printable(book.SourceAt(from.File).Name()) + ", line " + std::to_string(from.Line);
}

std::string WonText(const book::Book& book, const book::MergeNote& note) {
    return "\"" + Printable(Shortened(note.Winner)) + "\" of " + PlaceText(book, note.FromWinner) +
           " won";
}

// Which value won where there can be one only, and after these which spelling did.
void TellMerged(Console& console, const book::Book& book, const book::Merged& merged) {
    std::size_t told = 0;
    for (const bool spellings : {false, true}) {
        for (const book::MergeNote& note : merged.Notes) {
            if (note.IsSpelling != spellings || NamesTheRecord(note) || ++told > kMostTold) {
                continue;
            }
            console.Begin(book.SourceAt(note.From.File).Name());
            console.Tell("line " + std::to_string(note.From.Line) +
                         ": carried: " + Printable(note.Field) + " \"" +
                         Printable(Shortened(note.Value)) + "\": " + WonText(book, note));
        }
    }
    console.End();
    if (told > kMostTold) {
        console.Tell(std::to_string(told - kMostTold) + " more carried; --report FILE names all");
    }
}

std::string ReportOf(const book::Book& book, const book::Merged& merged) {
    std::string text;
    for (const book::MergedAway& one : merged.Gone) {
        text += ReportLine({"merged",
                            book.SourceAt(one.From.File).Name(),
                            one.From.Line,
                            {},
                            {},
                            {},
                            "is part of " + PlaceText(book, one.FromKept)});
    }
    for (const book::MergeNote& note : merged.Notes) {
        text += ReportLine({"carried",
                            book.SourceAt(note.From.File).Name(),
                            note.From.Line,
                            note.Field,
                            note.Value,
                            book.Names.Text(note.Target),
                            WonText(book, note)});
    }
    return text;
}

std::string SummaryOf(const Console& console,
                      std::size_t read,
                      std::size_t away,
                      std::size_t written,
                      std::size_t lost) {
    const std::string lost_text = GroupedCount(lost, "value lost", "values lost");
    return Grouped(read) + " read   " + Grouped(away) + " merged away   " + Grouped(written) +
           " written   " + (lost > 0 ? console.Alarming(lost_text) : lost_text) + "\n";
}

// The plan, and the files that it names among the arguments.
ExitStatus TakePlan(Arguments& arguments, Console& console, book::Plan& plan) {
    if (arguments.Plan.empty()) {
        return ExitStatus::Done;
    }
    ExitStatus status = ExitStatus::Done;
    const std::optional<std::string> text = ReadBytes(console, arguments.Plan, status);
    if (!text) {
        return status;
    }
    plan = book::ParsePlan(*text);
    if (plan.LacksSource) {
        TellErrors(console, arguments.Plan, plan.Errors);
        return ExitStatus::Problem;
    }
    for (const book::PlanSource& source : plan.Sources) {
        arguments.Files.push_back(source.Name);
    }
    return ExitStatus::Done;
}

}  // namespace

ExitStatus Clean(const Arguments& arguments, Console& console) {
    Arguments chosen = arguments;
    book::Plan plan;
    ExitStatus status = TakePlan(chosen, console, plan);
    Outputs outputs(console, chosen);
    if (status != ExitStatus::Done) {
        return status;
    }
    status = outputs.Check();
    Loaded loaded;
    if (status == ExitStatus::Done) {
        Load(console, chosen.Files, chosen.Charset, loaded, chosen.Columns);
        status = loaded.Status;
    }
    if (status != ExitStatus::Done) {
        if (!plan.Errors.empty()) {
            TellErrors(console, chosen.Plan, plan.Errors);
        }
        return status;
    }
    const auto groups = GroupsFor(chosen, console, plan, loaded.Book);
    if (!groups) {
        return ExitStatus::Problem;
    }
    const std::size_t read = loaded.Book.Contacts.size();
    const book::Merged merged = book::MergeRecords(loaded.Book, *groups);
    Extra extra;
    extra.Summary =
        [&](const Arguments& asked, const Written& written, std::span<const FilePart> parts) {
            const std::size_t lost = merged.Lost + loaded.Book.Told.Count(book::What::Lost);
            return SummaryOf(console, read, merged.Gone.size(), written.Records, lost) +
                   PartsText(asked, loaded.Book, parts);
        };
    extra.Report = chosen.Report.empty() ? std::string() : ReportOf(loaded.Book, merged);
    status = WriteLoaded(chosen, console, outputs, loaded, extra);
    TellMerged(console, loaded.Book, merged);
    return Worse(status, merged.Lost > 0 ? ExitStatus::Problem : ExitStatus::Done);
}

}  // namespace orvik::book_cli
