#include "book/mail/mail_walk.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/system_files.h"

namespace orvik::book {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class MailWalkTest : public testing::Test {
 protected:
    MailWalkTest()
        : folder_(fs::temp_directory_path() / ("orvik-walk-" + std::to_string(getpid()))) {
        fs::create_directories(folder_);
    }
    ~MailWalkTest() override { fs::remove_all(folder_); }

    std::string In(const std::string& name) { return folder_ / name; }

    void Make(const std::string& name) {
        fs::create_directories(fs::path(In(name)).parent_path());
        std::ofstream(In(name)) << "x";
    }

    // "FILE@PLACE" for each file, "!NOTE FILE" for what is left out, without the folder.
    std::vector<std::string> Walk(const std::vector<std::string>& names,
                                  const std::string& avoid = {}) {
        std::vector<std::string> seen;
        const auto short_name = [this](const std::string& path) {
            return fs::path(path).lexically_relative(folder_).string();
        };
        MailWalk walk(files_,
                      {[&](const MailWalk::File& file) {
                           seen.push_back(short_name(file.Path) + "@" + short_name(file.Place) +
                                          (file.IsMessage ? "m" : ""));
                       },
                       [&](const std::string& path, WalkNote note, std::error_code) {
                           seen.push_back("!" + std::to_string(static_cast<int>(note)) + " " +
                                          short_name(path));
                       }});
        walk.Avoid(avoid.empty() ? std::string() : In(avoid));
        std::vector<std::string> paths;
        paths.reserve(names.size());
        for (const std::string& name : names) {
            paths.push_back(In(name));
        }
        walk.Walk(paths);
        return seen;
    }

 private:
    fs::path folder_;
    SystemFiles files_;
};

std::string Note(WalkNote note, const std::string& name) {
    return "!" + std::to_string(static_cast<int>(note)) + " " + name;
}

TEST_F(MailWalkTest, GoesThroughFoldersInTheOrderOfNames) {
    Make("a/2");
    Make("a/1");
    Make("a/b/c/3");
    Make("a/.d/4");
    EXPECT_THAT(Walk({"a"}), ElementsAre("a/1@a/1", "a/2@a/2", "a/.d/4@a/.d/4", "a/b/c/3@a/b/c/3"));
    EXPECT_THAT(Walk({"a/2", "a/1"}), ElementsAre("a/2@a/2", "a/1@a/1"));
}

TEST_F(MailWalkTest, TakesAMaildirForOnePlace) {
    for (const char* const name :
         {"m/cur/1", "m/new/2", "m/tmp/3", "m/.Sub/cur/4", "m/.Sub/new/5", "m/uidlist"}) {
        Make(name);
    }
    EXPECT_THAT(Walk({"m"}),
                ElementsAre(Note(WalkNote::Unsent, "m/tmp"),
                            Note(WalkNote::OfServer, "m/uidlist"),
                            "m/.Sub/cur/4@m/.Subm",
                            "m/.Sub/new/5@m/.Subm",
                            "m/cur/1@mm",
                            "m/new/2@mm"));
}

TEST_F(MailWalkTest, PassesDeletedMessagesOver) {
    for (const char* const name : {"m/cur/1:2,S", "m/cur/2:2,ST", "m/new/3", "only/cur/4!2,T"}) {
        Make(name);
    }
    EXPECT_THAT(Walk({"m", "only"}),
                ElementsAre("m/cur/1:2,S@mm",
                            Note(WalkNote::Trashed, "m/cur/2:2,ST"),
                            "m/new/3@mm",
                            Note(WalkNote::Trashed, "only/cur/4!2,T")));
    EXPECT_THAT(Walk({"m/cur/2:2,ST"}), ElementsAre("m/cur/2:2,ST@m/cur/2:2,ST"));
}

TEST_F(MailWalkTest, FollowsLinksOfTheUserAlone) {
    Make("a/1");
    Make("b/2");
    fs::create_directory_symlink(In("a"), In("a/loop"));
    fs::create_symlink(In("b/2"), In("a/two"));
    fs::create_symlink(In("nowhere"), In("a/dead"));
    fs::create_directory_symlink(In("a"), In("link"));
    EXPECT_THAT(Walk({"a"}),
                ElementsAre("a/1@a/1",
                            Note(WalkNote::Link, "a/dead"),
                            Note(WalkNote::Link, "a/loop"),
                            Note(WalkNote::Link, "a/two")));
    EXPECT_THAT(Walk({"link", "a"}),
                ElementsAre("link/1@link/1",
                            Note(WalkNote::Link, "link/dead"),
                            Note(WalkNote::Link, "link/loop"),
                            Note(WalkNote::Link, "link/two"),
                            Note(WalkNote::Again, "a")));
}

TEST_F(MailWalkTest, ReadsNothingTwiceAndNothingThatIsAvoided) {
    Make("a/1");
    Make("a/2");
    EXPECT_THAT(Walk({"a", "a/1", "a/1"}),
                ElementsAre("a/2@a/2", "a/1@a/1", Note(WalkNote::Again, "a/1")));
    EXPECT_THAT(Walk({"a"}, "a/2"), ElementsAre("a/1@a/1"));
}

TEST_F(MailWalkTest, OpensNoPipe) {
    Make("a/1");
    ASSERT_EQ(0, mkfifo(In("a/pipe").c_str(), 0600));
    EXPECT_THAT(Walk({"a", "a/pipe", "none"}),
                ElementsAre("a/1@a/1",
                            Note(WalkNote::NoFile, "a/pipe"),
                            Note(WalkNote::NoInput, "a/pipe"),
                            Note(WalkNote::Failed, "none")));
}

}  // namespace
}  // namespace orvik::book
