#include "desktop/book/move_work.h"

#include <QSignalSpy>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "book_cli/targets.h"
#include "desktop/book_move_fixture.h"

namespace orvik {
namespace {

using book_cli::Arguments;
using testing::HasSubstr;
using testing::StartsWith;

class BookMoveWorkTest : public test::MoveFixture {
 protected:
    // Prepares what the arguments ask for, and saves it.
    MoveEnd Move(Arguments chosen, const std::string& name, const std::string& may_replace = {}) {
        MoveWork work(document, worker, system, document.records(), nullptr);
        MoveEnd last;
        QObject::connect(
            &work, &MoveWork::wrote, &work, [&](MoveWork::Job, const MoveEnd& end) { last = end; });
        chosen.What = book_cli::Verb::Convert;
        chosen.Files = work.sources();
        chosen.Output = "x";
        work.prepare(chosen);
        EXPECT_TRUE(Eventually([&] { return work.job() == MoveWork::Job::None; }));
        preview = work.preview();
        EXPECT_TRUE(preview);
        work.save(name, may_replace);
        EXPECT_TRUE(Eventually([&] { return work.job() == MoveWork::Job::None; }));
        return last;
    }
    static Arguments For(const book_cli::Program& program, const book_cli::ImportForm& form) {
        Arguments arguments;
        arguments.For = &program;
        arguments.Choose(form);
        return arguments;
    }
    // Saves for each program and format, and compares with what orvik-book writes and prints.
    void CompareAll() {
        for (const book_cli::Program& program : book_cli::Programs()) {
            for (const book_cli::ImportForm& form : program.Forms) {
                SCOPED_TRACE(std::string(program.Name) + std::string(form.Ending));
                Arguments chosen = For(program, form);
                const bool splits = form.Most.Records == 1;
                chosen.Split = splits ? 1 : 0;
                std::vector<std::string> more = {"--to", std::string(program.Name)};
                if (splits) {
                    more.insert(more.end(), {"--split", "1"});
                }
                Compare(chosen, form.Ending, more);
            }
        }
        for (const book_cli::AnyForm& form : book_cli::AnyForms()) {
            SCOPED_TRACE(std::string(form.Ending));
            Arguments chosen;
            chosen.Target = form.Form;
            chosen.Set = form.Set;
            Compare(chosen, form.Ending, OptionsOf(form));
        }
    }
    static std::vector<std::string> OptionsOf(const book_cli::AnyForm& form) {
        using enum book::LdifAttributes;
        if (form.Form == book::Dialect::VCard40) {
            return {"--vcard", "4"};
        }
        if (!form.Set) {
            return {};
        }
        return {"--attributes",
                *form.Set == Netscape    ? "netscape"
                : *form.Set == KContacts ? "kcontacts"
                : *form.Set == Evolution ? "evolution"
                                         : "mozilla"};
    }
    void Compare(const Arguments& chosen,
                 std::string_view ending,
                 std::vector<std::string> options) {
        ++compared;
        const std::string name = folder.Name("tool" + std::to_string(compared));
        const std::string tool = name + std::string(ending);
        options.insert(options.end(), {"-o", tool, "--allow-loss"});
        const std::string printed = Convert(options);
        std::vector<std::string> written;
        for (const std::string& file : folder.Files()) {
            if (folder.Name(file).starts_with(name)) {
                written.push_back(test::ReadFile(folder.Name(file)));
                std::filesystem::remove(folder.Name(file));
            }
        }
        ASSERT_FALSE(written.empty());
        const MoveEnd end = Move(chosen, tool);
        EXPECT_EQ(end.Status, cli::ExitStatus::Done);
        ASSERT_EQ(end.Files.size(), written.size());
        for (std::size_t i = 0; i < written.size(); ++i) {
            EXPECT_EQ(test::ReadFile(end.Files[i]), written[i]);
            std::filesystem::remove(end.Files[i]);
        }
        EXPECT_THAT(end.Summary, HasSubstr(printed));
        EXPECT_THAT(printed, StartsWith(preview->Counts + "\n"));
        losses += preview->lost();
    }

    std::shared_ptr<const MovePreview> preview;
    std::size_t compared = 0;
    std::size_t losses = 0;
};

TEST_F(BookMoveWorkTest, WritesWhatTheToolWrites) {
    Read("plain.ldif", test::kPlainBook);
    CompareAll();
    EXPECT_EQ(losses, 0U);
}

TEST_F(BookMoveWorkTest, WritesWhatTheToolWritesWhereValuesAreLost) {
    Read("rich.vcf", test::kRichBook);
    CompareAll();
    EXPECT_GT(losses, 20U);
}

TEST_F(BookMoveWorkTest, SeveralSourcesBecomeOneBook) {
    test::WriteFile(folder.Name("a.ldif"), test::kPlainBook);
    test::WriteFile(folder.Name("b.vcf"), test::kRichBook);
    Read({folder.Name("a.ldif"), folder.Name("b.vcf")});
    const auto& google = *book_cli::ProgramNamed("google");
    Compare(For(google, google.Forms[0]), ".csv", {"--to", "google"});
    const MoveEnd end = Move(For(google, google.Forms[0]), folder.Name("all.csv"));
    EXPECT_THAT(end.Summary,
                StartsWith("from " + folder.Name("a.ldif") + ", " + folder.Name("b.vcf") + "\n"));
    EXPECT_THAT(end.Summary, HasSubstr("Import in Google Contacts: "));
}

TEST_F(BookMoveWorkTest, TheDocumentLearnsNothing) {
    Read("rich.vcf", test::kRichBook);
    const std::size_t told_before = document.book().Told.Remarks().size();
    const auto& google = *book_cli::ProgramNamed("google");
    Move(For(google, google.Forms[0]), folder.Name("all.csv"));
    EXPECT_EQ(document.book().Told.Remarks().size(), told_before);
    EXPECT_FALSE(document.isFrozen());
}

TEST_F(BookMoveWorkTest, AsksBeforeItReplacesAFile) {
    Read("plain.ldif", test::kPlainBook);
    const std::string target = folder.Name("x.csv");
    test::WriteFile(target, "old");
    const auto& google = *book_cli::ProgramNamed("google");
    const MoveEnd asked = Move(For(google, google.Forms[0]), target);
    EXPECT_EQ(asked.Question, target + " is there already. Replace it?");
    EXPECT_EQ(test::ReadFile(target), "old");
    const MoveEnd other = Move(For(google, google.Forms[0]), target, "Another question?");
    EXPECT_EQ(other.Question, asked.Question);
    EXPECT_EQ(test::ReadFile(target), "old");
    const MoveEnd done = Move(For(google, google.Forms[0]), target, asked.Question);
    EXPECT_EQ(done.Status, cli::ExitStatus::Done);
    EXPECT_EQ(done.Question, "");
    EXPECT_THAT(test::ReadFile(target), HasSubstr("al@example.org"));
}

TEST_F(BookMoveWorkTest, AsksOnceForAllFilesOfABookThatIsSplit) {
    Read("plain.ldif", test::kPlainBook);
    test::WriteFile(folder.Name("x-1.csv"), "old");
    test::WriteFile(folder.Name("x-2.csv"), "old");
    const auto& google = *book_cli::ProgramNamed("google");
    Arguments chosen = For(google, google.Forms[0]);
    chosen.Split = 1;
    const MoveEnd asked = Move(chosen, folder.Name("x.csv"));
    EXPECT_THAT(asked.Question, HasSubstr("x-1.csv and others, 2 in all, are there already"));
    EXPECT_EQ(test::ReadFile(folder.Name("x-1.csv")), "old");
    const MoveEnd done = Move(chosen, folder.Name("x.csv"), asked.Question);
    EXPECT_EQ(done.Status, cli::ExitStatus::Done);
    EXPECT_EQ(done.Files.size(), 2U);
    EXPECT_NE(test::ReadFile(folder.Name("x-2.csv")), "old");
    EXPECT_THAT(done.Summary, HasSubstr("x-2.csv: 1 record\nImport each file in Google"));
}

TEST_F(BookMoveWorkTest, NeverWritesOverASource) {
    Read("plain.ldif", test::kPlainBook);
    std::filesystem::create_hard_link(folder.Name("plain.ldif"), folder.Name("same.vcf"));
    const auto& apple = *book_cli::ProgramNamed("apple");
    const MoveEnd end = Move(For(apple, apple.Forms[0]), folder.Name("same.vcf"));
    EXPECT_EQ(end.Status, cli::ExitStatus::CannotCreate);
    EXPECT_EQ(end.Question, "");
    ASSERT_EQ(end.Told.size(), 1);
    EXPECT_THAT(end.Told[0].toStdString(),
                HasSubstr("This file is read, and a book is never written over itself"));
    EXPECT_EQ(test::ReadFile(folder.Name("plain.ldif")), test::kPlainBook);
}

TEST_F(BookMoveWorkTest, ANewerChoiceTakesThePlaceOfOneThatRuns) {
    Read("plain.ldif", test::kPlainBook);
    MoveWork work(document, worker, system, document.records(), nullptr);
    int prepared = 0;
    QObject::connect(&work, &MoveWork::prepared, &work, [&](bool is_done, const QString&) {
        EXPECT_TRUE(is_done);
        ++prepared;
    });
    for (const book_cli::Program& program : book_cli::Programs()) {
        Arguments chosen = For(program, program.Forms[0]);
        chosen.Output = "x";
        work.prepare(chosen);
    }
    EXPECT_TRUE(Eventually([&] { return work.job() == MoveWork::Job::None; }));
    EXPECT_EQ(prepared, 1);
    EXPECT_EQ(work.preview()->Chosen.For->Name, "pegasus");
    document.remove(QStringLiteral("Delete"), {0});
    EXPECT_FALSE(work.preview());
}

TEST_F(BookMoveWorkTest, WaitsForOtherWork) {
    Read("plain.ldif", test::kPlainBook);
    std::atomic<bool> may_end = false;
    ASSERT_TRUE(worker.run(
        QStringLiteral("Else"),
        [&](const BookWorker::Watch&) {
            while (!may_end) {
                QThread::msleep(1);
            }
        },
        [] {}));
    MoveWork work(document, worker, system, document.records(), nullptr);
    Arguments chosen = For(book_cli::Programs()[0], book_cli::Programs()[0].Forms[0]);
    chosen.Output = "x";
    work.prepare(chosen);
    EXPECT_EQ(work.job(), MoveWork::Job::Preparing);
    QSignalSpy ended(&worker, &BookWorker::ended);
    may_end = true;
    EXPECT_TRUE(Eventually([&] { return work.job() == MoveWork::Job::None; }));
    EXPECT_TRUE(ended[0][0].toBool());
    EXPECT_TRUE(work.preview());
    // One that waits is given up at once.
    may_end = false;
    ASSERT_TRUE(worker.run(
        QStringLiteral("Else"),
        [&](const BookWorker::Watch&) {
            while (!may_end) {
                QThread::msleep(1);
            }
        },
        [] {}));
    work.prepare(chosen);
    work.cancel();
    EXPECT_EQ(work.job(), MoveWork::Job::None);
    EXPECT_TRUE(worker.isBusy());
    may_end = true;
    EXPECT_TRUE(Eventually([&] { return !worker.isBusy(); }));
    EXPECT_FALSE(work.preview());
}

}  // namespace
}  // namespace orvik
