#include "store/recovery_writer.h"

#include <atomic>
#include <filesystem>
#include <future>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/faulty_files.h"
#include "unit/process_limits.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

RecoveryCopy CopyOf(std::string text) {
    return {.Text = std::move(text), .Mode = "Native", .Caption = "Orvik"};
}

// A disk that stands still until it is let go.
class SlowFiles : public SystemFiles {
 public:
    explicit SlowFiles(Path state) : SystemFiles(false), state_(std::move(state)) {}
    Path StateFolder() override { return state_; }
    std::error_code Rename(const Path& from, const Path& to) override {
        ++renames;
        if (waits) {
            go_on.get_future().wait();
        }
        return SystemFiles::Rename(from, to);
    }

    std::atomic<int> renames = 0;
    std::atomic<bool> waits = false;
    std::promise<void> go_on;

 private:
    Path state_;
};

class RecoveryWriterTest : public testing::Test {
 protected:
    [[nodiscard]] std::vector<std::string> Offered() {
        std::vector<std::string> texts;
        for (const RecoveryStore::Left& left : RecoveryStore(files).LeftBooks()) {
            texts.emplace_back(left.Copy.Text.View());
        }
        return texts;
    }

    test::TempFolder folder;
    SlowFiles files{folder.Path()};
};

TEST_F(RecoveryWriterTest, TheLastCopyIsKept) {
    {
        RecoveryStore store(files);
        RecoveryWriter writer(store);
        for (int i = 0; i < 100; ++i) {
            writer.Keep(CopyOf(std::to_string(i)));
            // Asked while the worker works.
            EXPECT_TRUE(writer.IsBusy() || writer.Problem().empty());
        }
        writer.Finish();
        EXPECT_FALSE(writer.IsBusy());
        EXPECT_EQ(writer.Problem(), "");
    }
    EXPECT_THAT(Offered(), ElementsAre("99"));
}

TEST_F(RecoveryWriterTest, WhoGivesACopy_DoesNotWaitForTheDisk) {
    RecoveryStore store(files);
    RecoveryWriter writer(store);
    files.waits = true;
    writer.Keep(CopyOf("first"));
    while (files.renames == 0) {
        std::this_thread::yield();
    }
    for (int i = 0; i < 1000; ++i) {
        writer.Keep(CopyOf(std::to_string(i)));
        EXPECT_TRUE(writer.IsBusy());
    }
    files.waits = false;
    files.go_on.set_value();
    writer.Finish();
    // Of all that waited the last one alone was written.
    EXPECT_EQ(files.renames, 2);
}

TEST_F(RecoveryWriterTest, AtTheEnd_WhatWasGivenIsDone) {
    RecoveryStore store(files);
    { RecoveryWriter(store).Keep(CopyOf("text")); }
    EXPECT_EQ(files.renames, 1);
    { RecoveryWriter(store).Forget(); }
    EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(RecoveryWriterTest, WhatIsReplaced_GoesBehindTheNewCopy) {
    { RecoveryStore(files).Keep(CopyOf("left")); }
    RecoveryStore store(files);
    RecoveryWriter writer(store);
    std::vector<RecoveryStore::Left> left = store.LeftBooks();
    ASSERT_EQ(left.size(), 1U);
    const fs::path book = left.front().Folder / "book";
    {
        const test::FileSizeLimit full(0);
        writer.Keep(CopyOf("new"), std::move(left));
        writer.Finish();
        EXPECT_EQ(writer.Problem(), "Disk full");
        EXPECT_TRUE(fs::exists(book));
    }
    writer.Keep(CopyOf("new"));
    writer.Finish();
    EXPECT_EQ(writer.Problem(), "");
    EXPECT_FALSE(fs::exists(book));
}

TEST_F(RecoveryWriterTest, WhatIsReplaced_GoesWithWhatIsForgotten) {
    { RecoveryStore(files).Keep(CopyOf("left")); }
    RecoveryStore store(files);
    RecoveryWriter writer(store);
    writer.Forget(store.LeftBooks());
    writer.Finish();
    EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(RecoveryWriterTest, WhatIsSetAsideWhileTheDiskIsBusy_IsNotOverwritten) {
    {
        RecoveryStore store(files);
        RecoveryWriter writer(store);
        files.waits = true;
        writer.Keep(CopyOf("early"));
        while (files.renames == 0) {
            std::this_thread::yield();
        }
        writer.Keep(CopyOf("late"));
        writer.SetAside(1, CopyOf("latest"));
        EXPECT_TRUE(writer.SetsAside());
        writer.Keep(CopyOf("open"));
        writer.Forget();
        writer.Keep(CopyOf("next"));
        files.waits = false;
        files.go_on.set_value();
        writer.Finish();
        EXPECT_FALSE(writer.SetsAside());
        // What waited and was not the last of its book was not written.
        EXPECT_EQ(files.renames, 3);
    }
    EXPECT_THAT(Offered(), testing::UnorderedElementsAre("latest", "next"));
}

TEST_F(RecoveryWriterTest, WhatCannotBeSetAside_IsTriedAgain) {
    { RecoveryStore(files).Keep(CopyOf("left")); }
    {
        RecoveryStore store(files);
        RecoveryWriter writer(store);
        {
            const test::FileSizeLimit full(0);
            writer.SetAside(1, CopyOf("one"), store.LeftBooks());
            writer.SetAside(2, CopyOf("two"));
            writer.Finish();
            EXPECT_TRUE(writer.SetsAside());
        }
        // It is another book, which takes the place of nothing.
        writer.Keep(CopyOf("open"));
        writer.Finish();
        EXPECT_EQ(writer.Problem(), "Disk full");
        writer.TakeBack(2);
        writer.Finish();
        writer.Keep(CopyOf("two again"));
        writer.Retry();
        writer.Finish();
        EXPECT_EQ(writer.Problem(), "");
    }
    EXPECT_THAT(Offered(), testing::UnorderedElementsAre("one", "two again"));
}

TEST_F(RecoveryWriterTest, AFailure_IsToldUntilTheNextCopyIsKept) {
    test::WriteFile(folder.Name("orvik"), "no folder");
    RecoveryStore store(files);
    RecoveryWriter writer(store);
    writer.Keep(CopyOf("text"));
    writer.Finish();
    EXPECT_NE(writer.Problem(), "");
    fs::remove(folder.Name("orvik"));
    writer.Keep(CopyOf("text"));
    writer.Finish();
    EXPECT_EQ(writer.Problem(), "");
}

}  // namespace
}  // namespace orvik
