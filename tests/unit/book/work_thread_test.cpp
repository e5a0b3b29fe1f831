#include "book/work_thread.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "book/write_vcard.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using End = WorkThread::End;

TEST(WorkThread, TellsHowFarItIs) {
    std::atomic<int> news = 0;
    WorkThread thread([&news] { ++news; });
    EXPECT_EQ(thread.Look().How, End::None);
    thread.Start([](const WorkThread::Watch& watch) {
        watch.Begin("counting");
        for (std::size_t i = 0; i <= 100000; ++i) {
            watch.Tell(i, 200000);
        }
    });
    thread.Wait();
    const WorkThread::State state = thread.Look();
    EXPECT_EQ(state.How, End::Done);
    EXPECT_EQ(state.Doing, "counting");
    EXPECT_EQ(state.Percent, 50);
    // Once a percent, and at the beginning and the end.
    EXPECT_EQ(news, 52);
}

TEST(WorkThread, EndsBeforeItsTime) {
    std::atomic<bool> begun = false;
    WorkThread thread([] {});
    thread.Start([&begun](const WorkThread::Watch& watch) {
        const Book::Progress progress = watch.Progress();
        while (true) {
            progress(1, 2);
            begun = true;
        }
    });
    while (!begun) {
    }
    thread.Cancel();
    thread.Wait();
    EXPECT_EQ(thread.Look().How, End::Cancelled);
    // The next work is not.
    thread.Start([](const WorkThread::Watch& watch) { watch.Tell(1, 1); });
    thread.Wait();
    EXPECT_EQ(thread.Look().How, End::Done);
}

TEST(WorkThread, TellsWhyItFailed) {
    WorkThread thread([] {});
    thread.Start([](const WorkThread::Watch&) { throw std::runtime_error("no file"); });
    thread.Wait();
    EXPECT_EQ(thread.Look().How, End::Failed);
    EXPECT_EQ(thread.Look().Why, "no file");
    thread.Start([](const WorkThread::Watch&) { throw std::bad_alloc(); });
    thread.Wait();
    EXPECT_EQ(thread.Look().Why, "Out of memory");
}

// A book is read and changed here while its snapshot is written there.
TEST(WorkThread, WorksOnASnapshotBesideTheBook) {
    std::string ldif;
    std::vector<std::uint32_t> all;
    for (std::uint32_t i = 0; i < 2000; ++i) {
        const std::string number = std::to_string(i);
        ldif += "dn: cn=Al " + number + "\ncn: Al " + number + "\nxodd" + number + ": 1\n\n";
        all.push_back(i);
    }
    ReadBook read(ReadLdif, ldif);
    Book& book = read.book;
    std::shared_ptr<Book> copy = book.Snapshot(all);
    std::string written;
    WorkThread thread([] {});
    thread.Start([copy, &written](const WorkThread::Watch& watch) {
        copy->HowFar = watch.Progress();
        written = WriteVCard(*copy, Dialect::VCard40, nullptr);
    });
    for (const std::uint32_t number : all) {
        std::vector<Property> fields(book.Contacts[number].Properties.begin(),
                                     book.Contacts[number].Properties.end());
        fields[0].Value = book.Keep("Bo " + std::to_string(number));
        fields[0].Details = book.KeepDetails("group", {});
        book.Names.Intern("X-" + std::to_string(number));
        book.Contacts[number] = book.WithFields(book.Contacts[number], fields);
    }
    thread.Wait();
    EXPECT_EQ(thread.Look().How, End::Done);
    EXPECT_NE(written.find("FN:Al 1999\r\n"), std::string::npos);
    EXPECT_EQ(written.find("FN:Bo"), std::string::npos);
    EXPECT_TRUE(Shown(book, book.Contacts[7]).starts_with("person\ngroup.FN:Bo 7\n"));
}

}  // namespace
}  // namespace orvik::book
