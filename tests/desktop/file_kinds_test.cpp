// Which kinds of files the dialogs offer and begin with, and the folder that they begin in.

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>

#include <gtest/gtest.h>

#include "desktop/modal_user.h"
#include "desktop/session/file_dialog.h"

namespace orvik {
namespace {

using test::ModalUser;

constexpr std::string_view kFilter = "Netscape 4.x or IE|*.ldif|Juno|*.nv|All Files|*.*";

TEST(AllBooksFilter, HasEveryEndingOfABook) {
    EXPECT_TRUE(AllBooksFilter().startsWith(QStringLiteral("All address books: *.")));
    for (const char* const ending : {"html", "htm", "ldif", "txt", "csv", "abx", "nv", "pml"}) {
        EXPECT_TRUE(AllBooksFilter().contains(QStringLiteral(" *.%1 ").arg(QLatin1String(ending))))
            << ending;
    }
    EXPECT_FALSE(AllBooksFilter().contains(QStringLiteral("xtr")));
    EXPECT_TRUE(AllBooksFilter().contains(QStringLiteral("*.[nN][vV]")));
}

class FileKindsTest : public testing::Test {
 protected:
    // What the user does with the dialog, which is given up then.
    std::string Show(FileDialog& dialog, const std::function<void()>& act) {
        const ModalUser user({act});
        return dialogs.show(dialog, nullptr);
    }
    [[nodiscard]] QString Path(const char* name) const {
        return folder.filePath(QString::fromLatin1(name));
    }
    // A dialog in which the ending says the format, as those of Open and Merge are.
    [[nodiscard]] static FileDialog Opening(int index = 1) {
        return {.Kind = DialogKind::Open,
                .Title = "Open",
                .Filter = std::string(kFilter),
                .Flags = kFileMustExist,
                .FilterIndex = index,
                .FileName = {},
                .EndingIsFormat = true};
    }
    // Makes and takes book.ldif, after choosing an entry of the dialog unless that is -1. Returns
    // the form's index; began is the text of the entry that was chosen at first.
    int Take(FileDialog dialog, int entry = -1) {
        EXPECT_TRUE(QFile(Path("book.ldif")).open(QFile::WriteOnly));
        EXPECT_EQ(Show(dialog,
                       [&] {
                           auto& shown = ModalUser::dialog();
                           entries = shown.nameFilters();
                           began = shown.selectedNameFilter();
                           if (entry >= 0) {
                               shown.selectNameFilter(entries.at(entry));
                           }
                           ModalUser::type(Path("book.ldif"));
                       }),
                  Path("book.ldif").toStdString());
        return dialog.FilterIndex;
    }
    [[nodiscard]] bool BeganWith(const char* text) const {
        return began.startsWith(QString::fromLatin1(text));
    }

    QTemporaryDir folder;
    QTemporaryDir other_folder;
    const QString state = other_folder.filePath(QStringLiteral("orvik/window.conf"));
    FileDialogs dialogs{state};
    QStringList entries;
    QString began;
};

TEST_F(FileKindsTest, EveryKindOfBookIsTheFirstEntry) {
    EXPECT_EQ(Take(Opening()), 1);
    EXPECT_EQ(entries, QStringList(AllBooksFilter()) + NameFilters(kFilter));
    EXPECT_TRUE(BeganWith("All address books"));
}

TEST_F(FileKindsTest, TheEndingsAreInSight) {
    FileDialog dialog = Opening();
    const QFont font = QApplication::font();
    QFont large = font;
    large.setPointSize(14);
    QApplication::setFont(large);
    Show(dialog, [] {
        const auto& shown = ModalUser::dialog();
        auto& kinds = *shown.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        EXPECT_TRUE(kinds.currentText().endsWith(QStringLiteral(".pml")));
        EXPECT_EQ(kinds.itemText(1), QStringLiteral("Netscape 4.x or IE: *.ldif"));
        EXPECT_GE(kinds.width(), kinds.fontMetrics().horizontalAdvance(kinds.currentText()));
        for (const auto* const button : shown.findChildren<QPushButton*>()) {
            EXPECT_TRUE(button->icon().isNull());
        }
    });
    QApplication::setFont(font);
}

TEST_F(FileKindsTest, EveryKindIsNoEntryOfTheForm) {
    // What the form has chosen, and what it would find chosen in a dialog without that entry.
    const struct {
        int Before;
        int After;
    } rows[] = {{1, 1}, {2, 2}, {3, 3}, {4, 1}, {8, 1}, {0, 1}, {-1, 1}};
    for (const auto& row : rows) {
        EXPECT_EQ(Take(Opening(row.Before)), row.After) << row.Before;
        EXPECT_TRUE(BeganWith("All address books")) << row.Before;
        FileDialog without = Opening(row.Before);
        without.EndingIsFormat = false;
        EXPECT_EQ(Take(without), row.After) << row.Before;
    }
    for (int entry = 1; entry <= 3; ++entry) {
        EXPECT_EQ(Take(Opening(2), entry), entry);
    }
}

TEST_F(FileKindsTest, AKindThatWasChosenStaysChosen) {
    int index = Take(Opening(), 2);
    EXPECT_EQ(index, 2);
    index = Take(Opening(index));
    EXPECT_TRUE(BeganWith("Juno"));
    EXPECT_EQ(index, 2);
    // Until every kind is chosen again.
    index = Take(Opening(index), 0);
    EXPECT_EQ(index, 2);
    index = Take(Opening(index));
    EXPECT_TRUE(BeganWith("All address books"));
    EXPECT_EQ(index, 2);
}

TEST_F(FileKindsTest, WhatIsChosenForSavingIsNoKindToOpen) {
    FileDialog dialog{DialogKind::Save, "Save As", std::string(kFilter), 0, 1, "", true};
    Show(dialog, [&] {
        entries = ModalUser::dialog().nameFilters();
        ModalUser::dialog().selectNameFilter(entries.at(1));
        ModalUser::type(Path("new"));
    });
    EXPECT_EQ(entries, NameFilters(kFilter));
    EXPECT_EQ(dialog.FilterIndex, 2);
    EXPECT_EQ(Take(Opening(dialog.FilterIndex)), 2);
    EXPECT_TRUE(BeganWith("All address books"));
}

TEST_F(FileKindsTest, ADialogThatWasGivenUpChangesNothing) {
    FileDialog dialog = Opening();
    Show(dialog, [&] {
        ModalUser::dialog().selectNameFilter(ModalUser::dialog().nameFilters().at(2));
        ModalUser::dialog().reject();
    });
    EXPECT_EQ(dialog.FilterIndex, 1);
    Take(Opening());
    EXPECT_TRUE(BeganWith("All address books"));
}

TEST_F(FileKindsTest, TheFolderOutlivesTheProgram) {
    Take(Opening());
    const auto folder_of_next = [&] {
        dialogs = FileDialogs(state);
        FileDialog dialog = Opening();
        QString next;
        Show(dialog, [&] { next = ModalUser::dialog().directory().canonicalPath(); });
        return next;
    };
    EXPECT_EQ(folder_of_next(), QFileInfo(folder.path()).canonicalFilePath());
    // One that is gone is no place to begin in.
    ASSERT_TRUE(folder.remove());
    EXPECT_TRUE(QDir(folder_of_next()).exists());
}

}  // namespace
}  // namespace orvik
