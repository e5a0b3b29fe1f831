#include "desktop/book/book_document.h"

#include <QSignalSpy>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "book/charset.h"
#include "book/read_ldif.h"
#include "book/typed_views.h"

namespace orvik {
namespace {

// Puts three people into a document as the worker does.
void Fill(BookDocument& document) {
    const BookDocument::Snapshot read = document.snapshot();
    book::Book& book = read.Copy->Book;
    const std::uint32_t file = book.AddSource(std::make_unique<book::Source>(
        "a.ldif", "dn: cn=Al\ncn: Al\n\ndn: cn=Bo\ncn: Bo\n\ndn: cn=Cy\ncn: Cy\n"));
    book::Charset letters(book.SourceAt(file), {});
    book::ReadLdif(book, file, letters);
    document.takeOver(read,
                      QStringLiteral("Open"),
                      {},
                      std::vector<book::Contact>(book.Contacts.begin(), book.Contacts.end()));
}

std::string NamesIn(const BookDocument& document) {
    std::string names;
    for (const BookDocument::Number record : document.records()) {
        names += book::NameOf(document.book(), document.at(record)).Shown + " ";
    }
    return names;
}

TEST(BookDocument, KeepsTheNumbersOfRecords) {
    BookDocument document;
    Fill(document);
    EXPECT_EQ(NamesIn(document), "Al Bo Cy ");
    QSignalSpy changed(&document, &BookDocument::changed);
    QSignalSpy came_or_went(&document, &BookDocument::recordsChanged);
    document.remove(QStringLiteral("Delete"), {0});
    EXPECT_EQ(NamesIn(document), "Bo Cy ");
    EXPECT_FALSE(document.isThere(0));
    EXPECT_EQ(came_or_went.size(), 1);
    std::vector<book::Property> fields(document.at(1).Properties.begin(),
                                       document.at(1).Properties.end());
    fields[0].Value = document.keep("Ben");
    const book::Contact ben = document.withFields(document.at(1), fields);
    document.change(QStringLiteral("Rename"), {{1, ben}});
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(NamesIn(document), "Ben Cy ");
    EXPECT_EQ(document.add(QStringLiteral("Add"), {ben}), 3U);
    EXPECT_EQ(NamesIn(document), "Ben Cy Ben ");
    document.undoStack().undo();
    document.undoStack().undo();
    EXPECT_EQ(NamesIn(document), "Bo Cy ");
    document.undoStack().undo();
    EXPECT_EQ(NamesIn(document), "Al Bo Cy ");
    document.undoStack().undo();
    EXPECT_EQ(NamesIn(document), "");
    for (int i = 0; i < 4; ++i) {
        document.undoStack().redo();
    }
    EXPECT_EQ(NamesIn(document), "Ben Cy Ben ");
    EXPECT_EQ(document.thereCount(), 3U);
}

TEST(BookDocument, TakesOverWhatACopyHasLearnt) {
    BookDocument document;
    Fill(document);
    document.remove(QStringLiteral("Delete"), {0});
    const BookDocument::Snapshot copy = document.snapshot({2, 1});
    EXPECT_EQ(copy.Records, (BookDocument::Numbers{2, 1}));
    book::Book& book = copy.Copy->Book;
    book.Add(book.Contacts[0], book.Names.Intern("X-Own"), "1");
    EXPECT_EQ(document.at(2).Properties.size(), book.Contacts[0].Properties.size() - 1);
    document.takeOver(copy, QStringLiteral("Merge"), {{copy.Records[0], book.Contacts[0]}}, {});
    const book::Property& own = document.at(2).Properties.back();
    EXPECT_EQ(document.book().Names.Text(own.Name), "X-Own");
    document.undoStack().undo();
    EXPECT_EQ(document.at(2).Properties.size(), 1U);
}

}  // namespace
}  // namespace orvik
