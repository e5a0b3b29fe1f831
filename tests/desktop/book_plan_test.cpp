// Plans that the Book window saves and loads: they are those of the command line.

#include <QStringList>

#include "book/match/plan.h"
#include "book_cli/verbs.h"
#include "desktop/duplicates_fixture.h"

namespace orvik {
namespace {

using testing::HasSubstr;

constexpr const char* kFound = "same 0 1; contained 2 3; agree 4 5; address 4 6; name 0 7";

class BookPlans : public test::DuplicatesTest {
 protected:
    BookPlans() {
        QObject::connect(&duplicates, &Duplicates::told, &duplicates, [this](const QString& text) {
            told = text.toStdString();
        });
        QObject::connect(&duplicates,
                         &Duplicates::planRefused,
                         &duplicates,
                         [this](const QString& /*file*/, const QStringList& errors) {
                             refused = errors.join(u'\n').toStdString();
                         });
    }

    std::string Save(const std::string& name) {
        duplicates.savePlan(QString::fromStdString(PathOf(name)));
        Wait();
        return Read(PathOf(name));
    }

    void Load(const std::string& name) {
        told.clear();
        refused.clear();
        duplicates.loadPlan(QString::fromStdString(PathOf(name)));
        Wait();
    }

    // What orvik-book dupes --plan writes.
    std::string PlanOfTheTool(const std::vector<std::string>& books) {
        book_cli::Arguments arguments;
        arguments.What = book_cli::Verb::Dupes;
        arguments.Files = books;
        arguments.Plan = arguments.Output = PathOf("tool.txt");
        worker.run(
            QStringLiteral("Planning"),
            [&](const BookWorker::Watch& watch) {
                WorkerConsole around(files, watch);
                EXPECT_EQ(book_cli::Run(arguments, around.console()), cli::ExitStatus::Done);
            },
            [] {});
        Wait();
        return Read(PathOf("tool.txt"));
    }

    [[nodiscard]] std::string SourceLineOf(const std::string& name) const {
        return "# source " + PathOf(name) + " " + book::Sha256(Read(PathOf(name))) + "\n";
    }

    std::string told;
    std::string refused;
};

TEST_F(BookPlans, AreThoseOfTheTool) {
    Open(Write("a.vcf", People()));
    Open(Write("b.vcf", book::test::CardsOf("FN:Ben Berg|EMAIL:ben@b.example|NOTE:x")));
    duplicates.look();
    Wait();
    const std::string plan = Save("plan.txt");
    EXPECT_EQ(plan, PlanOfTheTool({PathOf("a.vcf"), PathOf("b.vcf")}));
    EXPECT_THAT(plan, HasSubstr("merge  "));
    EXPECT_THAT(told, HasSubstr("The plan is saved as "));
}

TEST_F(BookPlans, KeepWhatWasDecidedAndMerged) {
    OpenAndLook(People());
    duplicates.merge({1});
    Wait();
    duplicates.say({0}, book::Decision::Keep);
    duplicates.say({2}, book::Decision::Merge);
    duplicates.say({4}, book::Decision::Later);
    const std::string plan = Save("plan.txt");
    for (const char* const line : {"keep   ", "merge  ", "merge  ", "keep   ", "ask    "}) {
        EXPECT_THAT(plan, HasSubstr(std::string("\n") + line + PathOf("a.vcf")));
    }
    document.undoStack().undo();
    duplicates.say({0, 1, 2, 3, 4}, book::Decision::Open);
    Load("plan.txt");
    EXPECT_EQ(refused, "");
    EXPECT_EQ(Groups(),
              "same 0 1 kept; contained 2 3 ticked; agree 4 5 ticked; address 4 6 kept; name 0 7 "
              "later");
    EXPECT_THAT(told, HasSubstr("2 groups are to be merged, as "));
    EXPECT_EQ(Save("again.txt"), plan);
    EXPECT_EQ(document.thereCount(), 8U);
}

TEST_F(BookPlans, AreLoadedWithoutALookBefore) {
    OpenAndLook(People());
    duplicates.say({4}, book::Decision::Merge);
    Save("plan.txt");
    Duplicates second(document, worker, files, nullptr);
    second.loadPlan(QString::fromStdString(PathOf("plan.txt")));
    Wait();
    EXPECT_EQ(second.ticked(), (Duplicates::Lines{0, 1, 4}));
}

TEST_F(BookPlans, AreOfTheSameBytesUnderAnyName) {
    OpenAndLook(People());
    Write("plan.txt",
          "# source elsewhere.vcf " + book::Sha256(People()) +
              "\nmerge elsewhere.vcf:61 elsewhere.vcf:71 # they married\n");
    Load("plan.txt");
    EXPECT_EQ(Groups(), std::string(kFound) + "; plan 6 7 ticked");
    EXPECT_EQ(duplicates.lines().back().Match.Reason, "they married");
    duplicates.merge(duplicates.ticked());
    Wait();
    EXPECT_EQ(UndoName(), "Merge 2 records of Dora");
}

TEST_F(BookPlans, OfOtherBooksAreRefused) {
    OpenAndLook(People());
    Write("plan.txt",
          "# source " + PathOf("a.vcf") + " " + book::Sha256("x") + "\nmerge " + PathOf("a.vcf") +
              ":1 " + PathOf("a.vcf") + ":11\n");
    Load("plan.txt");
    EXPECT_EQ(refused, "line 1: " + PathOf("a.vcf") + " is not what it was when the plan was made");
    Write("plan.txt", SourceLineOf("a.vcf") + "merge " + PathOf("a.vcf") + ":2\njoin\n");
    Load("plan.txt");
    const std::string none = "line 2: " + PathOf("a.vcf") + ":2: no record begins on this line";
    EXPECT_EQ(refused, none + "\nline 3: a line begins with merge, ask, keep or #");
    Write("plan.txt", SourceLineOf("a.vcf") + "merge " + PathOf("a.vcf") + ":2\n");
    Load("plan.txt");
    EXPECT_EQ(refused, none);
    EXPECT_EQ(Groups(), kFound);
    EXPECT_EQ(told, "");
    Load("missing.txt");
    EXPECT_THAT(told, HasSubstr("File not found"));
}

TEST_F(BookPlans, ManyWrongLinesAreCounted) {
    OpenAndLook(People());
    std::string lines;
    for (int i = 0; i < 1'200; ++i) {
        lines += "x\n";
    }
    Write("plan.txt", lines);
    Load("plan.txt");
    // One is that no source is named.
    EXPECT_TRUE(refused.ends_with("\nand 201 more"));
}

TEST_F(BookPlans, LeaveOutWhatHasNoPlace) {
    OpenAndLook(People());
    Save("plan.txt");
    Rename(0, "Ida");
    document.add(QStringLiteral("Add"), {});
    book::Contact added = document.at(7);
    added.From = {};
    document.add(QStringLiteral("Add"), {added});
    EXPECT_THAT(Save("old.txt"), testing::Not(HasSubstr("# same")));
    EXPECT_THAT(told, HasSubstr("2 groups are left out: the files do not hold these records"));
    duplicates.look();
    Wait();
    ASSERT_EQ(Groups(), "same 7 8; contained 2 3; agree 4 5; address 0 1; address 4 6; name 1 7");
    EXPECT_THAT(Save("new.txt"), testing::Not(HasSubstr("# same")));
    EXPECT_THAT(told, HasSubstr("2 groups are left out"));
    Load("plan.txt");
    EXPECT_THAT(told, HasSubstr("2 lines are left out: their records are not as the files"));
    EXPECT_THAT(Groups(), HasSubstr("contained 2 3 ticked"));
}

TEST_F(BookPlans, TakeNoAddressBooksPlace) {
    OpenAndLook(People());
    Save("a.vcf");
    EXPECT_EQ(told, "The plan was not saved: this file is one of the address books.");
    EXPECT_EQ(Read(PathOf("a.vcf")), People());
    Save("missing/plan.txt");
    EXPECT_THAT(told, HasSubstr("The plan was not saved: Path not found"));
    EXPECT_TRUE(duplicates.canWork());
}

}  // namespace
}  // namespace orvik
