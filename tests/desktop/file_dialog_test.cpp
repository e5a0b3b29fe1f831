#include "desktop/session/file_dialog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <filesystem>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/modal_user.h"
#include "unit/process_limits.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;
using test::ModalUser;

constexpr std::string_view kFilter = "Netscape 4.x or IE|*.ldif|Juno|*.nv|All Files|*.*";

TEST(NameFilters, IgnoreCaseAndTakeStarDotStarForEveryFile) {
    EXPECT_EQ(NameFilters(kFilter),
              QStringList({QStringLiteral("Netscape 4.x or IE: *.ldif (*.[lL][dD][iI][fF])"),
                           QStringLiteral("Juno: *.nv (*.[nN][vV])"),
                           QStringLiteral("All Files (*)")}));
    EXPECT_EQ(NameFilters("Text|*.txt|Half an entry"),
              QStringList({QStringLiteral("Text: *.txt (*.[tT][xX][tT])")}));
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

TEST(WithFormatEnding, IsForNamesThatSayNoFormat) {
    const struct {
        const char* Name;
        const char* Ending;
        const char* Expected;
    } rows[] = {
        {"/lists/book", ".ldif", "/lists/book.ldif"},
        {"/lists/book.txt", ".ldif", "/lists/book.txt"},
        {"/lists/BOOK.TXT", ".ldif", "/lists/BOOK.TXT"},
        {"/lists/book.html", ".ldif", "/lists/book.html"},
        {"/lists/contacts.2026", ".nv", "/lists/contacts.2026.nv"},
        {"/lists/book.csv", ".htm", "/lists/book.csv.htm"},
        {"/lists/.book", ".txt", "/lists/.book.txt"},
        {"/lists/book.ldi", ".txt", "/lists/book.ldif"},
        {"/lists/BOOK.LDI", "", "/lists/BOOK.LDIf"},
        {"/lists/book", "", "/lists/book"},
        // No format is written under this ending.
        {"/lists/book", ".csv", "/lists/book"},
        {"/lists/book.2026", ".csv", "/lists/book.2026"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WithFormatEnding(QString::fromLatin1(row.Name), row.Ending).toStdString(),
                  row.Expected);
    }
}

TEST(WritableEndings, AreThoseThatChooseAFormat) {
    EXPECT_EQ(WritableEndings(kFilter), QStringLiteral(".ldif or .nv"));
    EXPECT_EQ(WritableEndings("A|*.txt|B|*.csv|C|*.pml|D|*.htm|E|*.*"),
              QStringLiteral(".txt, .pml or .htm"));
    EXPECT_EQ(WritableEndings("Text|*.txt"), QStringLiteral(".txt"));
}

TEST(OverwriteQuestion, SaysWhenEntriesAreAdded) {
    const QString name = QStringLiteral("/x/a.nv");
    EXPECT_TRUE(OverwriteQuestion(name, Saving::Adds, false).contains(u"added"));
    EXPECT_TRUE(OverwriteQuestion(name, Saving::Replaces, false).contains(u"replace"));
    for (const Saving way : {Saving::Adds, Saving::Replaces}) {
        EXPECT_FALSE(OverwriteQuestion(name, way, false).contains(u"Another program"));
        EXPECT_TRUE(OverwriteQuestion(name, way, true)
                        .endsWith(QStringLiteral(".\n") + OverwriteQuestion(name, way, false)));
    }
}

TEST(OverwriteQuestion, ANameIsPlainText) {
    const QString name = QStringLiteral("/x/<b>a\n\u202E%1.nv");
    EXPECT_TRUE(OverwriteQuestion(name, Saving::Replaces, false)
                    .startsWith(QStringLiteral("<b>a\\x0A\\u202E%1.nv already exists.")));
}

TEST(WhyNoFile, ANameIsPlainText) {
    EXPECT_EQ(WhyNoFile(QStringLiteral("/no\n\u2028ne/a.nv")),
              QStringLiteral("There is no folder /no\\x0A\\u2028ne."));
}

class FileDialogTest : public testing::Test {
 protected:
    // What the user does with each dialog and box in turn; then the last one is given up.
    std::string Show(FileDialog& dialog, std::vector<std::function<void()>> acts) {
        const ModalUser user(std::move(acts));
        std::string name = dialogs.show(dialog, nullptr);
        done = user.done();
        return name;
    }
    // The box stands over the dialog.
    void ReadBox() {
        said = ModalUser::box().text();
        EXPECT_TRUE(ModalUser::box().parentWidget()->isVisible()) << "the dialog stays open";
        ModalUser::box().close();
    }
    [[nodiscard]] QString Path(const char* name) const {
        return folder.filePath(QString::fromLatin1(name));
    }
    void Make(const char* name) const { ASSERT_TRUE(QFile(Path(name)).open(QFile::WriteOnly)); }
    [[nodiscard]] static FileDialog Saving() {
        return {DialogKind::Save, "Save As", std::string(kFilter), kOverwritePrompt, 1, "", true};
    }
    // Names that will not do, each typed into a dialog that is given up then.
    void ExpectRefused(const QString& name, const QString& why, FileDialog dialog = Saving()) {
        said.clear();
        EXPECT_EQ(Show(dialog, {[&] { ModalUser::type(name); }, [&] { ReadBox(); }}), "");
        EXPECT_EQ(said.toStdString(), why.toStdString());
        EXPECT_EQ(done, 2U);
    }

    QTemporaryDir folder;
    QTemporaryDir other_folder;
    const QString state = other_folder.filePath(QStringLiteral("orvik/window.conf"));
    FileDialogs dialogs{state};
    std::size_t done = 0;
    QString said;
};

TEST_F(FileDialogTest, ASavedNameGetsTheEndingOfTheFilterInUse) {
    FileDialog dialog = Saving();
    dialog.FilterIndex = 2;
    EXPECT_EQ(Show(dialog, {[&] { ModalUser::type(Path("book")); }}),
              Path("book.nv").toStdString());
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
                   {[&] { ModalUser::type(Path("book")); },
                    [] { ModalUser::answer(QMessageBox::No); },
                    [&] { ModalUser::type(Path("book")); },
                    [] { ModalUser::answer(QMessageBox::Yes); }}),
              Path("book.ldif").toStdString());
}

TEST_F(FileDialogTest, ANameIsWholeBeforeItIsAskedFor) {
    Make("book.ldif");
    FileDialog dialog = Saving();
    EXPECT_EQ(Show(dialog,
                   {[&] { ModalUser::type(Path("book.ldi")); },
                    [&] {
                        said = ModalUser::box().text();
                        ModalUser::answer(QMessageBox::No);
                    }}),
              "");
    EXPECT_EQ(
        said,
        QStringLiteral("book.ldif already exists.\nIf you replace it, what is in it now is lost."));
}

TEST_F(FileDialogTest, TheQuestionSaysWhatWillBecomeOfTheFile) {
    Make("book.nv");
    for (const bool ending_is_format : {true, false}) {
        FileDialog dialog = Saving();
        dialog.EndingIsFormat = ending_is_format;
        QStringList buttons;
        EXPECT_EQ(Show(dialog,
                       {[&] { ModalUser::type(Path("book.nv")); },
                        [&] {
                            for (const QAbstractButton* const button : ModalUser::box().buttons()) {
                                buttons << button->text().remove(u'&');
                            }
                            EXPECT_EQ(ModalUser::box().defaultButton(),
                                      ModalUser::box().button(QMessageBox::No));
                            ReadBox();
                        }}),
                  "");
        buttons.sort();
        EXPECT_EQ(buttons.join(u' ').toStdString(),
                  ending_is_format ? "Add Cancel" : "Cancel Replace");
        EXPECT_EQ(said.contains(u"added"), ending_is_format) << said.toStdString();
    }
}

TEST_F(FileDialogTest, ANameThatSaysNoFormatGetsTheEndingOfTheFilter) {
    FileDialog dialog = Saving();
    EXPECT_EQ(Show(dialog, {[&] { ModalUser::type(Path("contacts.2026")); }}),
              Path("contacts.2026.ldif").toStdString());
    dialog.EndingIsFormat = false;
    EXPECT_EQ(Show(dialog, {[&] { ModalUser::type(Path("contacts.2026")); }}),
              Path("contacts.2026").toStdString());
}

TEST_F(FileDialogTest, WithoutAFilterTheNameMustSayTheFormat) {
    FileDialog dialog = Saving();
    dialog.FilterIndex = 3;
    ExpectRefused(Path("book.csv"),
                  QStringLiteral("book.csv does not say in which format to save. The name must end "
                                 "in .ldif or .nv."),
                  dialog);
    // The dialog waits for another one.
    EXPECT_EQ(Show(dialog,
                   {[&] { ModalUser::type(Path("book.csv")); },
                    [&] { ReadBox(); },
                    [&] { ModalUser::type(Path("book.nv")); }}),
              Path("book.nv").toStdString());
}

TEST_F(FileDialogTest, AFolderThatTakesNoFileIsToldOf) {
    ExpectRefused(Path("none/book.ldif"),
                  QStringLiteral("There is no folder %1.").arg(Path("none")));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("book.ldif")));
    ExpectRefused(Path("book"), QStringLiteral("%1 is a folder.").arg(Path("book.ldif")));

    Make("old.ldif");
    fs::permissions(Path("old.ldif").toStdString(), fs::perms(0666));
    Make("locked.ldif");
    fs::permissions(Path("locked.ldif").toStdString(), fs::perms(0444));
    fs::permissions(folder.path().toStdString(), fs::perms(0555));
    const test::OrdinaryUser user;
    if (!user.Ordinary()) {
        GTEST_SKIP() << "the superuser may write anywhere";
    }
    ExpectRefused(Path("new.ldif"),
                  QStringLiteral("You may not make files in the folder %1.").arg(folder.path()));
    ExpectRefused(Path("locked.ldif"),
                  QStringLiteral("You may not write to %1.").arg(Path("locked.ldif")));
    FileDialog dialog = Saving();
    EXPECT_EQ(Show(dialog,
                   {[&] { ModalUser::type(Path("old.ldif")); },
                    [] { ModalUser::answer(QMessageBox::Yes); }}),
              Path("old.ldif").toStdString());
}

TEST_F(FileDialogTest, TheNextDialogStartsInTheSameFolder) {
    Make("book.ldif");
    FileDialog dialog{DialogKind::Open, "Open", std::string(kFilter), kFileMustExist, 1, ""};
    EXPECT_EQ(Show(dialog, {[&] { ModalUser::type(Path("book.ldif")); }}),
              Path("book.ldif").toStdString());
    QString next;
    Show(dialog, {[&] { next = ModalUser::dialog().directory().canonicalPath(); }});
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
             title = ModalUser::dialog().windowTitle();
             name =
                 ModalUser::dialog().findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
             filters = ModalUser::dialog().nameFilters();
             filter = ModalUser::dialog().selectedNameFilter();
         }});
    EXPECT_EQ(title, QStringLiteral("Save it"));
    EXPECT_EQ(name, QStringLiteral("kept.txt"));
    EXPECT_EQ(filters, NameFilters(kFilter));
    EXPECT_EQ(dialog.FilterIndex, 3);
    EXPECT_TRUE(filter.startsWith(QStringLiteral("All Files"))) << filter.toStdString();
}

// Qt's own box quotes what was typed.
TEST_F(FileDialogTest, AMissingFileIsNamedAsText) {
    FileDialog dialog{DialogKind::Open, "Open", "All files|*.*", kFileMustExist, 1, "", false};
    Qt::TextFormat format = Qt::AutoText;
    Show(dialog,
         {[] {
              // The button is off for a missing file, the Enter key is not.
              ModalUser::type(QStringLiteral("<b>none.txt"));
              static_cast<QDialog&>(ModalUser::dialog()).accept();
          },
          [&] {
              format = ModalUser::box().textFormat();
              said = ModalUser::box().text();
              ModalUser::box().close();
          }});
    EXPECT_EQ(format, Qt::PlainText);
    EXPECT_TRUE(said.contains(u"<b>none")) << said.toStdString();
}

}  // namespace
}  // namespace orvik
