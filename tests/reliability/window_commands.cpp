#include "reliability/window_commands.h"

#include <string>

#include "formats/form5.h"
#include "unit/written_books.h"

namespace orvik::test {
namespace {

void PutBook(World& world) {
    world.PutBook();
}

void PutBookInEditMode(World& world) {
    world.PutBook();
    world.Click(world.program.form1, "mnuEntEd_Click");
}

// A command of the main window on the open book.
FileCommand OnBook(const std::string& name,
                   const char* handler,
                   void (*prepare)(World&) = &PutBook) {
    return {name, {}, {}, prepare, [handler](World& world) {
                world.Click(world.program.form1, handler);
            }};
}

FileCommand Pasting(const std::string& name, const char* handler, const std::string& clipboard) {
    FileCommand command = OnBook(name, handler);
    command.Prepare = [clipboard](World& world) {
        world.PutBook();
        world.person.clipboard = clipboard;
    };
    return command;
}

std::string Html() {
    return std::string(kNetscape3Head) + Netscape3Entry("cy@books.example", "0", "Cy Castell") +
           std::string(kNetscape3Tail) + "\r\n";
}

void ChangePreferences(World& world) {
    world.person.modal["Form2"] = [&world] {
        world.program.form2.Choose(world.program.form2.Option2);
        world.Click(world.program.form2, "Command1_Click");
    };
}

std::vector<FileCommand> Make() {
    return {
        {"Load the settings",
         {},
         {},
         &PutBook,
         [](World& world) { world.Run([&] { world.module.LoadSettings(); }); }},
        OnBook("Sort by address", "cmdEmail_Click"),
        OnBook("Sort by nickname", "cmdNick_Click"),
        OnBook("Sort by address, by the menu", "mnuAlphAddr_Click"),
        OnBook("Sort by nickname, by the menu", "mnuAlphNick_Click"),
        OnBook("Remove duplicates", "mnuRemDup_Click"),
        OnBook("Parse nicknames",
               "mnuParse_Click",
               [](World& world) {
                   world.module.WorkText = "\"Cy\" <cy@books.example>\r\n";
                   world.module.TextMode = mode::kAscii;
               }),
        OnBook("Convert", "mnuConvert_Click"),
        OnBook("Unconvert",
               "mnuUn_Click",
               [](World& world) {
                   world.PutBook();
                   world.Click(world.program.form1, "mnuConvert_Click");
               }),
        OnBook("Edit mode on", "mnuEntEd_Click"),
        OnBook("Edit mode off", "mnuEntEd_Click", &PutBookInEditMode),
        OnBook("Copy as text", "mnuBoxCopy_Click"),
        OnBook("Copy the selection", "mnuSelCopy_Click", &PutBookInEditMode),
        OnBook("Copy as Netscape 4", "mnuCopyConvert_Click"),
        OnBook("Copy as Netscape 3", "mnuCopyNet3_Click"),
        OnBook("Copy as Juno", "mnuJuno_Click"),
        Pasting("Paste", "mnuPaste_Click", "\"Cy\" <cy@books.example>\r\n"),
        Pasting("Clear and paste", "mnuClearPaste_Click", "\"Cy\" <cy@books.example>\r\n"),
        Pasting("Clear and paste Netscape 4",
                "mnuClearPasteNet4_Click",
                LdifRecord("cy@books.example", "Cy")),
        Pasting("Clear and paste Netscape 3", "mnuClearPasteNet3_Click", Html()),
        Pasting("Clear and paste Juno",
                "mnuPasteJuno_Click",
                "\r\n\r\n" + JunoRecord("cy@books.example", "Cy") + "\r\n"),
        OnBook("Delete", "mnuDel_Click", &PutBookInEditMode),
        OnBook("Clear", "mnuClear_Click"),
        OnBook("Generate a list", "mnuList_Click"),
        OnBook("Generate a list, done",
               "cmdDone_Click",
               [](World& world) {
                   world.PutBook();
                   world.Click(world.program.frm_select, "Command1_Click");
                   world.program.form1.List3.Select({0});
               }),
        OnBook("Click on a list",
               "List1_Click",
               [](World& world) {
                   world.PutBook();
                   world.program.form1.List1.ListIndex = 1;
               }),
        {"Type",
         {},
         {},
         &PutBookInEditMode,
         [](World& world) {
             world.module.RunEvent([&] {
                 const std::string text(world.program.form1.Text1.Text());
                 world.program.form1.Text1.EditByUser(text + "dd@books.example\r\n", 1);
             });
         }},
        {"Undo",
         {},
         {},
         [](World& world) {
             world.PutBook();
             world.Click(world.program.form1, "cmdEmail_Click");
         },
         [](World& world) { world.module.RunEvent([&] { world.module.history.Undo(); }); }},
        {"Redo",
         {},
         {},
         [](World& world) {
             world.PutBook();
             world.Click(world.program.form1, "cmdEmail_Click");
             world.module.history.Undo();
         },
         [](World& world) { world.module.RunEvent([&] { world.module.history.Redo(); }); }},
        OnBook("Preferences",
               "mnuPrefs_Click",
               [](World& world) {
                   world.PutBook();
                   ChangePreferences(world);
               }),
        OnBook("Demonstrate the automation", "mnuAuto_Click"),
        OnBook("Show the handheld export", "mnuFull_Click"),
        OnBook("Help", "mnuHlp_Click"),
        OnBook("Help, contents", "mnuHelpContents_Click"),
        OnBook("Help, index", "mnuHelpIndex_Click"),
        OnBook("About", "mnuAbout_Click"),
        OnBook("Future plans", "mnuFuture_Click"),
        OnBook("Uninstall",
               "mnuUninst_Click",
               [](World& world) {
                   world.PutBook();
                   world.person.reply = Answer::Yes;
               }),
        OnBook("Exit", "mnuExit_Click"),
    };
}

}  // namespace

const std::vector<FileCommand>& WindowCommands() {
    static const std::vector<FileCommand> kCommands = Make();
    return kCommands;
}

}  // namespace orvik::test
