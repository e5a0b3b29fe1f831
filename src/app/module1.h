// The state that all commands share, for one run of the program, and the procedures on it that
// belong to no window.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/entry_sum.h"
#include "app/file_slot.h"
#include "app/form.h"
#include "app/form1.h"
#include "app/late_text.h"
#include "app/messages.h"
#include "app/reading_note.h"
#include "app/saved_book.h"
#include "app/shared_text.h"
#include "app/undo.h"
#include "platform/file_system.h"
#include "platform/platform.h"

namespace orvik {

class Form2;
class Form3;
class Form4;
class Form5;
class Form6;
class FrmAbout;
class FrmSelect;

// The values of TextMode.
namespace mode {
inline constexpr std::string_view kNone = "none";
inline constexpr std::string_view kAscii = "ASCII";
inline constexpr std::string_view kNative = "Native";
inline constexpr std::string_view kMoz4 = "Moz4";
inline constexpr std::string_view kJuno = "Juno";
}  // namespace mode

// The values of OpenMode: how the format of a file is found.
inline constexpr int kDetectAlways = 1;
inline constexpr int kAskForTextFiles = 3;
inline constexpr int kAskAlways = 4;

// The windows of the program. The root (src/program/program.h) makes and keeps them; a source that
// shows one of them includes its header.
struct Windows {
    Form1& form1;
    Form2& form2;
    Form3& form3;
    Form4& form4;
    Form5& form5;
    Form6& form6;
    FrmAbout& frm_about;
    FrmSelect& frm_select;
};

class Module1 : public Windows {
 public:
    // All must outlive the module. The windows need not be made yet; their making may already read
    // what is here.
    Module1(Platform& platform_, FileSystem& files_, const Windows& windows)
        : Windows(windows), platform(platform_), files(files_) {}
    Module1(const Module1&) = delete;
    Module1& operator=(const Module1&) = delete;
    Module1(Module1&&) = delete;
    Module1& operator=(Module1&&) = delete;
    ~Module1() = default;

    Platform& platform;
    FileSystem& files;

    // Runs one event of the user: a failure that the command does not handle is reported, and the
    // program goes on. The end of the program passes through.
    void RunEvent(const std::function<void()>& event);
    // Runs a handler as an event, one that can be undone if it has a title.
    void RunCommand(const NamedHandler& handler);
    UndoHistory history{*this};
    SavedBook saved{*this};

    // Shows a box with an OK button.
    void Tell(std::string_view text, std::string_view title = kTitle);
    // The same for what a command could not do.
    void TellFailed(std::string_view text, std::string_view title = kTitle);
    // Tells of a failure that the command goes on after, under its number.
    void Tell(const RunTimeError& failure);
    // Tells that a text is longer than the text box takes.
    void TellTooMuchText();
    // Shows a question, keeps its answer in MsgAnswer and returns it.
    Answer Ask(std::string_view text,
               std::string_view title,
               Buttons buttons,
               Icon icon,
               Matter about = Matter::Other);
    Answer Ask(const MessageBox& question);

    // The working text (src/app/working_text.h) and what it is split by.
    SharedText WorkText;
    std::string TextMode;
    TextPart EmailBlock;
    TextPart NickBlock;
    std::string textSep;
    std::size_t ItemCount = 0;

    // The LDIF text last built or loaded.
    LateText LdifText;

    bool EditMode = false;
    bool StartingUp = false;
    // True until the settings were loaded once.
    bool FirstPimRun = true;
    bool JustStarted = false;

    // The answer of the last question box, its number in text: "6" Yes, "7" No, "2" Cancel.
    std::string MsgAnswer;

    // What Open restores when a file is refused.
    std::string OldCaption;
    SharedText TextBeforeOpen;
    ReadingNote NoteBeforeOpen;

    // Of what was read into the book: the windows show it, and no command depends on it.
    ReadingNote Note;

    // From the settings.
    std::string PimSep;
    int TextSepChoice = 0;
    int OpenMode = 0;
    bool AutoExtract = false;

    // The extraction's hit counter and cancel request.
    std::int16_t AddressCount = 0;
    bool CancelRequested = false;

    FileSlot File1{files, platform};

    // SplitEntries: a list in the ASCII form in the Native form; EmailBlock and NickBlock keep the
    // two blocks. kind is "txt". Errors: RunTimeError 5 if the list holds no entry.
    SharedText SplitEntries(const SharedText& text, std::string_view kind);

    // IsList: whether a text is a list to be split: the mode says so, and it is not in the Native
    // form all the same. Copying, converting and pasting leave such texts.
    [[nodiscard]] bool IsList(std::string_view text) const;
    // IsListed: whether a text is in the Native form, by the mode or by itself.
    [[nodiscard]] bool IsListed(std::string_view text) const;

    // InNativeForm: the working text, split if it is a list; what the split keeps stays. Errors:
    // RunTimeError 5 if the list holds no entry.
    [[nodiscard]] SharedText InNativeForm() const;
    // The entries of a text in this mode, or of the working text, counted and hashed.
    [[nodiscard]] static EntrySum Entries(std::string_view text,
                                          std::string_view mode,
                                          std::string_view separator);
    [[nodiscard]] EntrySum Entries(std::string_view text, std::string_view mode) const {
        return Entries(text, mode, textSep);
    }
    [[nodiscard]] EntrySum Entries() const { return Entries(WorkText, TextMode); }

    // RefreshLists: brings the working text into the Native form and fills both lists and the item
    // count from it.
    void RefreshLists();
    // ListEntries: fills both lists and the item count from a text in the Native form.
    void ListEntries(const SharedText& native);

    // JunoText: the text as a Juno address book. A working text in the ASCII form is parsed into
    // the Native form first, and text with it where it is the working text.
    std::string JunoText(SharedText& text);
    // ReadJuno: the entries of a Juno address book; the mode becomes ASCII, and the note is of it.
    std::string ReadJuno(std::string_view text);
    // The readers of comma-separated books: the file contents in WorkText become its entries, in
    // the ASCII form, by way of LDIF. Errors: RunTimeError 5, with a message, if the text ends too
    // soon.
    void ReadCsv();
    void ReadWordPerfect();

    // NoteReading: begins the note of a book that is read from a text.
    void NoteReading(std::string_view text, const Unread& left_out);

    // ReadFile: the contents of the file that is open become the working text. Of a large Netscape
    // 4 book or one of commas it is the list that its loader makes of them, so that they are never
    // all in memory.
    // Errors: those of the file; then the working text stays.
    void ReadFile(const std::string& name);

    // The loaders: each turns the file contents in WorkText into the working text, or refuses it.
    void OpenNetscape3();
    void OpenNetscape4();
    void OpenTextList();
    void OpenCsv();
    void OpenWordPerfect();
    void OpenJuno();
    void OpenPegasus();
    // For the automation: the alias lines of a file become entries.
    void OpenAliasFile();

    // Runs the loader that a file name's ending asks for; an unknown ending brings the chooser or
    // is a text list, as OpenMode says. Without pegasus a distribution list counts as unknown.
    // Returns false if the chooser was brought.
    bool LoadByEnding(const std::string& name, bool pegasus);
    // Shows the chooser. Where memory does not suffice for it nothing was opened.
    void ChooseFormat(Showing showing);
    // The book of before; the caption keeps the name of the file that was not loaded.
    void TakeBackOpening();
    // Closes the chooser and runs Open again.
    void ReopenFromChooser();

    // MergeLdif: joins two texts, each in the form it is in, and lists the result. Both come back
    // in the ASCII form, by way of LDIF.
    void MergeLdif(SharedText& old_text, SharedText& new_text);

    // Extraction: src/extract/extraction.cpp.
    // ScanAddresses: appends the addresses of a chunk to found; total is the file's length in
    // bytes, start the chunk's 1-based position in it. Errors: RunTimeError 6 past 32767 addresses.
    void ScanAddresses(std::string& found,
                       std::string_view chunk,
                       std::size_t total,
                       std::size_t start);
    // ExtractFromFile: makes the addresses of the file that the file dialog has chosen the working
    // text. A failure or a cancel leaves it empty.
    void ExtractFromFile();
    // The same for a file of the automation.
    void AutoExtractFile(const std::string& name);

    // Sorting: src/listops/sort.cpp. Both sort WorkText, up to 500 entries, and leave it Native.
    void SortByAddress();
    void SortByNickname();
    // RemoveDuplicates: tells the number of items, leaves "-nick-" in WorkText and tells it again.
    void RemoveDuplicates();

    // ListSelected: shows the entries whose rows are selected in List3 in a box, one line each.
    void ListSelected();

    // Settings: src/settings/load_settings.cpp.
    // LoadSettings: reads the settings that are kept here.
    void LoadSettings();
    // A setting of section "Settings", empty where the key is missing.
    std::string Setting(std::string_view name);
    // A setting as a number, 0 where the key is missing or holds none.
    double NumberOrZero(std::string_view section, std::string_view name);
    // Stores a setting of section "Settings".
    void Save(std::string_view name, std::string_view value);
    // At the program's start: shows the preferences and waits for them; at its end they go.
    void AskForSettings();
    void CloseSettings();

    // The automation: src/settings/automation.cpp and automation_files.cpp.
    // The number of the step that runs or ran last, from 1.
    int AutomationStep = 0;
    // RunAutomation: runs the stored steps, and ends the program if it is so stored. Errors: those
    // of the steps, and RunTimeError 13 for a step that is no number.
    void RunAutomation();
    // Runs the automation if it is switched on. A failure shows the preferences once.
    void RunStoredAutomation();
    // SetUpDemoAutomation: stores a program that shows what can be done.
    void SetUpDemoAutomation();
    // The file steps; each takes a file's name.
    void AutoOpenFile(const std::string& name);
    void AutoSaveFile(const std::string& name);

    // The shortcut that starts the program with the session: src/aux/shortcut.cpp.
    void CreateStartUpLink();
    void RemoveStartUpLink();

    // HelpFilePath: the help file with this number, empty for an unknown one.
    std::string HelpFilePath(int number);
    // ShowHelpTopic, ShowHelpContents, ShowHelpIndex: call the help viewer for a
    // help file and one of its windows.
    void ShowHelpTopic(int number, std::string_view window, std::string_view topic);
    void ShowHelpContents(int number, std::string_view window);
    void ShowHelpIndex(int number, std::string_view window);

 private:
    // The list that was split last, by its revision, and what came of it: a book that was opened is
    // split again when it is saved. The two blocks keep that text anyway.
    struct Split {
        std::uint64_t List = 0;
        std::string Separator;
        SharedText Native;
    };

    // Whether a list is the one that was split last.
    [[nodiscard]] bool IsSplit(const SharedText& list) const;

    Split last_split_;

    // What ReadFile does of a large book; false where it has to be read as a whole.
    [[nodiscard]] bool ReadLargeLdif();
    [[nodiscard]] bool ReadLargeCsv();

    // The list that was made when its file was read, by its revision, what it left out, and of a
    // book of commas the lengths of the addresses in it.
    struct ReadAhead {
        std::uint64_t List = 0;
        Unread LeftOut;
        std::vector<std::uint32_t> AddressLengths;
    };
    // Takes it if it is that of the working text.
    [[nodiscard]] std::optional<ReadAhead> TakeReadAhead();

    ReadAhead read_ahead_;
};

}  // namespace orvik
