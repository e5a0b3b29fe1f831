#include "book_cli/told.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>

#include "app/printable.h"
#include "book/typed_views.h"

namespace orvik::book_cli {
namespace {

using book::What;

// Nobody reads more at a terminal; the report has all.
constexpr std::size_t kMostTold = 20;

void TellKind(Console& console, const book::Book& book, What kind) {
    std::size_t told = 0;
    for (const book::Remark& one : book.Told.Remarks()) {
        if (one.Kind == kind && ++told <= kMostTold) {
            console.Begin(book.SourceAt(one.File).Name());
            console.Tell(RemarkText(book, one));
        }
    }
    console.End();
    if (told > kMostTold) {
        console.Tell(std::to_string(told - kMostTold) + " more " + std::string(NameOf(kind)) +
                     "; --report FILE names all");
    }
}

// "list "Team": 3 members found in PMAIL1.TXT, PMAIL2.TXT; 1 list inside"; empty for a list with
// nobody from another file.
std::string FoundMembers(const Catalogue& catalogue, const book::Contact& list) {
    const book::Book& book = catalogue.Book();
    const bool named = std::any_of(
        list.Properties.begin(), list.Properties.end(), [&book](const book::Property& one) {
            return one.Name == book::field::kMember && IsNamedMember(book, one);
        });
    if (list.Kind != book::ContactKind::List || !named) {
        return {};
    }
    std::set<std::uint32_t> files;
    std::size_t people = 0;
    std::size_t lists = 0;
    bool others = false;
    for (const book::ListMember& member : catalogue.Members().MembersOf(list)) {
        if (member.Record == book::ListMember::kNobody) {
            // A list by the name of its file is one, even if that is not here.
            lists += member.Name.starts_with('@') ? 1U : 0U;
            continue;
        }
        const book::Contact& found = book.Contacts[member.Record];
        others = others || found.From.File != list.From.File;
        if (found.Kind == book::ContactKind::List) {
            ++lists;
        } else if (found.From.File != list.From.File) {
            ++people;
            files.insert(found.From.File);
        }
    }
    if (!others) {
        return {};
    }
    std::string text = "list \"" + Printable(Shortened(book::NameOf(book, list).Shown)) + "\"";
    const char* before = ": ";
    if (people > 0) {
        text += before + Counted(people, "member", "members") + " found";
        before = " in ";
        for (const std::uint32_t file : files) {
            text += before + Printable(book.SourceAt(file).Name());
            before = ", ";
        }
        before = "; ";
    }
    return text + (lists > 0 ? before + Counted(lists, "list", "lists") + " inside" : "");
}

}  // namespace

std::string Counted(std::size_t count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string GroupedCount(std::size_t count, const std::string& one, const std::string& many) {
    return Grouped(count) + " " + (count == 1 ? one : many);
}

std::string RangeOf(const std::string& first, const std::string& last) {
    return Printable(first) + (first == last ? "" : " to " + Printable(last));
}

std::string RemarkWords(const book::Book& book, const book::Remark& remark) {
    std::string text(remark.Field);
    text += remark.Field.empty() || remark.Value.empty() ? "" : " ";
    if (!remark.Value.empty()) {
        text.append("\"").append(Shortened(remark.Value)).append("\"");
    }
    text += text.empty() ? "it " : ": ";
    text += WordsFor(remark.Why);
    if (remark.Target != book::FieldNames::kNone) {
        text += " (" + std::string(book.Names.Text(remark.Target)) + ")";
    }
    return Printable(text);
}

std::string RemarkText(const book::Book& book, const book::Remark& remark) {
    // People of mail stand in no line.
    std::string text = remark.Line == 0 ? "" : "line " + std::to_string(remark.Line) + ": ";
    return text.append(NameOf(remark.Kind)).append(": ") + RemarkWords(book, remark);
}

void TellCharsets(Console& console, const Loaded& loaded) {
    for (std::uint32_t i = 0; i < loaded.Inputs.size(); ++i) {
        if (loaded.Inputs[i].CharsetIsDoubtful) {
            console.Begin(loaded.Book.SourceAt(i).Name());
            console.Tell(Printable(loaded.Inputs[i].Charset) + "; --charset names another set");
        }
    }
    console.End();
}

void TellColumns(Console& console, const Loaded& loaded) {
    for (std::uint32_t i = 0; i < loaded.Inputs.size(); ++i) {
        if (!loaded.Inputs[i].Columns.empty()) {
            console.Begin(loaded.Book.SourceAt(i).Name());
            console.Tell(Printable(loaded.Inputs[i].Columns));
        }
    }
    console.End();
}

void TellFoundMembers(Console& console, const Loaded& loaded) {
    if (loaded.Inputs.size() < 2) {
        return;
    }
    const Catalogue catalogue(loaded.Book);
    std::size_t told = 0;
    for (const book::Contact& contact : loaded.Book.Contacts) {
        const std::string text = FoundMembers(catalogue, contact);
        if (!text.empty() && ++told <= kMostTold) {
            console.Begin(loaded.Book.SourceAt(contact.From.File).Name());
            console.Tell(text);
        }
    }
    console.End();
    if (told > kMostTold) {
        console.Tell(std::to_string(told - kMostTold) + " more lists with members in other files");
    }
}

void TellNotCompared(Console& console, const std::vector<std::string>& notes) {
    for (std::size_t i = 0; i < std::min(notes.size(), kMostTold); ++i) {
        console.Tell("not compared: " + notes[i]);
    }
    if (notes.size() > kMostTold) {
        console.Tell(std::to_string(notes.size() - kMostTold) +
                     " more were not compared; a plan names all");
    }
}

void TellRemarks(Console& console, const Loaded& loaded) {
    for (const What kind : {What::Lost, What::Skipped, What::Doubtful}) {
        TellKind(console, loaded.Book, kind);
    }
}

std::string SummaryTail(const book::Book& book) {
    std::string text;
    for (const What kind : {What::Doubtful, What::Skipped}) {
        if (const std::size_t count = book.Told.Count(kind); count > 0) {
            text += "   " + std::string(NameOf(kind)) + " " + std::to_string(count);
        }
    }
    return text;
}

void AddMissingMembers(book::Book& book, const Catalogue& catalogue) {
    for (const book::Contact& contact : book.Contacts) {
        for (const book::ListMember& member : catalogue.Members().MembersOf(contact)) {
            TellMember(book, contact, *member.Field, member);
        }
    }
}

std::string RemarksReport(const book::Book& book) {
    std::string text;
    for (const book::Remark& one : book.Told.Remarks()) {
        const bool known = one.Target != book::FieldNames::kNone;
        text += ReportLine({NameOf(one.Kind),
                            book.SourceAt(one.File).Name(),
                            one.Line,
                            one.Field,
                            one.Value,
                            known ? book.Names.Text(one.Target) : std::string_view{},
                            WordsFor(one.Why)});
    }
    return text;
}

std::string InputsReport(const Loaded& loaded) {
    const book::Book& book = loaded.Book;
    std::string text;
    for (std::uint32_t i = 0; i < loaded.Inputs.size(); ++i) {
        if (loaded.Inputs[i].CharsetIsDoubtful) {
            text += ReportLine({NameOf(What::Doubtful),
                                book.SourceAt(i).Name(),
                                1,
                                {},
                                {},
                                {},
                                loaded.Inputs[i].Charset});
        }
        if (!loaded.Inputs[i].Columns.empty()) {
            text += ReportLine({NameOf(What::Read),
                                book.SourceAt(i).Name(),
                                1,
                                {},
                                {},
                                {},
                                loaded.Inputs[i].Columns});
        }
    }
    return text;
}

std::string ReportOf(const Loaded& loaded) {
    const book::Book& book = loaded.Book;
    std::string text = InputsReport(loaded);
    const auto add_read = [&](const book::Contact& one) {
        const std::string name = book::NameOf(book, one).Shown;
        text += ReportLine({NameOf(What::Read),
                            book.SourceAt(one.From.File).Name(),
                            one.From.Line,
                            {},
                            name,
                            {},
                            {}});
    };
    std::for_each(book.Contacts.begin(), book.Contacts.end(), add_read);
    std::for_each(loaded.Labels.begin(), loaded.Labels.end(), add_read);
    for (const book::Contact& one : loaded.LeftOut) {
        const std::string name = book::NameOf(book, one).Shown;
        text += ReportLine({"left out",
                            book.SourceAt(one.From.File).Name(),
                            one.From.Line,
                            {},
                            name,
                            {},
                            "is in an older book"});
    }
    text += RemarksReport(book);
    if (const std::size_t kept = book.Told.Count(What::Kept); kept > 0) {
        const std::string count = std::to_string(kept);
        text += ReportLine({NameOf(What::Kept), {}, 0, {}, count, {}, "values are as they were"});
    }
    return text;
}

std::string ReportOf(std::span<const FilePart> parts) {
    std::string text;
    for (const FilePart& one : parts) {
        const std::string count = std::to_string(one.Records);
        text += ReportLine({"written", one.Name, 0, {}, count, {}, "records are in this file"});
    }
    return text;
}

std::string ListHint(const Arguments& arguments, const book::Book& book) {
    if (arguments.Form == nullptr || arguments.Form->TakesLists || !HasLists(book)) {
        return {};
    }
    const ImportForm& other = FormFor(*arguments.For, true);
    const std::string title(arguments.For->Title);
    const std::string file = " from a " + std::string(other.Ending) + " file";
    return !other.TakesLists ? ""
           : other.Form == book::Dialect::PegasusList
               ? title + " takes a list" + file + ", made of a book of that list and its members"
               : title + " takes lists" + file;
}

std::string Refusal(const book::Book& book, bool allow_loss) {
    const std::size_t lost = book.Told.Count(What::Lost);
    return lost == 0 || allow_loss
               ? std::string()
               : Counted(lost, "value", "values") +
                     " would be lost, so nothing is written; --allow-loss writes the rest";
}

cli::ExitStatus StatusOf(const book::Book& book) {
    const bool whole = book.Told.Count(What::Skipped) == 0 && book.Told.Count(What::Lost) == 0;
    return whole ? cli::ExitStatus::Done : cli::ExitStatus::Problem;
}

cli::ExitStatus Worse(cli::ExitStatus one, cli::ExitStatus other) {
    return std::max(one, other);
}

}  // namespace orvik::book_cli
