#include "desktop/autostart.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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
        {{QStringLiteral("/100%/orvik")}, "/100%%/orvik"},
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
    const QString name = QStringLiteral("Orvik Auto");
    const QString file = folder.filePath(QStringLiteral("autostart/Orvik Auto.desktop"));
};

TEST_F(AutostartTest, CreatesTheEntryWithItsFolder) {
    ASSERT_TRUE(CreateAutostart(name, {QStringLiteral("/old")}));
    ASSERT_TRUE(CreateAutostart(name, {QStringLiteral("/opt/a b/orvik")}));
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

TEST_F(AutostartTest, RemovesTheEntryIfItIsThere) {
    ASSERT_TRUE(CreateAutostart(name, {QStringLiteral("/o")}));
    RemoveAutostart(name);
    EXPECT_FALSE(QFile::exists(file));
    RemoveAutostart(name);
}

TEST_F(AutostartTest, TellsWhenTheEntryCannotBeWritten) {
    QFile in_the_way(folder.filePath(QStringLiteral("autostart")));
    ASSERT_TRUE(in_the_way.open(QFile::WriteOnly));
    EXPECT_FALSE(CreateAutostart(name, {QStringLiteral("/o")}));
}

TEST_F(AutostartTest, ANameIsNoPath) {
    EXPECT_FALSE(CreateAutostart(QStringLiteral("../x"), {QStringLiteral("/o")}));
}

}  // namespace
}  // namespace orvik
