#include "desktop/book/show_in_folder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QTest>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/folder_opener.h"

namespace orvik {
namespace {

constexpr int kLongest = 20000;

// A file manager on the session bus.
class FileManager : public QDBusVirtualObject {
 public:
    FileManager() {
        QDBusConnection bus = QDBusConnection::sessionBus();
        is_there_ =
            bus.registerService(QStringLiteral("org.freedesktop.FileManager1")) &&
            bus.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), this);
    }
    FileManager(const FileManager&) = delete;
    FileManager& operator=(const FileManager&) = delete;
    FileManager(FileManager&&) = delete;
    FileManager& operator=(FileManager&&) = delete;
    ~FileManager() override {
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.unregisterObject(QStringLiteral("/org/freedesktop/FileManager1"));
        bus.unregisterService(QStringLiteral("org.freedesktop.FileManager1"));
    }

    [[nodiscard]] bool isThere() const { return is_there_; }
    [[nodiscard]] const QStringList& shown() const { return shown_; }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.member() != QStringLiteral("ShowItems")) {
            return false;
        }
        shown_ = message.arguments().value(0).toStringList();
        return connection.send(message.createReply());
    }

 private:
    bool is_there_ = false;
    QStringList shown_;
};

TEST(ShowInFolder, WithoutAFileManagerTheFolderIsOpened) {
    const test::FolderOpener opener;
    QObject context;
    const std::vector<std::string> files = {"/tmp/a b/\xC3\xBC#1.csv", "/tmp/a b/2.csv"};
    ShowInFolder(files, &context, [] { FAIL(); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opener.opened().isEmpty(); }, kLongest));
    EXPECT_EQ(opener.opened().front().toLocalFile(), QStringLiteral("/tmp/a b/"));
}

// Runs where there is a session bus (show_in_folder in CMakeLists.txt).
TEST(ShowInFolder, AFileManagerShowsTheFiles) {
    FileManager manager;
    if (!manager.isThere()) {
        GTEST_SKIP() << "no session bus, or one with a file manager";
    }
    const test::FolderOpener opener;
    QObject context;
    const std::vector<std::string> files = {"/tmp/a b/\xC3\xBC#1.csv", "/tmp/a b/\xFF.csv"};
    ShowInFolder(files, &context, [] { FAIL(); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.shown().isEmpty(); }, kLongest));
    EXPECT_EQ(manager.shown(),
              QStringList({QStringLiteral("file:///tmp/a%20b/%C3%BC%231.csv"),
                           QStringLiteral("file:///tmp/a%20b/%FF.csv")}));
    QTest::qWait(1);
    EXPECT_TRUE(opener.opened().isEmpty());
}

}  // namespace
}  // namespace orvik
