// Writing through FileSlot. Reading: file_slot_test.cpp.

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

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

class FileSlotReplaceTest : public testing::Test {
 protected:
    int FailureOfReplacing(const std::string& name, std::string_view contents = "new") {
        return FailureOf([&] { slot_.Replace(name, contents); });
    }
    [[nodiscard]] unsigned PermissionsOf(std::string_view file) const {
        return static_cast<unsigned>(fs::status(folder_.Name(file)).permissions());
    }

    test::TempFolder folder_;
    SystemFiles files_;
    FileTalk talk_;
    FileSlot slot_{files_, talk_};
};

TEST_F(FileSlotReplaceTest, NewFile_IsWrittenAsTheBytesStand) {
    const std::string contents("A1\r\nA2\n\0\xFF\x1A end", 15);
    slot_.Replace(folder_.Name("a.txt"), contents);
    EXPECT_EQ(ReadFile(folder_.Name("a.txt")), contents);
    EXPECT_EQ(folder_.Files(), Files{"a.txt"});
}

TEST_F(FileSlotReplaceTest, LongerFile_IsReplacedWhole) {
    WriteFile(folder_.Name("a.txt"), "a much longer text");
    slot_.Replace(folder_.Name("a.txt"), "new");
    EXPECT_EQ(ReadFile(folder_.Name("a.txt")), "new");
    EXPECT_EQ(folder_.Files(), Files{"a.txt"});
}

TEST_F(FileSlotReplaceTest, EmptyContents_MakeAnEmptyFile) {
    WriteFile(folder_.Name("a.txt"), "old");
    slot_.Replace(folder_.Name("a.txt"), "");
    EXPECT_EQ(ReadFile(folder_.Name("a.txt")), "");
}

TEST_F(FileSlotReplaceTest, NameInCurrentFolder_IsWrittenThere) {
    const fs::path old = fs::current_path();
    fs::current_path(folder_.Path());
    EXPECT_EQ(FailureOfReplacing("a.txt"), 0);
    fs::current_path(old);
    EXPECT_EQ(ReadFile(folder_.Name("a.txt")), "new");
}

TEST_F(FileSlotReplaceTest, Permissions_StayAsTheyWere) {
    for (const unsigned mode : {0600U, 0640U, 0666U, 0755U}) {
        WriteFile(folder_.Name("a.txt"), "old");
        fs::permissions(folder_.Name("a.txt"), fs::perms(mode));
        slot_.Replace(folder_.Name("a.txt"), "new");
        EXPECT_EQ(PermissionsOf("a.txt"), mode);
        EXPECT_EQ(ReadFile(folder_.Name("a.txt")), "new");
    }
}

TEST_F(FileSlotReplaceTest, NewFile_GetsTheUsersDefaultPermissions) {
    const mode_t old = umask(027);
    slot_.Replace(folder_.Name("a.txt"), "new");
    umask(old);
    EXPECT_EQ(PermissionsOf("a.txt"), 0640U);
}

TEST_F(FileSlotReplaceTest, LinkToFile_StaysALink) {
    fs::create_directory(folder_.Name("sub"));
    WriteFile(folder_.Name("sub/a.txt"), "old");
    fs::create_symlink("sub/a.txt", folder_.Name("link"));
    slot_.Replace(folder_.Name("link"), "new");
    EXPECT_TRUE(fs::is_symlink(folder_.Name("link")));
    EXPECT_EQ(ReadFile(folder_.Name("sub/a.txt")), "new");
    EXPECT_EQ(folder_.Files(), (Files{"link", "sub"}));
}

TEST_F(FileSlotReplaceTest, LinkToFolderInPath_IsFollowed) {
    fs::create_directory(folder_.Name("sub"));
    fs::create_directory_symlink("sub", folder_.Name("link"));
    slot_.Replace(folder_.Name("link/a.txt"), "new");
    EXPECT_EQ(ReadFile(folder_.Name("sub/a.txt")), "new");
    EXPECT_TRUE(fs::is_symlink(folder_.Name("link")));
}

TEST_F(FileSlotReplaceTest, LinkToItself_FailsWith75) {
    fs::create_symlink("link", folder_.Name("link"));
    EXPECT_EQ(FailureOfReplacing(folder_.Name("link")), 75);
    EXPECT_TRUE(fs::is_symlink(folder_.Name("link")));
}

TEST_F(FileSlotReplaceTest, FullDisk_FailsWith61AndKeepsTheOldFile) {
    WriteFile(folder_.Name("a.txt"), "old");
    for (const std::size_t size : {std::size_t{101}, std::size_t{5000}, std::size_t{200'000}}) {
        const std::string contents(size, 'x');
        int failure = 0;
        {
            const test::FileSizeLimit limit(100);
            failure = FailureOfReplacing(folder_.Name("a.txt"), contents);
        }
        EXPECT_EQ(failure, 61);
        EXPECT_EQ(ReadFile(folder_.Name("a.txt")), "old");
        EXPECT_EQ(folder_.Files(), Files{"a.txt"});
    }
}

TEST_F(FileSlotReplaceTest, FullDiskAndNewFile_FailsWith61AndLeavesNothing) {
    int failure = 0;
    {
        const test::FileSizeLimit limit(100);
        failure = FailureOfReplacing(folder_.Name("a.txt"), std::string(200, 'x'));
    }
    EXPECT_EQ(failure, 61);
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_F(FileSlotReplaceTest, FullDevice_FailsWith61) {
    EXPECT_EQ(FailureOfReplacing("/dev/full", "x"), 61);
    EXPECT_EQ(FailureOfReplacing("/dev/full", std::string(100'000, 'x')), 61);
}

TEST_F(FileSlotReplaceTest, Device_TakesTheBytes) {
    EXPECT_EQ(FailureOfReplacing("/dev/null"), 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FileSlotReplaceTest, MissingNameThatEndsAsAFolder_FailsWith76) {
    EXPECT_EQ(FailureOfReplacing(folder_.Name("missing/")), 76);
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_F(FileSlotReplaceTest, FileWithANameOfAFolder_FailsWith76) {
    WriteFile(folder_.Name("a.txt"), "old");
    EXPECT_EQ(FailureOfReplacing(folder_.Name("a.txt/")), 76);
    EXPECT_EQ(ReadFile(folder_.Name("a.txt")), "old");
    EXPECT_EQ(folder_.Files(), Files{"a.txt"});
}

TEST_F(FileSlotReplaceTest, NameOfGreatestLength_IsWritten) {
    const std::string name(255, 'a');
    EXPECT_EQ(FailureOfReplacing(folder_.Name(name)), 0);
    EXPECT_EQ(folder_.Files(), Files{name});
}

TEST_F(FileSlotReplaceTest, NameTooLongForTheSystem_FailsWith75) {
    EXPECT_EQ(FailureOfReplacing(folder_.Name(std::string(256, 'a'))), 75);
    EXPECT_TRUE(folder_.Files().empty());
}

// A folder that takes no new file: the book that is there is written in place.
TEST_F(FileSlotReplaceTest, WriteProtectedFolder_TakesOldBooksOnly) {
    WriteFile(folder_.Name("a.txt"), "old");
    fs::permissions(folder_.Name("a.txt"), fs::perms(0666));
    fs::permissions(folder_.Path(), fs::perms(0555));
    const test::TempFolder state;
    fs::permissions(state.Path(), fs::perms(0777));
    const test::Environment set("XDG_STATE_HOME", state.Path());
    int of_old = 0;
    int of_new = 0;
    {
        const test::OrdinaryUser user;
        if (!user.Ordinary()) {
            GTEST_SKIP() << "the superuser writes into every folder";
        }
        of_old = FailureOfReplacing(folder_.Name("a.txt"));
        of_new = FailureOfReplacing(folder_.Name("b.txt"));
    }
    fs::permissions(folder_.Path(), fs::perms(0755));
    EXPECT_EQ(of_old, 0);
    EXPECT_EQ(of_new, 70);
    EXPECT_EQ(ReadFile(folder_.Name("a.txt")), "new");
    EXPECT_EQ(folder_.Files(), Files{"a.txt"});
}

TEST_F(FileSlotReplaceTest, HardLinks_StayNamesOfOneFile) {
    WriteFile(folder_.Name("a.txt"), "a much longer text");
    fs::create_hard_link(folder_.Name("a.txt"), folder_.Name("b.txt"));
    slot_.Replace(folder_.Name("a.txt"), "new");
    EXPECT_EQ(ReadFile(folder_.Name("b.txt")), "new");
    EXPECT_EQ(fs::hard_link_count(folder_.Name("a.txt")), 2U);
    EXPECT_EQ(folder_.Files(), (Files{"a.txt", "b.txt"}));
}

TEST_F(FileSlotReplaceTest, UserAttributes_AreKept) {
    WriteFile(folder_.Name("a.txt"), "old");
    if (setxattr(folder_.Name("a.txt").c_str(), "user.colour", "red", 3, 0) != 0) {
        GTEST_SKIP() << "the file system has no user attributes";
    }
    slot_.Replace(folder_.Name("a.txt"), "new");
    std::string value(3, ' ');
    EXPECT_EQ(getxattr(folder_.Name("a.txt").c_str(), "user.colour", value.data(), 3), 3);
    EXPECT_EQ(value, "red");
}

TEST_F(FileSlotReplaceTest, UserAttributeWithoutAValue_IsKept) {
    WriteFile(folder_.Name("a.txt"), "old");
    if (setxattr(folder_.Name("a.txt").c_str(), "user.marked", "", 0, 0) != 0) {
        GTEST_SKIP() << "the file system has no user attributes";
    }
    slot_.Replace(folder_.Name("a.txt"), "new");
    EXPECT_EQ(getxattr(folder_.Name("a.txt").c_str(), "user.marked", nullptr, 0), 0);
}

// The list of the folder, which new files get, names a user whom the book does not let in.
TEST_F(FileSlotReplaceTest, BookWithoutAccessList_GetsNoneFromItsFolder) {
    constexpr std::string_view kList(
        "\2\0\0\0"
        "\1\0\6\0\xFF\xFF\xFF\xFF"
        "\2\0\6\0\xE8\3\0\0"
        "\4\0\4\0\xFF\xFF\xFF\xFF"
        "\x10\0\6\0\xFF\xFF\xFF\xFF"
        "\x20\0\0\0\xFF\xFF\xFF\xFF",
        44);
    const std::string book = folder_.Name("a.txt");
    WriteFile(book, "old");
    fs::permissions(book, fs::perms(0640));
    if (setxattr(
            folder_.Path().c_str(), "system.posix_acl_default", kList.data(), kList.size(), 0) !=
        0) {
        GTEST_SKIP() << "the file system has no access lists";
    }
    slot_.Replace(book, "new");
    EXPECT_EQ(getxattr(book.c_str(), "system.posix_acl_access", nullptr, 0), -1);
    EXPECT_EQ(PermissionsOf("a.txt"), 0640U);
    EXPECT_EQ(ReadFile(book), "new");
}

TEST_F(FileSlotReplaceTest, OwnerAndGroup_AreKept) {
    WriteFile(folder_.Name("a.txt"), "old");
    if (chown(folder_.Name("a.txt").c_str(), 65534, 65534) != 0) {
        GTEST_SKIP() << "only the superuser gives files away";
    }
    slot_.Replace(folder_.Name("a.txt"), "new");
    struct stat found {};
    EXPECT_EQ(stat(folder_.Name("a.txt").c_str(), &found), 0);
    EXPECT_EQ(found.st_uid, 65534U);
    EXPECT_EQ(found.st_gid, 65534U);
}

}  // namespace
}  // namespace orvik
