#include <array>
#include <cstddef>

#include "app/printable.h"
#include "book/differences.h"
#include "book/typed_views.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"

namespace orvik::book_cli {
namespace {

using book::Compared;
using book::Difference;

// "Al (a.ldif, line 3)".
std::string NameIn(const book::Book& book, std::size_t number) {
    const book::Contact& contact = book.Contacts[number];
    const std::string name = book::NameOf(book, contact).Shown;
    return Printable(name.empty() ? "(no name)" : name) + " (" +
           Printable(book.SourceAt(contact.From.File).Name()) + ", line " +
           std::to_string(contact.From.Line) + ")";
}

std::string TextOf(const book::Book& left, const book::Book& right, const Compared& one) {
    if (one.What == Difference::OnlyLeft) {
        return "only left: " + NameIn(left, one.Left) + "\n";
    }
    if (one.What == Difference::OnlyRight) {
        return "only right: " + NameIn(right, one.Right) + "\n";
    }
    std::string text = "changed: " + NameIn(left, one.Left) + ", " + NameIn(right, one.Right) + ":";
    for (const std::string& field : one.Fields) {
        text.append(" ").append(Printable(field));
    }
    return text + "\n";
}

std::string SummaryOf(const std::vector<Compared>& found) {
    std::array<std::size_t, 4> counts{};
    for (const Compared& one : found) {
        ++counts[static_cast<std::size_t>(one.What)];
    }
    return "same " + std::to_string(counts[0]) + "   only left " + std::to_string(counts[1]) +
           "   only right " + std::to_string(counts[2]) + "   changed " +
           std::to_string(counts[3]) + "\n";
}

}  // namespace

cli::ExitStatus Diff(const Arguments& arguments, Console& console, Outputs& outputs) {
    const std::span<const std::string> files = arguments.Files;
    std::array<Loaded, 2> sides;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        Load(console, files.subspan(i, 1), arguments.Charset, sides[i], arguments.Columns);
    }
    for (const Loaded& side : sides) {
        if (side.Status != cli::ExitStatus::Done) {
            return side.Status;
        }
    }
    const Catalogue left(sides[0].Book);
    const Catalogue right(sides[1].Book);
    const std::vector<Compared> found =
        book::Compare(left.Book(), left.Uids(), right.Book(), right.Uids());
    if (!arguments.Json) {
        console.Out() << SummaryOf(found);
    }
    cli::ExitStatus status = cli::ExitStatus::Done;
    for (const Compared& one : found) {
        if (one.What != Difference::Same && console.Out()) {
            status = cli::ExitStatus::Problem;
            if (arguments.Json) {
                PrintDifference(console.Out(), left, right, one);
            } else {
                console.Out() << TextOf(left.Book(), right.Book(), one);
            }
        }
    }
    status = Worse(status, outputs.FinishPrinting());
    std::string report;
    for (const Loaded& side : sides) {
        TellColumns(console, side);
        TellCharsets(console, side);
        TellRemarks(console, side);
        status = Worse(status, StatusOf(side.Book));
        report += arguments.Report.empty() ? "" : ReportOf(side);
    }
    return arguments.Report.empty() ? status : Worse(status, outputs.WriteReport(report));
}

}  // namespace orvik::book_cli
