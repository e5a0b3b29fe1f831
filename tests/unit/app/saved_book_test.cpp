#include "app/saved_book.h"

#include <string>
#include <vector>

#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;

class SavedBookTest : public test::CommandTest {
 protected:
    SavedBookTest() {
        saved.Follow([this](const std::string& file) { told.push_back(file); });
    }
    void Run(std::string_view control) {
        module1.RunCommand(Form::CommandOf(form1.ControlNamed(control)));
    }
    std::string Write(std::string_view name, std::string_view contents) {
        test::WriteFile(folder.Name(name), contents);
        return folder.Name(name);
    }
    // Opens a book of two entries, Al and Bo.
    void Open(const std::string& name = "book.ldif") {
        const std::string path =
            Write(name,
                  "dn: cn=Al\r\nxmozillanickname: Al\r\nmail: A1\r\n\r\ndn: cn=Bo\r\n"
                  "xmozillanickname: Bo\r\nmail: A2\r\n\r\n");
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(path));
        AnswerSaveQuestions(Answer::No);
        Run("mnuOpen");
    }
    void Save(const std::string& name) {
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(folder.Name(name)));
        Run("mnuSave");
    }
    void AnswerSaveQuestions(Answer answer) {
        EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(answer));
    }

    test::TempFolder folder;
    std::vector<std::string> told;
    SavedBook& saved = module1.saved;
};

TEST_F(SavedBookTest, AnEmptyWindowIsNoOtherBook) {
    EXPECT_FALSE(saved.Differs());
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SavedBookTest, OpeningAndSavingAreMarks) {
    Open();
    EXPECT_FALSE(saved.Differs());
    Run("cmdNick");
    Run("mnuRemDup");
    EXPECT_TRUE(saved.Differs());
    module1.history.Undo();
    Save("saved.txt");
    EXPECT_FALSE(saved.Differs());
    EXPECT_THAT(told, ElementsAre(folder.Name("book.ldif"), folder.Name("saved.txt")));
}

TEST_F(SavedBookTest, AnotherFormIsNoOtherBook) {
    Open();
    for (const char* const command : {"mnuConvert",
                                      "mnuUn",
                                      "mnuParse",
                                      "mnuConvert",
                                      "mnuBoxCopy",
                                      "mnuEntEd",
                                      "mnuEntEd",
                                      "mnuCopyNet3",
                                      "mnuJuno",
                                      "mnuEntEd"}) {
        EXPECT_CALL(platform, SetClipboardText(_)).Times(testing::AnyNumber());
        Run(command);
        EXPECT_FALSE(saved.Differs()) << command;
    }
}

TEST_F(SavedBookTest, WhatIsTypedDiffersUntilItIsGone) {
    Open();
    Run("mnuEntEd");
    const std::string before(form1.Text1.Text());
    form1.Text1.EditByUser(before + "A3\r\n", 0);
    EXPECT_TRUE(saved.Differs());
    form1.Text1.EditByUser(before, 0);
    EXPECT_FALSE(saved.Differs());
}

TEST_F(SavedBookTest, UndoToTheMarkIsTheSavedBook) {
    Open();
    Run("mnuAlphNick");
    EXPECT_FALSE(saved.Differs());
    Run("mnuRemDup");
    EXPECT_TRUE(saved.Differs());
    module1.history.Undo();
    EXPECT_FALSE(saved.Differs());
    module1.history.Redo();
    EXPECT_TRUE(saved.Differs());
}

// The text that is saved first is not the one that is there afterwards.
TEST_F(SavedBookTest, ASaveInsideAnotherCommandMarksWhatItSaved) {
    Open();
    Run("mnuEntEd");
    AnswerSaveQuestions(Answer::Yes);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(folder.Name("saved.ldif")));
    Run("mnuClear");
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_TRUE(saved.Differs());
}

TEST_F(SavedBookTest, ARefusedFileIsNoMark) {
    Open();
    for (const char* const name : {"empty.ldif", "empty.htm", "empty.txt"}) {
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(Write(name, "")));
        Run("mnuOpen");
    }
    EXPECT_THAT(told, ElementsAre(folder.Name("book.ldif")));
}

TEST_F(SavedBookTest, AFailedSaveIsNoMark) {
    Open();
    EXPECT_CALL(platform, ReportFailure(_));
    Save("no/folder.ldif");
    EXPECT_THAT(told, ElementsAre(folder.Name("book.ldif")));
}

TEST_F(SavedBookTest, AMergeIsNoMark) {
    Open();
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(folder.Name("book.ldif")));
    Run("mnuMerge");
    EXPECT_TRUE(saved.Differs());
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(SavedBookTest, TheAutomationMarksToo) {
    const std::string path = Write("book.txt", "\"Al\" <A1>\r\n");
    module1.AutoOpenFile(path);
    EXPECT_FALSE(saved.Differs());
    module1.AutoSaveFile(folder.Name("saved.nv"));
    EXPECT_THAT(told, ElementsAre(path, folder.Name("saved.nv")));
}

TEST_F(SavedBookTest, EntriesAreCountedAsTheyAreCompared) {
    SetNative("A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n");
    module1.RefreshLists();
    EXPECT_TRUE(saved.Differs());
    EXPECT_EQ(saved.Count(), 2U);
    form1.DeleteEntries({0});
    EXPECT_TRUE(saved.Differs());
    EXPECT_EQ(saved.Count(), 1U);
}

TEST_F(SavedBookTest, ABookThatComesBackIsComparedAsBefore) {
    Open();
    const SavedBook::Hash compared = saved.Compared();
    saved.CompareWith(SavedBook::kNoFile);
    EXPECT_TRUE(saved.Differs());
    saved.CompareWith(compared);
    EXPECT_FALSE(saved.Differs());
}

TEST_F(SavedBookTest, TheQuestionWhetherToSaveHasAFate) {
    using Fate = SavedBook::Fate;
    Open();
    const auto fate_of = [&](Answer answer, const std::string& file) {
        saved.SetFate(Fate::Unknown);
        ExpectSaveQuestion("Save before exiting?", answer);
        if (answer == Answer::Yes) {
            EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(file));
        }
        static_cast<void>(form1.OfferSave("Save before exiting?"));
        return saved.GetFate();
    };
    EXPECT_EQ(fate_of(Answer::No, ""), Fate::GivenUp);
    EXPECT_EQ(fate_of(Answer::Cancel, ""), Fate::Unknown);
    EXPECT_EQ(fate_of(Answer::Yes, ""), Fate::NotSaved);
    EXPECT_EQ(fate_of(Answer::Yes, folder.Name("saved.ldif")), Fate::Unknown);
    EXPECT_ANY_THROW(fate_of(Answer::Yes, folder.Name("none/saved.ldif")));
    EXPECT_EQ(saved.GetFate(), Fate::NotSaved);
}

}  // namespace
}  // namespace orvik
