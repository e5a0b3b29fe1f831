// The main window: the working text, the two lists, the status bar, and the menu from which every
// command starts. A handler is defined in the folder of the subsystem that it belongs to.

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/controls.h"
#include "app/form.h"
#include "app/late_text.h"

namespace orvik {

struct RecoveryCopy;

class Progress;
class UnreadEntries;

class Form1 : public Form {
 public:
    explicit Form1(Module1& module);

    // The smallest window, frame included.
    static constexpr double kMinimumWidth = 3400;
    static constexpr double kMinimumHeight = 1500;

    // A menu and its rows, each a menu item; a separator runs nothing.
    struct Menu {
        std::string_view Name;
        MenuItem* Item;
        std::vector<NamedControl> Rows;
    };
    // The menus in order.
    [[nodiscard]] std::vector<Menu> Menus();

    std::vector<NamedControl> Controls() override;

    // Start-up, layout, shut-down and keys: src/app/form1.cpp.
    void Form_Load() override;
    bool Form_Unload() override;
    void Form_Resize() override;
    void Form_KeyUp(int key_code) override;
    void mnuExit_Click();

    // Edit mode: src/app/edit_mode.cpp.
    void mnuEntEd_Click();
    void ToggleEditModeFourTimes();
    void Text1_Change();

    // Clipboard, clear and delete: src/app/clipboard_commands.cpp.
    void mnuBoxCopy_Click();
    void mnuSelCopy_Click();
    void mnuPaste_Click();
    void mnuDel_Click();
    void mnuClear_Click();
    void mnuClearPaste_Click();
    void List1_Click();
    void List2_Click();
    // Puts the addresses, or the entries as "NICK" <ADDR>, of a list's selected rows on the
    // clipboard, a line each.
    void CopyAddresses(const ListBox& list);
    void CopyEntries(const ListBox& list);

    // Netscape 4 LDIF: src/formats/netscape4_commands.cpp.
    // Convert: writes the text as LDIF into LdifText; a text in the ASCII form becomes Native.
    void Convert(SharedText& text);
    // The same for entries that are read back as this list (NativeOfEntries).
    void ConvertListed(const SharedText& list, std::vector<std::uint32_t> address_lengths);
    void mnuConvert_Click();
    void mnuCopyConvert_Click();
    // unconvert: reads LdifText into the working text, in the ASCII form; what is not read goes to
    // left_out, if it is not null.
    void unconvert(UnreadEntries* left_out = nullptr);
    // LdifText becomes a text that this list was read from, with CR.
    void TakeReadList(const SharedText& list);
    void mnuUn_Click();
    void mnuClearPasteNet4_Click();

    // Netscape 3 HTML: src/formats/netscape3_commands.cpp.
    // Net3: the text as a Netscape 3 book; a text in the ASCII form becomes Native.
    std::string Net3(SharedText& text1String);
    void mnuCopyNet3_Click();
    // UnNet3: the links of a Netscape 3 book as entries, less the last separator.
    std::string UnNet3(std::string_view what);
    void mnuClearPasteNet3_Click();

    // Juno: src/formats/juno_commands.cpp.
    void mnuJuno_Click();
    void mnuPasteJuno_Click();

    // Files: src/files/.
    void mnuOpen_Click();
    // Opens a file that was named on the command line or dropped on the window, as Open does after
    // its dialog.
    void OpenBook(const std::string& name);
    void mnuSave_Click();
    void mnuMerge_Click();

    // Extraction: src/extract/extraction.cpp.
    void mnuExtract_Click();
    void cmdCancel_Click();

    // Sorting, duplicates, nickname parsing: src/listops/.
    void cmdEmail_Click();
    void cmdNick_Click();
    void mnuAlphNick_Click();
    void mnuAlphAddr_Click();
    void mnuRemDup_Click();
    void mnuParse_Click();
    // Splits the working text and lists it, for commands that need it in the Native form.
    void SplitIntoLists();

    // Single entries: src/listops/entry_commands.cpp. Rows count from 0.
    static constexpr std::string_view kDeleteEntries = "Delete entries";
    // The rows of the working text, 0 if it has no entry.
    [[nodiscard]] std::size_t EntryRows() const;
    // Puts another entry into a row, or deletes rows, which ascend; each as a command of the user,
    // one that can be undone. The rows must be there. An entry that cannot be kept (FaultOf)
    // changes nothing; false is returned.
    bool EditEntry(std::size_t row, std::string_view address, std::string_view nickname);
    void DeleteEntries(const std::vector<std::size_t>& rows);

    // List generation: src/aux/list_generation.cpp.
    void mnuList_Click();
    void cmdDone_Click();

    // The automation, the preferences and the removal of all settings: src/settings/.
    void mnuAuto_Click();
    void mnuPrefs_Click();
    void mnuUninst_Click();

    void mnuFull_Click();  // the handheld export: src/formats/form4.cpp

    // Help: src/aux/help.cpp and frm_about.cpp.
    void mnuHlp_Click();
    void mnuHelpContents_Click();
    void mnuHelpIndex_Click();
    void mnuAbout_Click();
    void mnuFuture_Click();

    // Recovery: src/files/recovery.cpp.
    // The book as it stands, under the title that the user sees, and the time. Nothing is copied.
    [[nodiscard]] RecoveryCopy CopyOfBook(std::string_view title, std::int64_t seconds) const;
    // Makes what was kept the open book, in the lists; ResumeEditing then goes back into edit mode,
    // where the text is as it was.
    void RestoreBook(const RecoveryCopy& copy);
    void ResumeEditing(const RecoveryCopy& copy);

    // Shows the main window's file dialog and keeps the chosen name, empty when
    // cancelled, in CommonDialog1.
    const std::string& ShowFileDialog(FileDialog dialog);
    // Writes the working text in the format of the name's ending; ldif_outdated says that LdifText
    // may be another text's. Returns false, with a message, if the file is a bad Netscape 3 book.
    // Errors: RunTimeError 52 for an unknown ending, and those of the file.
    bool WriteInFormatOf(const std::string& name, bool ldif_outdated);

    // What the caption is while a file's book is open, and the file of a caption, which is empty
    // without one.
    //   "/a/book.ldif" -> "Orvik - /a/book.ldif"
    [[nodiscard]] static std::string CaptionOf(std::string_view file);
    [[nodiscard]] static std::string FileOf(std::string_view caption);

    // Asks whether to save first, and saves on Yes. Returns false on Cancel.
    bool OfferSave(std::string_view question);

    // What the commands "Clear and Paste" begin and end with. The beginning asks whether to save,
    // reads the clipboard and empties the working text; it returns false on Cancel. The end lists
    // what was pasted.
    bool BeginPaste(std::string& pasted);
    void EndPaste();

    // Puts the working text into Text1 unless it is longer than the text box takes.
    void ShowTextIfShort();

    // Empties both lists: "0 items".
    void ClearLists();

    // Whether LdifText is the working text's LDIF form, as far as the commands keep track.
    bool LdifCurrent = false;

    TextBox Text1;
    TextBox Text3;
    ListBox List1;
    ListBox List2;
    ListBox List3;
    Button cmdEmail{"E-&Mail address", "Sort by E-Mail Address"};
    Button cmdNick{"&Nicknames", "Sort by NickName"};
    Button cmdDone{"&Done"};
    Button cmdCancel{"&Cancel"};
    StatusBar StatusBar1{{"Welcome to Orvik", "Status"},
                         {"0 Items", "Number of addresses displayed"}};
    ProgressBar ProgressBar1;
    CommonDialog CommonDialog1;

    MenuItem mnuFile{"&File"};
    MenuItem mnuOpen{"&Open file..."};
    MenuItem mnuExtract{"&Extract from file..."};
    MenuItem mnuSave{"&Save file..."};
    MenuItem mnuMerge{"&Merge files..."};
    MenuItem mnuAuto{"Run &Automation"};
    MenuItem mnuSeventhDash{"-"};
    MenuItem mnuList{"Generate &List"};
    MenuItem mnuFull{"Netscape to &PIM"};
    MenuItem mnuUninst{"&Uninstall"};
    MenuItem mnuFirstDash{"-"};
    MenuItem mnuExit{"E&xit"};

    MenuItem mnuEdit{"&Edit"};
    MenuItem mnuBoxCopy{"&Copy everything as text"};
    MenuItem mnuSelCopy{"Copy &Selection unchanged"};
    MenuItem mnuCopyConvert{"C&opy everything as Netscape 4.xx"};
    MenuItem mnuCopyNet3{"Cop&y everything as Netscape 3.x"};
    MenuItem mnuJuno{"Copy e&verything as Juno"};
    MenuItem mnuSecondDash{"-"};
    MenuItem mnuPaste{"&Paste clipboard content"};
    MenuItem mnuClearPaste{"Clear &and Paste ASCII"};
    MenuItem mnuClearPasteNet4{"Clear a&nd Paste Netscape 4.xx format"};
    MenuItem mnuClearPasteNet3{"Clea&r and Paste Netscape 3.x format"};
    MenuItem mnuPasteJuno{"Clear and Pas&te Juno format"};
    MenuItem mnuThirdDash{"-"};
    MenuItem mnuEntEd{"&Edit mode"};
    MenuItem mnuDel{"&Delete selection"};
    MenuItem mnuClear{"C&lear"};
    MenuItem mnuFifthDash{"-"};
    MenuItem mnuPrefs{"Pre&ferences..."};

    MenuItem mnuOrvik{"&View"};
    MenuItem mnuConvert{"&Convert from text to Netscape 4.0"};
    MenuItem mnuFourthDash{"-"};
    MenuItem mnuAlphNick{"Sort by &Nicknames"};
    MenuItem mnuAlphAddr{"Sort by &E-Mail addresses"};
    MenuItem mnuRemDup{"Remove &Duplicates"};
    MenuItem mnuSixthDash{"-"};
    MenuItem mnuUn{"&Unconvert"};
    MenuItem mnuParse{"&Parse nicknames"};

    MenuItem mnuHelp{"&Help"};
    MenuItem mnuHlp{"&Help..."};
    MenuItem mnuHelpContents{"&Contents"};
    MenuItem mnuHelpIndex{"&Index"};
    MenuItem mnuEighthDash{"-"};
    MenuItem mnuAbout{"&About Orvik..."};
    MenuItem mnuFuture{"&Future plans..."};

 private:
    std::vector<NamedHandler> OtherHandlers() override;
    // Shows the progress of pass, then LdifText is what maker gives; empty if pass fails.
    void MakeLdif(const std::function<void(Progress&)>& pass, LateText::Maker maker);
    // Switches edit mode on, or tells that the text is too long.
    void EnterEditMode();
    void LeaveEditMode();
    void EnableEditCommands(bool editing);
    void ShowLists(bool visible);

    // What was written as LDIF last, and the revision of what came of it: what is read back at once
    // is known without reading it.
    struct Written {
        SharedText Native;
        std::uint64_t Ldif = 0;
    };
    Written written_;
    // The LDIF text that was read last, by its revision, with what separator, and what came of it.
    struct Read {
        std::uint64_t Ldif = 0;
        std::string Separator;
        SharedText List;
    };
    Read read_;
};

}  // namespace orvik
