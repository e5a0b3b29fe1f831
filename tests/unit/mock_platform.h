// A desktop for command tests. It is strict: whatever a test did not announce fails at once, and so
// does what it announced in vain.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "platform/platform.h"
#include "platform/system_files.h"
#include "program/program.h"

namespace orvik::test {

class MockPlatform : public Platform {
 public:
    MOCK_METHOD(Answer, ShowBox, (const MessageBox&), (override));
    MOCK_METHOD(std::string, ShowFileDialog, (FileDialog&), (override));
    MOCK_METHOD(bool, MayExport, (const std::string&, const std::string&), (override));
    MOCK_METHOD(std::string, ClipboardText, (), (override));
    MOCK_METHOD(void, SetClipboardText, (std::string_view), (override));
    MOCK_METHOD(std::optional<std::string>,
                GetSetting,
                (std::string_view, std::string_view),
                (override));
    MOCK_METHOD(void,
                SaveSetting,
                (std::string_view, std::string_view, std::string_view),
                (override));
    MOCK_METHOD(void, DeleteSettings, (), (override));
    MOCK_METHOD(bool, CreateShellLink, (const ShellLink&), (override));
    MOCK_METHOD(void, RemoveShellLink, (std::string_view, std::string_view), (override));
    MOCK_METHOD(void, ShowHelp, (HelpCommand, std::string_view, std::string_view), (override));
    MOCK_METHOD(void, ShowForm, (Form&, Showing), (override));
    MOCK_METHOD(void, HideForm, (Form&), (override));
    MOCK_METHOD(void, CloseForm, (Form&), (override));
    MOCK_METHOD(void, Repaint, (), (override));
    MOCK_METHOD(void, Yield, (), (override));
    MOCK_METHOD(void, ReportFailure, (const RunTimeError&), (override));
    MOCK_METHOD(std::string, ProgramFolder, (), (override));
    MOCK_METHOD(std::string, ProgramName, (), (override));
    MOCK_METHOD(void, Ended, ());
    [[noreturn]] void End() override {
        Ended();
        throw ProgramEnded();
    }
};

inline auto BoxIs(const std::string& text,
                  const std::string& title = "Orvik",
                  Buttons choice = Buttons::OK,
                  Icon sign = Icon::None) {
    using testing::Field;
    return testing::AllOf(Field(&MessageBox::Text, text),
                          Field(&MessageBox::Title, title),
                          Field(&MessageBox::Choice, choice),
                          Field(&MessageBox::Sign, sign));
}

// A program with its main window, as it stands after start-up with entries separated by CR.
class CommandTest : public testing::Test {
 protected:
    CommandTest() {
        module1.TextMode = mode::kNone;
        module1.textSep = "\r";
        module1.OpenMode = 1;
        EXPECT_CALL(platform, Repaint()).Times(testing::AnyNumber());
    }

    void SetNative(std::string_view text) {
        module1.WorkText = text;
        module1.TextMode = mode::kNative;
    }
    void SetAscii(std::string_view text) {
        module1.WorkText = text;
        module1.TextMode = mode::kAscii;
    }
    void ExpectTold(const std::string& text, const std::string& title = "Orvik") {
        EXPECT_CALL(platform, ShowBox(BoxIs(text, title))).WillOnce(testing::Return(Answer::OK));
    }
    // The question that is asked before a text goes.
    void ExpectSaveQuestion(const std::string& text, Answer answer) {
        EXPECT_CALL(platform, ShowBox(BoxIs(text, "Save?", Buttons::YesNoCancel, Icon::Question)))
            .WillOnce(testing::Return(answer));
    }
    [[nodiscard]] static std::vector<std::string> ItemsOf(const ListBox& list) {
        std::vector<std::string> items;
        for (std::size_t i = 0; i < list.Items().size(); ++i) {
            items.emplace_back(list.Items()[i]);
        }
        return items;
    }
    [[nodiscard]] const std::string& Panel(std::size_t number) const {
        return form1.StatusBar1.Panels(number).Text;
    }

    testing::StrictMock<MockPlatform> platform;
    SystemFiles files{false};
    Program program{platform, files};
    Module1& module1 = program.module;
    Form1& form1 = program.form1;
};

using Items = std::vector<std::string>;

}  // namespace orvik::test
