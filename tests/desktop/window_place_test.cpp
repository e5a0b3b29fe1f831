#include "desktop/session/window_place.h"

#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

namespace orvik {
namespace {

class WindowPlaceTest : public testing::Test {
 protected:
    void Write(const QByteArray& content) {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
    }

    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("orvik/window.conf"));
};

TEST_F(WindowPlaceTest, AWindowComesBackWhereItWas) {
    QWidget before;
    before.setGeometry(40, 50, 320, 240);
    before.show();
    KeepPlace(before, file);
    QWidget after;
    RestorePlace(after, file);
    after.show();
    EXPECT_EQ(after.geometry(), QRect(40, 50, 320, 240));
}

TEST_F(WindowPlaceTest, AMaximisedWindowComesBackMaximised) {
    QWidget before;
    before.showMaximized();
    KeepPlace(before, file);
    QWidget after;
    RestorePlace(after, file);
    EXPECT_TRUE(after.isMaximized());
}

TEST_F(WindowPlaceTest, APlaceOnNoScreenIsMovedOntoOne) {
    QWidget before;
    before.setGeometry(9000, 9000, 320, 240);
    before.show();
    KeepPlace(before, file);
    QWidget after;
    RestorePlace(after, file);
    after.show();
    EXPECT_TRUE(after.screen()->geometry().contains(after.geometry()));
}

TEST_F(WindowPlaceTest, WithoutAPlaceTheWindowStaysAsItIs) {
    QWidget window;
    window.resize(321, 123);
    RestorePlace(window, file);
    EXPECT_EQ(window.size(), QSize(321, 123));
    file = folder.filePath(QStringLiteral("window.conf"));
    for (const char* const content : {"",
                                      "[main]\nplace=\n",
                                      "[main]\nplace=AAAA\n",
                                      "[main\n\xFF\x01=",
                                      "[main]\nplace=@\n"}) {
        Write(content);
        RestorePlace(window, file);
        EXPECT_EQ(window.size(), QSize(321, 123)) << content;
    }
}

TEST_F(WindowPlaceTest, TheFileIsInTheFolderForStates) {
    qputenv("XDG_STATE_HOME", "/somewhere");
    EXPECT_EQ(WindowPlaceFile(), QStringLiteral("/somewhere/orvik/window.conf"));
    for (const char* const none : {"", "relative"}) {
        qputenv("XDG_STATE_HOME", none);
        EXPECT_TRUE(WindowPlaceFile().endsWith(QStringLiteral("/.local/state/orvik/window.conf")));
    }
    qunsetenv("XDG_STATE_HOME");
}

TEST_F(WindowPlaceTest, AWindowIsPutOverAnotherOne) {
    QWidget below;
    below.setGeometry(60, 70, 320, 240);
    below.show();
    QWidget window;
    window.resize(200, 100);
    PlaceOver(window, below);
    window.show();
    EXPECT_EQ(window.pos(), below.pos());
    // All of it stays on the screen, also where it is the larger one.
    const QRect screen = below.screen()->availableGeometry();
    below.move(screen.right() - 50, screen.bottom() - 50);
    QWidget other;
    other.resize(400, 300);
    PlaceOver(other, below);
    other.show();
    EXPECT_TRUE(screen.contains(other.frameGeometry()));
}

TEST_F(WindowPlaceTest, AFolderIsKeptBesideThePlace) {
    QWidget window;
    window.setGeometry(40, 50, 320, 240);
    window.show();
    EXPECT_EQ(KeptFolder(file), QString());
    KeepFolder(folder.path(), file);
    KeepPlace(window, file);
    EXPECT_EQ(KeptFolder(file), folder.path());
    for (const QString& none :
         {folder.filePath(QStringLiteral("gone")), QStringLiteral("."), QString()}) {
        KeepFolder(none, file);
        EXPECT_EQ(KeptFolder(file), QString()) << none.toStdString();
    }
}

TEST_F(WindowPlaceTest, EachWindowHasItsOwnPlaceAndParts) {
    QWidget main;
    main.setGeometry(40, 50, 320, 240);
    KeepPlace(main, file);
    QWidget book;
    book.setGeometry(60, 70, 420, 340);
    KeepPlace(book, file, kBookWindow);
    KeepParts("parts", file, kBookWindow, "splitter");
    QWidget after;
    RestorePlace(after, file, kBookWindow);
    EXPECT_EQ(after.size(), QSize(420, 340));
    RestorePlace(after, file);
    EXPECT_EQ(after.size(), QSize(320, 240));
    EXPECT_EQ(KeptParts(file, kBookWindow, "splitter"), QByteArray("parts"));
    EXPECT_EQ(KeptParts(file, kMainWindow, "splitter"), QByteArray());
}

}  // namespace
}  // namespace orvik
