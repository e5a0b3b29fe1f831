// Large books, which are read as they come.

#include <string>

#include "unit/failure.h"
#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::WriteFile;
using testing::_;
using testing::AnyNumber;
using testing::Return;

constexpr std::size_t kEntries = 12'000;

// A book of more than four megabytes; each second entry has a line that is not read.
std::string LargeBook(std::string_view start) {
    std::string book(start);
    for (std::size_t i = 0; i < kEntries; ++i) {
        const std::string number = std::to_string(i);
        book.append("cn: Al Berg ").append(number);
        book.append("\r\nxmozillanickname: Al, \"").append(number);
        book.append("\r\nmail: al").append(number).append("@mail.example\r\nsn: ");
        book.append(i % 2 == 0 ? "" : "Berg").append("\r\no: ");
        book.append(300, 'x').append("\r\n\r\n");
    }
    return book;
}

class ReadFileTest : public test::CommandTest {
 protected:
    void SetUp() override {
        module1.textSep = "\r";
        // The text box takes no such text.
        EXPECT_CALL(platform, ShowBox(_)).Times(AnyNumber()).WillRepeatedly(Return(Answer::No));
    }

    // What opening a book leaves.
    struct Opened {
        std::string List;
        std::string ListWithCommas;
        std::string Note;
        std::size_t Items = 0;
        std::string LastNickname;
        std::string Mode;

        bool operator==(const Opened&) const = default;
    };

    Opened AsItStands() {
        Opened opened{.List = std::string(module1.WorkText),
                      .ListWithCommas = {},
                      .Note = module1.Note.Text(),
                      .Items = form1.List1.Items().size(),
                      .LastNickname = std::string(form1.List2.Items()[kEntries - 1]),
                      .Mode = module1.TextMode};
        module1.textSep = ",";
        form1.mnuUn_Click();
        opened.ListWithCommas = module1.WorkText;
        module1.textSep = "\r";
        return opened;
    }

    Opened FromFile(const std::string& book) {
        const std::string name = folder_.Name("a.ldif");
        WriteFile(name, book);
        module1.WorkText.clear();
        form1.OpenBook(name);
        EXPECT_EQ(form1.Caption, "Orvik - " + name);
        return AsItStands();
    }

    Opened FromText(const std::string& book) {
        module1.WorkText = book;
        module1.OpenNetscape4();
        return AsItStands();
    }

    test::TempFolder folder_;
};

TEST_F(ReadFileTest, LargeBook_IsReadAsASmallOne) {
    const std::string book = LargeBook("dn: x\r\n");
    const Opened opened = FromFile(book);
    EXPECT_EQ(opened.Items, kEntries);
    EXPECT_EQ(opened.LastNickname, "Al,  <al11999@mail.example>");
    EXPECT_EQ(opened.Note, "30000 attributes of 12000 entries were not read");
    EXPECT_TRUE(opened == FromText(book));
    EXPECT_LT(module1.LdifText.View().size(), book.size() + 1);
}

TEST_F(ReadFileTest, LargeBookThatBeginsOtherwise_IsReadToo) {
    for (const std::string_view start : {"", "\r\n", "BEGIN:VCARD\r\n", "From a\nb: "}) {
        const std::string book = LargeBook(start);
        EXPECT_TRUE(FromFile(book) == FromText(book)) << start;
    }
}

TEST_F(ReadFileTest, LargeBookOfCommas_IsReadWhole) {
    module1.textSep = ",";
    const std::string book = LargeBook("dn: x\r\n");
    WriteFile(folder_.Name("a.ldif"), book);
    module1.File1.OpenForInput(folder_.Name("a.ldif"));
    module1.ReadFile("a.ldif");
    EXPECT_TRUE(module1.WorkText == book);
}

TEST_F(ReadFileTest, LargeFileOfAnotherEnding_IsReadWhole) {
    const std::string book = LargeBook("dn: x\r\n");
    WriteFile(folder_.Name("a.txt"), book);
    module1.File1.OpenForInput(folder_.Name("a.txt"));
    module1.ReadFile("a.txt");
    EXPECT_TRUE(module1.WorkText == book);
}

TEST_F(ReadFileTest, LargeFileThatGotShorter_LeavesTheTextAlone) {
    WriteFile(folder_.Name("a.ldif"), LargeBook("dn: x\r\n"));
    module1.File1.OpenForInput(folder_.Name("a.ldif"));
    WriteFile(folder_.Name("a.ldif"), "dn: x\r\n\r\n");
    module1.WorkText = "A9\r";
    EXPECT_EQ(FailureOf([&] { module1.ReadFile("a.ldif"); }), 62);
    EXPECT_EQ(module1.WorkText, "A9\r");
}

}  // namespace
}  // namespace orvik
