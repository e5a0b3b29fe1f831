// The platform of a scenario: settings, clipboard and a person's answers live in memory, and all
// that a person could notice goes to a transcript.

#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace orvik::testkit {

class ScenarioPlatform : public Platform {
 public:
    using Print = std::function<void(const std::string&)>;
    // print is given each line of the transcript.
    explicit ScenarioPlatform(Print print) : print_(std::move(print)) {}

    // The windows that show the forms, where there are any.
    class Windows {
     public:
        Windows() = default;
        Windows(const Windows&) = delete;
        Windows& operator=(const Windows&) = delete;
        Windows(Windows&&) = delete;
        Windows& operator=(Windows&&) = delete;
        virtual ~Windows() = default;
        virtual void Sync() = 0;
        virtual void Shown(Form& form) = 0;
        virtual void Hidden(Form& form) = 0;
        virtual void Closed(Form& form) = 0;
    };

    Answer ShowBox(const MessageBox& box) override;
    std::string ShowFileDialog(FileDialog& dialog) override;
    // Nobody is asked: what a scenario shows are the commands' own boxes.
    bool MayExport(const std::string& /*from*/, const std::string& /*to*/) override { return true; }
    std::string ClipboardText() override { return clipboard; }
    void SetClipboardText(std::string_view text) override { clipboard = text; }
    std::optional<std::string> GetSetting(std::string_view section, std::string_view key) override;
    void SaveSetting(std::string_view section,
                     std::string_view key,
                     std::string_view value) override;
    void DeleteSettings() override { settings_.clear(); }
    bool CreateShellLink(const ShellLink& link) override;
    void RemoveShellLink(std::string_view folder, std::string_view name) override;
    void ShowHelp(HelpCommand command, std::string_view target, std::string_view data) override;
    void ShowForm(Form& form, Showing showing) override;
    void HideForm(Form& form) override;
    void CloseForm(Form& form) override;
    void Repaint() override;
    void Yield() override;
    void ReportFailure(const RunTimeError& failure) override;
    std::string ProgramFolder() override { return "/opt/orvik"; }
    std::string ProgramName() override { return "orvik"; }
    [[noreturn]] void End() override;

    void PrintLine(const std::string& line) { print_(line); }
    [[nodiscard]] bool Ended() const { return ended_; }
    // Whether a statement runs inside a modal showing or a yield.
    [[nodiscard]] bool IsNested() const { return nested_; }

    // What a person will do.
    std::string clipboard;
    std::deque<Answer> answers;
    std::deque<std::string> picks;
    // What the user does in a modal showing, first showing first; run by run_modal.
    struct ModalActs {
        std::string FormName;
        std::string Statements;
    };
    std::deque<ModalActs> modals;
    std::function<void(const std::string& statements)> run_modal;
    // What happens at a yield: the yields left until then, and the statement, run by run_statement.
    std::vector<std::pair<std::size_t, std::string>> at_yield;
    std::function<void(const std::string& statement)> run_statement;

    // Whether a shortcut can be created.
    bool links_succeed = true;

    // The start of the program shows its window without a line.
    bool starting = false;
    Windows* windows = nullptr;

 private:
    void Sync();
    Answer TakeAnswer(const MessageBox& box);

    Print print_;
    // By section and lower-case key.
    std::map<std::pair<std::string, std::string>, std::string> settings_;
    bool ended_ = false;
    bool nested_ = false;
};

}  // namespace orvik::testkit
