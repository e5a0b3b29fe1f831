#include "desktop/book/book_windows.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/typed_views.h"
#include "desktop/kept_records.h"
#include "desktop/modal_user.h"

namespace orvik {
namespace {

using namespace std::chrono_literals;
using test::NamesOfCards;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string NamesIn(BookWindow& window) {
    std::string names;
    for (const BookDocument::Number record : window.document().records()) {
        names += book::NameOf(window.document().book(), window.document().at(record)).Shown + " ";
    }
    return names;
}

class BookWindowsTest : public testing::Test {
 protected:
    std::string Write(const char* name, const std::string& contents) {
        const std::string file = kept.Folder().toStdString() + "/" + name;
        std::ofstream(file) << contents;
        return file;
    }
    static std::vector<BookWindow::Input> Named(const std::vector<std::string>& names) {
        std::vector<BookWindow::Input> inputs;
        for (const std::string& name : names) {
            inputs.push_back({name});
        }
        return inputs;
    }
    static void Finish(BookWindow& window) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.worker().isBusy(); }));
    }
    BookWindow& OpenTwo() {
        BookWindow& window =
            windows->open(Named({Write("two.ldif", "dn: cn=Al\ncn: Al\n\ndn: cn=Bo\ncn: Bo\n")}));
        Finish(window);
        return window;
    }
    // Presses these buttons of the boxes while something is done; returns what they said.
    static std::vector<std::string> Answer(const std::vector<const char*>& buttons,
                                           const std::function<void()>& act) {
        std::vector<std::string> said;
        std::vector<std::function<void()>> acts;
        for (const char* const button : buttons) {
            acts.emplace_back([&said, button] {
                QMessageBox& box = test::ModalUser::box();
                said.push_back(box.text().toStdString());
                for (QAbstractButton* const shown : box.buttons()) {
                    if (shown->text() == QLatin1String(button)) {
                        shown->click();
                        return;
                    }
                }
                QTest::keyClick(&box, Qt::Key_Escape);
            });
        }
        const test::ModalUser user(std::move(acts));
        act();
        EXPECT_TRUE(QTest::qWaitFor([&] { return user.done() >= buttons.size(); }));
        QTest::qWait(20);
        EXPECT_EQ(user.done(), buttons.size());
        return said;
    }
    void LeaveTwo() {
        kept.Leave({.Text = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Ann\r\nEND:VCARD\r\n",
                    .Mode = "vCard",
                    .File = std::string("/b/new\ner.ldif\0/b/c.vcf", 23),
                    .Entries = 1,
                    .Seconds = 1'700'000'000});
        kept.Leave({.Text = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Ben\r\nX-OWN:1\r\nEND:VCARD\r\n"
                            "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Cy\r\nEND:VCARD\r\n",
                    .Mode = "vCard",
                    .File = "/b/older.ldif",
                    .Entries = 2,
                    .Seconds = 1'600'000'000});
    }
    [[nodiscard]] auto Shown() const {
        std::vector<BookWindow*> shown;
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (auto* const window = qobject_cast<BookWindow*>(widget);
                window != nullptr && window->isVisible()) {
                shown.push_back(window);
            }
        }
        return shown;
    }

    test::KeptRecords kept;
    RecentBooks recent{kept.Files(),
                       kept.Folder().toStdString() + "/books",
                       kept.Folder().toStdString() + "/recent.xbel"};
    std::unique_ptr<BookWindows> windows = std::make_unique<BookWindows>(
        kept.Files(), recent, kept.Folder() + QStringLiteral("/window.conf"), 50ms);
};

TEST_F(BookWindowsTest, FilesAreReadAndRemembered) {
    const std::string one = Write("one.ldif", "dn: cn=Al\ncn: Al\nmail: al@example.org\n");
    const std::string no_book = Write("no.txt", "Dear all,\nthis is a letter.\n");
    const std::string other = Write("other.vcf", "BEGIN:VCARD\r\nFN:Bo\r\nEND:VCARD\r\n");
    EXPECT_FALSE(windows->areOpen());
    BookWindow& window = windows->open(Named({one, no_book, "/none/at/all.vcf", other}));
    Finish(window);
    EXPECT_EQ(NamesIn(window), "Al Bo ");
    EXPECT_THAT(recent.Books(), ElementsAre(other, one));
    EXPECT_FALSE(window.document().isUnsaved());
    EXPECT_EQ(window.property("helpTopic").toString(), QStringLiteral("book.html"));
    window.close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !windows->areOpen(); }));
}

TEST_F(BookWindowsTest, TheMainWindowsEntriesAreReadAsTheyStand) {
    windows->openList("/b/book.ldif",
                      "\"Ada Berg\" <ada@example.org>\r\n\"Team\" <a@b.org, c@d.org>\r\n"
                      "\"Nobody\" <>\r\n\"\" <root>\r\n\"J\xFCrgen\" <local>\r\n");
    ASSERT_THAT(Shown(), SizeIs(1));
    BookWindow& window = *Shown().front();
    Finish(window);
    EXPECT_EQ(NamesIn(window), "Ada Berg Team Nobody root J\xC3\xBCrgen ");
    const book::Book& book = window.document().book();
    EXPECT_EQ(book.SourceAt(0).Name(), "/b/book.ldif");
    EXPECT_THAT(book::AddressesOf(window.document().at(1)), ElementsAre("a@b.org, c@d.org"));
    EXPECT_FALSE(window.document().isUnsaved());
    // It is no file that was opened.
    EXPECT_THAT(recent.Books(), IsEmpty());
}

TEST_F(BookWindowsTest, ADoubleClickOpensOneWindow) {
    windows->openEmpty();
    windows->openEmpty();
    windows->openList("/b/book.ldif", "<a@b.org>\r\n");
    EXPECT_THAT(Shown(), SizeIs(1));
    QTest::qWait(QApplication::doubleClickInterval() + 1);
    windows->openList("/b/book.ldif", "<a@b.org>\r\n");
    ASSERT_THAT(Shown(), SizeIs(2));
    Finish(*Shown().back());
}

TEST_F(BookWindowsTest, ClosingAsksAboutChanges) {
    BookWindow& window = OpenTwo();
    window.document().remove(QStringLiteral("Delete"), {0});
    ASSERT_TRUE(QTest::qWaitFor([this] { return kept.Copies().size() == 1; }));
    EXPECT_EQ(NamesOfCards(kept.Copies().front()), "Bo ");
    const auto said = Answer({"Escape"}, [&] { window.close(); });
    EXPECT_THAT(said, ElementsAre(HasSubstr("in no file yet")));
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(kept.Copies(), SizeIs(1));
    Answer({"&Discard"}, [&] { window.close(); });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !windows->areOpen(); }));
    EXPECT_THAT(kept.Copies(), IsEmpty());
    EXPECT_FALSE(kept.Root().exists());
}

TEST_F(BookWindowsTest, WhatIsSavedOrUndoneClosesWithoutAQuestion) {
    BookWindow& saved = OpenTwo();
    saved.document().remove(QStringLiteral("Delete"), {0});
    saved.document().markSaved();
    saved.close();
    BookWindow& undone = OpenTwo();
    undone.document().remove(QStringLiteral("Delete"), {0});
    undone.document().undoStack().undo();
    undone.close();
    // And so does what is empty again.
    BookWindow& empty = OpenTwo();
    empty.document().undoStack().undo();
    empty.close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !windows->areOpen(); }));
    windows.reset();
    EXPECT_FALSE(kept.Root().exists());
}

TEST_F(BookWindowsTest, ALogOutAsksAboutEachBook) {
    BookWindow& one = OpenTwo();
    BookWindow& other = OpenTwo();
    OpenTwo();
    one.document().remove(QStringLiteral("Delete"), {0});
    other.document().remove(QStringLiteral("Delete"), {1});
    bool may = true;
    Answer({"&Discard", "Escape"}, [&] { may = windows->mayLogOut(); });
    EXPECT_FALSE(may);
    // The session goes on, and so does everything.
    windows->keepNow();
    EXPECT_THAT(kept.Copies(), SizeIs(2));
    Answer({"&Discard", "&Discard"}, [&] { may = windows->mayLogOut(); });
    EXPECT_TRUE(may);
    EXPECT_THAT(kept.Copies(), SizeIs(2));
    windows->endForLogOut();
    EXPECT_FALSE(windows->areOpen());
    EXPECT_THAT(kept.Copies(), IsEmpty());
}

TEST_F(BookWindowsTest, ALogOutThatMayNotAskKeepsAll) {
    BookWindow& one = OpenTwo();
    one.document().remove(QStringLiteral("Delete"), {0});
    windows->keepNow();
    EXPECT_THAT(kept.Copies(), SizeIs(1));
    windows.reset();
    EXPECT_THAT(RecoveryStore(kept.Files(), "book-recovery").LeftBooks(), SizeIs(1));
}

TEST_F(BookWindowsTest, WhatWasLeftIsOfferedAndRestored) {
    LeaveTwo();
    const auto said = Answer({"&Restore", "&Restore"}, [this] { windows->open({}); });
    ASSERT_THAT(said, SizeIs(2));
    EXPECT_THAT(said[0], HasSubstr("before new\\x0Aer.ldif and 1 more was saved."));
    EXPECT_THAT(said[0], HasSubstr("with 1 record."));
    EXPECT_THAT(said[1], HasSubstr("before older.ldif was saved."));
    EXPECT_THAT(said[1], HasSubstr("with 2 records."));
    // Each in a window of its own.
    ASSERT_TRUE(QTest::qWaitFor([this] { return Shown().size() == 2; }));
    std::vector<std::string> names;
    for (BookWindow* const window : Shown()) {
        Finish(*window);
        names.push_back(NamesIn(*window));
        EXPECT_TRUE(window->document().isUnsaved());
    }
    EXPECT_THAT(names, testing::UnorderedElementsAre("Ann ", "Ben Cy "));
    EXPECT_THAT(recent.Books(), IsEmpty());
    // The copies are this program's now, and there are no others.
    windows->keepNow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return kept.Copies().size() == 2; }));
    EXPECT_THAT(RecoveryStore(kept.Files(), "book-recovery").LeftBooks(), IsEmpty());
    windows.reset();
    const auto left = RecoveryStore(kept.Files(), "book-recovery").LeftBooks();
    ASSERT_THAT(left, SizeIs(2));
    std::string texts;
    for (const auto& one : left) {
        texts.append(one.Copy.Text);
    }
    EXPECT_THAT(texts, HasSubstr("X-OWN:1\r\n"));
}

TEST_F(BookWindowsTest, WhatIsNotRestoredStaysOrGoes) {
    LeaveTwo();
    Answer({"&Discard", "Escape"}, [this] { windows->open({}); });
    ASSERT_THAT(kept.Copies(), SizeIs(1));
    EXPECT_EQ(NamesOfCards(kept.Copies().front()), "Ben Cy ");
    // Once is enough.
    windows->open({});
    QTest::qWait(50);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    windows->removeLeft();
    EXPECT_THAT(kept.Copies(), IsEmpty());
}

// What the user has undone is not saved either.
TEST_F(BookWindowsTest, WhatWasRestoredAndUndoneIsAskedAbout) {
    kept.Leave({.Text = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Ann\r\nEND:VCARD\r\n", .Mode = "vCard"});
    Answer({"&Restore"}, [this] { windows->open({}); });
    BookWindow& window = *Shown().front();
    Finish(window);
    EXPECT_EQ(NamesIn(window), "Ann ");
    windows->keepNow();
    window.document().undoStack().undo();
    EXPECT_EQ(NamesIn(window), "");
    windows->keepNow();
    ASSERT_THAT(kept.Copies(), SizeIs(1));
    EXPECT_EQ(NamesOfCards(kept.Copies().front()), "Ann ");
    Answer({"&Discard"}, [&] { window.close(); });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !windows->areOpen(); }));
    EXPECT_THAT(kept.Copies(), IsEmpty());
}

}  // namespace
}  // namespace orvik
