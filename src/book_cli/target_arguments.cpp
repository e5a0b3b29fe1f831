#include "book_cli/target_arguments.h"

#include <cstddef>
#include <string_view>
#include <vector>

#include "app/text.h"
#include "book/old/old_writers.h"
#include "book_cli/option_checks.h"
#include "book_cli/written.h"

namespace orvik::book_cli {
namespace {

std::string CheckCount(const std::string& text) {
    constexpr std::size_t kMostDigits = 9;
    const bool number = !text.empty() && text.size() <= kMostDigits &&
                        text.find_first_not_of("0123456789") == std::string::npos;
    return number && text.find_first_not_of('0') != std::string::npos
               ? ""
               : "a file holds 1 to 999999999 records, not " + text;
}

std::vector<std::string> ProgramNames() {
    std::vector<std::string> names;
    for (const Program& one : Programs()) {
        names.emplace_back(one.Name);
    }
    return names;
}

// "google, outlook": those that import CSV.
std::string CsvPrograms() {
    std::string text;
    for (const Program& one : Programs()) {
        if (FormOf(one, ".csv") != nullptr) {
            text.append(text.empty() ? "" : ", ").append(one.Name);
        }
    }
    return text;
}

bool IsLdifName(std::string_view name) {
    return EndsAs(".ldif", name);
}

bool IsVCardName(std::string_view name) {
    return EndsAs(".vcf", name);
}

}  // namespace

void TargetOptions::AddTo(CLI::App& verb, Arguments& arguments) {
    Single(verb.add_option("-o,--output",
                           arguments.Output,
                           "Where to write, - for standard output; .vcf, "
                           ".ldif, .htm, .nv, .pml and .txt tell the format"))
        ->type_name("FILE")
        ->check(&CheckName);
    CLI::Option* const vcard =
        Single(verb.add_option("--vcard", version_, "Write vCard 3.0 or 4.0"));
    vcard->type_name("3|4")->check(CLI::IsMember({"3", "4"}));
    CLI::Option* const attributes = Single(
        verb.add_option("--attributes", set_, "Write LDIF with the attributes of a program"));
    attributes->type_name("PROGRAM")
        ->check(CLI::IsMember({"netscape", "mozilla", "kcontacts", "evolution"}))
        ->excludes(vcard);
    Single(verb.add_option("--to", program_, "Write what a program imports, and say where it does"))
        ->type_name("PROGRAM")
        ->check(CLI::IsMember(ProgramNames()))
        ->excludes(vcard)
        ->excludes(attributes);
    Single(verb.add_option(
               "--split", most_, "Write files NAME-1, NAME-2 ... of at most so many records"))
        ->type_name("N")
        ->check(&CheckCount);
    verb.add_flag(
        "--allow-loss", arguments.AllowLoss, "Write what can be, even if values are lost");
}

void TargetOptions::Take(Arguments& arguments) const {
    const std::string& name = arguments.Output;
    const bool stream = name == kStandardStream;
    if (name.ends_with('/')) {
        throw CLI::ValidationError("-o", name + " is a folder; a file in it needs a name");
    }
    // The people of mail are printed instead.
    if (stream && arguments.Json && arguments.What != Verb::Find) {
        throw CLI::ValidationError("--json", "needs -o FILE: both would go to standard output");
    }
    if (!most_.empty() && stream) {
        throw CLI::ValidationError("--split", "needs -o FILE");
    }
    arguments.Split = !most_.empty() ? std::stoul(most_) : 0;
    arguments.For = ProgramNamed(program_);
    if (arguments.For != nullptr) {
        TakeForm(*arguments.For, arguments);
    } else {
        TakeFormat(arguments);
    }
    if (!most_.empty() && !MaySplit(arguments.Target)) {
        throw CLI::ValidationError("--split", "parts vCard, LDIF and CSV alone");
    }
}

// What the program imports under the name that was given; standard output takes any.
void TargetOptions::TakeForm(const Program& program, Arguments& arguments) const {
    const std::string& name = arguments.Output;
    if (const ImportForm* const form = FormOf(program, name); form != nullptr) {
        arguments.Choose(*form);
    } else if (name != kStandardStream) {
        throw CLI::ValidationError("-o",
                                   "for " + program_ + " a file ends in " + EndingsOf(program) +
                                       ", not as " + name + " does");
    }
}

void TargetOptions::TakeFormat(Arguments& arguments) const {
    const std::string& name = arguments.Output;
    if (HasEnding(name, ".csv")) {
        throw CLI::ValidationError(
            "-o",
            "the columns of " + name + " depend on the program; --to names it: " + CsvPrograms());
    }
    // An option says more than such an ending: any list may be called .txt.
    const book::OldWriter* const old = book::OldWriterFor(name);
    if (old != nullptr && version_.empty() && set_.empty()) {
        arguments.Target = old->Form;
        return;
    }
    if (!version_.empty() && IsLdifName(name)) {
        throw CLI::ValidationError("--vcard", "the ending of " + name + " asks for LDIF");
    }
    if (!set_.empty() && IsVCardName(name)) {
        throw CLI::ValidationError("--attributes", "the ending of " + name + " asks for vCard");
    }
    if (!set_.empty() || IsLdifName(name)) {
        arguments.Target = book::Dialect::Ldif;
        arguments.Set = AskedSet();
    } else if (version_ == "4") {
        arguments.Target = book::Dialect::VCard40;
    } else if (version_.empty() && name != kStandardStream && !IsVCardName(name)) {
        throw CLI::ValidationError(
            "-o", "the ending of " + name + " tells no format; --vcard and --attributes do");
    }
}

std::optional<book::LdifAttributes> TargetOptions::AskedSet() const {
    using enum book::LdifAttributes;
    if (set_.empty()) {
        return std::nullopt;
    }
    return set_ == "netscape"    ? Netscape
           : set_ == "kcontacts" ? KContacts
           : set_ == "evolution" ? Evolution
                                 : Mozilla;
}

}  // namespace orvik::book_cli
