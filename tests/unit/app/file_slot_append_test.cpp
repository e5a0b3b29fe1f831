// Adding to files through FileSlot.

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

using test::FailureOf;
using test::ReadFile;
using test::WriteFile;

using Files = std::vector<std::string>;

class FileSlotAppendTest : public testing::Test {
 protected:
    int FailureOfAppending(const std::string& name, std::string_view contents = "new") {
        return FailureOf([&] { slot_.Append(name, contents); });
    }

    test::TempFolder folder_;
    SystemFiles files_;
    FileTalk talk_;
    FileSlot slot_{files_, talk_};
};

TEST_F(FileSlotAppendTest, OldContents_StayInFront) {
    const std::string added("A1\r\nA2\n\0\xFF\x1A end", 15);
    WriteFile(folder_.Name("a.pml"), "old\r\n");
    slot_.Append(folder_.Name("a.pml"), added);
    EXPECT_EQ(ReadFile(folder_.Name("a.pml")), "old\r\n" + added);
}

TEST_F(FileSlotAppendTest, MissingFile_IsCreated) {
    slot_.Append(folder_.Name("a.pml"), "new");
    EXPECT_EQ(ReadFile(folder_.Name("a.pml")), "new");
    EXPECT_EQ(folder_.Files(), Files{"a.pml"});
}

TEST_F(FileSlotAppendTest, LinkToFile_IsFollowed) {
    WriteFile(folder_.Name("a.pml"), "old");
    fs::create_symlink("a.pml", folder_.Name("link"));
    slot_.Append(folder_.Name("link"), "new");
    EXPECT_EQ(ReadFile(folder_.Name("a.pml")), "oldnew");
    EXPECT_TRUE(fs::is_symlink(folder_.Name("link")));
}

TEST_F(FileSlotAppendTest, FullDisk_FailsWith61AndKeepsTheOldLength) {
    WriteFile(folder_.Name("a.pml"), "old");
    for (const std::size_t size : {std::size_t{98}, std::size_t{5000}, std::size_t{200'000}}) {
        int failure = 0;
        {
            const test::FileSizeLimit limit(100);
            failure = FailureOfAppending(folder_.Name("a.pml"), std::string(size, 'x'));
        }
        EXPECT_EQ(failure, 61);
        EXPECT_EQ(ReadFile(folder_.Name("a.pml")), "old");
    }
}

TEST_F(FileSlotAppendTest, FullDiskAndMissingFile_FailsWith61AndLeavesNothing) {
    int failure = 0;
    {
        const test::FileSizeLimit limit(100);
        failure = FailureOfAppending(folder_.Name("a.pml"), std::string(200, 'x'));
    }
    EXPECT_EQ(failure, 61);
    EXPECT_TRUE(folder_.Files().empty());
}

}  // namespace
}  // namespace orvik
