#include "book_cli/programs.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book_cli/limits.h"

namespace orvik::book_cli {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(ProgramsTest, EachHasAFormAndSaysWhereItImports) {
    std::set<std::string_view> names;
    for (const Program& program : Programs()) {
        EXPECT_TRUE(names.insert(program.Name).second) << program.Name;
        EXPECT_EQ(ProgramNamed(program.Name), &program);
        ASSERT_FALSE(program.Forms.empty());
        std::set<std::string_view> endings;
        for (const ImportForm& form : program.Forms) {
            EXPECT_TRUE(endings.insert(form.Ending).second) << program.Name;
            EXPECT_EQ(FormOf(program, "a" + std::string(form.Ending)), &form);
            EXPECT_EQ(form.Form == book::Dialect::Ldif, form.Set.has_value());
            EXPECT_THAT(std::string(form.Where), StartsWith("in "));
            EXPECT_EQ(form.Most.Records > 0, !form.Why.empty());
        }
    }
    EXPECT_EQ(names.size(), 12U);
    EXPECT_EQ(ProgramNamed("elm"), nullptr);
    EXPECT_EQ(ProgramNamed(""), nullptr);
}

TEST(ProgramsTest, EndingsTellTheForm) {
    const Program& google = *ProgramNamed("google");
    EXPECT_EQ(FormOf(google, "A.CSV")->Table, book::CsvProgram::Google);
    EXPECT_EQ(FormOf(google, "a.vcard")->Form, book::Dialect::VCard30);
    EXPECT_EQ(FormOf(google, "a.ldif"), nullptr);
    EXPECT_EQ(FormOf(google, "csv"), nullptr);
    EXPECT_EQ(FormOf(*ProgramNamed("evolution"), "a.ldi")->Set, book::LdifAttributes::Evolution);
    EXPECT_EQ(EndingsOf(google), ".csv or .vcf");
    EXPECT_EQ(EndingsOf(*ProgramNamed("thunderbird")), ".vcf, .ldif or .csv");
    EXPECT_EQ(EndingsOf(*ProgramNamed("apple")), ".vcf");
    EXPECT_EQ(FormOf(*ProgramNamed("mutt"), "aliases")->Form, book::Dialect::Mutt);
    EXPECT_EQ(FormOf(*ProgramNamed("pegasus"), "TEAM.PML")->Form, book::Dialect::PegasusList);
    EXPECT_EQ(FormOf(*ProgramNamed("pegasus"), "team.vcf"), nullptr);
}

TEST(ProgramsTest, ListsAskForAFormThatHasThem) {
    const Program& thunderbird = *ProgramNamed("thunderbird");
    EXPECT_EQ(FormFor(thunderbird, false).Ending, ".vcf");
    EXPECT_EQ(FormFor(thunderbird, true).Ending, ".ldif");
    EXPECT_EQ(FormFor(*ProgramNamed("nextcloud"), true).Ending, ".vcf");
    EXPECT_EQ(FormFor(*ProgramNamed("google"), true).Ending, ".csv");
}

TEST(ProgramsTest, WhatNobodyHasSeenIsToldWithCare) {
    for (const char* const name : {"google", "apple", "outlook-new"}) {
        for (const ImportForm& form : ProgramNamed(name)->Forms) {
            EXPECT_THAT(std::string(form.Where), HasSubstr("usually")) << name;
        }
    }
}

// A book of so many bytes in pictures would take the test long.
TEST(ProgramsTest, PicturesHaveALimitInAll) {
    book::Book book;
    book.AddSource(std::make_unique<book::Source>("a.vcf", ""));
    book::Contact one;
    book.BeginRead(one, {}, true);
    std::vector<book::Property> none;
    book.AddRead(one, none);
    constexpr std::size_t kMegabyte = 1024UL * 1024;
    const std::string bytes = "data:image/png;base64," + std::string(2 * kMegabyte, 'A');
    book.Add(book.Contacts.front(), book::field::kPhoto, bytes);
    ImportForm form;
    form.Keeper = "iCloud keeps";
    form.Most.AllPhotoBytes = kMegabyte;
    const Written written{.Text = bytes, .Places = {}, .Records = 1, .Unchanged = false};
    EXPECT_EQ(TooMuchInAll(form, book, written),
              "iCloud keeps at most 1 MB of one user in pictures, and there are 2");
    form.Most.AllPhotoBytes = 2 * kMegabyte;
    EXPECT_EQ(TooMuchInAll(form, book, written), "");
    const ImportLimits& apple = ProgramNamed("apple")->Forms.front().Most;
    EXPECT_EQ(apple.AllPhotoBytes, 200 * kMegabyte);
}

}  // namespace
}  // namespace orvik::book_cli
