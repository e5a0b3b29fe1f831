#include "desktop/book/move_dialog.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QToolButton>
#include <QTreeView>
#include <string>

#include <gmock/gmock.h>

#include "desktop/book_move_dialog_fixture.h"

namespace orvik {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using BookMoveDialogTest = test::MoveDialogFixture;

TEST_F(BookMoveDialogTest, EachProgramIsShownWithWhatItWouldLose) {
    Read("rich.vcf", test::kRichBook);
    Open();
    auto& programs = Find<QListWidget>("movePrograms");
    ASSERT_EQ(programs.count(), static_cast<int>(book_cli::Programs().size()) + 1);
    for (int i = 0; i < programs.count(); ++i) {
        SCOPED_TRACE(programs.item(i)->text().toStdString());
        Choose(i);
        EXPECT_EQ(Find<QLabel>("moveTitle").text(), programs.item(i)->text());
        EXPECT_THAT(Text("moveCounts"), StartsWith("read 3   written "));
        const bool loses = Text("moveCounts").find("lost 0") == std::string::npos;
        EXPECT_EQ(Find<QCheckBox>("moveLeaveOut").isVisible(), loses);
        EXPECT_EQ(Find<QPushButton>("moveSave").isEnabled(), !loses);
        if (loses) {
            EXPECT_THAT(LossRows().front(), StartsWith("Lost: "));
            EXPECT_THAT(LossRows()[1], HasSubstr("rich.vcf: line "));
        }
    }
    EXPECT_THAT(Text("moveWhere"), StartsWith("For any program"));
    Choose("Thunderbird");
    EXPECT_EQ(Text("moveWhere"),
              "Import in Thunderbird: Address Book > Import, then LDIF and the file");
}

TEST_F(BookMoveDialogTest, WhatAScreenReaderSelectsIsChosen) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    const auto& programs = Find<QListWidget>("movePrograms");
    programs.selectionModel()->select(programs.model()->index(1, 0),
                                      QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(Text("moveTitle"), "Google Contacts");
    EXPECT_EQ(programs.selectedItems().size(), 1);
}

TEST_F(BookMoveDialogTest, LosingValuesNeedsATick) {
    Read("rich.vcf", test::kRichBook);
    Open();
    Choose("Google Contacts");
    EXPECT_THAT(Text("moveLeaveOut"), StartsWith("&Leave these out: "));
    EXPECT_THAT(Text("moveLeaveOut"), EndsWith(" values would be lost"));
    EXPECT_FALSE(Find<QPushButton>("moveSave").isEnabled());
    Find<QCheckBox>("moveLeaveOut").setChecked(true);
    EXPECT_TRUE(Find<QPushButton>("moveSave").isEnabled());
    // Another program's losses have not been seen yet.
    Choose("Outlook");
    EXPECT_FALSE(Find<QCheckBox>("moveLeaveOut").isChecked());
    EXPECT_FALSE(Find<QPushButton>("moveSave").isEnabled());
    Find<QCheckBox>("moveLeaveOut").setChecked(true);
    EXPECT_THAT(Save("out.csv"), StartsWith("from " + folder.Name("rich.vcf") + "\nread 3   "));
    Convert({"--to", "outlook", "--allow-loss", "-o", folder.Name("tool.csv")});
    EXPECT_EQ(test::ReadFile(folder.Name("out.csv")), test::ReadFile(folder.Name("tool.csv")));
}

TEST_F(BookMoveDialogTest, WithoutLossesNothingIsTicked) {
    Read("plain.ldif", test::kPlainBook);
    document.change(QStringLiteral("Rename"), {{0, document.at(0)}});
    EXPECT_FALSE(document.undoStack().isClean());
    Open();
    EXPECT_FALSE(Find<QCheckBox>("moveLeaveOut").isVisible());
    QSignalSpy saved(dialog.get(), &MoveDialog::saved);
    Save("new.vcf");
    ASSERT_EQ(saved.size(), 1);
    EXPECT_EQ(saved[0][0].toString().toStdString(), folder.Name("new.vcf"));
    EXPECT_TRUE(document.undoStack().isClean());
}

TEST_F(BookMoveDialogTest, APartOfTheBookLeavesItChanged) {
    Read("plain.ldif", test::kPlainBook);
    document.change(QStringLiteral("Rename"), {{0, document.at(0)}});
    Open({1});
    QSignalSpy saved(dialog.get(), &MoveDialog::saved);
    Save("one.vcf");
    EXPECT_EQ(saved.size(), 0);
    EXPECT_FALSE(document.undoStack().isClean());
    EXPECT_THAT(test::ReadFile(folder.Name("one.vcf")), HasSubstr("bo@example.org"));
    EXPECT_EQ(test::ReadFile(folder.Name("one.vcf")).find("al@example.org"), std::string::npos);
}

TEST_F(BookMoveDialogTest, MoreChoosesTheFile) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    auto& form = Find<QComboBox>("moveForm");
    EXPECT_FALSE(form.isVisible());
    Find<QToolButton>("moveMore").click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_THAT(Items(form),
                ElementsAre("vCard 4.0, UTF-8 (.vcf)",
                            "Thunderbird LDIF, ASCII (.ldif)",
                            "Thunderbird CSV, UTF-8 (.csv)"));
    form.setCurrentIndex(2);
    AwaitPreview();
    EXPECT_THAT(Text("moveWhere"), EndsWith("then CSV and the file"));
    EXPECT_THAT(Text("moveCounts"), EndsWith("\nThunderbird CSV, UTF-8"));
    Save("t.csv");
    Convert({"--to", "thunderbird", "-o", folder.Name("tool.csv")});
    EXPECT_EQ(test::ReadFile(folder.Name("t.csv")), test::ReadFile(folder.Name("tool.csv")));
    Find<QPushButton>("moveBack").click();
    Find<QToolButton>("moveMore").click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(BookMoveDialogTest, AnyFormatCanBeWritten) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    Choose("Another program or a file");
    auto& form = Find<QComboBox>("moveForm");
    EXPECT_TRUE(form.isVisible());
    EXPECT_THAT(Items(form),
                ElementsAre("vCard 3.0, UTF-8 (.vcf)",
                            "vCard 4.0, UTF-8 (.vcf)",
                            "LDIF, with the attributes that it has (.ldif)",
                            "Mozilla LDIF, ASCII (.ldif)",
                            "Netscape 4 LDIF, ASCII (.ldif)",
                            "KContacts LDIF, ASCII (.ldif)",
                            "Evolution LDIF, ASCII (.ldif)",
                            "Netscape 3 HTML, windows-1252 (.htm)",
                            "Juno address book, windows-1252 (.nv)",
                            "Pegasus Mail distribution list, windows-1252 (.pml)",
                            "plain list, UTF-8 (.txt)"));
    EXPECT_TRUE(Find<QCheckBox>("moveSplits").isEnabled());
    form.setCurrentIndex(8);
    AwaitPreview();
    EXPECT_FALSE(Find<QCheckBox>("moveSplits").isEnabled());
    form.setCurrentIndex(2);
    AwaitPreview();
    EXPECT_THAT(Text("moveCounts"), EndsWith("LDIF, byte for byte as it was"));
}

TEST_F(BookMoveDialogTest, ABookIsSplit) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    Choose("Google Contacts");
    Find<QToolButton>("moveMore").click();
    Find<QSpinBox>("moveMost").setValue(1);
    Find<QCheckBox>("moveSplits").setChecked(true);
    AwaitPreview();
    EXPECT_EQ(Text("moveHints"), "2 files");
    EXPECT_THAT(Save("g.csv"), HasSubstr("g-1.csv: 1 record\n"));
    Convert({"--to", "google", "--split", "1", "-o", folder.Name("tool.csv")});
    for (const char* const part : {"-1.csv", "-2.csv"}) {
        EXPECT_EQ(test::ReadFile(folder.Name(std::string("g") + part)),
                  test::ReadFile(folder.Name(std::string("tool") + part)));
    }
}

TEST_F(BookMoveDialogTest, TooManyRecordsAreSplitWhereTheUserSaysSo) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    Choose("Outlook");
    Find<QComboBox>("moveForm").setCurrentIndex(1);
    AwaitPreview();
    EXPECT_EQ(Text("moveHints"),
              "Outlook reads the first card of a vCard file and no other, and there are 2; a .csv "
              "file may hold all");
    EXPECT_FALSE(Find<QPushButton>("moveSave").isEnabled());
    auto& split = Find<QAbstractButton>("moveSplit");
    EXPECT_EQ(split.accessibleName(), "Split it into 2 files of at most 1");
    split.click();
    AwaitPreview();
    EXPECT_FALSE(split.isVisible());
    EXPECT_TRUE(Find<QCheckBox>("moveSplits").isChecked());
    EXPECT_EQ(Find<QSpinBox>("moveMost").value(), 1);
    EXPECT_TRUE(Find<QPushButton>("moveSave").isEnabled());
    Save("o.vcf");
    EXPECT_THAT(folder.Files(), ElementsAre("o-1.vcf", "o-2.vcf", "plain.ldif"));
}

TEST_F(BookMoveDialogTest, TheNameFollowsFromTheSources) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    Choose("Google Contacts");
    std::string offered;
    test::BoxUser user({[&] {
        offered = test::ModalUser::dialog().selectedFiles().value(0).toStdString();
        test::ModalUser::dialog().reject();
    }});
    Find<QPushButton>("moveSave").click();
    EXPECT_EQ(offered, folder.Name("plain-google.csv"));
    EXPECT_THAT(folder.Files(), ElementsAre("plain.ldif"));
    Save("named.vcf");
    EXPECT_THAT(folder.Files(), ElementsAre("named.vcf.csv", "plain.ldif"));
}

TEST_F(BookMoveDialogTest, AFileThatIsThereIsAskedAboutOnce) {
    Read("plain.ldif", test::kPlainBook);
    test::WriteFile(folder.Name("old.vcf"), "old");
    Open();
    std::string question;
    {
        test::BoxUser user({[&] { test::ModalUser::type(Path("old.vcf")); },
                            [&] {
                                question = test::ModalUser::box().text().toStdString();
                                test::ModalUser::answer(QMessageBox::No);
                            }});
        Find<QPushButton>("moveSave").click();
        ASSERT_TRUE(Eventually([&] { return user.done() == 2; }));
    }
    EXPECT_EQ(question, folder.Name("old.vcf") + " is there already. Replace it?");
    EXPECT_EQ(test::ReadFile(folder.Name("old.vcf")), "old");
    EXPECT_FALSE(Find<QWidget>("moveSummary").isVisible());
    test::BoxUser user({[&] { test::ModalUser::type(Path("old.vcf")); },
                        [&] { test::ModalUser::answer(QMessageBox::Yes); },
                        [&] { ADD_FAILURE() << "asked twice"; }});
    Find<QPushButton>("moveSave").click();
    ASSERT_TRUE(Eventually([&] { return Find<QWidget>("moveSummary").isVisible(); }));
    EXPECT_EQ(user.done(), 2U);
    EXPECT_THAT(test::ReadFile(folder.Name("old.vcf")), StartsWith("BEGIN:VCARD"));
}

TEST_F(BookMoveDialogTest, ASourceStaysAsItIs) {
    Read("rich.vcf", test::kRichBook);
    Open();
    Choose("Apple Contacts");
    Find<QCheckBox>("moveLeaveOut").setChecked(true);
    test::BoxUser user({[&] { test::ModalUser::type(Path("rich.vcf")); }});
    Find<QPushButton>("moveSave").click();
    ASSERT_TRUE(Eventually([&] { return !Text("moveLineText").empty(); }));
    EXPECT_THAT(Text("moveLineText"),
                EndsWith("This file is read, and a book is never written over itself"));
    EXPECT_EQ(test::ReadFile(folder.Name("rich.vcf")), test::kRichBook);
}

TEST_F(BookMoveDialogTest, TheBookIsLookedAtAnewWhenItHasChanged) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    document.remove(QStringLiteral("Delete"), {0});
    Find<QPushButton>("moveSave").click();
    AwaitPreview();
    EXPECT_THAT(Text("moveCounts"), StartsWith("read 2   written 1"));
}

TEST_F(BookMoveDialogTest, TheHelpIsAskedForByProgram) {
    Read("plain.ldif", test::kPlainBook);
    Open();
    QSignalSpy asked(dialog.get(), &MoveDialog::helpAsked);
    for (const char* const program : {"Thunderbird", "the new Outlook", "mutt", "Pegasus Mail"}) {
        Choose(program);
        Find<QAbstractButton>("moveHelp").click();
    }
    ASSERT_EQ(asked.size(), 4);
    EXPECT_EQ(asked[0][0].toString(), QStringLiteral("move_thunderbird.html"));
    EXPECT_EQ(asked[1][0].toString(), QStringLiteral("move_outlook_new.html"));
    EXPECT_EQ(asked[2][0].toString(), QStringLiteral("move.html"));
    EXPECT_EQ(asked[3][0].toString(), QStringLiteral("pegasus.html"));
}

}  // namespace
}  // namespace orvik
