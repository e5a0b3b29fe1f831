#include "book_cli/written.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "book/arena.h"
#include "book/csv_rows.h"
#include "book/labelled_members.h"
#include "book/old/old_writers.h"
#include "book/typed_views.h"
#include "book/unchanged.h"
#include "book/utf8.h"
#include "book/write_csv.h"
#include "book/write_ldif.h"
#include "book/write_vcard.h"
#include "book_cli/json_lines.h"
#include "book_cli/split.h"

namespace orvik::book_cli {
namespace {

using book::Dialect;

// The header belongs to each file.
book::RecordPlaces PlacesOfRows(std::string_view text) {
    book::RecordPlaces places;
    book::Arena texts;
    book::CsvRows rows(text, ',', texts);
    book::CsvRow row;
    for (bool header = true; rows.Next(row); header = false) {
        if (!header) {
            places.push_back(static_cast<std::size_t>(row.Span.data() - text.data()));
        }
    }
    places.push_back(text.size());
    return places;
}

book::GroupForm GroupFormOf(const Arguments& arguments) {
    return arguments.Form == nullptr ? book::GroupForm::Prefix : arguments.Form->Groups;
}

std::string TextOf(const Arguments& arguments, book::Book& book, book::RecordPlaces* places) {
    if (const book::OldWriter* const old = book::OldWriterOf(arguments.Target); old != nullptr) {
        return old->Write(book);
    }
    if (arguments.Target == Dialect::Csv) {
        std::string text = book::WriteCsv(book, arguments.Form->Table);
        if (places != nullptr) {
            *places = PlacesOfRows(text);
        }
        return text;
    }
    return arguments.Target == Dialect::Ldif
               ? book::WriteLdif(book, arguments.Set, places)
               : book::WriteVCard(book, arguments.Target, places, GroupFormOf(arguments));
}

// The lists of a book. Rows of a table are people alone.
std::vector<ListGroup> GroupsOf(const book::Book& book) {
    const Catalogue catalogue(book);
    std::vector<ListGroup> groups;
    for (std::size_t i = 0; i < book.Contacts.size(); ++i) {
        if (book.Contacts[i].Kind != book::ContactKind::List) {
            continue;
        }
        groups.push_back({i, {}});
        for (const book::ListMember& one : catalogue.Members().MembersOf(book.Contacts[i])) {
            if (one.Record != book::ListMember::kNobody) {
                groups.back().Members.push_back(one.Record);
            }
        }
    }
    return groups;
}

// Records that an old format holds nothing of.
std::size_t LostWhole(const book::Book& book, const book::OldWriter& writer) {
    const std::string_view name = book.Names.Text(book::field::kFn);
    return static_cast<std::size_t>(std::count_if(
        book.Told.Remarks().begin(), book.Told.Remarks().end(), [&](const book::Remark& one) {
            const bool list = one.Why == book::Reason::NoLists ||
                              one.Why == book::Reason::NotAlone || one.Why == book::Reason::Empty;
            return one.Kind == book::What::Lost && one.Field == name &&
                   (one.Why == book::Reason::NoAddress || (list && writer.HoldsLists));
        }));
}

// Programs take UTF-8 alone, and no mark before the first card. What has other bytes is written
// anew. Returns whether no file may stay as it is.
bool ChangeUnfit(book::Book& book) {
    bool unfit = false;
    std::vector<bool> broken(book.SourceCount());
    for (std::uint32_t i = 0; i < broken.size(); ++i) {
        const book::Source& source = book.SourceAt(i);
        broken[i] = source.Signs().NotAscii && book::CountUtf8(source.Text()).Bad > 0;
        unfit = unfit || broken[i] || source.HasMark();
    }
    for (book::Contact& contact : book.Contacts) {
        // Those that came from no file have no bytes.
        const std::string_view bytes = book.BytesOf(contact);
        const bool bad =
            !bytes.empty() && broken[contact.From.File] && book::CountUtf8(bytes).Bad > 0;
        contact.Changed = contact.Changed || bad;
    }
    return unfit;
}

}  // namespace

Written Write(const Arguments& arguments, Loaded& loaded, Console& console) {
    book::Book& book = loaded.Book;
    Written written;
    const bool unfit = arguments.For != nullptr && ChangeUnfit(book);
    if (arguments.Form != nullptr && arguments.Form->ListsAsCategories) {
        loaded.Labels = book::LabelMembers(book);
    }
    const bool table = arguments.Target == Dialect::Csv;
    const book::OldWriter* const old = book::OldWriterOf(arguments.Target);
    const bool people_alone = old != nullptr ? !old->HoldsLists : table;
    written.Records =
        people_alone
            ? static_cast<std::size_t>(std::count_if(
                  book.Contacts.begin(),
                  book.Contacts.end(),
                  [](const book::Contact& one) { return one.Kind == book::ContactKind::Person; }))
            : book.Contacts.size();
    const auto as_read = table || old != nullptr || arguments.Set || arguments.Split > 0
                             ? std::nullopt
                             : book::UnchangedFile(book, arguments.Target);
    const bool measured = arguments.Form != nullptr && arguments.Form->Most.RecordBytes > 0;
    const bool wants_places = arguments.Split > 0 || unfit || (measured && !as_read);
    book.HowFar = console.ProgressOf("writing");
    console.Begin(arguments.Output);
    written.Text = TextOf(arguments, book, wants_places ? &written.Places : nullptr);
    console.End();
    written.Records -= old == nullptr ? 0 : LostWhole(book, *old);
    written.Unchanged = as_read && *as_read == written.Text;
    return written;
}

bool MaySplit(Dialect target) {
    return book::OldWriterOf(target) == nullptr;
}

std::vector<FilePart> Cut(const Arguments& arguments, book::Book& book, const Written& written) {
    const std::string_view text = written.Text;
    const book::RecordPlaces& places = written.Places;
    const auto groups =
        arguments.Target == Dialect::Csv ? std::vector<ListGroup>() : GroupsOf(book);
    const Layout layout = LayOut(places.size() - 1, arguments.Split, groups);
    for (const std::size_t list : layout.Torn) {
        const book::Contact& contact = book.Contacts[list];
        book.Told.Add({{},
                       book.Keep(book::NameOf(book, contact).Shown),
                       contact.From.File,
                       contact.From.Line,
                       book::FieldNames::kNone,
                       book::What::Doubtful,
                       book::Reason::Elsewhere});
    }
    // A book of nobody is a file, too.
    const std::size_t count = std::max<std::size_t>(layout.Files.size(), 1);
    std::vector<FilePart> parts;
    for (std::size_t file = 0; file < count; ++file) {
        std::string part(text.substr(0, places.front()));
        const std::size_t records = file < layout.Files.size() ? layout.Files[file].size() : 0;
        for (std::size_t i = 0; i < records; ++i) {
            const std::size_t record = layout.Files[file][i];
            part.append(text.substr(places[record], places[record + 1] - places[record]));
        }
        parts.push_back({{}, std::move(part), records});
    }
    NameParts(arguments.Output, parts);
    return parts;
}

void NameParts(const std::string& name, std::vector<FilePart>& parts) {
    std::vector<std::string> names = PartNames(name, parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i].Name = std::move(names[i]);
    }
}

}  // namespace orvik::book_cli
