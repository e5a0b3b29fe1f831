#include <algorithm>
#include <cstddef>

#include "app/printable.h"
#include "book/match/matches.h"
#include "book/match/plan.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"

namespace orvik::book_cli {
namespace {

using book::Matches;
using book::Tier;

std::string CountsText(const book::Book& book, const Matches& found) {
    const auto lists = static_cast<std::size_t>(
        std::count_if(book.Contacts.begin(), book.Contacts.end(), [](const book::Contact& one) {
            return one.Kind == book::ContactKind::List;
        }));
    const auto count = [&found](Tier tier) {
        return Grouped(found.Counts[static_cast<std::size_t>(tier)]);
    };
    const std::size_t people = book.Contacts.size() - lists;
    std::string text = GroupedCount(people, "person", "people");
    text += lists == 0 ? "" : ", " + GroupedCount(lists, "list", "lists");
    text += ": " + count(Tier::Same) + " same, " + count(Tier::Contained) + " contained";
    if (found.AskedContained > 0) {
        text += " (and " + Grouped(found.AskedContained) + " to be asked about)";
    }
    return text + ", " + count(Tier::Agree) + " agree, " + count(Tier::Address) +
           " share an address, " + count(Tier::Name) + " share a name\n";
}

void PrintLines(const Arguments& arguments,
                Console& console,
                const book::Book& book,
                const Matches& found) {
    for (const book::MatchLine& line : found.Lines) {
        if (!console.Out()) {
            return;
        }
        console.Out() << (arguments.Json ? MatchJson(book, line) : book::PlanLine(book, line));
    }
}

}  // namespace

cli::ExitStatus Dupes(const Arguments& arguments, Console& console, Outputs& outputs) {
    Loaded loaded;
    Load(console, arguments.Files, arguments.Charset, loaded, arguments.Columns);
    if (loaded.Status != cli::ExitStatus::Done) {
        return loaded.Status;
    }
    const Matches found = book::FindMatches(loaded.Book, arguments.MergesAgreeing);
    const bool planned = !arguments.Plan.empty();
    if (!arguments.Json) {
        console.Out() << CountsText(loaded.Book, found);
    }
    cli::ExitStatus status = StatusOf(loaded.Book);
    if (planned) {
        status = Worse(status, outputs.WriteBook(book::PlanText(loaded.Book, found)));
        if (status >= cli::ExitStatus::NoBook) {
            return status;
        }
    }
    if (arguments.Json || !planned) {
        PrintLines(arguments, console, loaded.Book, found);
    } else {
        const std::string name = Printable(arguments.Plan);
        console.Out() << name << ": edit it, then: orvik-book clean --plan " << name
                      << " -o book.vcf\n";
    }
    status = Worse(status, outputs.FinishPrinting());
    TellNotCompared(console, found.Notes);
    TellColumns(console, loaded);
    TellCharsets(console, loaded);
    TellRemarks(console, loaded);
    return arguments.Report.empty() ? status : Worse(status, outputs.WriteReport(ReportOf(loaded)));
}

}  // namespace orvik::book_cli
