// Every call that a command makes to the files goes wrong once, in every way that a disk knows, and
// of the savers also every two calls. The twin of the files numbers the calls.

#include <sys/prctl.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <optional>

#include <gtest/gtest.h>

#include "reliability/commands.h"
#include "reliability/counted_table.h"
#include "reliability/tolerated.h"
#include "reliability/trials.h"
#include "unit/faulty_files.h"
#include "unit/process_limits.h"
#include "unit/temp_folder.h"

namespace orvik::test {
namespace {

namespace fs = std::filesystem;

CountedTable& OneFault() {
    static CountedTable table(ORVIK_RELIABILITY, "One call fails");
    return table;
}
CountedTable& TwoFaults() {
    static CountedTable table(ORVIK_RELIABILITY, "Two calls fail");
    return table;
}

// The failure that a command tells of when its files return an error; 0 where it goes on.
struct ErrorRow {
    int Error;
    int Failure;
};
constexpr std::array kErrors = {ErrorRow{ENOSPC, 61},
                                ErrorRow{EIO, 57},
                                ErrorRow{EINTR, 0},
                                ErrorRow{EDQUOT, 61},
                                ErrorRow{EFBIG, 61},
                                ErrorRow{EACCES, 70},
                                ErrorRow{EMFILE, 75},
                                ErrorRow{EXDEV, 75}};

// A quota that is used up reaches the commands as a disk that is full.
std::error_code ErrorOf(int number) {
    return {number == EDQUOT ? ENOSPC : number, std::generic_category()};
}

// What a run has left.
struct Outcome {
    std::size_t Calls = 0;
    std::string Failed;
    Snapshot Before;
    Snapshot After;
    std::string OldText;
    std::string NewText;
    bool Kept = false;
    std::vector<Told> Said;
};

class Faults : public testing::TestWithParam<Trial> {
 protected:
    Faults() {
        if (state_ == FileState::ClosedFolder) {
            user_ = std::make_unique<OrdinaryUser>();
            // Whoever changes his user may no longer look into /proc/self, where a file without a
            // name is found when it gets one.
            prctl(PR_SET_DUMPABLE, 1);
        }
        folder_ = std::make_unique<TempFolder>();
        state_home_ = std::make_unique<Environment>("XDG_STATE_HOME", folder_->Name("state"));
    }
    ~Faults() override { OpenFolder(); }

    // Runs the command in a fresh folder with these faults. reference: the text that a run without
    // any leaves.
    Outcome Run(const Fault& fault, const std::string& reference) {
        OpenFolder();
        for (const fs::directory_entry& entry : fs::directory_iterator(folder_->Path())) {
            fs::remove_all(entry.path());
        }
        fs::create_directory(Books());
        fs::create_directory(folder_->Name("state"));
        FaultyFiles files;
        files.state_folder = folder_->Name("state");
        World world(Books(), files);
        world.Target = world.Name(command_.File);
        if (state_ != FileState::Missing) {
            world.WriteFile(command_.File, command_.Contents);
            fs::permissions(world.Target, fs::perms(0640));
        }
        if (state_ == FileState::Linked) {
            fs::create_hard_link(world.Target, world.Name("other-name"));
        }
        command_.Prepare(world);
        if (state_ == FileState::ClosedFolder) {
            fs::permissions(Books(), fs::perms(0555));
        }
        Outcome outcome;
        outcome.Before = SnapshotOf(folder_->Path());
        outcome.OldText = world.module.WorkText;
        files.fault = fault;
        command_.Act(world);
        files.fault.Call = files.fault.Second = 0;
        outcome.Calls = files.fault.Calls;
        outcome.Failed = files.fault.Failed;
        outcome.After = SnapshotOf(folder_->Path());
        outcome.NewText = world.module.WorkText;
        outcome.Said = world.person.told;
        outcome.Kept = world.Keeps(outcome.OldText, reference);
        return outcome;
    }

    void OpenFolder() {
        std::error_code ignored;
        fs::permissions(Books(), fs::perms(0755), ignored);
    }

    // The folder of the books; the user's folder for copies stands beside it.
    [[nodiscard]] std::string Books() const { return folder_->Name("books"); }

    // Whether the person was told of this failure.
    [[nodiscard]] bool Tells(const std::vector<Told>& said, int failure) const {
        return std::any_of(said.begin(), said.end(), [&](const Told& told) {
            return command_.How == Telling::AnotherName
                       ? told.Text == "Bad Filename. Please select a new file"
                       : told.Number == failure;
        });
    }

    // The folder after a failure: the old one or the new one, and perhaps the copy that was kept.
    [[nodiscard]] bool IsOldOrNew(Snapshot after, const Outcome& reference) const {
        if (after == reference.Before || after == reference.After) {
            return true;
        }
        return !command_.Aside.empty() && after.erase("books/" + command_.Aside) == 1 &&
               after == reference.Before;
    }

    // Checks a run with one fault. Returns whether there was that call at all.
    bool Try(std::size_t n, const ErrorRow* row, const Outcome& reference) {
        Fault fault;
        fault.Call = n;
        if (row != nullptr) {
            fault.Error = ErrorOf(row->Error);
        }
        const Outcome run = Run(fault, reference.NewText);
        if (run.Calls < n) {
            return false;
        }
        if (row == nullptr && !run.Failed.ends_with("Read") && !run.Failed.ends_with("Write")) {
            return true;
        }
        ++runs_;
        const std::string where = "call " + std::to_string(n) + ", " + run.Failed + ": " +
                                  (row != nullptr ? fault.Error.message() : "short count");
        const int failure = row == nullptr ? 0 : row->Failure;
        const bool went_on = Same(run.Said, reference.Said) && run.After == reference.After &&
                             run.NewText == reference.NewText;
        const Tolerance* const tolerance =
            row == nullptr ? nullptr : FindTolerance(state_, run.Failed, row->Error);
        const bool may_go_on = failure == 0 || tolerance != nullptr;
        if (tolerance != nullptr && tolerance->LeavesFile) {
            EXPECT_TRUE(Contains(run.After, reference.After) ||
                        Contains(run.After, reference.Before))
                << where << Listing(run);
        } else if (!may_go_on || !went_on) {
            const int other = tolerance != nullptr ? tolerance->Failure : 0;
            EXPECT_NE(failure, 0) << where << " stops it" << Listing(run);
            EXPECT_TRUE(Tells(run.Said, failure) || (other != 0 && Tells(run.Said, other)))
                << where << Listing(run);
            EXPECT_TRUE(IsOldOrNew(run.After, reference)) << where << Listing(run);
        }
        EXPECT_TRUE(run.Kept) << where << " loses the text, and leaves " << run.NewText;
        return true;
    }

    [[nodiscard]] static bool Same(const std::vector<Told>& one, const std::vector<Told>& other) {
        return std::equal(
            one.begin(), one.end(), other.begin(), other.end(), [](const Told& a, const Told& b) {
                return a.Number == b.Number && a.Text == b.Text;
            });
    }
    // Whether the files of the second are in the first.
    [[nodiscard]] static bool Contains(const Snapshot& all, const Snapshot& some) {
        return std::all_of(some.begin(), some.end(), [&](const auto& file) {
            const auto found = all.find(file.first);
            return found != all.end() && found->second == file.second;
        });
    }
    [[nodiscard]] static std::string Listing(const Outcome& run) {
        std::string text = "\ntold:";
        for (const Told& told : run.Said) {
            text += " [" + std::to_string(told.Number) + " " + told.Text + "]";
        }
        for (const auto& [name, contents] : run.After) {
            text += "\n" + name + ": " + contents;
        }
        return text;
    }

    [[nodiscard]] bool CanRun() const { return !user_ || user_->Ordinary(); }

    const FileCommand& command_ = *GetParam().command;
    FileState state_ = GetParam().state;
    std::size_t runs_ = 0;
    std::unique_ptr<OrdinaryUser> user_;
    std::unique_ptr<TempFolder> folder_;
    std::unique_ptr<Environment> state_home_;
};

TEST_P(Faults, OneCallFails_LeavesOldOrNew) {
    if (!CanRun()) {
        GTEST_SKIP() << "permissions do not count for this user";
    }
    const Outcome reference = Run({}, {});
    // What a merge drops cannot be kept aside in a closed folder, so that it is not dropped.
    const bool works = state_ != FileState::Missing &&
                       (state_ != FileState::ClosedFolder || command_.Aside.empty());
    EXPECT_TRUE(!works || reference.Said.empty()) << Listing(reference);
    Counts made{.Calls = reference.Calls};
    for (const ErrorRow& row : kErrors) {
        for (std::size_t n = 1; Try(n, &row, reference); ++n) {
        }
    }
    for (std::size_t n = 1; Try(n, nullptr, reference); ++n) {
    }
    made.Runs = runs_;
    OneFault().Add(command_.Name, std::string(NameOf(state_)), made);
}

using TwoFaultsOf = Faults;

TEST_P(TwoFaultsOf, TwoCallsFail_LeavesOldOrNewOrACopy) {
    if (!CanRun()) {
        GTEST_SKIP() << "permissions do not count for this user";
    }
    const Outcome reference = Run({}, {});
    Counts made{.Calls = reference.Calls};
    for (const int error : {ENOSPC, EIO}) {
        bool again = true;
        for (std::size_t first = 1; again; ++first) {
            again = false;
            for (std::size_t second = first + 1;; ++second) {
                Fault fault;
                fault.Call = first;
                fault.Second = second;
                fault.Error = ErrorOf(error);
                const Outcome run = Run(fault, reference.NewText);
                again = again || run.Calls >= first;
                if (run.Calls < second) {
                    break;
                }
                ++made.Runs;
                const std::string where =
                    std::to_string(first) + " and " + std::to_string(second) + ", " + run.Failed;
                const bool whole = IsOldOrNew(run.After, reference);
                const bool copied =
                    std::any_of(run.After.begin(), run.After.end(), [&](const auto& file) {
                        return file.first != "books/" + command_.File &&
                               file.second.starts_with(command_.Contents + "|");
                    });
                const bool littered =
                    run.Failed.find("Remove") != std::string::npos &&
                    (Contains(run.After, reference.After) || Contains(run.After, reference.Before));
                EXPECT_TRUE(whole || littered || (state_ != FileState::Missing && copied))
                    << where << Listing(run);
                EXPECT_TRUE(run.Kept) << where << " loses the text";
            }
        }
    }
    TwoFaults().Add(command_.Name, std::string(NameOf(state_)), made);
}

INSTANTIATE_TEST_SUITE_P(Readers,
                         Faults,
                         testing::ValuesIn(TrialsOf(Readers(),
                                                    {FileState::Missing, FileState::Existing})),
                         &NameOfTrial);
INSTANTIATE_TEST_SUITE_P(Savers,
                         Faults,
                         testing::ValuesIn(TrialsOf(Savers(),
                                                    {FileState::Missing,
                                                     FileState::Existing,
                                                     FileState::Linked,
                                                     FileState::ClosedFolder})),
                         &NameOfTrial);
INSTANTIATE_TEST_SUITE_P(Savers,
                         TwoFaultsOf,
                         testing::ValuesIn(TrialsOf(Savers(),
                                                    {FileState::Missing,
                                                     FileState::Existing,
                                                     FileState::Linked,
                                                     FileState::ClosedFolder})),
                         &NameOfTrial);

}  // namespace

std::vector<CountedTable*> FaultTables() {
    return {&OneFault(), &TwoFaults()};
}

}  // namespace orvik::test

int main(int argc, char** argv) {
    return orvik::test::RunTests(argc, argv, orvik::test::FaultTables());
}
