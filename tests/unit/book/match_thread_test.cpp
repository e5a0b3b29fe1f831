// A look for duplicates and a merging in a worker, while the book goes on.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/match/matches.h"
#include "book/match/merge_records.h"
#include "book/work_thread.h"
#include "unit/book/match/cards.h"

namespace orvik::book {
namespace {

using End = WorkThread::End;

constexpr std::uint32_t kPeople = 600;

std::string Twins() {
    std::string cards;
    for (std::uint32_t i = 0; i < kPeople; ++i) {
        const std::string number = std::to_string(i / 2);
        cards += test::CardOf("FN:Person " + number + "|EMAIL:a" + number +
                              "@b.example|NOTE:" + std::to_string(i % 2));
    }
    return cards;
}

class MatchThreadTest : public testing::Test {
 protected:
    MatchThreadTest() {
        for (std::uint32_t i = 0; i < kPeople; ++i) {
            all_.push_back(i);
        }
        copy_ = read_.book.Snapshot(all_);
    }

    // Runs work on the copy, while the book is changed; it is cancelled at so many percent.
    template <class Act>
    WorkThread::State Run(const Act& act, std::size_t cancelled_at = 1000) {
        WorkThread thread([] {});
        thread.Start([&](const WorkThread::Watch& watch) {
            copy_->HowFar = [&](std::size_t done, std::size_t all) {
                const std::size_t percent = 100 * done / all;
                EXPECT_LE(percent, 100U);
                EXPECT_GE(percent, last_);
                last_ = percent;
                if (percent >= cancelled_at) {
                    thread.Cancel();
                }
                watch.Tell(done, all);
            };
            act(*copy_);
        });
        Contact& one = read_.book.Contacts[0];
        std::vector<Property> fields(one.Properties.begin(), one.Properties.end());
        fields[0].Value = read_.book.Keep("Bo");
        read_.book.Replace(one, fields);
        thread.Wait();
        return thread.Look();
    }

    test::ReadBook read_{ReadVCard, Twins()};
    std::vector<std::uint32_t> all_;
    std::unique_ptr<Book> copy_;
    std::size_t last_ = 0;
};

TEST_F(MatchThreadTest, FindsWhatThereIs) {
    Matches found;
    EXPECT_EQ(Run([&](const Book& book) { found = FindMatches(book, false); }).How, End::Done);
    EXPECT_EQ(found.Lines.size(), kPeople / 2);
    EXPECT_GE(last_, 99U);
}

TEST_F(MatchThreadTest, ALookEndsInTheMiddle) {
    for (const std::size_t percent : {1U, 30U, 55U, 65U, 76U, 86U, 95U}) {
        last_ = 0;
        EXPECT_EQ(
            Run([](const Book& book) { static_cast<void>(FindMatches(book, false)); }, percent).How,
            End::Cancelled);
        EXPECT_LT(last_, 100U);
    }
}

TEST_F(MatchThreadTest, AMergingEndsInTheMiddle) {
    const MergeGroups groups = GroupsOf(FindMatches(*copy_, true).Lines, kPeople);
    ASSERT_EQ(groups.size(), kPeople / 2);
    const auto merge = [&groups](Book& book) { static_cast<void>(MergeRecords(book, groups)); };
    EXPECT_EQ(Run(merge, 50).How, End::Cancelled);
    EXPECT_EQ(read_.book.Contacts[1].Properties.size(), 3U);
    copy_ = read_.book.Snapshot(all_);
    last_ = 0;
    EXPECT_EQ(Run(merge).How, End::Done);
    EXPECT_EQ(copy_->Contacts.size(), kPeople / 2);
}

}  // namespace
}  // namespace orvik::book
