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

// What the worker makes of a file with three people.
BookDocument::Snapshot Read(const BookDocument& document) {
    const BookDocument::Snapshot read = document.snapshot();
    book::Book& book = read.Copy->Book;
    const std::uint32_t file = book.AddSource(std::make_unique<book::Source>(
        "a.ldif", "dn: cn=Al\ncn: Al\n\ndn: cn=Bo\ncn: Bo\n\ndn: cn=Cy\ncn: Cy\n"));
    book::Charset letters(book.SourceAt(file), {});
    book::ReadLdif(book, file, letters);
    return read;
}

void Fill(BookDocument& document) {
    document.takeRead(Read(document), QStringLiteral("Open"));
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

TEST(BookDocument, PutsWhatIsReadBehindTheOthers) {
    BookDocument document;
    Fill(document);
    document.remove(QStringLiteral("Delete"), {1});
    document.undoStack().undo();
    document.remove(QStringLiteral("Delete"), {0});
    Fill(document);
    EXPECT_EQ(NamesIn(document), "Bo Cy Al Bo Cy ");
    EXPECT_EQ(document.book().SourceCount(), 2U);
    document.undoStack().undo();
    EXPECT_EQ(NamesIn(document), "Bo Cy ");
    EXPECT_EQ(document.thereCount(), 2U);
    document.undoStack().redo();
    EXPECT_EQ(NamesIn(document), "Bo Cy Al Bo Cy ");
}

TEST(BookDocument, KnowsWhatIsInNoFile) {
    BookDocument document;
    EXPECT_FALSE(document.isUnsaved());
    Fill(document);
    Fill(document);
    EXPECT_FALSE(document.isUnsaved()) << "reading changes nothing";
    document.undoStack().undo();
    EXPECT_FALSE(document.isUnsaved());
    document.remove(QStringLiteral("Delete"), {0});
    EXPECT_TRUE(document.isUnsaved());
    document.undoStack().undo();
    EXPECT_FALSE(document.isUnsaved());
    document.undoStack().redo();
    document.markSaved();
    EXPECT_FALSE(document.isUnsaved());
    Fill(document);
    EXPECT_FALSE(document.isUnsaved());
    document.undoStack().undo();
    document.undoStack().undo();
    EXPECT_TRUE(document.isUnsaved()) << "the file holds something else";
    document.remove(QStringLiteral("Delete"), {1});
    EXPECT_TRUE(document.isUnsaved()) << "nothing leads to what was saved";
}

TEST(BookDocument, JoinsANewRecordWithItsFirstChange) {
    BookDocument document;
    Fill(document);
    const auto with_name = [&document](BookDocument::Number record, const char* name) {
        std::vector<book::Property> fields = {{document.keep(name), book::field::kFn, 0, 0, 0}};
        return document.withFields(document.at(record), fields);
    };
    const BookDocument::Number made = document.add(QStringLiteral("Add"), {book::Contact()});
    document.change(QStringLiteral("Name"), {{made, with_name(made, "Di")}});
    document.change(QStringLiteral("Name"), {{made, with_name(made, "Eve")}});
    EXPECT_EQ(document.undoStack().count(), 3) << "read, added, changed";
    document.undoStack().undo();
    EXPECT_EQ(NamesIn(document), "Al Bo Cy Di ");
    document.undoStack().undo();
    EXPECT_EQ(NamesIn(document), "Al Bo Cy ");
    const BookDocument::Number empty = document.add(QStringLiteral("Add"), {book::Contact()});
    document.remove(QStringLiteral("Add"), {empty});
    EXPECT_EQ(document.undoStack().count(), 1) << "nothing has happened";
    EXPECT_FALSE(document.undoStack().canRedo());
    EXPECT_EQ(NamesIn(document), "Al Bo Cy ");
}

}  // namespace
}  // namespace orvik
