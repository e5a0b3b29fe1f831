// What convert tells when it is done.

#include <algorithm>
#include <cstddef>
#include <set>
#include <string_view>

#include "app/printable.h"
#include "book/old/old_writers.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"

namespace orvik::book_cli {
namespace {

using book::Dialect;
using book::What;

// Nobody reads more at a terminal; the report has all.
constexpr std::size_t kMostFiles = 20;

std::set<std::string_view> KindsCarried(const book::Book& book) {
    std::set<std::string_view> kinds;
    for (const book::Remark& one : book.Told.Remarks()) {
        if (one.Kind == What::Carried) {
            kinds.insert(one.Field);
        }
    }
    return kinds;
}

std::string Carried(const Arguments& arguments, const book::Book& book) {
    const std::size_t values = book.Told.Count(What::Carried);
    if (values == 0) {
        return "carried 0";
    }
    const std::string_view how = arguments.Target == Dialect::Csv ? "carried in other columns: "
                                 : book::OldWriterOf(arguments.Target) != nullptr
                                     ? "carried in notes or entries of their own: "
                                     : "carried as X- fields: ";
    return std::string(how) + Counted(KindsCarried(book).size(), "kind", "kinds") + ", " +
           Counted(values, "value", "values");
}

std::string TableName(book::CsvProgram table) {
    using enum book::CsvProgram;
    return table == Thunderbird ? "Thunderbird CSV, UTF-8"
           : table == Google    ? "Google CSV, UTF-8"
           : table == Outlook   ? "Outlook CSV, windows-1252"
                                : "outlook.com CSV, UTF-8";
}

std::string LdifName(book::LdifAttributes set) {
    using enum book::LdifAttributes;
    const std::string_view program = set == Netscape      ? "Netscape 4"
                                     : set == KContacts   ? "KContacts"
                                     : set == Evolution   ? "Evolution"
                                     : set == Thunderbird ? "Thunderbird"
                                                          : "Mozilla";
    return std::string(program) + " LDIF, ASCII";
}

std::string FilesOf(std::span<const FilePart> parts) {
    std::string text;
    for (std::size_t i = 0; i < parts.size() && i < kMostFiles; ++i) {
        text +=
            Printable(parts[i].Name) + ": " + Counted(parts[i].Records, "record", "records") + "\n";
    }
    return text +
           (parts.size() > kMostFiles
                ? std::to_string(parts.size() - kMostFiles) + " more files; the last one has " +
                      Counted(parts.back().Records, "record", "records") + "\n"
                : "");
}

// Whoever imports the book finds these only in the file.
std::string NotShown(const Arguments& arguments, const book::Book& book) {
    const std::set<std::string_view> kinds = KindsCarried(book);
    const bool x_fields =
        arguments.Target != Dialect::Csv && book::OldWriterOf(arguments.Target) == nullptr;
    if (!x_fields || kinds.empty()) {
        return {};
    }
    std::string text;
    std::size_t told = 0;
    for (const std::string_view kind : kinds) {
        if (++told <= kMostFiles) {
            text += (text.empty() ? "" : ", ") + Printable(kind);
        }
    }
    text += told > kMostFiles ? " and " + std::to_string(told - kMostFiles) + " more" : "";
    return "What is carried stays in the file; " + std::string(arguments.For->Title) +
           " may not show all of it: " + text + "\n";
}

}  // namespace

std::string TargetName(const Arguments& arguments, bool unchanged) {
    const Dialect target = arguments.Target;
    if (const book::OldWriter* const old = book::OldWriterOf(target); old != nullptr) {
        return std::string(old->Title);
    }
    const std::string name = target == Dialect::Csv       ? TableName(arguments.Form->Table)
                             : target == Dialect::VCard40 ? "vCard 4.0, UTF-8"
                             : target != Dialect::Ldif    ? "vCard 3.0, UTF-8"
                             : unchanged
                                 ? "LDIF"
                                 : LdifName(arguments.Set.value_or(book::LdifAttributes::Mozilla));
    return name + (unchanged ? ", byte for byte as it was" : "");
}

std::string WherePut(const Console& console,
                     const Arguments& arguments,
                     std::span<const FilePart> parts) {
    const std::string files = parts.empty() ? Printable(arguments.Output)
                                            : RangeOf(parts.front().Name, parts.back().Name);
    return arguments.Output == kStandardStream ? "standard output" : console.Strong(files);
}

std::string CountsText(const Console& console,
                       const Arguments& arguments,
                       const Loaded& loaded,
                       const Written& written) {
    const book::Book& book = loaded.Book;
    const std::size_t lost = book.Told.Count(What::Lost);
    const std::string lost_text = "lost " + std::to_string(lost);
    std::string text = "read " + std::to_string(book.Told.Count(What::Read));
    if (!arguments.NewSince.empty()) {
        text += "   left out " + std::to_string(loaded.LeftOut.size());
    }
    return text + "   written " + std::to_string(written.Records) + "   " +
           Carried(arguments, book) + "   " + (lost > 0 ? console.Alarming(lost_text) : lost_text) +
           SummaryTail(book);
}

std::string ConvertedText(const Console& console,
                          const Arguments& arguments,
                          const Loaded& loaded,
                          const Written& written,
                          std::span<const FilePart> parts) {
    std::string text = CountsText(console, arguments, loaded, written) + "\n";
    text += WherePut(console, arguments, parts);
    text += ": " + TargetName(arguments, written.Unchanged) + ".";
    const bool cards = arguments.Target == Dialect::VCard30 || arguments.Target == Dialect::VCard40;
    // LDIF has those alone that were there, and tables have none.
    text += cards ? " UIDs stay the same on the next run.\n" : "\n";
    return text + PartsText(arguments, loaded.Book, parts);
}

std::string ImportText(const ImportForm& form, std::size_t files) {
    // What is no file that a program imports is put where the program looks for it.
    const bool imports = !form.Ending.empty();
    const std::string_view how = !imports ? "Use it " : files > 1 ? "Import each file " : "Import ";
    return std::string(how) + std::string(form.Where);
}

std::string PartsText(const Arguments& arguments,
                      const book::Book& book,
                      std::span<const FilePart> parts) {
    std::string text = FilesOf(parts);
    if (arguments.Form != nullptr) {
        text += NotShown(arguments, book);
        text += ImportText(*arguments.Form, parts.size()) + "\n";
    }
    return text;
}

}  // namespace orvik::book_cli
