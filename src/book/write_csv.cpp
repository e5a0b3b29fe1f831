#include "book/write_csv.h"

#include <algorithm>
#include <utility>

#include "book/csv_layout.h"
#include "book/csv_lists.h"
#include "book/csv_person.h"
#include "book/csv_row_writer.h"
#include "book/identity.h"
#include "book/members.h"
#include "book/windows_1252.h"

namespace orvik::book {
namespace {

// How many numbered columns the person with the most of them needs.
class NumberedNeeds {
 public:
    NumberedNeeds(const Book& book, CsvProgram program) : book_(book), program_(program) {}

    CsvNumbered Count() {
        CsvNumbered most;
        for (const Contact& contact : book_.Contacts) {
            if (contact.Kind == ContactKind::List) {
                continue;
            }
            const CsvNumbered one = Of(contact);
            const auto take = [](std::uint32_t& to, std::uint32_t count) {
                to = std::min(std::max(to, count), CsvNumbered::kMost);
            };
            take(most.Emails, one.Emails);
            take(most.Phones, one.Phones);
            take(most.Posts, one.Posts);
            take(most.Relations, one.Relations);
            take(most.Urls, one.Urls);
        }
        return most;
    }

 private:
    CsvNumbered Of(const Contact& contact) {
        CsvNumbered count;
        std::uint32_t related = 0;
        for (const Property& one : contact.Properties) {
            if (!MayBeNumbered(book_, one)) {
                continue;
            }
            switch (one.Name) {
                case field::kEmail:
                    ++count.Emails;
                    break;
                case field::kTel:
                    ++count.Phones;
                    break;
                case field::kAdr:
                    ++count.Posts;
                    break;
                case field::kUrl:
                    ++count.Urls;
                    break;
                case field::kRelated:
                    ++related;
                    break;
                default:
                    count.Relations = std::max(count.Relations, RelationOf(one));
            }
        }
        count.Relations = std::min(count.Relations, CsvNumbered::kMost) + related;
        return count;
    }

    // The number of a relation that came from a column of its own.
    std::uint32_t RelationOf(const Property& one) {
        if (!StartsAsName(book_.Names.Text(one.Name), kCarriedFromCsv)) {
            return 0;
        }
        const auto [place, is_new] = relations_.try_emplace({one.Name, one.Details});
        if (is_new) {
            const CsvTarget target = CarriedTarget(book_, one, program_);
            const bool relation = target.Name.starts_with("relation");
            place->second = relation && target.Number <= CsvNumbered::kMost ? target.Number : 0;
        }
        return place->second;
    }

    const Book& book_;
    CsvProgram program_;
    std::map<std::pair<NameId, std::uint32_t>, std::uint32_t> relations_;
};

}  // namespace

std::string WriteCsv(Book& book, CsvProgram program) {
    const bool classic = program == CsvProgram::Outlook;
    const CsvNumbered numbered =
        program == CsvProgram::Google ? NumberedNeeds(book, program).Count() : CsvNumbered{};
    const CsvLayout layout(program, numbered);
    const Identities identities(book);
    const Directory directory(book, identities);
    const bool labels = program != CsvProgram::Thunderbird;
    const CsvLists lists(book, directory, labels ? Reason::None : Reason::NoLists);
    const Windows1252 letters;
    std::string text = program == CsvProgram::OutlookNew ? "\xEF\xBB\xBF" : "";
    text.reserve(book.LikelyLength() + book.Contacts.size() * layout.Columns().size());
    const bool outlook = program == CsvProgram::Outlook || program == CsvProgram::OutlookNew;
    CsvRowWriter row(layout.Columns().size(),
                     program == CsvProgram::Thunderbird ? "\n" : "\r\n",
                     outlook ? "\r\n" : "\n",
                     text);
    for (std::size_t i = 0; i < layout.Columns().size(); ++i) {
        row.Cell(i) = layout.Columns()[i].Header;
    }
    row.End();
    CsvPersonWriter writer(book, program, layout, letters, row);
    for (std::size_t i = 0; i < book.Contacts.size(); ++i) {
        if (book.Contacts[i].Kind == ContactKind::Person) {
            writer.Write(book.Contacts[i], lists.Of(i));
        }
        book.CountWritten(i + 1);
    }
    if (!classic) {
        return text;
    }
    std::string bytes;
    bytes.reserve(text.size());
    letters.Append(text, bytes);
    return bytes;
}

}  // namespace orvik::book
