// The platform of the window program.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "desktop/help/help_viewer.h"
#include "desktop/session/desktop.h"
#include "desktop/session/file_dialog.h"
#include "desktop/session/window_place.h"
#include "platform/file_system.h"
#include "platform/platform.h"
#include "store/recent_books.h"
#include "store/settings_store.h"

namespace orvik {

class QtPlatform : public Platform {
 public:
    // All must outlive the platform. The books go with the settings.
    QtPlatform(Desktop& desktop, FileSystem& files, RecentBooks& books);

    void Note(std::string_view text) override { desktop_.fileNoted(std::string(text)); }
    void Waits(std::string_view text) override { desktop_.waits(std::string(text)); }
    CopyAnswer OfferCopy(const std::string& book, const std::string& copy) override;
    Answer ShowBox(const MessageBox& box) override;
    std::string ShowFileDialog(FileDialog& dialog) override;
    bool MayExport(const std::string& from, const std::string& to) override;
    std::string ClipboardText() override;
    void SetClipboardText(std::string_view text) override;
    std::optional<std::string> GetSetting(std::string_view section, std::string_view key) override;
    void SaveSetting(std::string_view section,
                     std::string_view key,
                     std::string_view value) override;
    void DeleteSettings() override;
    // What else goes with the settings.
    void deleteWithSettings(std::function<void()> deletes) { deletes_ = std::move(deletes); }
    // A link in the folder "StartUp" starts this program with the user's session; there are no
    // other folders.
    bool CreateShellLink(const ShellLink& link) override;
    void RemoveShellLink(std::string_view folder, std::string_view name) override;
    void ShowHelp(HelpCommand command, std::string_view target, std::string_view data) override {
        help_.show(command, target, data);
    }
    void ShowForm(Form& form, Showing showing) override;
    void HideForm(Form& form) override;
    void CloseForm(Form& form) override;
    void Repaint() override { desktop_.repaint(); }
    void Yield() override { desktop_.yield(); }
    void ReportFailure(const RunTimeError& failure) override;
    std::string ProgramFolder() override;
    std::string ProgramName() override;
    [[noreturn]] void End() override { throw ProgramEnded(); }

    // The next file dialog starts in this file's folder.
    void rememberFolderOf(const QString& name) { dialogs_.rememberFolderOf(name); }

 private:
    // What tells whether a file was written since: a new one takes the place of the old, or the old
    // one grows.
    struct FileMark {
        FileKind Kind = FileKind::Missing;
        std::uint64_t Number = 0;
        std::uint64_t Length = 0;

        bool operator==(const FileMark&) const = default;
    };
    // The file that the event of this number is saving to.
    struct Target {
        std::string Name;
        FileMark Before;
        std::uint64_t Event;
    };
    [[nodiscard]] FileMark markOf(const std::string& name);

    static void placeInTurn(QWidget& window, const QWidget* front);
    void tell(const std::string& text);
    // What a box about a failure says besides: the name of the file, if saving to it has failed.
    // The views are told.
    std::string nameOfUnsaved();

    Desktop& desktop_;
    RecentBooks& books_;
    FileSystem& files_;
    std::function<void()> deletes_;
    std::optional<Target> target_;
    FileDialogs dialogs_{WindowPlaceFile()};
    SettingsStore settings_;
    HelpViewer help_;
};

}  // namespace orvik
