#include <cstddef>
#include <span>
#include <string>
#include <utility>

#include "book_cli/json_lines.h"
#include "book_cli/new_since.h"
#include "book_cli/prepared.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"
#include "book_cli/written.h"

namespace orvik::book_cli {
namespace {

using cli::ExitStatus;

// The text for a person goes where the book does not go.
void Print(const std::string& text, const Arguments& arguments, Console& console) {
    if (arguments.Output == kStandardStream) {
        console.TellLines(text);
    } else {
        console.Out() << text;
    }
}

// Where nothing says which file the program gets, the book decides.
void ChooseForm(Arguments& arguments, const book::Book& book) {
    if (arguments.For != nullptr && arguments.Form == nullptr) {
        arguments.Choose(FormFor(*arguments.For, HasLists(book)));
    }
}

// Reads what is to be written: the files, less the people of older books.
void LoadNew(const Arguments& arguments, Console& console, Loaded& loaded) {
    Load(console, arguments.Files, arguments.Charset, loaded, arguments.Columns);
    if (arguments.NewSince.empty()) {
        return;
    }
    Loaded older;
    Load(console, arguments.NewSince, arguments.Charset, older, arguments.Columns);
    TellColumns(console, older);
    TellCharsets(console, older);
    loaded.Status = loaded.Status == ExitStatus::Done ? older.Status : loaded.Status;
    if (loaded.Status == ExitStatus::Done) {
        loaded.LeftOut = LeaveOutKnown(older.Book, loaded.Book);
    }
}

// Text that is empty where there is nothing to say.
void TellIf(Console& console, const std::string& text) {
    if (!text.empty()) {
        console.Tell(text);
    }
}

std::string ReportOf(const Loaded& loaded, std::span<const FilePart> parts, const Extra& extra) {
    return (extra.IsOfMail ? RemarksReport(loaded.Book) : ReportOf(loaded)) + ReportOf(parts) +
           extra.Report;
}

void PrintRecords(Console& console, const book::Book& book) {
    const Catalogue catalogue(book);
    for (std::size_t i = 0; i < book.Contacts.size() && console.Out(); ++i) {
        PrintRecord(console.Out(), catalogue, i);
    }
}

}  // namespace

ExitStatus Convert(const Arguments& arguments, Console& console, Outputs& outputs) {
    Loaded loaded;
    LoadNew(arguments, console, loaded);
    return loaded.Status == ExitStatus::Done ? WriteLoaded(arguments, console, outputs, loaded, {})
                                             : loaded.Status;
}

ExitStatus WriteLoaded(const Arguments& asked,
                       Console& console,
                       Outputs& outputs,
                       Loaded& loaded,
                       const Extra& extra) {
    book::SortBook(loaded.Book, asked.Sort, asked.Locale);
    Arguments chosen = asked;
    ChooseForm(chosen, loaded.Book);
    Prepared made = Prepare(chosen, loaded, console);
    if (!made.Refused.empty()) {
        TellColumns(console, loaded);
        TellRemarks(console, loaded);
        TellIf(console, ListHint(chosen, loaded.Book));
        console.Tell(made.Refused);
        return Worse(ExitStatus::Problem, outputs.WriteReport(ReportOf(loaded, {}, extra)));
    }
    // Before the book is written, as it takes memory.
    TellFoundMembers(console, loaded);
    ExitStatus status = StatusOf(loaded.Book);
    status = Worse(status,
                   made.Parts.empty() ? outputs.WriteBook(std::exchange(made.Whole.Text, {}))
                                      : outputs.WriteParts(made.Parts));
    if (status >= ExitStatus::NoBook) {
        return status;
    }
    const std::string summary =
        extra.Summary ? extra.Summary(chosen, made.Whole, made.Parts)
                      : ConvertedText(console, chosen, loaded, made.Whole, made.Parts);
    if (!chosen.Json) {
        Print(summary, chosen, console);
    } else if (extra.PrintJson) {
        extra.PrintJson();
        console.TellLines(summary);
    } else {
        PrintRecords(console, loaded.Book);
    }
    status = Worse(status, outputs.FinishPrinting());
    TellColumns(console, loaded);
    TellCharsets(console, loaded);
    TellRemarks(console, loaded);
    TellIf(console, ListHint(chosen, loaded.Book));
    TellIf(console, made.TooMuch);
    return chosen.Report.empty()
               ? status
               : Worse(status, outputs.WriteReport(ReportOf(loaded, made.Parts, extra)));
}

}  // namespace orvik::book_cli
