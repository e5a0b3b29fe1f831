#include "book/old/write_plain_list.h"

#include "book/csv_lists.h"
#include "book/identity.h"
#include "book/members.h"
#include "book/old/quoted_box.h"

namespace orvik::book {

std::string WritePlainList(Book& book) {
    const Identities identities(book);
    const Directory directory(book, identities);
    // Tells that they are lost.
    const CsvLists lists(book, directory, Reason::NoLists);
    std::string text;
    Fitting person(book, {});
    std::size_t done = 0;
    for (const Contact& contact : book.Contacts) {
        if (contact.Kind == ContactKind::Person) {
            person.Begin(contact);
            AppendBoxes(person, "\"", text);
            static_cast<void>(person.Rest({}));
        }
        book.CountWritten(++done);
    }
    return text;
}

}  // namespace orvik::book
