#include "desktop/book/book_checks.h"

#include <QSignalSpy>

#include "desktop/book_fixture.h"

namespace orvik {
namespace {

using test::ReadInto;

constexpr const char* kBook =
    "dn: cn=Al,mail=al@@x\ncn: Al\nmail: al@@x\n\n"
    "dn: cn=Bo,mail=bo@example.org\ncn: Bo\nmail: bo@example.org\n\n"
    "dn: cn=Team\nobjectclass: groupofnames\ncn: Team\n"
    "member: cn=Bo,mail=bo@example.org\nmember: cn=Cy,mail=cy@example.org\n";

// "0 2" for each bad address or missing member.
std::string Numbers(const std::vector<book::Problem>& problems) {
    std::string text;
    for (const book::Problem& one : problems) {
        text += std::to_string(one.Record) + " ";
    }
    return text;
}

void GiveAddress(BookDocument& document, BookDocument::Number record, const char* address) {
    std::vector<book::Property> fields(document.at(record).Properties.begin(),
                                       document.at(record).Properties.end());
    for (book::Property& one : fields) {
        if (one.Name == book::field::kEmail) {
            one.Value = document.keep(address);
        }
    }
    document.change(QStringLiteral("Change"),
                    {{record, document.withFields(document.at(record), fields)}});
}

TEST(BookChecksTest, ASmallBookIsLookedAtAtOnce) {
    BookDocument document;
    ReadInto(document, "a.ldif", kBook);
    BookChecks checks(document);
    EXPECT_EQ(Numbers(checks.addresses()), "");
    checks.look();
    EXPECT_FALSE(checks.isBusy());
    EXPECT_EQ(Numbers(checks.addresses()), "0 ");
    EXPECT_EQ(Numbers(checks.missing()), "2 ");
    EXPECT_EQ(checks.listsOf(1), BookDocument::Numbers{2});
    EXPECT_EQ(checks.listsOf(0), BookDocument::Numbers{});
    const book::Property& bo = document.at(2).Properties[1];
    EXPECT_EQ(checks.memberAt(bo.Value.data()), 1U);
    EXPECT_EQ(checks.memberAt("elsewhere"), std::nullopt);
}

TEST(BookChecksTest, ChangesAreFollowedAndUndone) {
    BookDocument document;
    ReadInto(document, "a.ldif", kBook);
    BookChecks checks(document);
    checks.look();
    GiveAddress(document, 0, "al@example.org");
    // What was found of the old fields does not count.
    EXPECT_EQ(Numbers(checks.addresses()), "");
    GiveAddress(document, 1, "bo@");
    checks.look();
    EXPECT_EQ(Numbers(checks.addresses()), "1 ");
    document.undoStack().undo();
    document.undoStack().undo();
    checks.look();
    EXPECT_EQ(Numbers(checks.addresses()), "0 ");
    document.remove(QStringLiteral("Delete"), {1});
    checks.look();
    EXPECT_EQ(Numbers(checks.missing()), "2 2 ");
    document.remove(QStringLiteral("Delete"), {2});
    checks.look();
    EXPECT_EQ(Numbers(checks.missing()), "");
    EXPECT_EQ(checks.listsOf(1), BookDocument::Numbers{});
}

TEST(BookChecksTest, ALargeBookIsLookedAtBesides) {
    BookDocument document;
    ReadInto(document, "a.ldif", kBook);
    BookChecks checks(document, 0);
    QSignalSpy changed(&checks, &BookChecks::changed);
    QSignalSpy state(&checks, &BookChecks::stateChanged);
    checks.look();
    EXPECT_TRUE(checks.isBusy());
    EXPECT_EQ(Numbers(checks.addresses()), "");
    ASSERT_TRUE(changed.wait());
    EXPECT_FALSE(checks.isBusy());
    EXPECT_FALSE(checks.isBehind());
    EXPECT_EQ(state.size(), 2);
    EXPECT_EQ(Numbers(checks.addresses()), "0 ");
    EXPECT_EQ(Numbers(checks.missing()), "2 ");
}

TEST(BookChecksTest, WhatHasChangedMeanwhileIsLookedAtAgain) {
    BookDocument document;
    ReadInto(document, "a.ldif", kBook);
    BookChecks checks(document, 1);
    checks.look();
    ASSERT_TRUE(checks.isBusy());
    GiveAddress(document, 1, "bo@");
    document.remove(QStringLiteral("Delete"), {0});
    checks.look();
    ASSERT_TRUE(QTest::qWaitFor([&checks] { return !checks.isBusy(); }));
    EXPECT_EQ(Numbers(checks.addresses()), "1 ");
    document.undoStack().undo();
    document.undoStack().undo();
    checks.look();
    EXPECT_EQ(Numbers(checks.addresses()), "0 ");
    // Lists of a large book are looked at again when somebody wants it.
    EXPECT_TRUE(checks.isBehind());
    EXPECT_FALSE(checks.isBusy());
    checks.lookAgain();
    ASSERT_TRUE(QTest::qWaitFor([&checks] { return !checks.isBusy(); }));
    EXPECT_FALSE(checks.isBehind());
    EXPECT_EQ(Numbers(checks.missing()), "2 ");
}

TEST(BookChecksTest, ACancelStopsItUntilSomebodyAsks) {
    BookDocument document;
    ReadInto(document, "a.ldif", kBook);
    BookChecks checks(document, 0);
    checks.look();
    checks.cancel();
    ASSERT_TRUE(QTest::qWaitFor([&checks] { return !checks.isBusy(); }));
    EXPECT_TRUE(checks.isBehind());
    EXPECT_EQ(Numbers(checks.addresses()), "");
    checks.look();
    EXPECT_FALSE(checks.isBusy());
    EXPECT_TRUE(checks.isBehind());
    checks.lookAgain();
    ASSERT_TRUE(QTest::qWaitFor([&checks] { return !checks.isBusy(); }));
    EXPECT_EQ(Numbers(checks.addresses()), "0 ");
    // A new file is looked at unasked.
    ReadInto(document, "b.ldif", "dn: cn=Di\ncn: Di\nmail: di@\n");
    checks.look();
    ASSERT_TRUE(QTest::qWaitFor([&checks] { return !checks.isBusy(); }));
    EXPECT_EQ(Numbers(checks.addresses()), "0 3 ");
}

}  // namespace
}  // namespace orvik
