#include "reliability/commands.h"

#include "formats/endings.h"
#include "settings/keys.h"
#include "settings/numbers.h"
#include "unit/written_books.h"

namespace orvik::test {
namespace {

constexpr std::string_view kAliases = "alias \"Cy\" cy@books.example\r\n";

// What a book with this ending holds.
std::string BookOf(const std::string& ending) {
    if (ending == "ldif" || ending == "ldi") {
        return LdifRecord("cy@books.example", "Cy Castell");
    }
    if (ending == "htm" || ending == "html") {
        return std::string(kNetscape3Head) + Netscape3Entry("cy@books.example", "0", "Cy Castell") +
               std::string(kNetscape3Tail) + "\r\n";
    }
    if (ending == "nv") {
        return "\r\n\r\n" + JunoRecord("cy@books.example", "Cy Castell") + "\r\n";
    }
    if (ending == "csv") {
        return CsvLine("Name", "E-mail") + CsvLine("Cy Castell", "cy@books.example");
    }
    if (ending == "abx") {
        return "\"Type\",\"Name\",\"First\",\"Last\",\"Organization\",\"E-mail\",\"Phone\"\r\n"
               "\"P\",\"Cy Castell\",\"Cy\",\"Castell\",\"\",\"cy@books.example\",\"\"\r\n";
    }
    if (ending == "pml") {
        return "\\TITLE Friends\r\nCy Castell <cy@books.example>\r\n";
    }
    if (ending == "txt" || ending == "xyz") {
        return "\"Cy Castell\" <cy@books.example>\r\n";
    }
    return "Mail cy@books.example, please.\r\n";
}

// The automation of one step or two: the codes as the preferences store them.
void PutAutomation(World& world, const std::string& source, int first, int second) {
    world.person.Set(key::kSettings, "aOpenName", source);
    world.person.Set(key::kSettings, "aSaveName", world.Target);
    world.person.Set(key::kSteps, "1", std::to_string(first));
    world.person.Set(key::kSteps, "2", std::to_string(second));
    world.person.Set(key::kSteps, "3", "0");
}

void RunAutomation(World& world) {
    world.Run([&] { world.module.RunAutomation(); });
}

// A command of the main window that asks for its file.
FileCommand Asking(const std::string& name, const char* handler, const std::string& ending) {
    return {name + " `." + ending + "`",
            "book." + ending,
            BookOf(ending),
            [](World& world) {
                world.PutBook();
                world.person.picks = {world.Target};
            },
            [handler](World& world) { world.Click(world.program.form1, handler); }};
}

// The same for a file whose ending says nothing: the person chooses a list.
FileCommand Choosing(const std::string& name, const char* handler) {
    FileCommand command = Asking(name, handler, "xyz");
    command.Name = name + " by the chooser";
    command.Prepare = [prepare = command.Prepare](World& world) {
        prepare(world);
        world.module.OpenMode = 2;
        world.person.modal["Form3"] = [&world] {
            world.Click(world.program.form3, "Command1_Click");
        };
    };
    return command;
}

FileCommand AutoReading(const std::string& name,
                        const std::string& file,
                        std::string contents,
                        int code) {
    return {name,
            file,
            std::move(contents),
            [code](World& world) { PutAutomation(world, world.Target, code, step::kDoneCode); },
            &RunAutomation};
}

FileCommand AutoSaving(const std::string& name, const std::string& file, std::string contents) {
    return {name,
            file,
            std::move(contents),
            [](World& world) {
                world.WriteFile("source.ldif", LdifRecord("di@books.example", "Di"));
                PutAutomation(world, world.Name("source.ldif"), step::kOpenCode, step::kSaveCode);
            },
            &RunAutomation};
}

void Export(World& world) {
    world.Click(world.program.form4, "Command4_Click");
}

std::vector<FileCommand> MakeReaders() {
    std::vector<FileCommand> commands;
    for (const char* const ending :
         {"ldif", "ldi", "htm", "html", "txt", "nv", "csv", "abx", "pml", "xtr"}) {
        commands.push_back(Asking("Open", "mnuOpen_Click", ending));
    }
    commands.push_back(Choosing("Open", "mnuOpen_Click"));
    for (const char* const ending : {"ldif", "htm", "txt", "nv", "csv", "abx"}) {
        commands.push_back(Asking("Merge", "mnuMerge_Click", ending));
    }
    commands.push_back(Choosing("Merge", "mnuMerge_Click"));
    commands.push_back(Asking("Extract", "mnuExtract_Click", "mbox"));
    FileCommand drop = Asking("Drop", "", "ldif");
    drop.Act = [](World& world) { world.Run([&] { world.program.form1.OpenBook(world.Target); }); };
    commands.push_back(drop);
    for (const char* const ending : {"ldif", "htm", "txt", "nv", "csv", "abx", "pml"}) {
        commands.push_back(AutoReading("Automation opens `." + std::string(ending) + "`",
                                       "book." + std::string(ending),
                                       BookOf(ending),
                                       step::kOpenCode));
    }
    commands.push_back(AutoReading(
        "Automation opens `nndbase.txt`", "nndbase.txt", std::string(kAliases), step::kOpenCode));
    commands.push_back(
        AutoReading("Automation extracts", "mail.mbox", BookOf("mbox"), step::kExtractCode));
    commands.push_back({"Handheld export reads",
                        "book.ldif",
                        BookOf("ldif"),
                        [](World& world) {
                            world.PutBook();
                            world.program.form4.Text1.SetText(world.Target);
                            world.program.form4.Text2.SetText(world.Name("out.csv"));
                        },
                        &Export,
                        Telling::AnotherName});
    return commands;
}

std::vector<FileCommand> MakeSavers() {
    std::vector<FileCommand> commands;
    for (const Ending& ending : Endings()) {
        if (ending.Way != Saving::Never) {
            commands.push_back(Asking("Save As", "mnuSave_Click", std::string(ending.Text)));
        }
    }
    FileCommand dropping = Asking("Save As", "mnuSave_Click", "htm");
    dropping.Name = "Save As `.htm` that keeps a copy";
    dropping.Contents += "Notes of mine";
    dropping.Aside = "book.htm.bak";
    commands.push_back(dropping);
    for (const Ending& ending : Endings()) {
        if (ending.Way != Saving::Never) {
            const std::string text(ending.Text);
            commands.push_back(
                AutoSaving("Automation saves `." + text + "`", "book." + text, BookOf(text)));
        }
    }
    commands.push_back(
        AutoSaving("Automation saves `nndbase.txt`", "nndbase.txt", std::string(kAliases)));
    commands.push_back({"Handheld export",
                        "out.csv",
                        "an older export\r\n",
                        [](World& world) {
                            world.PutBook();
                            world.WriteFile("source.ldif", BookOf("ldif"));
                            world.program.form4.Text1.SetText(world.Name("source.ldif"));
                            world.program.form4.Text2.SetText(world.Target);
                        },
                        &Export,
                        Telling::AnotherName});
    return commands;
}

}  // namespace

const std::vector<FileCommand>& Readers() {
    static const std::vector<FileCommand> kReaders = MakeReaders();
    return kReaders;
}

const std::vector<FileCommand>& Savers() {
    static const std::vector<FileCommand> kSavers = MakeSavers();
    return kSavers;
}

}  // namespace orvik::test
