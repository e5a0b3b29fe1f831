// The platform of the command line: messages become lines, questions have one answer for all, a
// file dialog answers with the file of the step, and a window that only a person can answer ends
// the run.

#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/module1.h"
#include "batch/arguments.h"
#include "cli/messenger.h"
#include "platform/platform.h"
#include "store/settings_store.h"

namespace orvik::batch {

class BatchPlatform : public Platform {
 public:
    // All three must outlive the platform.
    BatchPlatform(const Arguments& arguments, cli::Messenger& messenger, SettingsStore& store);

    // The windows that a command may show.
    void Attach(const Windows& windows) { windows_ = &windows; }
    // A step begins: the file dialog of this kind answers with the file, and progress is what
    // how_far says.
    void BeginStep(std::optional<DialogKind> dialog,
                   std::string_view file,
                   std::function<std::string()> how_far);

    // A problem that the user must know of. The first one gives the exit status, and is the only
    // one that is told.
    void Fail(std::string_view text, Status status = Status::Problem);
    // A run-time failure of a step that was reading or writing a file.
    void Fail(const RunTimeError& failure, bool writing);
    [[nodiscard]] Status Result() const { return result_; }

    // A line that -q leaves out.
    void Note(std::string_view text) override;
    void Waits(std::string_view text) override { Note(text); }
    // Nobody can answer: both files stay.
    CopyAnswer OfferCopy(const std::string& book, const std::string& copy) override;
    Answer ShowBox(const MessageBox& box) override;
    std::string ShowFileDialog(FileDialog& dialog) override;
    // Whoever names both files has answered.
    bool MayExport(const std::string& /*from*/, const std::string& /*to*/) override { return true; }
    std::string ClipboardText() override { return clipboard_; }
    void SetClipboardText(std::string_view text) override { clipboard_ = text; }
    // Without the automation: what a first start proposes, with formats always detected.
    std::optional<std::string> GetSetting(std::string_view section, std::string_view key) override;
    // The user's settings are only read: what a step stores holds for the run.
    void SaveSetting(std::string_view section,
                     std::string_view key,
                     std::string_view value) override;
    void DeleteSettings() override { stored_.clear(); }
    bool CreateShellLink(const ShellLink& /*link*/) override { return false; }
    void RemoveShellLink(std::string_view /*folder*/, std::string_view /*name*/) override {}
    void ShowHelp(HelpCommand command, std::string_view target, std::string_view data) override;
    void ShowForm(Form& form, Showing showing) override;
    void HideForm(Form& /*form*/) override {}
    void CloseForm(Form& /*form*/) override {}
    void Repaint() override;
    void Yield() override { Repaint(); }
    void ReportFailure(const RunTimeError& failure) override;
    std::string ProgramFolder() override;
    std::string ProgramName() override { return "orvik-batch"; }
    [[noreturn]] void End() override { throw ProgramEnded(); }

 private:
    const Arguments& arguments_;
    cli::Messenger& messenger_;
    SettingsStore& store_;
    const Windows* windows_ = nullptr;
    std::function<std::string()> how_far_;
    std::optional<DialogKind> dialog_;
    std::string file_;
    bool told_too_much_ = false;
    Status result_ = Status::Done;
    std::string clipboard_;
    std::map<std::pair<std::string, std::string>, std::string> stored_;
};

}  // namespace orvik::batch
