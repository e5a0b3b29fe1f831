// The state that all commands share, for one run of the program, and the procedures on it that
// belong to no window.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/form.h"
#include "app/form1.h"
#include "app/messages.h"
#include "files/file_slot.h"
#include "platform/platform.h"

namespace orvik {

// The values of TextMode.
namespace mode {
inline constexpr std::string_view kNone = "none";
inline constexpr std::string_view kAscii = "ASCII";
inline constexpr std::string_view kNative = "Native";
inline constexpr std::string_view kMoz4 = "Moz4";
}  // namespace mode

class Module1 {
 public:
    explicit Module1(Platform& platform_) : platform(platform_), form1(*this) {}
    Module1(const Module1&) = delete;
    Module1& operator=(const Module1&) = delete;
    Module1(Module1&&) = delete;
    Module1& operator=(Module1&&) = delete;
    ~Module1() = default;

    Platform& platform;
    Form1 form1;
    // Every window of the program.
    [[nodiscard]] std::vector<Form*> Forms() { return {&form1}; }

    // Runs one event of the user: a failure that the command does not handle is reported, and the
    // program goes on. The end of the program passes through.
    void RunEvent(const std::function<void()>& event);

    // Shows a box with an OK button.
    void Tell(std::string_view text, std::string_view title = kTitle);
    // Shows a question, keeps its answer in MsgAnswer and returns it.
    Answer Ask(std::string_view text, std::string_view title, Buttons buttons, Icon icon);

    // The working text (src/app/working_text.h) and what it is split by.
    std::string WorkText;
    std::string TextMode;
    std::string EmailBlock;
    std::string NickBlock;
    std::string textSep;
    std::size_t ItemCount = 0;

    // The LDIF text last built or loaded.
    std::string LdifText;

    bool EditMode = false;
    bool StartingUp = false;
    bool JustStarted = false;

    // The answer of the last question box, its number in text: "6" Yes, "7" No, "2" Cancel.
    std::string MsgAnswer;

    // What Open restores when a file is refused.
    std::string OldCaption;
    std::string TextBeforeOpen;

    // From the settings.
    std::string PimSep;
    int TextSepChoice = 0;
    int OpenMode = 0;
    bool AutoExtract = false;

    // The extraction's hit counter and cancel request.
    std::int16_t AddressCount = 0;
    bool CancelRequested = false;

    FileSlot File1;

    // SplitEntries: a list in the ASCII form in the Native form; EmailBlock and NickBlock keep the
    // two blocks. kind is "txt". Errors: RunTimeError 5 if the list holds no entry.
    std::string SplitEntries(std::string_view text, std::string_view kind);

    // RefreshLists: brings the working text into the Native form and fills both lists and the item
    // count from it.
    void RefreshLists();

    // The loaders: each turns the file contents in WorkText into the working text, or refuses it.
    void OpenNetscape4();
    void OpenTextList();

    // LoadSettings: reads the settings that are kept here (src/settings/load_settings.cpp).
    void LoadSettings();

    // HelpFilePath: the help file with this number, empty for an unknown one.
    std::string HelpFilePath(int number);
    void ShowHelpTopic(int number, std::string_view window, std::string_view topic);

 private:
    // A setting's text, empty where the key is missing.
    std::string Setting(std::string_view key);
    // Reads one setting; while that fails the user is asked for the settings. Returns false if
    // loading ends here.
    bool ReadOrAsk(const std::function<void()>& read);
    void StoreDefaults();
    // Asks what to do with a file that its reader does not know; raw is the text of the file.
    void RefuseFile(const std::string& raw);
};

}  // namespace orvik
