// Large books of commas, which are read as they come.

#include <string>
#include <vector>

#include "unit/failure.h"
#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::WriteFile;
using testing::_;
using testing::AnyNumber;

constexpr std::string_view kHeader = "Name,E-mail Address,Notes\r\n";

std::string NumberedLine(std::size_t number, std::string_view notes) {
    const std::string text = std::to_string(number);
    std::string line = "\"Al " + text + "\",al" + text + "@mail.example,";
    line.append("12 Church Lane\r\nFlat 2,,,,Al ").append(text).append(",,,,,,,,,,,");
    return line.append(notes).append("\r\n");
}

// A book of more than four megabytes, whose street has two lines.
std::string LargeBook(std::string_view header) {
    const std::string notes(300, 'x');
    std::string book(header);
    for (std::size_t i = 0; i < 12'000; ++i) {
        book.append(NumberedLine(i, notes));
    }
    return book;
}

class ReadLargeCsvTest : public test::CommandTest {
 protected:
    void SetUp() override {
        EXPECT_CALL(platform, ShowBox(_))
            .Times(AnyNumber())
            .WillRepeatedly([this](const MessageBox& box) {
                shown_.push_back(box.Text);
                return Answer::No;
            });
        EXPECT_CALL(platform, Repaint()).Times(AnyNumber()).WillRepeatedly([this] {
            shown_.push_back(Panel(1) + ", " + std::to_string(form1.ProgressBar1.Value));
        });
    }

    // What loading a book shows and leaves.
    struct Loaded {
        int Failure = 0;
        std::vector<std::string> Shown;
        std::string Text;
        std::string Mode;
        std::string Note;
        std::vector<std::string> Addresses;
        std::string Ldif;
        std::string TextWithCommas;

        bool operator==(const Loaded&) const = default;
    };

    Loaded LoadIt() {
        module1.TextMode = mode::kNone;
        module1.Note = {};
        module1.LdifText.clear();
        form1.ClearLists();
        shown_.clear();
        Loaded loaded;
        loaded.Failure = FailureOf([&] { module1.LoadByEnding("a.csv", true); });
        loaded.Shown = shown_;
        loaded.Text = module1.WorkText;
        loaded.Mode = module1.TextMode;
        loaded.Note = module1.Note.Text();
        loaded.Addresses = ItemsOf(form1.List1);
        loaded.Ldif = module1.LdifText;
        const std::string separator = std::exchange(module1.textSep, ",");
        form1.mnuUn_Click();
        loaded.TextWithCommas = module1.WorkText;
        module1.textSep = separator;
        return loaded;
    }

    // Whether the file was read as it came.
    bool Read(const std::string& book) {
        const std::string name = folder_.Name("a.csv");
        WriteFile(name, book);
        module1.File1.OpenForInput(name);
        module1.ReadFile(name);
        return module1.WorkText != book;
    }

    // Loads a book from a file and as a text. Returns whether the file was read as it came.
    bool IsReadInPieces(const std::string& book) {
        const bool is_read = Read(book);
        const Loaded from_file = LoadIt();
        module1.WorkText = book;
        EXPECT_TRUE(from_file == LoadIt());
        return is_read;
    }

    test::TempFolder folder_;
    std::vector<std::string> shown_;
};

TEST_F(ReadLargeCsvTest, LargeBook_IsReadAsASmallOne) {
    const std::string book = LargeBook(kHeader);
    EXPECT_TRUE(IsReadInPieces(book));
    ASSERT_TRUE(Read(book));
    const Loaded loaded = LoadIt();
    EXPECT_EQ(loaded.Note, "24000 attributes of 12000 entries were not read");
    EXPECT_TRUE(loaded.Text.starts_with("\"\"Al 0\"\" <al0@mail.example>\r\n\"\"Al 1\"\" <al1@"));
    EXPECT_EQ(loaded.Shown.front(), "Converting: 0%, 0.000000");
}

TEST_F(ReadLargeCsvTest, ListThatFitsIntoTheTextBox_IsListed) {
    std::string book(kHeader);
    for (std::size_t i = 0; i < 500; ++i) {
        book.append(NumberedLine(i, std::string(10'000, 'x')));
    }
    EXPECT_TRUE(IsReadInPieces(book));
    EXPECT_EQ(form1.List1.Items().size(), 500U);
}

TEST_F(ReadLargeCsvTest, LastLineWithoutItsEnd_IsReadToo) {
    std::string book = LargeBook(kHeader);
    book.resize(book.size() - 2);
    EXPECT_TRUE(IsReadInPieces(book));
}

TEST_F(ReadLargeCsvTest, HeaderOfSomethingElse_IsReadWhole) {
    for (const std::string_view header :
         {"Name\r\n", "From a,b\nTo: ", "%PDF-1,\r\n", "\n", "\n\nbegin:vcard,\n"}) {
        EXPECT_FALSE(IsReadInPieces(LargeBook(header))) << header;
    }
}

TEST_F(ReadLargeCsvTest, BookWithAnUnusualLine_IsReadWhole) {
    const std::string book = LargeBook(kHeader);
    const std::string longest(17'000, 'x');
    for (const std::string& line : {std::string("\r\n"),
                                    std::string("Al,A1\r\n"),
                                    std::string("Al"),
                                    std::string("Al,A1,,,,,,,,,,,,,,"),
                                    std::string("Al\nBo,A1,,,,,,,,,,,,,,\r\n"),
                                    std::string("Al,A1-nick-,,,,,,,,,,,,,,\r\n"),
                                    NumberedLine(7, longest)}) {
        EXPECT_FALSE(IsReadInPieces(book + line)) << line;
        if (line.ends_with('\n')) {
            EXPECT_FALSE(IsReadInPieces(std::string(kHeader) + line + book)) << line;
        }
    }
}

TEST_F(ReadLargeCsvTest, LinesThatLfEnds_AreReadWhole) {
    std::string book = LargeBook(kHeader);
    std::erase(book, '\r');
    EXPECT_FALSE(IsReadInPieces(book));
}

TEST_F(ReadLargeCsvTest, SmallBookOrAnotherSeparator_IsReadWhole) {
    EXPECT_FALSE(Read(std::string(kHeader) + NumberedLine(1, "")));
    module1.textSep = ",";
    EXPECT_FALSE(IsReadInPieces(LargeBook(kHeader)));
}

TEST_F(ReadLargeCsvTest, ListThatIsLoadedAgain_IsATextLikeAnyOther) {
    ASSERT_TRUE(Read(LargeBook(kHeader)));
    module1.OpenCsv();
    const std::string list(module1.WorkText);
    EXPECT_EQ(FailureOf([&] { module1.OpenCsv(); }), 5);
    EXPECT_EQ(module1.WorkText, list);
}

TEST_F(ReadLargeCsvTest, LargeFileThatGotShorter_LeavesTheTextAlone) {
    const std::string name = folder_.Name("a.csv");
    WriteFile(name, LargeBook(kHeader));
    module1.File1.OpenForInput(name);
    WriteFile(name, std::string(kHeader));
    module1.WorkText = "A9\r";
    EXPECT_EQ(FailureOf([&] { module1.ReadFile(name); }), 62);
    EXPECT_EQ(module1.WorkText, "A9\r");
}

}  // namespace
}  // namespace orvik
