#include <algorithm>
#include <cstddef>
#include <set>
#include <string_view>

#include "app/printable.h"
#include "book/unchanged.h"
#include "book/write_ldif.h"
#include "book/write_vcard.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"

namespace orvik::book_cli {
namespace {

using book::What;

std::string Carried(const book::Book& book) {
    const std::size_t values = book.Told.Count(What::Carried);
    if (values == 0) {
        return "carried 0";
    }
    std::set<std::string_view> kinds;
    for (const book::Remark& one : book.Told.Remarks()) {
        if (one.Kind == What::Carried) {
            kinds.insert(one.Field);
        }
    }
    return "carried as X- fields: " + Counted(kinds.size(), "kind", "kinds") + ", " +
           Counted(values, "value", "values");
}

}  // namespace

std::string TargetName(const Arguments& arguments, bool unchanged) {
    using enum book::LdifAttributes;
    const book::LdifAttributes set = arguments.Set.value_or(Mozilla);
    const bool ldif = arguments.Target == book::Dialect::Ldif;
    const std::string name = ldif && unchanged                            ? "LDIF"
                             : arguments.Target == book::Dialect::VCard40 ? "vCard 4.0, UTF-8"
                             : !ldif                                      ? "vCard 3.0, UTF-8"
                             : set == Netscape                            ? "Netscape 4 LDIF, ASCII"
                             : set == KContacts                           ? "KContacts LDIF, ASCII"
                             : set == Evolution                           ? "Evolution LDIF, ASCII"
                                                                          : "Mozilla LDIF, ASCII";
    return name + (unchanged ? ", byte for byte as it was" : "");
}

std::string Written(const Arguments& arguments, book::Book& book, Console& console) {
    book.HowFar = console.ProgressOf("writing");
    console.Begin(arguments.Output);
    std::string text = arguments.Target == book::Dialect::Ldif
                           ? book::WriteLdif(book, arguments.Set)
                           : book::WriteVCard(book, arguments.Target);
    console.End();
    return text;
}

namespace {

bool IsUnchanged(const Arguments& arguments, const book::Book& book) {
    return !arguments.Set && book::UnchangedFile(book, arguments.Target).has_value();
}

}  // namespace

void PrintForPerson(const std::string& text, const Arguments& arguments, Console& console) {
    if (arguments.Output == kStandardStream) {
        std::string_view rest = text;
        while (!rest.empty()) {
            const std::size_t end = rest.find('\n');
            console.Tell(rest.substr(0, end));
            rest.remove_prefix(std::min(end, rest.size() - 1) + 1);
        }
    } else {
        console.Out() << text;
    }
}

std::string ConvertedText(const Console& console,
                          const Arguments& arguments,
                          const book::Book& book,
                          bool unchanged) {
    const std::size_t lost = book.Told.Count(What::Lost);
    const std::string lost_text = "lost " + std::to_string(lost);
    const bool stream = arguments.Output == kStandardStream;
    std::string text = "read " + std::to_string(book.Told.Count(What::Read)) + "   written " +
                       std::to_string(book.Contacts.size()) + "   " + Carried(book) + "   " +
                       (lost > 0 ? console.Alarming(lost_text) : lost_text) + SummaryTail(book) +
                       "\n";
    text += stream ? "standard output" : console.Strong(Printable(arguments.Output));
    text += ": " + TargetName(arguments, unchanged) + ".";
    // LDIF has those alone that were there.
    return text + (arguments.Target == book::Dialect::Ldif
                       ? "\n"
                       : " UIDs stay the same on the next run.\n");
}

cli::ExitStatus Convert(const Arguments& arguments, Console& console, Outputs& outputs) {
    Loaded loaded;
    Load(console, arguments.Files, arguments.Charset, loaded, arguments.Columns);
    if (loaded.Status != cli::ExitStatus::Done) {
        return loaded.Status;
    }
    const bool unchanged = IsUnchanged(arguments, loaded.Book);
    const SharedText text = Written(arguments, loaded.Book, console);
    cli::ExitStatus status = StatusOf(loaded.Book);
    if (const std::string refusal = Refusal(loaded.Book, arguments.AllowLoss); !refusal.empty()) {
        TellColumns(console, loaded);
        TellRemarks(console, loaded);
        console.Tell(refusal);
        return Worse(status, outputs.WriteReport(ReportOf(loaded)));
    }
    status = Worse(status, outputs.WriteBook(text));
    if (status >= cli::ExitStatus::NoBook) {
        return status;
    }
    if (arguments.Json) {
        const Catalogue catalogue(loaded.Book);
        for (std::size_t i = 0; i < loaded.Book.Contacts.size() && console.Out(); ++i) {
            PrintRecord(console.Out(), catalogue, i);
        }
    } else {
        PrintForPerson(
            ConvertedText(console, arguments, loaded.Book, unchanged), arguments, console);
    }
    status = Worse(status, outputs.FinishPrinting());
    TellColumns(console, loaded);
    TellCharsets(console, loaded);
    TellRemarks(console, loaded);
    return arguments.Report.empty() ? status : Worse(status, outputs.WriteReport(ReportOf(loaded)));
}

}  // namespace orvik::book_cli
