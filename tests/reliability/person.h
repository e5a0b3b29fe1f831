// A desktop with a person who answers by habit and remembers what was told. Its own memory never
// runs out.

#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace orvik::test {

// What the program told: a failure's number, or the text of a box that names none.
struct Told {
    int Number = 0;
    std::string Text;
};

class Person : public Platform {
 public:
    // Settings as after a first start.
    Person();

    // The names to give to the file dialogs to come; without one a dialog is cancelled.
    std::deque<std::string> picks;
    // What every question is answered that is not about saving first, which is answered no.
    Answer reply = Answer::No;
    std::string clipboard;
    // What is done in a modal showing of a form, by the form's name; others are closed.
    std::map<std::string, std::function<void()>, std::less<>> modal;
    std::vector<Told> told;
    // How often the program showed its windows anew, with and without taking events.
    std::size_t shown = 0;
    // The program has ended.
    bool ended = false;

    void Set(std::string_view section, std::string_view key, std::string_view value);

    Answer ShowBox(const MessageBox& box) override;
    std::string ShowFileDialog(FileDialog& dialog) override;
    bool MayExport(const std::string& /*from*/, const std::string& /*to*/) override { return true; }
    std::string ClipboardText() override;
    void SetClipboardText(std::string_view text) override;
    std::optional<std::string> GetSetting(std::string_view section, std::string_view key) override;
    void SaveSetting(std::string_view section,
                     std::string_view key,
                     std::string_view value) override;
    void DeleteSettings() override;
    bool CreateShellLink(const ShellLink& /*link*/) override { return true; }
    void RemoveShellLink(std::string_view /*folder*/, std::string_view /*name*/) override {}
    void ShowHelp(HelpCommand /*command*/,
                  std::string_view /*target*/,
                  std::string_view /*data*/) override {}
    void ShowForm(Form& form, Showing showing) override;
    void HideForm(Form& /*form*/) override {}
    void CloseForm(Form& /*form*/) override {}
    void Repaint() override { ++shown; }
    void Yield() override { ++shown; }
    void ReportFailure(const RunTimeError& failure) override;
    std::string ProgramFolder() override { return "/opt/orvik"; }
    std::string ProgramName() override { return "orvik"; }
    [[noreturn]] void End() override { throw ProgramEnded(); }

 private:
    std::map<std::pair<std::string, std::string>, std::string> settings_;
};

}  // namespace orvik::test
