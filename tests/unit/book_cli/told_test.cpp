#include "book_cli/told.h"

#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/write_ldif.h"
#include "book/write_vcard.h"
#include "book_cli/verbs.h"
#include "platform/system_files.h"
#include "unit/book/shown_book.h"

namespace orvik::book_cli {
namespace {

using namespace std::chrono_literals;
using book::Reason;
using book::What;
using testing::HasSubstr;
using testing::Not;

class ToldTest : public testing::Test {
 protected:
    // A book of one card, of which something is said.
    void Remark(What what, std::string_view value) {
        loaded.Book.Told.Add(
            {"TEL", value, 0, 3, book::FieldNames::kNone, what, Reason::NotInTarget});
    }
    ToldTest() {
        loaded.Book.AddSource(std::make_unique<book::Source>("a.vcf", ""));
        loaded.Inputs.push_back({book::Format::VCard, "line 1 begins a card", "ASCII", false});
    }

    std::ostringstream out;
    std::ostringstream err;
    SystemFiles files;
    cli::Messenger messages{"orvik-book", err, true, 0ms};
    Surroundings around{files, out, messages, true, nullptr, nullptr};
    Console console{around};
    Loaded loaded;
};

TEST_F(ToldTest, LossesForbidToWriteUnlessTheyAreAllowed) {
    EXPECT_EQ(Refusal(loaded.Book, false), "");
    EXPECT_EQ(StatusOf(loaded.Book), cli::ExitStatus::Done);
    Remark(What::Carried, "5");
    EXPECT_EQ(StatusOf(loaded.Book), cli::ExitStatus::Done);
    Remark(What::Lost, "6");
    EXPECT_EQ(Refusal(loaded.Book, false),
              "1 value would be lost, so nothing is written; --allow-loss writes the rest");
    EXPECT_EQ(Refusal(loaded.Book, true), "");
    EXPECT_EQ(StatusOf(loaded.Book), cli::ExitStatus::Problem);
}

TEST_F(ToldTest, WhatIsLostIsNamedBeforeTheRestAndCarriedValuesAreNot) {
    Remark(What::Doubtful, "1");
    Remark(What::Carried, "2");
    Remark(What::Lost, "3");
    TellRemarks(console, loaded);
    EXPECT_EQ(err.str(),
              "orvik-book: a.vcf: line 3: lost: TEL \"3\": has no place in the target\n"
              "orvik-book: a.vcf: line 3: doubtful: TEL \"1\": has no place in the target\n");
}

TEST_F(ToldTest, OfManyTheFirstAreNamed) {
    for (int i = 0; i < 25; ++i) {
        Remark(What::Doubtful, "5");
    }
    TellRemarks(console, loaded);
    EXPECT_THAT(err.str(), HasSubstr("orvik-book: 5 more doubtful; --report FILE names all\n"));
}

TEST_F(ToldTest, LongValuesAreCutBetweenLettersAndShownAsText) {
    std::string value(59, 'a');
    value += "\xC3\xBC\x1B";
    Remark(What::Lost, value);
    EXPECT_EQ(RemarkText(loaded.Book, loaded.Book.Told.Remarks().back()),
              "line 3: lost: TEL \"" + std::string(59, 'a') + "...\": has no place in the target");
    Remark(What::Lost, "\x1B");
    EXPECT_THAT(RemarkText(loaded.Book, loaded.Book.Told.Remarks().back()), HasSubstr("\"\\x1B\""));
}

TEST_F(ToldTest, TheReportHasALineForEachValueWithARemark) {
    Remark(What::Lost, "6\xFF");
    loaded.Book.Told.CountMore(What::Kept, 7);
    EXPECT_EQ(ReportOf(loaded),
              "{\"what\":\"lost\",\"file\":\"a.vcf\",\"line\":3,\"field\":\"TEL\",\"value\":\"6"
              "\xEF\xBF\xBD\",\"target\":\"\",\"reason\":\"has no place in the target\"}\n"
              "{\"what\":\"kept\",\"file\":\"\",\"line\":0,\"field\":\"\",\"value\":\"7\","
              "\"target\":\"\",\"reason\":\"values are as they were\"}\n");
}

TEST_F(ToldTest, TheSummaryCountsAndLossesStandOut) {
    Arguments arguments;
    arguments.Output = "b.vcf";
    EXPECT_EQ(ConvertedText(console, arguments, loaded, {.Unchanged = true}, {}),
              "read 0   written 0   carried 0   lost 0\n"
              "\x1B[1mb.vcf\x1B[0m: vCard 3.0, UTF-8, byte for byte as it was. UIDs stay the same "
              "on the next run.\n");
    Remark(What::Carried, "1");
    Remark(What::Carried, "2");
    Remark(What::Lost, "3");
    Remark(What::Skipped, "4");
    EXPECT_THAT(ConvertedText(console, arguments, loaded, {}, {}),
                HasSubstr("carried as X- fields: 1 kind, 2 values   \x1B[1;31mlost 1\x1B[0m   "
                          "skipped 1\n"));
}

TEST_F(ToldTest, ProgressIsShownOncePerPercentage) {
    console.Begin("a.vcf");
    const auto progress = console.ProgressOf("reading");
    progress(1, 200);
    EXPECT_EQ(err.str(), "");
    progress(2, 200);
    progress(3, 200);
    EXPECT_EQ(err.str(), "\ra.vcf: reading: 1%");
    console.End();
    EXPECT_THAT(err.str(), testing::EndsWith("\r"));
}

TEST(GroupedTest, ThousandsStandApart) {
    EXPECT_EQ(Grouped(0), "0");
    EXPECT_EQ(Grouped(999), "999");
    EXPECT_EQ(Grouped(1204), "1 204");
    EXPECT_EQ(Grouped(12345678), "12 345 678");
    EXPECT_EQ(GroupedCount(1, "card", "cards"), "1 card");
    EXPECT_EQ(GroupedCount(1204, "card", "cards"), "1 204 cards");
}

TEST(ProgressTest, ReadersAndWritersSayHowFarTheyAre) {
    book::Book book;
    const std::string card = "BEGIN:VCARD\nVERSION:3.0\nFN:Al\nEND:VCARD\n";
    const auto file = book.AddSource(std::make_unique<book::Source>("a", card + card));
    std::string told;
    book.HowFar = [&](std::size_t done, std::size_t all) {
        told += std::to_string(done) + "/" + std::to_string(all) + " ";
    };
    book::Charset letters(book.SourceAt(file), {});
    book::ReadVCard(book, file, letters);
    EXPECT_EQ(told,
              std::to_string(card.size()) + "/" + std::to_string(2 * card.size()) + " " +
                  std::to_string(2 * card.size()) + "/" + std::to_string(2 * card.size()) + " ");
    told.clear();
    static_cast<void>(book::WriteVCard(book, book::Dialect::VCard40));
    EXPECT_EQ(told, "1/2 2/2 ");
    told.clear();
    static_cast<void>(book::WriteLdif(book, std::nullopt));
    EXPECT_EQ(told, "1/2 2/2 ");
}

}  // namespace
}  // namespace orvik::book_cli
