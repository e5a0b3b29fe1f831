#include "desktop/session/file_dialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

namespace orvik {
namespace {

constexpr std::string_view kFilter = "Netscape 4.x or IE|*.ldif|Juno|*.nv|All Files|*.*";

TEST(NameFilters, IgnoreCaseAndTakeStarDotStarForEveryFile) {
    EXPECT_EQ(NameFilters(kFilter),
              QStringList({QStringLiteral("Netscape 4.x or IE (*.[lL][dD][iI][fF])"),
                           QStringLiteral("Juno (*.[nN][vV])"),
                           QStringLiteral("All Files (*)")}));
    EXPECT_EQ(NameFilters("Text|*.txt|Half an entry"),
              QStringList({QStringLiteral("Text (*.[tT][xX][tT])")}));
    EXPECT_TRUE(NameFilters("").isEmpty());
}

TEST(NameFilters, MatchNamesInAnyCase) {
    const auto pattern = QRegularExpression::fromWildcard(u"*.[lL][dD][iI][fF]", Qt::CaseSensitive);
    EXPECT_TRUE(pattern.match(QStringLiteral("BOOK.LDIF")).hasMatch());
    EXPECT_FALSE(pattern.match(QStringLiteral("book.txt")).hasMatch());
}

TEST(FilterEnding, IsThatOfTheEntry) {
    EXPECT_EQ(FilterEnding(kFilter, 1), ".ldif");
    EXPECT_EQ(FilterEnding(kFilter, 2), ".nv");
    EXPECT_EQ(FilterEnding(kFilter, 3), "");
    EXPECT_EQ(FilterEnding(kFilter, 0), "");
    EXPECT_EQ(FilterEnding(kFilter, 4), "");
}

TEST(WithEnding, IsForNamesWithoutOne) {
    const struct {
        const char* Name;
        const char* Expected;
    } rows[] = {
        {"/lists/book", "/lists/book.ldif"},
        {"/lists/book.txt", "/lists/book.txt"},
        {"/lists.d/book", "/lists.d/book.ldif"},
        {"/lists/.book", "/lists/.book"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WithEnding(QString::fromLatin1(row.Name), ".ldif").toStdString(), row.Expected);
    }
}

TEST(OverwriteQuestion, SaysWhenEntriesAreAdded) {
    for (const char* const name : {"a.pml", "a.NV", "/x/a.htm", "a.html", "anv"}) {
        EXPECT_TRUE(OverwriteQuestion(QString::fromLatin1(name)).contains(u"added")) << name;
    }
    for (const char* const name : {"a.ldif", "a.txt", "a.csv", "a"}) {
        EXPECT_TRUE(OverwriteQuestion(QString::fromLatin1(name)).contains(u"replace")) << name;
    }
}

class FileDialogTest : public testing::Test {
 protected:
    // What the user does with each dialog and box in turn; then the last one is given up.
    std::string Show(FileDialog& dialog, std::vector<std::function<void()>> acts) {
        QTimer user;
        std::size_t done = 0;
        QObject::connect(&user, &QTimer::timeout, [&] {
            QWidget* const modal = QApplication::activeModalWidget();
            if (modal == nullptr) {
                return;
            }
            if (done < acts.size()) {
                acts[done++]();
            } else {
                modal->close();
            }
        });
        user.start(0);
        return dialogs.show(dialog, nullptr);
    }
    static QFileDialog& Shown() {
        return *qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    }
    static void Type(const QString& name) {
        Shown().findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        Shown()
            .findChild<QDialogButtonBox*>()
            ->button(Shown().acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save
                                                                     : QDialogButtonBox::Open)
            ->click();
    }
    static void Answer(QMessageBox::StandardButton button) {
        qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->button(button)->click();
    }
    [[nodiscard]] QString Path(const char* name) const {
        return folder.filePath(QString::fromLatin1(name));
    }
    void Make(const char* name) const { ASSERT_TRUE(QFile(Path(name)).open(QFile::WriteOnly)); }
    [[nodiscard]] static FileDialog Saving() {
        return {DialogKind::Save, "Save As", std::string(kFilter), kOverwritePrompt, 1, ""};
    }

    QTemporaryDir folder;
    FileDialogs dialogs;
};

TEST_F(FileDialogTest, ASavedNameGetsTheEndingOfTheFilterInUse) {
    FileDialog dialog = Saving();
    dialog.FilterIndex = 2;
    EXPECT_EQ(Show(dialog, {[&] { Type(Path("book")); }}), Path("book.nv").toStdString());
    EXPECT_EQ(dialog.FilterIndex, 2);
}

TEST_F(FileDialogTest, ACancelledDialogGivesNoName) {
    FileDialog dialog = Saving();
    EXPECT_EQ(Show(dialog, {}), "");
}

TEST_F(FileDialogTest, AnExistingFileIsAskedFor) {
    Make("book.ldif");
    FileDialog dialog = Saving();
    EXPECT_EQ(Show(dialog,
                   {[&] { Type(Path("book")); },
                    [] { Answer(QMessageBox::No); },
                    [&] { Type(Path("book")); },
                    [] { Answer(QMessageBox::Yes); }}),
              Path("book.ldif").toStdString());
}

TEST_F(FileDialogTest, TheNextDialogStartsInTheSameFolder) {
    Make("book.ldif");
    FileDialog dialog{DialogKind::Open, "Open", std::string(kFilter), kFileMustExist, 1, ""};
    EXPECT_EQ(Show(dialog, {[&] { Type(Path("book.ldif")); }}), Path("book.ldif").toStdString());
    QString next;
    Show(dialog, {[&] { next = Shown().directory().canonicalPath(); }});
    EXPECT_EQ(next, QFileInfo(folder.path()).canonicalFilePath());
}

TEST_F(FileDialogTest, StartsAsItIsTold) {
    FileDialog dialog{DialogKind::Save, "Save it", std::string(kFilter), 0, 3, "kept.txt"};
    dialogs.rememberFolderOf(Path("any"));
    QString title;
    QString name;
    QStringList filters;
    QString filter;
    Show(dialog, {[&] {
             title = Shown().windowTitle();
             name = Shown().findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
             filters = Shown().nameFilters();
             filter = Shown().selectedNameFilter();
         }});
    EXPECT_EQ(title, QStringLiteral("Save it"));
    EXPECT_EQ(name, QStringLiteral("kept.txt"));
    EXPECT_EQ(filters, NameFilters(kFilter));
    EXPECT_EQ(dialog.FilterIndex, 3);
    EXPECT_TRUE(filter.startsWith(QStringLiteral("All Files"))) << filter.toStdString();
}

}  // namespace
}  // namespace orvik
