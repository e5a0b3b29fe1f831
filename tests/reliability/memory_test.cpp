// Each allocation of a command fails, alone and with all behind it, until a run ends in which none
// has failed.

#include <algorithm>
#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

#include "platform/system_files.h"
#include "reliability/allocations.h"
#include "reliability/commands.h"
#include "reliability/counted_table.h"
#include "reliability/trials.h"
#include "reliability/window_commands.h"
#include "unit/process_limits.h"
#include "unit/temp_folder.h"

namespace orvik::test {
namespace {

namespace fs = std::filesystem;

constexpr int kOutOfMemory = 7;

CountedTable& OnFiles() {
    static CountedTable table(ORVIK_RELIABILITY, "No memory for a command on files", true);
    return table;
}
CountedTable& OnTheBook() {
    static CountedTable table(ORVIK_RELIABILITY, "No memory for another command", true);
    return table;
}

// What a run has left, and what a person saves who goes on.
struct Outcome {
    std::size_t Allocations = 0;
    Snapshot Before;
    Snapshot After;
    std::string Text;
    std::vector<Told> Said;
    std::string Saved;
    std::string Undone;  // what is saved after undoing all
};

class Memory : public testing::TestWithParam<Trial> {
 protected:
    Memory() : state_home_("XDG_STATE_HOME", folder_.Name("state")) {}

    // Runs the command while the n-th allocation fails; n is 0 for none, and without acts nothing
    // is done at all.
    Outcome Run(std::size_t n, Shortage shortage, bool acts = true) {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder_.Path())) {
            fs::remove_all(entry.path());
        }
        fs::create_directory(folder_.Name("books"));
        SystemFiles files(false);
        World world(folder_.Name("books"), files);
        world.Target = world.Name(command_.File);
        if (state_ != FileState::Missing) {
            world.WriteFile(command_.File, command_.Contents);
        }
        if (state_ == FileState::Linked) {
            fs::create_hard_link(world.Target, world.Name("other-name"));
        }
        command_.Prepare(world);
        Outcome outcome;
        outcome.Before = SnapshotOf(folder_.Path());
        world.person.told.clear();
        if (acts) {
            Act(world, n, shortage);
            outcome.Allocations = Allocations::Count();
        }
        outcome.After = SnapshotOf(folder_.Path());
        outcome.Text = world.module.WorkText;
        outcome.Said = world.person.told;
        if (!world.person.ended) {
            outcome.Saved = world.SavedElsewhere();
            world.UndoAll();
            outcome.Undone = world.SavedElsewhere();
        }
        return outcome;
    }

    void Act(World& world, std::size_t n, Shortage shortage) const {
        const Allocations failing(n, shortage);
        try {
            command_.Act(world);
        } catch (const ProgramEnded&) {
            world.person.ended = true;
        }
    }

    // Checks one run. Returns whether there was an n-th allocation.
    bool Try(std::size_t n, Shortage shortage, const Outcome& nothing, const Outcome& reference) {
        Outcome run;
        try {
            run = Run(n, shortage);
        } catch (const std::exception& escaped) {
            ADD_FAILURE() << "allocation " << n << " lets escape: " << escaped.what();
            return true;
        }
        if (run.Allocations < n) {
            return false;
        }
        const std::string where = "allocation " + std::to_string(n) +
                                  (shortage == Shortage::Once ? "" : " and all behind it");
        Snapshot after = run.After;
        if (!command_.Aside.empty() && after != reference.After) {
            after.erase("books/" + command_.Aside);
        }
        EXPECT_TRUE(after == reference.Before || after == reference.After ||
                    (shortage == Shortage::FromThereOn && HasCopy(after)))
            << where << " leaves " << Names(run.After);
        const bool told = std::any_of(run.Said.begin(), run.Said.end(), [&](const Told& one) {
            return one.Number == kOutOfMemory ||
                   (command_.How == Telling::AnotherName && one.Number == 0);
        });
        const bool done = run.Text == reference.Text && run.After == reference.After;
        EXPECT_TRUE(told || done) << where << " is not told of; the text is " << run.Text;
        EXPECT_TRUE(run.Saved == nothing.Saved || run.Saved == reference.Saved ||
                    run.Undone == nothing.Saved)
            << where << " loses the text: " << run.Saved << " and undone: " << run.Undone;
        return true;
    }

    // Without any memory a book that was being written in place cannot be put back.
    [[nodiscard]] bool HasCopy(const Snapshot& files) const {
        return state_ == FileState::Linked &&
               std::any_of(files.begin(), files.end(), [&](const auto& file) {
                   return file.first.find(".orvik-copy") != std::string::npos &&
                          file.second.starts_with(command_.Contents + "|");
               });
    }

    [[nodiscard]] static std::string Names(const Snapshot& files) {
        std::string names;
        for (const auto& [name, contents] : files) {
            names += name + ": " + contents + "\n";
        }
        return names;
    }

    const FileCommand& command_ = *GetParam().command;
    FileState state_ = GetParam().state;
    TempFolder folder_;
    Environment state_home_;
};

TEST_P(Memory, AnAllocationFails_NothingIsLost) {
    const Outcome nothing = Run(0, Shortage::Once, false);
    const Outcome reference = Run(0, Shortage::Once);
    Counts made{.Calls = reference.Allocations};
    for (const Shortage shortage : {Shortage::Once, Shortage::FromThereOn}) {
        for (std::size_t n = 1; Try(n, shortage, nothing, reference); ++n) {
            ++made.Runs;
        }
    }
    if (command_.File.empty()) {
        OnTheBook().Add(command_.Name, "allocations", made);
    } else {
        OnFiles().Add(command_.Name, std::string(NameOf(state_)), made);
    }
}

INSTANTIATE_TEST_SUITE_P(Readers,
                         Memory,
                         testing::ValuesIn(TrialsOf(Readers(), {FileState::Existing})),
                         &NameOfTrial);
INSTANTIATE_TEST_SUITE_P(
    Savers,
    Memory,
    testing::ValuesIn(TrialsOf(Savers(),
                               {FileState::Missing, FileState::Existing, FileState::Linked})),
    &NameOfTrial);
INSTANTIATE_TEST_SUITE_P(Windows,
                         Memory,
                         testing::ValuesIn(TrialsOf(WindowCommands(), {FileState::Missing})),
                         &NameOfTrial);

// The program itself does not start then, and says so: nothing but the lack of memory comes out.
TEST(StartWithoutMemory, AnAllocationFails_NothingElseIsThrown) {
    Counts made;
    for (const Shortage shortage : {Shortage::Once, Shortage::FromThereOn}) {
        bool failed = true;
        for (std::size_t n = 1; failed; ++n) {
            SystemFiles files(false);
            Person person;
            const Allocations failing(n, shortage);
            try {
                Program program(person, files);
                program.module.RunEvent([&] { program.form1.Show(Showing::Modeless); });
            } catch (const std::bad_alloc&) {
                // Whoever starts it tells.
            }
            failed = Allocations::Count() >= n;
            made.Calls = Allocations::Count();
            made.Runs += failed ? 1 : 0;
        }
    }
    OnTheBook().Add("Start", "allocations", made);
}

}  // namespace

}  // namespace orvik::test

int main(int argc, char** argv) {
    return orvik::test::RunTests(argc, argv, {&orvik::test::OnFiles(), &orvik::test::OnTheBook()});
}
