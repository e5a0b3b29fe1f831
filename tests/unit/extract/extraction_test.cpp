#include <filesystem>
#include <string>

#include "unit/failure.h"
#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::BoxIs;
using test::FailureOf;
using test::Items;
using test::WriteFile;
using testing::_;
using testing::AllOf;
using testing::AnyNumber;
using testing::Field;
using testing::Return;

constexpr const char* kNothingFound = "There were no addresses found in this file.";

class ExtractionTest : public test::CommandTest {
 protected:
    // The file that the dialog has chosen.
    void Choose(std::string_view contents) {
        name_ = folder_.Name("a.xtr");
        WriteFile(name_, contents);
        form1.CommonDialog1.FileName = name_;
    }
    void ExpectSizeQuestion(const std::string& kilobytes, Answer answer) {
        EXPECT_CALL(platform,
                    ShowBox(BoxIs("The File " + name_ + " is pretty large (" + kilobytes +
                                      " kilobytes) and may take a long time to process. Proceed "
                                      "anyway?",
                                  "Warning: long file",
                                  Buttons::YesNo,
                                  Icon::Question)))
            .WillOnce(Return(answer));
    }
    void ExpectYields() { EXPECT_CALL(platform, Yield()).Times(AnyNumber()); }
    [[nodiscard]] bool FileIsOpen() const {
        return FailureOf([&] { static_cast<void>(module1.File1.Length()); }) != 52;
    }
    void ExpectControlsAsBefore() {
        EXPECT_TRUE(form1.cmdEmail.Enabled);
        EXPECT_TRUE(form1.cmdNick.Enabled);
        EXPECT_TRUE(form1.mnuFile.Enabled);
        EXPECT_TRUE(form1.mnuEdit.Enabled);
        EXPECT_TRUE(form1.mnuOrvik.Enabled);
        EXPECT_TRUE(form1.mnuHelp.Enabled);
        EXPECT_FALSE(form1.cmdCancel.Visible);
        EXPECT_FALSE(form1.ProgressBar1.Visible);
        EXPECT_EQ(form1.StatusBar1.PanelSizing, AutoSize::Spring);
    }

    test::TempFolder folder_;
    std::string name_;
};

TEST_F(ExtractionTest, Addresses_AreListedWithThemselvesAsNicknames) {
    Choose("x <a@b>, c@d\r\n");
    ExpectYields();
    module1.Note = {{2, 1}, {}};
    module1.ExtractFromFile();
    EXPECT_EQ(module1.Note.Text(), "");
    EXPECT_EQ(module1.WorkText, "a@b\r\nc@d\r\n-nick-\r\na@b\r\nc@d\r\n");
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"a@b", "c@d"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"a@b", "c@d"}));
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(module1.AddressCount, 2);
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_EQ(Panel(2), "2 items");
    EXPECT_FALSE(FileIsOpen());
    ExpectControlsAsBefore();
}

TEST_F(ExtractionTest, NoName_OnlyEmptiesTheText) {
    SetNative("A9\r\n-nick-\r\n\r\n");
    module1.ExtractFromFile();
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(module1.TextMode, "Native");
}

TEST_F(ExtractionTest, MissingFile_FailsWith53) {
    form1.CommonDialog1.FileName = folder_.Name("missing");
    EXPECT_EQ(FailureOf([&] { module1.ExtractFromFile(); }), 53);
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_F(ExtractionTest, EmptyFile_TellsThatNothingWasFound) {
    Choose("");
    form1.Caption = "Orvik - a.xtr";
    ExpectTold(kNothingFound);
    module1.ExtractFromFile();
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_FALSE(FileIsOpen());
}

TEST_F(ExtractionTest, Exactly32000Bytes_AreScannedWithoutQuestion) {
    Choose(std::string(31996, ' ') + "a@b ");
    ExpectYields();
    module1.ExtractFromFile();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"a@b"});
}

TEST_F(ExtractionTest, MoreBytesAndNo_LeaveTheFileOpen) {
    Choose(std::string(32001, ' '));
    SetNative("A9\r\n-nick-\r\n\r\n");
    form1.Caption = "Orvik - a.xtr";
    ExpectSizeQuestion("31", Answer::No);
    module1.ExtractFromFile();
    EXPECT_EQ(module1.MsgAnswer, "7");
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(form1.Caption, "Orvik - a.xtr");
    EXPECT_TRUE(FileIsOpen());
    ExpectControlsAsBefore();

    // The next command that opens a file closes it.
    Choose(" a@b ");
    ExpectYields();
    module1.ExtractFromFile();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"a@b"});
}

// The addresses between position 5000 and 20001 stand before the place in their chunk where the
// scan begins.
TEST_F(ExtractionTest, FortyThousandBytes_AreScannedAtTheirBeginningAndEnd) {
    std::string text(40000, ' ');
    for (const std::size_t position : {10, 4990, 5010, 9990, 10010, 19990, 20010, 39990}) {
        const std::string number = std::to_string(position);
        text.replace(position, number.size() + 3, "a" + number + "@b");
    }
    Choose(text);
    ExpectSizeQuestion("39", Answer::Yes);
    ExpectYields();
    module1.ExtractFromFile();
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"a10@b", "a4990@b", "a20010@b", "a39990@b"}));
}

TEST_F(ExtractionTest, Yields_ComeBeforeEachPieceAndWithEachPercentage) {
    Choose(std::string(40000, ' '));
    ExpectSizeQuestion("39", Answer::Yes);
    std::vector<std::string> shown;
    EXPECT_CALL(platform, Yield()).WillRepeatedly([&] { shown.push_back(Panel(1)); });
    ExpectTold(kNothingFound);
    module1.ExtractFromFile();
    std::vector<std::string> expected = {"Welcome to Orvik"};
    const auto expect_percents = [&](int first, int last) {
        for (int percent = first; percent <= last; ++percent) {
            expected.push_back("Extracting: " + std::to_string(percent) + "%");
        }
    };
    expect_percents(0, 12);
    expected.emplace_back("Extracting: 12%");
    expect_percents(12, 25);
    expected.emplace_back("Extracting: 25%");
    expect_percents(25, 100);
    EXPECT_EQ(shown, expected);
}

TEST_F(ExtractionTest, FirstYield_ComesBeforeTheControlsAreSwitchedOff) {
    Choose(" a@b ");
    std::vector<bool> cancel_visible;
    EXPECT_CALL(platform, Yield()).WillRepeatedly([&] {
        cancel_visible.push_back(form1.cmdCancel.Visible);
        EXPECT_EQ(form1.mnuFile.Enabled, !form1.cmdCancel.Visible);
    });
    module1.ExtractFromFile();
    ASSERT_GE(cancel_visible.size(), 2U);
    EXPECT_FALSE(cancel_visible.front());
    EXPECT_TRUE(cancel_visible.back());
}

TEST_F(ExtractionTest, CancelDuringAChunk_EndsBeforeTheNext) {
    Choose(" a@b " + std::string(39995, ' '));
    ExpectSizeQuestion("39", Answer::Yes);
    EXPECT_CALL(platform, Yield()).WillRepeatedly([this] {
        if (Panel(1) == "Extracting: 5%") {
            module1.CancelRequested = true;
        }
    });
    ExpectTold(kNothingFound);
    module1.ExtractFromFile();
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_EQ(module1.AddressCount, 1);
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_FALSE(module1.CancelRequested);
    EXPECT_FALSE(FileIsOpen());
    ExpectControlsAsBefore();
}

TEST_F(ExtractionTest, CancelDuringTheTail_ComesTooLate) {
    Choose(" a@b ");
    EXPECT_CALL(platform, Yield()).WillRepeatedly([this] {
        if (form1.cmdCancel.Visible) {
            module1.CancelRequested = true;
        }
    });
    module1.ExtractFromFile();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"a@b"});
    // Nor does it cancel the next run.
    module1.ExtractFromFile();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"a@b"});
}

TEST_F(ExtractionTest, CancelBeforeTheStart_DoesNotCount) {
    Choose(" a@b ");
    ExpectYields();
    module1.CancelRequested = true;
    module1.ExtractFromFile();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"a@b"});
}

TEST_F(ExtractionTest, FileThatShrinks_FailsAndPutsTheControlsBack) {
    Choose(" a@b " + std::string(39995, ' '));
    ExpectSizeQuestion("39", Answer::Yes);
    EXPECT_CALL(platform, Yield()).WillRepeatedly([this] {
        std::filesystem::resize_file(name_, 100);
    });
    EXPECT_EQ(FailureOf([&] { module1.ExtractFromFile(); }), 62);
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_FALSE(FileIsOpen());
    ExpectControlsAsBefore();
}

TEST_F(ExtractionTest, FileThatShrinksInEditMode_LeavesTheViewMenuOff) {
    Choose(" a@b ");
    form1.mnuEntEd_Click();
    EXPECT_CALL(platform, Yield()).WillRepeatedly([this] {
        std::filesystem::resize_file(name_, 1);
    });
    EXPECT_EQ(FailureOf([&] { module1.ExtractFromFile(); }), 62);
    EXPECT_FALSE(form1.mnuOrvik.Enabled);
    EXPECT_TRUE(form1.mnuFile.Enabled);
}

TEST_F(ExtractionTest, MoreAddressesThanCanBeCounted_FailWith6) {
    std::string text;
    for (int i = 0; i < 32768; ++i) {
        text += "@\n";
    }
    // In one piece: the first chunk of a longer file is shorter.
    module1.AddressCount = 0;
    ExpectYields();
    std::string found;
    EXPECT_EQ(FailureOf([&] { module1.ScanAddresses(found, text, text.size(), 1); }), 6);
    EXPECT_EQ(module1.AddressCount, 32767);
    EXPECT_TRUE(found.starts_with("\r\n@\r\n")) << found.substr(0, 10);
    EXPECT_EQ(found.size(), 2U + 3U * 32766);
    ExpectControlsAsBefore();
}

TEST_F(ExtractionTest, Dialog_OffersTheSources) {
    EXPECT_CALL(
        platform,
        ShowFileDialog(AllOf(Field(&FileDialog::Kind, DialogKind::Open),
                             Field(&FileDialog::Title, "Open file for extraction"),
                             Field(&FileDialog::Filter,
                                   "Text files|*.txt|Orvik UNIX XTR|*.xtr|Netscape 3.0|*.htm|"
                                   "Internet Explorer 4.x|*.csv|All files|*.*"),
                             Field(&FileDialog::Flags, 4100U),
                             Field(&FileDialog::FileName, ""))))
        .WillOnce(Return(""));
    form1.mnuExtract_Click();
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_EQ(module1.TextMode, "none");
}

TEST_F(ExtractionTest, SaveQuestionAndCancel_ShowsNoDialog) {
    SetNative("A9\r\n-nick-\r\n\r\n");
    ExpectSaveQuestion("Save before opening?", Answer::Cancel);
    form1.mnuExtract_Click();
    EXPECT_EQ(module1.WorkText, "A9\r\n-nick-\r\n\r\n");
}

TEST_F(ExtractionTest, Command_ShowsTheNameAndTheAddresses) {
    Choose(" a@b ");
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(name_));
    ExpectYields();
    form1.mnuExtract_Click();
    EXPECT_EQ(form1.Caption, "Orvik - " + name_);
    EXPECT_EQ(form1.Text1.Text(), "a@b\r\n-nick-\r\na@b\r\n");
}

TEST_F(ExtractionTest, CommandThatFindsNothing_LeavesOneEmptyItem) {
    Choose("x");
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(name_));
    ExpectYields();
    ExpectTold(kNothingFound);
    form1.mnuExtract_Click();
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_EQ(ItemsOf(form1.List1), Items{""});
    EXPECT_EQ(Panel(2), "1 items");
    EXPECT_EQ(module1.TextMode, "none");
}

}  // namespace
}  // namespace orvik
