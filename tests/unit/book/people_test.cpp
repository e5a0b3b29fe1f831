#include "book/mail/people.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "book/mail/people_book.h"

namespace orvik::book {
namespace {

MailFindings Named(const std::vector<std::pair<std::string, MailField>>& names, MailTime time = 0) {
    MailFindings findings;
    for (const auto& [name, field] : names) {
        findings.Mentions.push_back({"ada@example.org", name, field, time});
    }
    return findings;
}

std::string BestOf(const std::vector<std::pair<std::string, MailField>>& names) {
    People people;
    for (const auto& one : names) {
        people.Add(Named({one}), "Inbox");
    }
    return std::string(people.All().front().Who.BestName());
}

TEST(FoldedAddress, IsTheSameForOnePerson) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Ada@Example.ORG", "ada@example.org"},
        {"x@B\xC3\xBC"
         "cher.Example",
         "x@xn--bcher-kva.example"},
        {"x@xn--BCHER-kva.example", "x@xn--bcher-kva.example"},
        {"\"a@b\"@example.org", "\"a@b\"@example.org"},
        {"ada", ""},
        {"@example.org", ""},
        {"ada@", ""},
        {"ada@b\xC3\xBC..example", ""},
    };
    for (const auto& [address, key] : cases) {
        EXPECT_EQ(key, FoldedAddress(address)) << address;
    }
}

TEST(NoReply, IsWhoNobodyIs) {
    for (const char* const one : {"noreply@x.example",
                                  "no-reply@x.example",
                                  "no.reply+1@x.example",
                                  "do_not_reply@x.example",
                                  "news-noreply@x.example",
                                  "mailer-daemon@x.example"}) {
        EXPECT_TRUE(IsNoReply(one)) << one;
    }
    for (const char* const one : {"reply@x.example", "noor@noreply.example", "ada@x.example"}) {
        EXPECT_FALSE(IsNoReply(one)) << one;
    }
}

TEST(BestName, IsTheMostFrequentFullOne) {
    using enum MailField;
    EXPECT_EQ("", BestOf({{"", From}}));
    EXPECT_EQ("Ada", BestOf({{"Ada", From}}));
    EXPECT_EQ("Ada Abbott", BestOf({{"Ada", From}, {"Ada", From}, {"Ada Abbott", From}}));
    EXPECT_EQ("Ada B", BestOf({{"Ada A", From}, {"Ada B", From}, {"Ada B", To}}));
    EXPECT_EQ("Ada A", BestOf({{"Ada A", From}, {"Ada B", From}}));
    EXPECT_EQ("Ada A", BestOf({{"Ada B", Body}, {"Ada B", Body}, {"Ada A", To}}));
    EXPECT_EQ("Ada B", BestOf({{"Ada B", Body}, {"Ada", To}}));
    EXPECT_EQ("", BestOf({{"ada@example.org", From}, {"<x@y.example>", From}}));
}

TEST(People, AreCountedOnceAMessage) {
    People people;
    people.Add(Named({{"Ada", MailField::From}, {"", MailField::Body}}, 100), "Inbox");
    people.Add(Named({{"", MailField::Cc}}, 50), "Inbox");
    people.Add(Named({{"", MailField::To}}, kNoTime), "sent");
    ASSERT_EQ(1U, people.All().size());
    const Person& ada = people.All().front().Who;
    EXPECT_EQ(3U, ada.Count);
    EXPECT_EQ(50, ada.First);
    EXPECT_EQ(100, ada.Last);
    ASSERT_EQ(2U, ada.Places.size());
    EXPECT_EQ("Inbox", people.PlaceAt(ada.Places[0].File));
    EXPECT_EQ(2U, ada.Places[0].Count);
    EXPECT_EQ((std::vector<std::string_view>{"From", "Cc", "body"}), FieldsOf(ada.Places[0]));
    EXPECT_EQ("sent", people.PlaceAt(ada.Places[1].File));
}

TEST(People, ArePlacedInSomeFilesOnly) {
    People people;
    for (int i = 0; i < 50; ++i) {
        people.Add(Named({{"", MailField::From}}), std::to_string(i));
    }
    const Person& ada = people.All().front().Who;
    EXPECT_EQ(50U, ada.Count);
    EXPECT_EQ(20U, ada.Places.size());
    EXPECT_TRUE(ada.MorePlaces);
}

TEST(TimeText, IsInUtc) {
    EXPECT_EQ("1970-01-01T00:00:00Z", TimeText(0));
    EXPECT_EQ("2001-03-04T10:00:00Z", TimeText(983700000));
    EXPECT_EQ("1969-12-31T23:59:59Z", TimeText(-1));
    EXPECT_EQ("", TimeText(kNoTime));
    EXPECT_EQ("", TimeText(253402300800));
}

}  // namespace
}  // namespace orvik::book
