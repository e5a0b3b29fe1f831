// Each kind of work that a window gives to its worker, on a snapshot, while its book is read and
// changed.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/list_links.h"
#include "book/memberships.h"
#include "book/order.h"
#include "book/problems.h"
#include "book/table_columns.h"
#include "book/value_filter.h"
#include "book/work_thread.h"
#include "book/write_csv.h"
#include "book/write_ldif.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;

constexpr std::uint32_t kPeople = 500;

// The last one is a list of the first two.
std::string PeopleAndList() {
    std::string ldif;
    for (std::uint32_t i = 0; i < kPeople; ++i) {
        const std::string name = "Al " + std::to_string(i);
        ldif += "dn: cn=" + name + "\ncn: " + name + "\nmail: a" + std::to_string(i) +
                (i % 10 == 0 ? "\n\n" : "@b.example\n\n");
    }
    return ldif +
           "dn: cn=Us\nobjectclass: groupOfNames\ncn: Us\nmember: cn=Al 0\n"
           "member: cn=Al 1\n\n";
}

class SnapshotThread : public testing::Test {
 protected:
    SnapshotThread() {
        for (std::uint32_t i = 0; i < read_.book.Contacts.size(); ++i) {
            all_.push_back(i);
        }
        copy_ = read_.book.Snapshot(all_);
    }

    // Work on the copy, which tells how far it is, beside everything that a window does with the
    // book meanwhile: it is shown, changed, and copied again.
    void Run(const std::function<void(Book& copy, const Book::Progress& how_far)>& work) {
        WorkThread thread([] {});
        thread.Start([copy = copy_, &work](const WorkThread::Watch& watch) {
            work(*copy, watch.Progress());
        });
        Book& book = read_.book;
        std::size_t shown = 0;
        for (const std::uint32_t number : all_) {
            const Contact& contact = book.Contacts[number];
            for (std::size_t column = 0; column < kColumns; ++column) {
                shown += ColumnText(book, contact, static_cast<Column>(column), 100).size();
            }
            std::vector<Property> fields(contact.Properties.begin(), contact.Properties.end());
            fields[0].Value = book.Keep("Bo " + std::to_string(number));
            fields[0].Details = book.KeepDetails("group", {});
            book.Names.Intern("X-" + std::to_string(number));
            book.Contacts[number] = book.WithFields(contact, fields);
        }
        const std::unique_ptr<Book> again = book.Snapshot(all_);
        thread.Wait();
        const WorkThread::State state = thread.Look();
        EXPECT_EQ(state.How, WorkThread::End::Done) << state.Why;
        EXPECT_GT(shown, 0U);
        EXPECT_EQ(again->Contacts.size(), kPeople + 1);
    }

    ReadBook read_{ReadLdif, PeopleAndList()};
    std::vector<std::uint32_t> all_;
    std::shared_ptr<Book> copy_;
};

// The records that came are those of the copy, which the book takes over.
TEST_F(SnapshotThread, ReadsMore) {
    Run([](Book& copy, const Book::Progress& how_far) {
        copy.HowFar = how_far;
        const std::uint32_t file =
            copy.AddSource(std::make_unique<Source>("more", "dn: cn=Cy\ncn: Cy\n\n"));
        Charset letters(copy.SourceAt(file), {});
        ReadLdif(copy, file, letters);
        copy.HowFar = nullptr;
    });
    EXPECT_EQ(copy_->Contacts.size(), kPeople + 2);
    EXPECT_EQ(copy_->SourceCount(), 2U);
}

TEST_F(SnapshotThread, ChecksAddressesAndLists) {
    std::vector<Problem> problems;
    std::vector<ListLink> links;
    Run([&](Book& copy, const Book::Progress& how_far) {
        for (std::uint32_t i = 0; i < copy.Contacts.size(); ++i) {
            AddAddressProblems(copy.Contacts[i], i, problems);
        }
        links = LinksOf(copy, how_far);
    });
    EXPECT_EQ(problems.size(), kPeople / 10);
    EXPECT_EQ(links.size(), 2U);
}

TEST_F(SnapshotThread, FiltersAndSortsRows) {
    ValueFilter filter;
    std::vector<std::uint32_t> order;
    Memberships lists;
    Run([&](Book& copy, const Book::Progress& how_far) {
        filter = ValueFilter(copy, how_far);
        order = OrderOf(copy, SortBy::Name, {"en", true, how_far});
        lists = Memberships(copy, all_, how_far);
    });
    EXPECT_EQ(order.front(), kPeople);
    EXPECT_TRUE(filter.Find({"al", "499"})[kPeople - 1]);
    EXPECT_EQ(lists.MembersOf(kPeople).size(), 2U);
}

TEST_F(SnapshotThread, WritesEachFormat) {
    std::vector<std::string> written;
    Run([&](Book& copy, const Book::Progress& how_far) {
        copy.HowFar = how_far;
        written.push_back(WriteCsv(copy, CsvProgram::Thunderbird));
        written.push_back(WriteLdif(copy, LdifAttributes::Netscape));
    });
    for (const std::string& one : written) {
        EXPECT_THAT(one, testing::HasSubstr("Al 499"));
        EXPECT_THAT(one, testing::Not(testing::HasSubstr("Bo ")));
    }
}

}  // namespace
}  // namespace orvik::book
