#include "book/value_filter.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

test::ReadBook People() {
    return {
        ReadVCard,
        "BEGIN:VCARD\nVERSION:3.0\nFN:J\xC3\xB6rg M\xC3\xBCller\nEMAIL:jm@example.org\n"
        "TEL:+1 (555) 0100\nUID:adad\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:3.0\nFN:Ada\nN:Abbott;Ada;;;\nORG:Club\\, Boats;Sails\n"
        "PHOTO;ENCODING=b:bXVsbGVy\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:3.0\nFN:Muller & Sons\nNOTE:since 1888\\nin the PORT\nEND:VCARD\n"};
}

std::vector<int> FoundBy(const ValueFilter& filter, const std::string& typed) {
    const ValueFilter::Found found = filter.Find(FilterWords(typed));
    std::vector<int> numbers;
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i]) {
            numbers.push_back(static_cast<int>(i));
        }
    }
    return numbers;
}

TEST(ValueFilter, FindsWordsWhateverCaseAndAccents) {
    const test::ReadBook read = People();
    const ValueFilter filter(read.book);
    EXPECT_EQ(filter.Count(), 3U);
    EXPECT_THAT(FoundBy(filter, "muller"), ElementsAre(0, 2));
    EXPECT_THAT(FoundBy(filter, "M\xC3\x9CLLER j\xC3\xB6"), ElementsAre(0));
    EXPECT_THAT(FoundBy(filter, "  "), ElementsAre(0, 1, 2));
    EXPECT_THAT(FoundBy(filter, "nobody"), IsEmpty());
    EXPECT_THAT(FoundBy(filter, "port 1888"), ElementsAre(2));
}

TEST(ValueFilter, LooksAtAllValuesOfPeople) {
    const test::ReadBook read = People();
    const ValueFilter filter(read.book);
    EXPECT_THAT(FoundBy(filter, "EXAMPLE.org"), ElementsAre(0));
    EXPECT_THAT(FoundBy(filter, "sails"), ElementsAre(1));
    EXPECT_THAT(FoundBy(filter, "club, boats"), ElementsAre(1));
    EXPECT_THAT(FoundBy(filter, "15550100"), ElementsAre(0));
    EXPECT_THAT(FoundBy(filter, "(555)"), ElementsAre(0));
    // Nor in numbers and pictures.
    EXPECT_THAT(FoundBy(filter, "ada"), ElementsAre(1));
    EXPECT_THAT(FoundBy(filter, "bxvs"), IsEmpty());
    // Values do not run into each other.
    EXPECT_THAT(FoundBy(filter, "mullerjm"), IsEmpty());
}

TEST(ValueFilter, NarrowsWhatWasFound) {
    const test::ReadBook read = People();
    const ValueFilter filter(read.book);
    ValueFilter::Found found = filter.Find({"m"});
    EXPECT_THAT(found, ElementsAre(true, false, true));
    filter.Narrow({"mul", "jorg"}, found);
    EXPECT_THAT(found, ElementsAre(true, false, false));
    EXPECT_TRUE(IsNarrower({"mulle", "555"}, {"mul"}));
    EXPECT_TRUE(IsNarrower({"a"}, {}));
    EXPECT_FALSE(IsNarrower({"mul"}, {"mull"}));
    EXPECT_FALSE(IsNarrower({}, {"m"}));
}

TEST(ValueFilter, TakesRecordsThatAreOtherOnes) {
    test::ReadBook read = People();
    ValueFilter filter(read.book);
    Contact& ada = read.book.Contacts[1];
    read.book.SetValue(ada, 0, "Eve");
    filter.Set(read.book, 1, ada);
    EXPECT_THAT(FoundBy(filter, "eve"), ElementsAre(1));
    EXPECT_THAT(FoundBy(filter, "ada eve"), ElementsAre(1)) << "N is as it was";
    filter.Set(read.book, 3, ada);
    EXPECT_EQ(filter.Count(), 4U);
    EXPECT_THAT(FoundBy(filter, "eve"), ElementsAre(1, 3));
}

TEST(ValueFilter, KeepsNoTextsOfLongAgo) {
    test::ReadBook read = People();
    ValueFilter filter(read.book);
    Contact& ada = read.book.Contacts[1];
    read.book.SetValue(ada, 0, read.book.Keep(std::string(100'000, 'x')));
    for (int i = 0; i < 100; ++i) {
        filter.Set(read.book, 1, ada);
    }
    EXPECT_LT(filter.Held(), 2'000'000U);
    EXPECT_THAT(FoundBy(filter, "muller"), ElementsAre(0, 2));
    EXPECT_THAT(FoundBy(filter, "xxx"), ElementsAre(1));
}

TEST(ValueFilter, TellsHowFarItIs) {
    const test::ReadBook read = People();
    std::vector<std::size_t> told;
    const ValueFilter filter(read.book, [&told](std::size_t done, std::size_t all) {
        told.push_back(done);
        EXPECT_EQ(all, 3U);
    });
    EXPECT_THAT(told, ElementsAre(1, 2, 3));
}

}  // namespace
}  // namespace orvik::book
