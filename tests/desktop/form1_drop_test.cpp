// Files that are dropped on the main window, or named on the command line.

#include <sys/stat.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>
#include <filesystem>
#include <fstream>

#include "desktop/form1_window_fixture.h"
#include "unit/process_limits.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class Form1DropTest : public test::Form1WindowTest {
 protected:
    Form1DropTest() {
        std::ofstream(Path("book.txt").toStdString()) << "A1\r\nA2\r\n";
        fs::permissions(folder.path().toStdString(), fs::perms(0755));
        Show();
    }

    [[nodiscard]] QString Path(const char* name) const {
        return folder.filePath(QString::fromLatin1(name));
    }
    void Carry(const QStringList& names) {
        QList<QUrl> urls;
        for (const QString& name : names) {
            urls.append(QUrl::fromLocalFile(name));
        }
        data.setUrls(urls);
    }
    // What a drag over the window would do, nothing where it is refused.
    Qt::DropAction DragOver(Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction) {
        QDragEnterEvent enter(QPoint(5, 5), possible, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&window, &enter);
        return enter.isAccepted() ? enter.dropAction() : Qt::IgnoreAction;
    }
    Qt::DropAction Drop() {
        DragOver();
        QDropEvent event(QPointF(5, 5),
                         Qt::CopyAction | Qt::MoveAction,
                         &data,
                         Qt::LeftButton,
                         Qt::ShiftModifier,
                         QEvent::Drop);
        event.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(&window, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    // One box, and the book stays.
    void ExpectRefused(const QStringList& names, const std::string& told) {
        SetAscii("A9\r\n");
        form1.Caption = "Orvik - old.txt";
        ExpectTold(told);
        window.openBooks(names);
        EXPECT_EQ(module1.WorkText, "A9\r\n");
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Orvik - old.txt[*]"));
    }

    QTemporaryDir folder;
    QMimeData data;
};

TEST_F(Form1DropTest, ADroppedFileIsOpened) {
    Carry({Path("book.txt")});
    Drop();
    EXPECT_EQ(module1.WorkText, "") << "while the other program waits";
    Settle();
    EXPECT_THAT(ItemsOf(form1.List1), ElementsAre("A1", "A2"));
    // While a command runs nothing is opened.
    Drop();
    desktop.run([] { Settle(); });
}

TEST_F(Form1DropTest, ADropIsACopyAndNeverAMove) {
    Carry({Path("book.txt")});
    EXPECT_EQ(DragOver(), Qt::CopyAction);
    EXPECT_EQ(DragOver(Qt::MoveAction), Qt::IgnoreAction);
    EXPECT_EQ(Drop(), Qt::CopyAction);
    Settle();
}

TEST_F(Form1DropTest, FoldersAndSeveralFilesAreRefusedWhileTheyAreDragged) {
    Carry({folder.path()});
    EXPECT_EQ(DragOver(), Qt::IgnoreAction);
    Carry({Path("book.txt"), Path("other.txt")});
    EXPECT_EQ(DragOver(), Qt::IgnoreAction);
    data.setUrls({QUrl(QStringLiteral("https://example.org/book.txt"))});
    EXPECT_EQ(DragOver(), Qt::IgnoreAction);
}

TEST_F(Form1DropTest, AFileThatCannotBeOpenedIsToldOfAndTheBookStays) {
    const std::string in = folder.path().toStdString();
    ExpectRefused({Path("none.txt")},
                  in + "/none.txt cannot be opened.\r\nNo such file or directory");
    ExpectRefused({folder.path()}, in + " cannot be opened.\r\nIt is a folder.");
    ASSERT_EQ(mkfifo(Path("pipe").toStdString().c_str(), 0600), 0);
    ExpectRefused({Path("pipe")}, in + "/pipe cannot be opened.\r\nIt is no ordinary file.");
    ExpectRefused({Path("book.txt"), Path("b.txt"), Path("c.txt")},
                  in + "/book.txt and 2 more cannot be opened.\r\nOnly one book can be open at a "
                       "time.");
    const QString odd = folder.filePath(QStringLiteral("<b>\n\u202E%1%2"));
    ExpectRefused({odd},
                  in + "/<b>\\x0A\\u202E%1%2 cannot be opened.\r\nNo such file or directory");
    ExpectRefused({odd, Path("b.txt")},
                  in + "/<b>\\x0A\\u202E%1%2 and 1 more cannot be opened.\r\nOnly one book can be "
                       "open at a time.");
    fs::permissions(Path("book.txt").toStdString(), fs::perms::none);
    const test::OrdinaryUser user;
    if (!user.Ordinary()) {
        GTEST_SKIP() << "the superuser may read anything";
    }
    ExpectRefused({Path("book.txt")}, in + "/book.txt cannot be opened.\r\nPermission denied");
}

TEST_F(Form1DropTest, AFileThatIsGoneWhenItIsOpenedIsToldOf) {
    Carry({Path("book.txt")});
    Drop();
    fs::remove(Path("book.txt").toStdString());
    ExpectTold(Path("book.txt").toStdString() + " cannot be opened.\r\nNo such file or directory");
    Settle();
}

}  // namespace
}  // namespace orvik
