// All that the commands ask of a desktop. The window program, the command line and the scenarios
// each implement it once; nothing else in the core knows where it runs.
//
// Strings are 8-bit text, one character per byte. A box, a dialog, a modal showing, a repaint and a
// yield each begin with making the windows equal to their forms.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_talk.h"

namespace orvik {

enum class Failure;
class Form;
class RunTimeError;

// The answers of a message box, with the numbers under which MsgAnswer keeps them.
enum class Answer { OK = 1, Cancel = 2, Yes = 6, No = 7 };

enum class Buttons { OK, YesNo, YesNoCancel };

enum class Icon { None, Question };

// What a box is about, as far as somebody who answers boxes by himself or gives them a sign has to
// know.
enum class Matter { Other, TextTooLong, UnknownFormat, Failed };

// Cause is the failure that the box tells of, if it does, Detail a sentence about it that the box
// may show besides, and FileName the name of a file that the text has in it, if it has one.
struct MessageBox {
    std::string Text;
    std::string Title;
    Buttons Choice = Buttons::OK;
    Icon Sign = Icon::None;
    std::optional<Failure> Cause = {};
    Matter About = Matter::Other;
    std::string FileName = {};
    std::string Detail = {};
};

enum class DialogKind { Open, Save };

// The flags of a file dialog, as their sum is shown to a scenario.
enum DialogFlags : unsigned {
    kOverwritePrompt = 0x2,
    kHideReadOnly = 0x4,
    kFileMustExist = 0x1000,
    kLongNames = 0x200000,
};

// A common file dialog. Filter is "Description|*.ending|Description|*.ending..."; FilterIndex is
// the 1-based entry shown first; FileName is the name that the dialog starts with. EndingIsFormat
// says that the ending of the name will choose the format of the file.
struct FileDialog {
    DialogKind Kind = DialogKind::Open;
    std::string Title;
    std::string Filter;
    unsigned Flags = 0;
    int FilterIndex = 1;
    std::string FileName;
    bool EndingIsFormat = false;
    // The file will be written, though the dialog has always been of kind Open.
    bool ForOutput = false;
    // Whether another program has changed a file of this name since it was opened or saved here.
    std::function<bool(const std::string& name)> HasChanged = {};
};

enum class Showing { Modal, Modeless };

// A shortcut in one of the user's program groups.
struct ShellLink {
    std::string Folder;
    std::string Name;
    std::string Target;
    std::string Arguments;
    bool Private = true;
    std::string Parent;
};

// The help viewer's commands.
enum class HelpCommand { Topic = 0, Contents = 1, Index = 2 };

// Thrown by Platform::End. It is no failure: only the outermost event loop catches it.
class ProgramEnded {};

class Platform : public FileTalk {
 public:
    Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;
    Platform(Platform&&) = delete;
    Platform& operator=(Platform&&) = delete;
    ~Platform() override = default;

    // Shows a box and waits for its answer. Closing a box means Cancel, or No where it has none.
    virtual Answer ShowBox(const MessageBox& box) = 0;

    // Shows a file dialog and returns the chosen name, empty when it was cancelled. Leaves the
    // filter that was in use in FilterIndex.
    virtual std::string ShowFileDialog(FileDialog& dialog) = 0;

    // Whether an export from one file may write another: a person is asked before a file that is
    // there is replaced, and told that a book cannot be exported over itself.
    virtual bool MayExport(const std::string& from, const std::string& to) = 0;

    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(std::string_view text) = 0;

    // The settings of this user: text by section and key, keys without regard to case.
    virtual std::optional<std::string> GetSetting(std::string_view section,
                                                  std::string_view key) = 0;
    virtual void SaveSetting(std::string_view section,
                             std::string_view key,
                             std::string_view value) = 0;

    // Deletes every setting of the program.
    virtual void DeleteSettings() = 0;

    // Creates a shortcut, in place of one with the same name; returns whether it is there.
    virtual bool CreateShellLink(const ShellLink& link) = 0;
    // Removes a shortcut, if there is one.
    virtual void RemoveShellLink(std::string_view folder, std::string_view name) = 0;

    // Calls the help viewer. target is the help file, ">" and the window's name;
    // data is the topic, empty where the command has none.
    virtual void ShowHelp(HelpCommand command, std::string_view target, std::string_view data) = 0;

    // Makes a loaded form's window visible; Modal returns when it has been hidden or closed.
    virtual void ShowForm(Form& form, Showing showing) = 0;
    virtual void HideForm(Form& form) = 0;
    // The form was unloaded: its window goes.
    virtual void CloseForm(Form& form) = 0;

    // Shows the forms as they are now. No event is taken, so no command can start inside.
    virtual void Repaint() = 0;
    // Shows the forms as they are now and lets pending window events run.
    virtual void Yield() = 0;

    // Reports a failure that no command handled. The program goes on.
    virtual void ReportFailure(const RunTimeError& failure) = 0;

    // The folder of the program, without a separator behind it, and its name without an ending.
    virtual std::string ProgramFolder() = 0;
    virtual std::string ProgramName() = 0;

    // Ends the program: throws ProgramEnded.
    [[noreturn]] virtual void End() = 0;
};

}  // namespace orvik
