#include "store/recent_books.h"

#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/system_files.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Files where something happens before a change gets its turn.
class BusyFiles : public SystemFiles {
 public:
    BusyFiles() : SystemFiles(false) {}
    std::error_code Lock(const Path& path,
                         std::chrono::milliseconds longest,
                         std::unique_ptr<FolderLock>& lock) override {
        if (const auto meanwhile = std::exchange(Meanwhile, {})) {
            meanwhile();
        }
        return SystemFiles::Lock(path, longest, lock);
    }
    std::function<void()> Meanwhile;
};

class RecentBooksTest : public testing::Test {
 protected:
    // Another program that looks at the same files.
    [[nodiscard]] RecentBooks Other() { return {files, own, shared}; }
    static unsigned ModeOf(const std::string& file) {
        struct stat status {};
        EXPECT_EQ(stat(file.c_str(), &status), 0) << file;
        return status.st_mode & 0777U;
    }
    // A list that another program has written, with one file of its own.
    void ShareAFile(const std::string& uri) const {
        test::WriteFile(
            shared,
            R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0"
      xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
      xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">
  <bookmark href=")" +
                uri +
                R"(" added="2024-01-02T03:04:05Z" modified="2024-01-02T03:04:05Z" visited="2024-01-02T03:04:05Z">
    <info>
      <metadata owner="http://freedesktop.org">
        <mime:mime-type type="text/plain"/>
        <bookmark:applications>
          <bookmark:application name="writer" exec="&apos;writer %u&apos;" modified="2024-01-02T03:04:05Z" count="1"/>
        </bookmark:applications>
      </metadata>
    </info>
  </bookmark>
</xbel>
)");
    }

    test::TempFolder folder;
    const std::string own = folder.Name("state/orvik/books");
    const std::string shared = folder.Name("recently-used.xbel");
    SystemFiles files{false};
    RecentBooks books{files, own, shared};
};

TEST_F(RecentBooksTest, TheLastOneComesFirstAndOnce) {
    EXPECT_THAT(books.Books(), IsEmpty());
    books.Add("/b/1.ldif");
    books.Add("/b/2.ldif");
    books.Add("/b/1.ldif");
    EXPECT_THAT(books.Books(), ElementsAre("/b/1.ldif", "/b/2.ldif"));
    EXPECT_THAT(Other().Books(), ElementsAre("/b/1.ldif", "/b/2.ldif"));
}

TEST_F(RecentBooksTest, TenAreKept) {
    for (int i = 1; i <= 12; ++i) {
        books.Add("/b/" + std::to_string(i));
    }
    const std::vector<std::string> kept = Other().Books();
    ASSERT_EQ(kept.size(), 10U);
    EXPECT_EQ(kept.front(), "/b/12");
    EXPECT_EQ(kept.back(), "/b/3");
}

TEST_F(RecentBooksTest, AnyNameComesBack) {
    for (const char* const name : {"/b/a\nb", "/b/\xFC", "/b/%41 #?", "/b/\xC3\xBC"}) {
        books.Add(name);
        EXPECT_EQ(Other().Books().front(), name);
    }
}

TEST_F(RecentBooksTest, ARelativeNameIsNone) {
    books.Add("book.ldif");
    books.Add("");
    EXPECT_THAT(books.Books(), IsEmpty());
}

TEST_F(RecentBooksTest, OnlyTheUserMayReadIt) {
    const mode_t before = umask(0);
    books.Add("/b/1.ldif");
    EXPECT_EQ(ModeOf(own), 0600U);
    EXPECT_EQ(ModeOf(shared), 0600U);
    umask(before);
    EXPECT_EQ(ModeOf(own), 0600U);
    EXPECT_EQ(ModeOf(folder.Name("state/orvik")), 0700U);
}

TEST_F(RecentBooksTest, TheDesktopIsToldOfEach) {
    ShareAFile("file:///d/letter.txt");
    books.Add("/b/1.ldif");
    const std::string list = test::ReadFile(shared);
    EXPECT_THAT(list, HasSubstr("file:///d/letter.txt"));
    EXPECT_THAT(list, HasSubstr("file:///b/1.ldif"));
    EXPECT_THAT(list, HasSubstr("text/x-ldif"));
    EXPECT_THAT(list, HasSubstr("name=\"orvik\""));
}

TEST_F(RecentBooksTest, ClearingTakesOutOwnNamesOnly) {
    ShareAFile("file:///b/both.ldif");
    books.Add("/b/both.ldif");
    books.Add("/b/1.ldif");
    books.Clear();
    EXPECT_THAT(books.Books(), IsEmpty());
    EXPECT_FALSE(fs::exists(own));
    const std::string list = test::ReadFile(shared);
    EXPECT_THAT(list, HasSubstr("file:///b/both.ldif"));
    EXPECT_THAT(list, HasSubstr("writer"));
    EXPECT_THAT(list, Not(HasSubstr("orvik")));
    EXPECT_THAT(list, Not(HasSubstr("1.ldif")));
}

TEST_F(RecentBooksTest, SwitchedOffNothingIsRemembered) {
    books.Add("/b/1.ldif");
    books.SetRemembers(false);
    EXPECT_THAT(test::ReadFile(shared), Not(HasSubstr("1.ldif")));
    RecentBooks next = Other();
    EXPECT_FALSE(next.Remembers());
    next.Add("/b/2.ldif");
    EXPECT_THAT(next.Books(), IsEmpty());
    EXPECT_THAT(test::ReadFile(shared), Not(HasSubstr("2.ldif")));
    // Clearing does not switch it on again.
    next.Clear();
    EXPECT_FALSE(Other().Remembers());
    next.SetRemembers(true);
    next.Add("/b/2.ldif");
    EXPECT_THAT(Other().Books(), ElementsAre("/b/2.ldif"));
}

TEST_F(RecentBooksTest, TwoProgramsAtOnceLoseNothing) {
    BusyFiles busy;
    RecentBooks slow(busy, own, shared);
    books.Add("/b/1.ldif");
    busy.Meanwhile = [&] { books.Add("/b/2.ldif"); };
    slow.Add("/b/3.ldif");
    EXPECT_THAT(Other().Books(), ElementsAre("/b/3.ldif", "/b/2.ldif", "/b/1.ldif"));
    busy.Meanwhile = [&] { books.SetRemembers(false); };
    slow.Add("/b/4.ldif");
    EXPECT_FALSE(Other().Remembers());
    EXPECT_THAT(Other().Books(), IsEmpty());
    EXPECT_THAT(test::ReadFile(shared), Not(HasSubstr("4.ldif")));
}

TEST_F(RecentBooksTest, ASharedListThatIsNotUnderstoodStays) {
    test::WriteFile(shared, "no list");
    books.Add("/b/1.ldif");
    EXPECT_EQ(test::ReadFile(shared), "no list");
    EXPECT_THAT(books.Books(), ElementsAre("/b/1.ldif"));
    fs::remove(shared);
    fs::create_directory(shared);
    books.Add("/b/2.ldif");
    books.Clear();
    EXPECT_TRUE(fs::is_directory(shared));
}

TEST_F(RecentBooksTest, WithoutFilesItIsKeptForTheRun) {
    RecentBooks run;
    run.Add("/b/1.ldif");
    EXPECT_THAT(run.Books(), ElementsAre("/b/1.ldif"));
    run.Clear();
    EXPECT_THAT(run.Books(), IsEmpty());
}

TEST_F(RecentBooksTest, WhatCannotBeWrittenIsForgotten) {
    test::WriteFile(folder.Name("file"), "");
    RecentBooks nowhere(files, folder.Name("file/books"), folder.Name("file/list"));
    nowhere.Add("/b/1.ldif");
    EXPECT_THAT(nowhere.Books(), IsEmpty());
    nowhere.SetRemembers(false);
    EXPECT_TRUE(nowhere.Remembers());
}

}  // namespace
}  // namespace orvik
