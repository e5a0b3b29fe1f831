#include "desktop/session/autostart.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/system_files.h"

namespace orvik {
namespace {

TEST(ExecLineTest, QuotesWhatADesktopEntryReserves) {
    const struct {
        QStringList Command;
        const char* Expected;
    } rows[] = {
        {{QStringLiteral("/usr/bin/orvik")}, "/usr/bin/orvik"},
        {{QStringLiteral("/opt/my books/orvik")}, R"("/opt/my books/orvik")"},
        {{QStringLiteral("/a\tb\nc")}, R"("/a\tb\nc")"},
        {{QStringLiteral("/100%/orvik")},
         R"(/bin/sh -c "exec \\"\\$0\\" \\"\\$@\\"" /100%%/orvik)"},
        {{QStringLiteral("/a=b")}, R"(/bin/sh -c "exec \\"\\$0\\" \\"\\$@\\"" /a=b)"},
        {{QStringLiteral("/a"), QStringLiteral("b=c%")}, "/a b=c%%"},
        {{QStringLiteral("/a\"b")}, R"("/a\\"b")"},
        {{QStringLiteral("/a`b")}, R"("/a\\`b")"},
        {{QStringLiteral("/a$b")}, R"("/a\\$b")"},
        {{QStringLiteral("/a\\b")}, R"("/a\\\\b")"},
        {{QStringLiteral("/a'b;c&d")}, R"("/a'b;c&d")"},
        {{QStringLiteral("/(a)#b")}, R"("/(a)#b")"},
        {{QStringLiteral("/J\u00FCrgen/orvik")}, "/J\xC3\xBCrgen/orvik"},
        {{QStringLiteral("orvik"), QString(), QStringLiteral("a b")}, R"(orvik "" "a b")"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ExecLine(row.Command).toStdString(), row.Expected);
    }
}

class AutostartTest : public testing::Test {
 protected:
    AutostartTest() { qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit()); }
    QTemporaryDir folder;
    SystemFiles files{false};
    const QString name = QStringLiteral("Orvik Auto");
    const QString file = folder.filePath(QStringLiteral("autostart/Orvik Auto.desktop"));
};

TEST_F(AutostartTest, CreatesTheEntryWithItsFolder) {
    ASSERT_TRUE(CreateAutostart(files, name, {QStringLiteral("/old")}));
    ASSERT_TRUE(CreateAutostart(files, name, {QStringLiteral("/opt/a b/orvik")}));
    QFile in(file);
    ASSERT_TRUE(in.open(QFile::ReadOnly));
    EXPECT_EQ(in.readAll().toStdString(),
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Version=1.0\n"
              "Name=Orvik Auto\n"
              "Exec=\"/opt/a b/orvik\"\n"
              "Terminal=false\n"
              "X-GNOME-Autostart-enabled=true\n");
}

// A program under each name is started by way of its entry, as a session does it.
TEST_F(AutostartTest, AProgramOfAnyNameIsStarted) {
    for (const QString& odd : {QStringLiteral("plain"),
                               QStringLiteral("a b"),
                               QStringLiteral("100%f"),
                               QStringLiteral("a=b"),
                               QStringLiteral("=%%= $@"),
                               QStringLiteral("a\"b'c`d"),
                               QStringLiteral("$HOME"),
                               QStringLiteral("a\\b\\\\c"),
                               QStringLiteral("a;b&c|d<e>f~g#h(i)*?"),
                               QStringLiteral("tab\there"),
                               QStringLiteral("J\u00FCrgen")}) {
        const QString program = folder.filePath(odd);
        const QString mark = folder.filePath(QStringLiteral("started"));
        QFile script(program);
        ASSERT_TRUE(script.open(QFile::WriteOnly));
        script.write("#!/bin/sh\n: >'" + mark.toUtf8() + "'\n");
        script.close();
        ASSERT_TRUE(script.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        ASSERT_TRUE(CreateAutostart(files, name, {program}));
        EXPECT_EQ(QProcess::execute(QStringLiteral("desktop-file-validate"), {file}), 0)
            << odd.toStdString();
        EXPECT_EQ(QProcess::execute(QStringLiteral("gio"), {QStringLiteral("launch"), file}), 0)
            << odd.toStdString();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(mark); }, 10000))
            << odd.toStdString();
        QFile::remove(mark);
    }
}

TEST_F(AutostartTest, AProgramThatIsNoUtf8IsRefused) {
    EXPECT_FALSE(CreateAutostart(files, name, {QString::fromUtf8("/opt/\xFC/orvik")}));
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(AutostartTest, RemovesTheEntryIfItIsThere) {
    ASSERT_TRUE(CreateAutostart(files, name, {QStringLiteral("/o")}));
    RemoveAutostart(files, name);
    EXPECT_FALSE(QFile::exists(file));
    RemoveAutostart(files, name);
}

TEST_F(AutostartTest, TellsWhenTheEntryCannotBeWritten) {
    QFile in_the_way(folder.filePath(QStringLiteral("autostart")));
    ASSERT_TRUE(in_the_way.open(QFile::WriteOnly));
    EXPECT_FALSE(CreateAutostart(files, name, {QStringLiteral("/o")}));
}

TEST_F(AutostartTest, ANameIsNoPath) {
    EXPECT_FALSE(CreateAutostart(files, QStringLiteral("../x"), {QStringLiteral("/o")}));
}

}  // namespace
}  // namespace orvik
