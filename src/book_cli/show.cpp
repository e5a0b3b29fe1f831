#include <cstddef>
#include <cstdint>

#include "app/printable.h"
#include "book/old/old_formats.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"

namespace orvik::book_cli {
namespace {

std::string Listed(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + Printable(name);
    }
    return text;
}

void ShowFacts(const Loaded& loaded, Console& console) {
    const std::vector<book::Facts> facts = book::FactsOf(loaded.Book, loaded.Formats());
    std::size_t people = 0;
    std::size_t lists = 0;
    for (std::uint32_t i = 0; i < facts.size(); ++i) {
        console.Out() << FactsText(
            console, loaded.Book.SourceAt(i).Name(), loaded.Inputs[i], facts[i]);
        people += facts[i].People;
        lists += facts[i].Lists;
    }
    if (facts.size() > 1) {
        console.Out() << "together: " << Counted(people, "person", "people") << ", "
                      << Counted(lists, "list", "lists") << "\n";
    }
}

}  // namespace

std::string FactsText(const Console& console,
                      const std::string& name,
                      const Input& input,
                      const book::Facts& facts) {
    std::string text = console.Strong(Printable(name)) + ": " + Printable(input.Program) +
                       (input.Program.empty() ? "" : " ") + facts.Form;
    // Where it begins is worth a word only if something stands before it.
    if (!input.Evidence.starts_with("line 1 ")) {
        text += " (" + input.Evidence + ")";
    }
    text += ", " + Printable(input.Charset) + ", " + facts.LineEnds + ", " +
            Counted(facts.People, "person", "people") + ", " +
            Counted(facts.Lists, "list", "lists") + "\n";
    text += "  addresses " + std::to_string(facts.Addresses) + "   phones " +
            std::to_string(facts.Phones) + "   notes " + std::to_string(facts.Notes) +
            "   nicknames " + std::to_string(facts.Nicknames);
    text += facts.NicknameNames.empty() ? "" : " (" + Listed(facts.NicknameNames) + ")";
    if (input.Form == book::Format::Csv || input.Form == book::Format::WordPerfect) {
        text += "   columns unknown to vCard: " + std::to_string(facts.UnknownNames.size());
    }
    const bool old =
        input.Form != book::Format::WordPerfect && book::OldFormatOf(input.Form) != nullptr;
    if (input.Form == book::Format::Ldif || (old && !facts.UnknownNames.empty())) {
        text += "   fields unknown to vCard: " + std::to_string(facts.UnknownNames.size());
    }
    return text + "\n";
}

cli::ExitStatus Show(const Arguments& arguments, Console& console, Outputs& outputs) {
    Loaded loaded;
    Load(console, arguments.Files, arguments.Charset, loaded, arguments.Columns);
    const Catalogue catalogue(loaded.Book);
    AddMissingMembers(loaded.Book, catalogue);
    if (arguments.Json) {
        for (std::size_t i = 0; i < loaded.Book.Contacts.size() && console.Out(); ++i) {
            PrintRecord(console.Out(), catalogue, i);
        }
        TellCharsets(console, loaded);
    } else {
        ShowFacts(loaded, console);
    }
    cli::ExitStatus status = Worse(outputs.FinishPrinting(), loaded.Status);
    TellColumns(console, loaded);
    TellFoundMembers(console, loaded);
    TellRemarks(console, loaded);
    if (!arguments.Report.empty() && !loaded.Inputs.empty()) {
        status = Worse(status, outputs.WriteReport(ReportOf(loaded)));
    }
    return Worse(status, StatusOf(loaded.Book));
}

}  // namespace orvik::book_cli
