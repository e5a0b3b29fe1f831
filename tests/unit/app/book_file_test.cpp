// Every call of a saving goes wrong once, in every way that a disk knows.

#include "app/book_file.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "unit/failure.h"
#include "unit/faulty_files.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

using test::FailureOf;
using test::FaultyFiles;
using test::ReadFile;
using test::WriteFile;

// The failure that a saving ends with where its files return an error; 0 for one that it passes
// over.
struct ErrorRow {
    std::errc Error;
    int Failure;
};
constexpr std::array kErrors = {ErrorRow{std::errc::no_space_on_device, 61},
                                ErrorRow{std::errc::io_error, 57},
                                ErrorRow{std::errc::interrupted, 0},
                                ErrorRow{std::errc::file_too_large, 61},
                                ErrorRow{std::errc::permission_denied, 70},
                                ErrorRow{std::errc::too_many_files_open, 75},
                                ErrorRow{std::errc::cross_device_link, 75}};

struct SavingRow {
    const char* name;
    bool linked;  // the old book has a second name
    std::optional<std::string> old_contents;
    std::string new_contents;
    void (*save)(FileSystem& files, const std::string& name);
};

void Replace(FileSystem& files, const std::string& name) {
    ReplaceFile(files, name, "new contents");
}
void Append(FileSystem& files, const std::string& name) {
    AppendToFile(files, name, "+new");
}

class BookFileFaults : public testing::TestWithParam<SavingRow> {
 protected:
    // Runs a saving whose n-th call goes wrong, in a fresh folder. Returns false if it has fewer.
    static bool Try(std::size_t n, std::error_code error, int expected) {
        const SavingRow& row = GetParam();
        const test::TempFolder folder;
        const std::string name = folder.Name("book");
        if (row.old_contents) {
            WriteFile(name, *row.old_contents);
        }
        if (row.linked) {
            fs::create_hard_link(name, folder.Name("other"));
        }
        FaultyFiles files;
        files.fault.Call = n;
        files.fault.Error = error;
        const int failure = FailureOf([&] { row.save(files, name); });
        const std::string& failed = files.fault.Failed;
        const std::string where = "call " + std::to_string(n) + ", " + failed + ": " +
                                  (error ? error.message() : "short");
        EXPECT_TRUE(failure == 0 || failure == expected) << where << " gives " << failure;
        std::optional<std::string> contents;
        if (fs::exists(name)) {
            contents = ReadFile(name);
        }
        if (failure == 0) {
            EXPECT_EQ(contents, row.new_contents) << where;
        } else {
            EXPECT_TRUE(contents == row.old_contents || contents == row.new_contents)
                << where << " leaves " << contents.value_or("no file");
        }
        // What cannot be removed is left.
        if (failed != "Remove") {
            const std::size_t expected_files = (contents ? 1U : 0U) + (row.linked ? 1U : 0U);
            EXPECT_EQ(folder.Files().size(), expected_files) << where;
        }
        return files.fault.Calls >= n;
    }
};

INSTANTIATE_TEST_SUITE_P(
    ,
    BookFileFaults,
    testing::Values(
        SavingRow{"ReplaceNew", false, {}, "new contents", &Replace},
        SavingRow{"ReplaceOld", false, "old", "new contents", &Replace},
        SavingRow{"ReplaceLonger", false, "a much longer old text", "new contents", &Replace},
        SavingRow{"ReplaceLinked", true, "a much longer old text", "new contents", &Replace},
        SavingRow{"AppendNew", false, {}, "+new", &Append},
        SavingRow{"AppendOld", false, "old", "old+new", &Append},
        SavingRow{"AppendLinked", true, "old", "old+new", &Append}),
    [](const auto& row) { return row.param.name; });

TEST_P(BookFileFaults, EveryCallFailingOnce_LeavesOldOrNewContents) {
    std::size_t calls = 0;
    for (const ErrorRow& row : kErrors) {
        std::size_t n = 1;
        while (Try(n, std::make_error_code(row.Error), row.Failure)) {
            ++n;
        }
        calls += n - 1;
    }
    // A saving asks for a lock, looks, opens, creates, writes, syncs, renames and syncs again.
    EXPECT_GE(calls, kErrors.size() * 8);
}

TEST_P(BookFileFaults, ShortCounts_AreMadeUpFor) {
    for (std::size_t n = 1; Try(n, {}, 0); ++n) {
    }
}

TEST(KeepCopy, FirstFreeName_IsTaken) {
    const test::TempFolder folder;
    SystemFiles files;
    KeepCopy(files, folder.Name("book.htm"), "1");
    KeepCopy(files, folder.Name("book.htm"), "2");
    KeepCopy(files, folder.Name("book.htm"), "3");
    EXPECT_EQ(ReadFile(folder.Name("book.htm.bak")), "1");
    EXPECT_EQ(ReadFile(folder.Name("book.htm.bak1")), "2");
    EXPECT_EQ(ReadFile(folder.Name("book.htm.bak2")), "3");
}

TEST(KeepCopy, Copy_IsForNobodyElse) {
    const test::TempFolder folder;
    SystemFiles files;
    KeepCopy(files, folder.Name("book.htm"), "1");
    EXPECT_EQ(fs::status(folder.Name("book.htm.bak")).permissions(), fs::perms(0600));
}

// What an earlier kill has left stays, and a new copy stands beside it while it is needed.
TEST(RewriteFile, CopyThatWasLeft_StaysAndHindersNothing) {
    const test::TempFolder folder;
    SystemFiles files;
    WriteFile(folder.Name("book"), "old");
    fs::create_hard_link(folder.Name("book"), folder.Name("other"));
    WriteFile(folder.Name("book.orvik-copy"), "left");
    ReplaceFile(files, folder.Name("book"), "new");
    EXPECT_EQ(ReadFile(folder.Name("other")), "new");
    EXPECT_EQ(ReadFile(folder.Name("book.orvik-copy")), "left");
    EXPECT_EQ(folder.Files().size(), 3U);
}

}  // namespace
}  // namespace orvik
