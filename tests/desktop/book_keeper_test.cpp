#include "desktop/book/book_keeper.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/charset.h"
#include "book/read_ldif.h"
#include "desktop/kept_records.h"

namespace orvik {
namespace {

using namespace std::chrono_literals;
using test::NamesOfCards;
using testing::IsEmpty;
using testing::SizeIs;

class BookKeeperTest : public testing::Test {
 protected:
    BookKeeperTest() {
        Read("/b/a.ldif", "dn: cn=Al\ncn: Al\n\ndn: cn=Bo\ncn: Bo\nshoeSize: 42\n\n");
    }
    void Read(const std::string& name, const std::string& ldif) {
        const BookDocument::Snapshot read = document.snapshot();
        book::Book& book = read.Copy->Book;
        const std::uint32_t file = book.AddSource(std::make_unique<book::Source>(name, ldif));
        book::Charset letters(book.SourceAt(file), {});
        book::ReadLdif(book, file, letters);
        document.takeRead(read, QStringLiteral("Open"));
    }
    void Rename(BookDocument::Number record, const char* name) {
        std::vector<book::Property> fields(document.at(record).Properties.begin(),
                                           document.at(record).Properties.end());
        for (book::Property& field : fields) {
            field.Value = field.Name == book::field::kFn ? document.keep(name) : field.Value;
        }
        document.change(QStringLiteral("Rename"),
                        {{record, document.withFields(document.at(record), fields)}});
    }
    // What is kept of the one book, "" for nothing.
    [[nodiscard]] std::string Kept() const {
        const auto copies = kept.Copies();
        return copies.size() == 1 ? NamesOfCards(copies.front()) : std::string();
    }
    [[nodiscard]] auto Left() { return RecoveryStore(kept.Files(), "book-recovery").LeftBooks(); }

    test::KeptRecords kept;
    BookDocument document;
    std::unique_ptr<BookKeeper> keeper = std::make_unique<BookKeeper>(document, kept.Files(), 50ms);
};

TEST_F(BookKeeperTest, KeepsAChangeInTime) {
    QTest::qWait(150);
    EXPECT_EQ(Kept(), "");
    Rename(0, "Ann");
    ASSERT_TRUE(QTest::qWaitFor([this] { return Kept() == "Ann Bo "; }));
    const RecoveryCopy copy = kept.Copies().front();
    EXPECT_TRUE(std::string_view(copy.Text).starts_with("BEGIN:VCARD\r\nVERSION:4.0\r\n"));
    EXPECT_THAT(std::string(copy.Text), testing::HasSubstr("42\r\n"));
    EXPECT_EQ(copy.Mode, "vCard");
    EXPECT_EQ(copy.Entries, 2U);
    EXPECT_GT(copy.Seconds, 1'700'000'000);
    EXPECT_EQ(BookKeeper::filesOf(copy), QStringList{QStringLiteral("/b/a.ldif")});
    // Nobody else reads it.
    const QFileInfo folder(kept.Root().entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot).front());
    EXPECT_EQ(folder.permissions() & 0x0FFF, QFileInfo(kept.Root().path()).permissions() & 0x0FFF);
    EXPECT_FALSE(folder.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther));
    const QFileInfo file(folder.filePath() + QStringLiteral("/book"));
    EXPECT_FALSE(file.permissions() & (QFile::ReadGroup | QFile::ReadOther));
    // What follows is kept, too.
    document.remove(QStringLiteral("Delete"), {1});
    EXPECT_TRUE(QTest::qWaitFor([this] { return Kept() == "Ann "; }));
}

// As at a signal, and at a log-out that may not ask.
TEST_F(BookKeeperTest, KeepsAtOnceWhenAsked) {
    keeper = std::make_unique<BookKeeper>(document, kept.Files());
    Rename(0, "Ann");
    keeper->keepNow();
    EXPECT_EQ(Kept(), "Ann Bo ");
    Rename(1, "Ben");
    keeper->keepNow();
    EXPECT_EQ(Kept(), "Ann Ben ");
    keeper->keepNow();
    EXPECT_THAT(Left(), IsEmpty());
    keeper.reset();
    EXPECT_THAT(Left(), SizeIs(1));
}

TEST_F(BookKeeperTest, WhatIsSavedOrUndoneIsNotKept) {
    Rename(0, "Ann");
    keeper->keepNow();
    document.markSaved();
    EXPECT_TRUE(QTest::qWaitFor([this] { return kept.Copies().empty(); }));
    Rename(0, "Amy");
    keeper->keepNow();
    EXPECT_EQ(Kept(), "Amy Bo ");
    document.undoStack().undo();
    EXPECT_TRUE(QTest::qWaitFor([this] { return kept.Copies().empty(); }));
    document.undoStack().redo();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Kept() == "Amy Bo "; }));
    document.markSaved();
    keeper.reset();
    EXPECT_FALSE(kept.Root().exists());
}

TEST_F(BookKeeperTest, WhatIsSavedWhileItIsMadeIsNotKept) {
    for (int i = 0; i < 20; ++i) {
        Rename(0, i % 2 == 0 ? "Ann" : "Amy");
        QTest::qWait(7 + i);
        document.markSaved();
    }
    QTest::qWait(200);
    EXPECT_THAT(kept.Copies(), IsEmpty());
}

TEST_F(BookKeeperTest, WithoutRecordsTheLastCopyStays) {
    Rename(0, "Ann");
    keeper->keepNow();
    document.remove(QStringLiteral("Delete"), {0, 1});
    keeper->keepNow();
    QTest::qWait(150);
    EXPECT_EQ(Kept(), "Ann Bo ");
}

TEST_F(BookKeeperTest, NamesAllFiles) {
    Read("/c/b.ldif", "dn: cn=Cy\ncn: Cy\n\n");
    keeper->keepNow();
    // To read is no change.
    EXPECT_THAT(kept.Copies(), IsEmpty());
    Rename(0, "Al");
    keeper->keepNow();
    EXPECT_EQ(Kept(), "Al Bo Cy ");
    const RecoveryCopy copy = kept.Copies().front();
    EXPECT_EQ(BookKeeper::filesOf(copy),
              (QStringList{QStringLiteral("/b/a.ldif"), QStringLiteral("/c/b.ldif")}));
    EXPECT_EQ(BookKeeper::nameOf(copy), "/b/a.ldif, b.ldif (restored)");
    EXPECT_EQ(BookKeeper::nameOf({}), " (restored)");
}

TEST_F(BookKeeperTest, ARestoredCopyGoesOnceTheBookIsKept) {
    kept.Leave({.Text = "BEGIN:VCARD\r\nFN:Old\r\nEND:VCARD\r\n", .Mode = "vCard"});
    auto left = keeper->leftBooks();
    ASSERT_THAT(left, SizeIs(1));
    Read(BookKeeper::nameOf({.File = "/b/old.vcf"}), "dn: cn=Old\ncn: Old\n\n");
    document.markUnsaved();
    keeper->adopt(std::move(left.front()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Kept() == "Al Bo Old "; }));
    EXPECT_EQ(BookKeeper::filesOf(kept.Copies().front()).back(), QStringLiteral("/b/old.vcf"));
    document.markSaved();
    EXPECT_TRUE(QTest::qWaitFor([this] { return kept.Copies().empty(); }));
}

// Neither takes the other's.
TEST_F(BookKeeperTest, StandsApartFromTheMainWindow) {
    { RecoveryStore(kept.Files()).Keep({.Text = "A1\r\n-nick-\r\nAl\r\n", .Mode = "Native"}); }
    EXPECT_THAT(keeper->leftBooks(), IsEmpty());
    Rename(0, "Ann");
    keeper->keepNow();
    keeper.reset();
    EXPECT_THAT(RecoveryStore(kept.Files()).LeftBooks(), SizeIs(1));
    EXPECT_THAT(Left(), SizeIs(1));
}

TEST_F(BookKeeperTest, SaysOnceWhatCannotBeKept) {
    QDir(kept.Folder()).mkpath(QStringLiteral("orvik"));
    QFile file(kept.Root().path());
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    QSignalSpy failed(keeper.get(), &BookKeeper::failed);
    Rename(0, "Ann");
    ASSERT_TRUE(failed.wait());
    EXPECT_FALSE(failed[0][0].toString().isEmpty());
    Rename(0, "Amy");
    QTest::qWait(200);
    EXPECT_EQ(failed.size(), 1);
    // It is tried again.
    file.remove();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Kept() == "Amy Bo "; }));
}

}  // namespace
}  // namespace orvik
