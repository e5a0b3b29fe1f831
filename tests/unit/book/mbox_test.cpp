#include "book/mail/mbox.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvik::book {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

// The messages of a folder that comes in pieces of so many bytes.
std::vector<std::string> Messages(const std::string& folder,
                                  std::size_t piece,
                                  std::size_t longest = kLongestMessage) {
    std::size_t at = 0;
    MboxReader reader(
        [&](std::string& to) {
            const std::size_t more = std::min(piece, folder.size() - at);
            to += folder.substr(at, more);
            at += more;
            return more > 0;
        },
        longest);
    std::vector<std::string> found;
    for (MboxMessage message; reader.Next(message) && found.size() < 100;) {
        found.push_back((message.IsRest ? "+" : "") + std::string(message.Text));
    }
    return found;
}

struct MarkerCase {
    const char* What;
    bool BehindEmpty;
    std::string Line;
    std::string Next;
    bool IsMarker;
};

TEST(MboxMarker, NeedsADateOrAnEmptyLineAndAHeader) {
    const std::string date = "From al@example.org Thu Jan  1 10:00:00 1998";
    const std::vector<MarkerCase> cases = {
        {"as sendmail writes it", true, date, "Received: x", true},
        {"without an empty line before", false, date, "Subject: x", true},
        {"without anything", true, "From ", "Subject: x", true},
        {"without anything or an empty line", false, "From ", "Subject: x", true},
        {"of Netscape", false, "From - Mon Aug 18 21:13:21 1997", "X-Mozilla-Status: 1", true},
        {"of Netscape, without a date", false, "From - ", "Message-ID: <1@x>", true},
        {"a number", true, "From 1844347792267117879@xxx", "X-GM-THRID: 1", true},
        {"a zone before the year", false, "From a Thu Jan 1 10:00:00 MET 1998", "To: x", true},
        {"a zone behind the year", false, "From a Thu Jan 1 10:00:00 1998 +0100", "To: x", true},
        {"without seconds", false, "From a Thu Jan 1 10:00 1998", "To: x", true},
        {"an address with blanks", false, "From \"a b\"@c Thu Jan 1 10:00:00 1998", "To: x", true},
        {"before a quoted one", true, date, ">From al", true},
        {"a sentence before a quoted one", true, "From the start", ">From al", false},
        {"an empty header", true, date, "", true},
        {"an empty header of DOS", true, date, "\r", true},
        {"an empty header, no date", true, "From al", "", false},
        {"an empty header, no empty line", false, date, "", false},
        {"a sentence", true, "From the start we sang", "and danced", false},
        {"a sentence before a colon", false, "From the start we sang", "Mary: and danced", false},
        {"a date in a sentence", true, "From Thu Jan 1 10:00:00 1998 on", "we sang", false},
        {"quoted", true, ">From al Thu Jan  1 10:00:00 1998", "Subject: x", false},
        {"a field", true, "From: al@example.org", "Subject: x", false},
        {"another word", true, "Fromage", "Subject: x", false},
    };
    for (const MarkerCase& one : cases) {
        EXPECT_EQ(one.IsMarker, IsMarker(one.BehindEmpty, one.Line, one.Next)) << one.What;
    }
}

TEST(MboxHeader, IsANameAndAColon) {
    for (const char* const line : {"Subject: x", "X-1:", "Subject :x", "a:b"}) {
        EXPECT_TRUE(IsMailHeader(line)) << line;
    }
    for (const char* const line : {"", ":", "Dear Al:", " Subject: x", "Subject", "B\xC3\xBC: x"}) {
        EXPECT_FALSE(IsMailHeader(line)) << line;
    }
    EXPECT_FALSE(IsMailHeader(std::string(77, 'a') + ":"));
}

TEST(MboxReader, PartsMessagesHoweverTheyCome) {
    const std::string folder =
        "From a@b Thu Jan  1 10:00:00 1998\nTo: x\n\nFrom home\nnothing\n\n"
        "From - \nContent-Length: 100000\nTo: y\n\nbody\n>From c\n"
        "From - \nTo: z\n\nlast";
    const std::vector<std::string> wanted = {"To: x\n\nFrom home\nnothing\n\n",
                                             "Content-Length: 100000\nTo: y\n\nbody\n>From c\n",
                                             "To: z\n\nlast"};
    for (std::size_t piece = 1; piece <= folder.size(); ++piece) {
        EXPECT_THAT(Messages(folder, piece), ElementsAreArray(wanted)) << piece;
    }
}

TEST(MboxReader, PartsMmdfByItsLines) {
    const std::string folder =
        "\1\1\1\1\nTo: x\n\nFrom a Thu Jan  1 10:00:00 1998\nTo: no\n\1\1\1\1\n"
        "\1\1\1\1\nFrom b Thu Jan  1 10:00:00 1998\nTo: y\n\n\1\1\1\1 is no line\n\1\1\1\1\n";
    for (std::size_t piece = 1; piece <= folder.size(); ++piece) {
        EXPECT_THAT(Messages(folder, piece),
                    ElementsAre("To: x\n\nFrom a Thu Jan  1 10:00:00 1998\nTo: no\n",
                                "",
                                "To: y\n\n\1\1\1\1 is no line\n",
                                ""))
            << piece;
    }
    EXPECT_THAT(Messages("\1\1\1\1\r\nTo: x\r\n\1\1\1\1\r\n\1\1\1\1", 3),
                ElementsAre("To: x\r\n", "", ""));
}

TEST(MboxReader, KeepsCrLf) {
    EXPECT_THAT(
        Messages("From a Thu Jan 1 10:00:00 1998\r\nTo: x\r\n\r\ny\r\n\r\nFrom \r\nTo: z\r\n", 7),
        ElementsAre("To: x\r\n\r\ny\r\n\r\n", "To: z\r\n"));
}

TEST(MboxReader, TellsMarkersAndLines) {
    std::string folder =
        "From a Thu Jan 1 10:00:00 1998\nTo: x\n\nFrom b Fri Jan 2 10:00:00 1998\nTo: y\n";
    MboxReader reader([&](std::string& to) {
        const bool more = !folder.empty();
        to += folder;
        folder.clear();
        return more;
    });
    MboxMessage message;
    ASSERT_TRUE(reader.Next(message));
    EXPECT_EQ("From a Thu Jan 1 10:00:00 1998", message.Marker);
    EXPECT_EQ(1U, message.Line);
    ASSERT_TRUE(reader.Next(message));
    EXPECT_EQ("From b Fri Jan 2 10:00:00 1998", message.Marker);
    EXPECT_EQ(4U, message.Line);
    EXPECT_FALSE(reader.Next(message));
}

TEST(MboxReader, HandsOutWhatIsTooLongInPieces) {
    std::string folder = "From \nTo: x\n\n";
    for (int i = 0; i < 10; ++i) {
        folder += "a line of text\n";
    }
    folder += "\nFrom \nTo: y\n";
    const auto found = Messages(folder, 16, 64);
    ASSERT_EQ(4U, found.size());
    EXPECT_TRUE(found[0].starts_with("To: x\n") && found[0].ends_with("text\n"));
    EXPECT_TRUE(found[1].starts_with("+a line"));
    EXPECT_EQ("To: y\n", found[3]);
    std::string text;
    for (const std::string& one : found) {
        text += one.starts_with('+') ? one.substr(1) : one;
    }
    EXPECT_EQ(folder.size() - 2 * std::string("From \n").size(), text.size());
    EXPECT_THAT(Messages("From " + std::string(1000, 'x'), 10, 64).size(), testing::Gt(5U));
}

TEST(MboxReader, HasNoMessageInNothing) {
    EXPECT_THAT(Messages("", 5), ElementsAre());
    EXPECT_THAT(Messages("x", 5), ElementsAre("x"));
}

}  // namespace
}  // namespace orvik::book
