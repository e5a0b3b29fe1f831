#include "book_cli/programs.h"

#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace orvik::book_cli
