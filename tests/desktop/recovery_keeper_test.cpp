#include "desktop/session/recovery_keeper.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class RecoveryKeeperTest : public test::CommandTest {
 protected:
    RecoveryKeeperTest() {
        module1.saved.Follow([](const std::string&) {});
    }
    void Type(const char* text) {
        SetAscii(text);
        form1.Text1.SetText(text);
    }
    [[nodiscard]] auto Offered() const { return RecoveryStore(own_files).LeftBooks(); }

    [[nodiscard]] QString OnlyBook() const {
        const QDir root(folder.filePath(QStringLiteral("orvik/recovery")));
        const QStringList names = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return names.size() == 1 ? root.filePath(names.front() + QStringLiteral("/book"))
                                 : QString();
    }

    QTemporaryDir folder;
    const bool own_state = qputenv("XDG_STATE_HOME", folder.path().toLocal8Bit());
    mutable SystemFiles own_files{false};
};

// As at a signal, and at a log-out that may not ask.
TEST_F(RecoveryKeeperTest, KeepingNow_DoesNotWaitForTheInterval) {
    {
        RecoveryKeeper keeper(own_files);
        Type("\"Al\" <A1>\r");
        keeper.see(module1, "Orvik");
        keeper.keepNow();
        EXPECT_TRUE(QFile::exists(OnlyBook()));
        EXPECT_THAT(Offered(), IsEmpty());
    }
    EXPECT_THAT(Offered(), SizeIs(1));
}

TEST_F(RecoveryKeeperTest, Uninstalling_TakesAllButTheOpenBook) {
    { RecoveryStore(own_files).Keep({.Text = "left", .Mode = "ASCII"}); }
    {
        RecoveryKeeper keeper(own_files);
        Type("\"Al\" <A1>\r");
        keeper.see(module1, "Orvik");
        Type("\"Bo\" <A2>\r");
        keeper.goesOnUnsaved(module1);
        keeper.see(module1, "Orvik");
        keeper.keepNow();
        EXPECT_EQ(OnlyBook(), QString());
        keeper.removeAll();
        EXPECT_TRUE(QFile::exists(OnlyBook()));
        EXPECT_THAT(keeper.leftBooks(), IsEmpty());
    }
    const auto left = Offered();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left.front().Copy.Text, "\"Bo\" <A2>\r");
}

TEST_F(RecoveryKeeperTest, AnEmptyBook_IsForgotten) {
    RecoveryKeeper keeper(own_files);
    Type("\"Al\" <A1>\r");
    keeper.see(module1, "Orvik");
    keeper.keepNow();
    EXPECT_NE(OnlyBook(), QString());
    EXPECT_TRUE(QFile::exists(OnlyBook()));
    module1.WorkText.clear();
    keeper.see(module1, "Orvik");
    keeper.keepNow();
    EXPECT_FALSE(QFile::exists(OnlyBook()));
}

}  // namespace
}  // namespace orvik
