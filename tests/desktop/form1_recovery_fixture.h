// The main window with a keeper of its book, in a state folder of its own.

#pragma once

#include <QAbstractButton>
#include <QDir>
#include <QMessageBox>
#include <QTemporaryDir>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/form1_window_fixture.h"
#include "desktop/modal_user.h"
#include "desktop/session/recovery_keeper.h"
#include "desktop/views/quiet_line.h"

namespace orvik::test {

class Form1RecoveryTest : public Form1WindowTest {
 protected:
    static constexpr std::chrono::milliseconds kInterval{50};

    Form1RecoveryTest() {
        window.keepWith(*keeper);
        EXPECT_CALL(platform, SetClipboardText(testing::_)).Times(testing::AnyNumber());
    }

    // What another program would be offered, if this one had been killed.
    [[nodiscard]] std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        const QDir root(folder.filePath(QStringLiteral("orvik/recovery")));
        for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            std::ifstream file(root.filePath(name + QStringLiteral("/book")).toStdString());
            const std::string bytes(std::istreambuf_iterator<char>(file), {});
            if (const auto copy = ReadRecoveryCopy(bytes)) {
                texts.emplace_back(copy->Text.View());
            }
        }
        return texts;
    }
    [[nodiscard]] bool IsKept(const std::string& text) {
        return Texts() == std::vector<std::string>{text};
    }
    void Leave(const RecoveryCopy& copy) { RecoveryStore(files).Keep(copy); }
    void LeaveTwo() {
        Leave({.Text = kThree,
               .Mode = "Native",
               .Caption = "Orvik - /b/newer.ldif",
               .File = "/b/newer.ldif",
               .Entries = 3,
               .Seconds = 1'700'000'000});
        Leave({.Text = "A1\r\n-nick-\r\nAl\r\n",
               .Mode = "Native",
               .Caption = "Orvik",
               .Entries = 1,
               .Seconds = 1'600'000'000});
    }
    // Presses these buttons of the boxes, one after the other; returns what they said. Without a
    // name Escape is pressed.
    std::vector<std::string> Answer(const std::vector<const char*>& buttons) {
        std::vector<std::string> said;
        std::vector<std::function<void()>> acts;
        for (const char* const button : buttons) {
            acts.emplace_back([&said, button] {
                QMessageBox& box = ModalUser::box();
                said.push_back(box.text().toStdString());
                for (QAbstractButton* const shown : box.buttons()) {
                    if (shown->text() == QLatin1String(button)) {
                        shown->click();
                        return;
                    }
                }
                QTest::keyClick(&box, Qt::Key_Escape);
            });
        }
        const ModalUser user(std::move(acts));
        window.offerLeftBooks();
        // The offers are an event of their own.
        for (int i = 0; i < 20; ++i) {
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(user.done(), buttons.size());
        return said;
    }
    std::string Said() {
        const auto& line = Find<QuietLine>("quietLine");
        return line.isVisible() ? line.text().toStdString() : std::string();
    }
    void Run(const char* command) { Find<QAction>(command).trigger(); }
    void Exit() {
        desktop.run([this] { form1.Form_Unload(); });
    }
    // The program ends, in good order.
    void End() {
        keeper->end(module1);
        keeper.reset();
    }

    QTemporaryDir folder;
    const bool own_state = qputenv("XDG_STATE_HOME", folder.path().toLocal8Bit());
    std::optional<RecoveryKeeper> keeper{std::in_place, files, kInterval};
};

}  // namespace orvik::test
