// What writing to a file through FileSlot refuses, however it is written.

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/file_slot.h"
#include "platform/system_files.h"
#include "unit/failure.h"
#include "unit/process_limits.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

using test::ReadFile;
using test::WriteFile;

using Files = std::vector<std::string>;

struct Way {
    const char* name;
    void (*write)(FileSlot& slot, const std::string& name);
};

class FileSlotWriteTest : public testing::TestWithParam<Way> {
 protected:
    int FailureOf(const std::string& name) {
        return test::FailureOf([&] { GetParam().write(slot_, name); });
    }

    test::TempFolder folder_;
    SystemFiles files_;
    FileTalk talk_;
    FileSlot slot_{files_, talk_};
};

INSTANTIATE_TEST_SUITE_P(
    ,
    FileSlotWriteTest,
    testing::Values(
        Way{"Replace", [](FileSlot& slot, const std::string& name) { slot.Replace(name, "new"); }},
        Way{"Append", [](FileSlot& slot, const std::string& name) { slot.Append(name, "new"); }},
        Way{"TryWriting", [](FileSlot& slot, const std::string& name) { slot.TryWriting(name); }}),
    [](const auto& way) { return way.param.name; });

TEST_P(FileSlotWriteTest, FileLeftOpen_IsClosed) {
    WriteFile(folder_.Name("a.pml"), "old");
    slot_.OpenForInput(folder_.Name("a.pml"));
    EXPECT_EQ(FailureOf(folder_.Name("a.pml")), 0);
    EXPECT_EQ(test::FailureOf([&] { slot_.Read(1); }), 52);
}

TEST_P(FileSlotWriteTest, MissingFolder_FailsWith76) {
    EXPECT_EQ(FailureOf(folder_.Name("missing/a.pml")), 76);
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_P(FileSlotWriteTest, FileUsedAsFolder_FailsWith76) {
    WriteFile(folder_.Name("a.pml"), "old");
    EXPECT_EQ(FailureOf(folder_.Name("a.pml/b.pml")), 76);
    EXPECT_EQ(ReadFile(folder_.Name("a.pml")), "old");
    EXPECT_EQ(folder_.Files(), Files{"a.pml"});
}

TEST_P(FileSlotWriteTest, Folder_FailsWith75) {
    EXPECT_EQ(FailureOf(folder_.Path()), 75);
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_P(FileSlotWriteTest, EmptyName_FailsWith75) {
    EXPECT_EQ(FailureOf(""), 75);
}

TEST_P(FileSlotWriteTest, ZeroByteInName_FailsWith52) {
    EXPECT_EQ(FailureOf(folder_.Name("a.pml") + std::string("\0b", 2)), 52);
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_P(FileSlotWriteTest, PipeNobodyReadsFrom_FailsWith75AtOnce) {
    ASSERT_EQ(mkfifo(folder_.Name("pipe").c_str(), 0600), 0);
    EXPECT_EQ(FailureOf(folder_.Name("pipe")), 75);
    EXPECT_EQ(folder_.Files(), Files{"pipe"});
}

TEST_P(FileSlotWriteTest, WriteProtectedFile_FailsWith70) {
    WriteFile(folder_.Name("a.pml"), "old");
    fs::permissions(folder_.Path(), fs::perms(0777));
    fs::permissions(folder_.Name("a.pml"), fs::perms(0444));
    int failure = 0;
    {
        const test::OrdinaryUser user;
        if (!user.Ordinary()) {
            GTEST_SKIP() << "the superuser writes every file";
        }
        failure = FailureOf(folder_.Name("a.pml"));
    }
    EXPECT_EQ(failure, 70);
    EXPECT_EQ(ReadFile(folder_.Name("a.pml")), "old");
    EXPECT_EQ(folder_.Files(), Files{"a.pml"});
}

TEST(FileSlotTryWritingTest, WhatIsThere_StaysAndNothingElseComes) {
    const test::TempFolder folder;
    SystemFiles files;
    FileTalk talk;
    FileSlot slot{files, talk};
    WriteFile(folder.Name("a.pml"), "old");
    slot.TryWriting(folder.Name("a.pml"));
    slot.TryWriting(folder.Name("b.pml"));
    EXPECT_EQ(ReadFile(folder.Name("a.pml")), "old");
    EXPECT_EQ(folder.Files(), Files{"a.pml"});
}

}  // namespace
}  // namespace orvik
