#include "book/problems.h"

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;

TEST(ProblemsTest, RemarksThatTellOfOne) {
    EXPECT_EQ(ProblemKindOf(What::Lost), ProblemKind::Lost);
    EXPECT_EQ(ProblemKindOf(What::Skipped), ProblemKind::Skipped);
    EXPECT_EQ(ProblemKindOf(What::Doubtful), ProblemKind::Doubtful);
    for (const What what : {What::Read, What::Kept, What::Carried}) {
        EXPECT_EQ(ProblemKindOf(what), std::nullopt);
    }
}

TEST(ProblemsTest, AddressesThatAreBadOrOdd) {
    const ReadBook read(ReadLdif,
                        "dn: cn=Al\ncn: Al\nmail: al@@example.org\n"
                        "mail: al@example.org\nmail: al@localhost\n");
    const Contact& contact = read.book.Contacts.front();
    std::vector<Problem> found;
    AddAddressProblems(contact, 7, found);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].Kind, ProblemKind::BadAddress);
    EXPECT_EQ(found[0].Record, 7U);
    EXPECT_EQ(FlawWords(read.book, contact.Properties[found[0].Number], found[0].Kind),
              "\"al@@example.org\": two @");
    EXPECT_EQ(found[1].Kind, ProblemKind::OddAddress);
    EXPECT_EQ(contact.Properties[found[1].Number].Value, "al@localhost");
    EXPECT_EQ(FlawWords(read.book, contact.Properties[found[1].Number], ProblemKind::NoRecord),
              "\"al@localhost\": is not in these files");
}

}  // namespace
}  // namespace orvik::book
