// Reading through file number 1. Writing: file_slot_replace_test.cpp and file_slot_append_test.cpp.

#include "app/file_slot.h"

#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "platform/system_files.h"
#include "unit/failure.h"
#include "unit/process_limits.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::WriteFile;

class FileSlotTest : public testing::Test {
 protected:
    int FailureOfOpening(const std::string& name) {
        return FailureOf([&] { slot_.OpenForInput(name); });
    }

    test::TempFolder folder_;
    SystemFiles files_;
    FileTalk talk_;
    FileSlot slot_{files_, talk_};
};

TEST_F(FileSlotTest, File_IsReadWhole) {
    const std::string contents("A1\r\nA2\n\0\xFF\x1A end", 15);
    WriteFile(folder_.Name("a.txt"), contents);
    slot_.OpenForInput(folder_.Name("a.txt"));
    EXPECT_EQ(slot_.Length(), contents.size());
    EXPECT_EQ(slot_.Read(slot_.Length()), contents);
}

TEST_F(FileSlotTest, EmptyFile_HasLengthZero) {
    WriteFile(folder_.Name("a.txt"), "");
    slot_.OpenForInput(folder_.Name("a.txt"));
    EXPECT_EQ(slot_.Length(), 0U);
    EXPECT_EQ(slot_.Read(0), "");
}

TEST_F(FileSlotTest, SecondRead_GoesOnBehindTheFirst) {
    WriteFile(folder_.Name("a.txt"), "abcdef");
    slot_.OpenForInput(folder_.Name("a.txt"));
    EXPECT_EQ(slot_.Read(2), "ab");
    EXPECT_EQ(slot_.Read(4), "cdef");
    EXPECT_EQ(slot_.Length(), 6U);
}

TEST_F(FileSlotTest, Pieces_AreTheFile) {
    const std::string contents = std::string(300'000, 'a') + std::string(300'000, 'b');
    WriteFile(folder_.Name("a.txt"), contents);
    slot_.OpenForInput(folder_.Name("a.txt"));
    std::string taken;
    int pieces = 0;
    EXPECT_TRUE(slot_.ReadPieces([&](std::string_view piece) {
        taken.append(piece);
        ++pieces;
        return true;
    }));
    EXPECT_TRUE(taken == contents);
    EXPECT_GT(pieces, 1);
}

TEST_F(FileSlotTest, PiecesThatAreNotWanted_EndThere) {
    WriteFile(folder_.Name("a.txt"), std::string(600'000, 'a'));
    slot_.OpenForInput(folder_.Name("a.txt"));
    int pieces = 0;
    EXPECT_FALSE(slot_.ReadPieces([&](std::string_view /*piece*/) { return ++pieces < 2; }));
    EXPECT_EQ(pieces, 2);
    slot_.Rewind();
    EXPECT_EQ(slot_.Read(slot_.Length()), std::string(600'000, 'a'));
}

TEST_F(FileSlotTest, PiecesOfAFileThatShrank_FailWith62) {
    WriteFile(folder_.Name("a.txt"), std::string(600'000, 'a'));
    slot_.OpenForInput(folder_.Name("a.txt"));
    std::filesystem::resize_file(folder_.Name("a.txt"), 400'000);
    const auto take = [](std::string_view /*piece*/) { return true; };
    EXPECT_EQ(FailureOf([&] { slot_.ReadPieces(take); }), 62);
}

TEST_F(FileSlotTest, ReadBeyondEnd_FailsWith62) {
    WriteFile(folder_.Name("a.txt"), "abc");
    slot_.OpenForInput(folder_.Name("a.txt"));
    EXPECT_EQ(FailureOf([&] { slot_.Read(4); }), 62);
}

TEST_F(FileSlotTest, FileShrunkAfterOpening_FailsWith62) {
    WriteFile(folder_.Name("a.txt"), "abcdef");
    slot_.OpenForInput(folder_.Name("a.txt"));
    std::filesystem::resize_file(folder_.Name("a.txt"), 3);
    EXPECT_EQ(FailureOf([&] { slot_.Read(slot_.Length()); }), 62);
}

TEST_F(FileSlotTest, NothingOpen_FailsWith52) {
    EXPECT_EQ(FailureOf([&] { slot_.Read(1); }), 52);
    EXPECT_EQ(FailureOf([&] { slot_.Read(0); }), 52);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(slot_.Length()); }), 52);
    EXPECT_EQ(FailureOf([&] { slot_.Rewind(); }), 52);
    EXPECT_EQ(FailureOf([&] { slot_.ReadPieces([](std::string_view) { return true; }); }), 52);
}

TEST_F(FileSlotTest, Closed_FailsWith52) {
    WriteFile(folder_.Name("a.txt"), "abc");
    slot_.OpenForInput(folder_.Name("a.txt"));
    slot_.Close();
    EXPECT_EQ(FailureOf([&] { slot_.Read(1); }), 52);
}

TEST_F(FileSlotTest, CloseWithNothingOpen_DoesNothing) {
    slot_.Close();
    slot_.Close();
}

TEST_F(FileSlotTest, FileLeftOpen_IsClosedByTheNextOpening) {
    WriteFile(folder_.Name("a.txt"), "a");
    WriteFile(folder_.Name("b.txt"), "bb");
    slot_.OpenForInput(folder_.Name("a.txt"));
    slot_.OpenForInput(folder_.Name("b.txt"));
    EXPECT_EQ(slot_.Read(slot_.Length()), "bb");
}

TEST_F(FileSlotTest, FailedOpening_LeavesNothingOpen) {
    WriteFile(folder_.Name("a.txt"), "a");
    slot_.OpenForInput(folder_.Name("a.txt"));
    EXPECT_EQ(FailureOfOpening(folder_.Name("missing")), 53);
    EXPECT_EQ(FailureOf([&] { slot_.Read(1); }), 52);
}

TEST_F(FileSlotTest, MissingFile_FailsWith53AndIsNotCreated) {
    EXPECT_EQ(FailureOfOpening(folder_.Name("missing")), 53);
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_F(FileSlotTest, MissingFileInCurrentFolder_FailsWith53) {
    EXPECT_EQ(FailureOfOpening("no file of this name"), 53);
}

TEST_F(FileSlotTest, MissingFolder_FailsWith76) {
    EXPECT_EQ(FailureOfOpening(folder_.Name("missing/a.txt")), 76);
}

TEST_F(FileSlotTest, FileUsedAsFolder_FailsWith76) {
    WriteFile(folder_.Name("a.txt"), "a");
    EXPECT_EQ(FailureOfOpening(folder_.Name("a.txt/b.txt")), 76);
    EXPECT_EQ(FailureOfOpening(folder_.Name("a.txt/")), 76);
}

TEST_F(FileSlotTest, Folder_FailsWith75) {
    EXPECT_EQ(FailureOfOpening(folder_.Path()), 75);
}

TEST_F(FileSlotTest, EmptyName_FailsWith75) {
    EXPECT_EQ(FailureOfOpening(""), 75);
}

TEST_F(FileSlotTest, ZeroByteInName_FailsWith52) {
    WriteFile(folder_.Name("a.txt"), "a");
    EXPECT_EQ(FailureOfOpening(folder_.Name("a.txt") + std::string("\0.txt", 5)), 52);
}

TEST_F(FileSlotTest, NameTooLongForTheSystem_FailsWith75) {
    EXPECT_EQ(FailureOfOpening(folder_.Name(std::string(5000, 'a'))), 75);
}

TEST_F(FileSlotTest, PipeNobodyWritesTo_FailsWith75AtOnce) {
    ASSERT_EQ(mkfifo(folder_.Name("pipe").c_str(), 0600), 0);
    EXPECT_EQ(FailureOfOpening(folder_.Name("pipe")), 75);
}

TEST_F(FileSlotTest, Device_FailsWith75) {
    EXPECT_EQ(FailureOfOpening("/dev/zero"), 75);
}

TEST_F(FileSlotTest, LinkToFile_IsRead) {
    WriteFile(folder_.Name("a.txt"), "abc");
    std::filesystem::create_symlink("a.txt", folder_.Name("link"));
    slot_.OpenForInput(folder_.Name("link"));
    EXPECT_EQ(slot_.Read(slot_.Length()), "abc");
}

TEST_F(FileSlotTest, LinkToNothing_FailsWith53) {
    std::filesystem::create_symlink("missing", folder_.Name("link"));
    EXPECT_EQ(FailureOfOpening(folder_.Name("link")), 53);
}

TEST_F(FileSlotTest, LinkToItself_FailsWith75) {
    std::filesystem::create_symlink("link", folder_.Name("link"));
    EXPECT_EQ(FailureOfOpening(folder_.Name("link")), 75);
}

TEST_F(FileSlotTest, Rewriting_SeesTheOldContents) {
    WriteFile(folder_.Name("a.txt"), "abc");
    EXPECT_TRUE(slot_.Rewrite(folder_.Name("a.txt"), [](const std::optional<std::string>& old) {
        return "<" + old.value_or("none") + ">";
    }));
    EXPECT_EQ(test::ReadFile(folder_.Name("a.txt")), "<abc>");
}

TEST_F(FileSlotTest, RewritingAMissingFile_SeesNone) {
    EXPECT_TRUE(slot_.Rewrite(folder_.Name("a.txt"), [](const std::optional<std::string>& old) {
        return old.value_or("none");
    }));
    EXPECT_EQ(test::ReadFile(folder_.Name("a.txt")), "none");
}

TEST_F(FileSlotTest, RewritingWithoutNewContents_WritesNothing) {
    EXPECT_FALSE(
        slot_.Rewrite(folder_.Name("a.txt"), [](const auto& /*old*/) { return std::nullopt; }));
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_F(FileSlotTest, FileWithoutReadPermission_FailsWith70) {
    WriteFile(folder_.Name("a.txt"), "abc");
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder_.Name("a.txt"), std::filesystem::perms(0000));
    const test::OrdinaryUser user;
    if (!user.Ordinary()) {
        GTEST_SKIP() << "the superuser reads every file";
    }
    EXPECT_EQ(FailureOfOpening(folder_.Name("a.txt")), 70);
}

TEST_F(FileSlotTest, FolderWithoutPermission_FailsWith70) {
    WriteFile(folder_.Name("a.txt"), "abc");
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0000));
    int of_file = 0;
    int of_missing_file = 0;
    {
        const test::OrdinaryUser user;
        if (!user.Ordinary()) {
            GTEST_SKIP() << "the superuser reads every folder";
        }
        of_file = FailureOfOpening(folder_.Name("a.txt"));
        of_missing_file = FailureOfOpening(folder_.Name("missing"));
    }
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0755));
    EXPECT_EQ(of_file, 70);
    EXPECT_EQ(of_missing_file, 70);
}

}  // namespace
}  // namespace orvik
