#include "book_cli/book_arguments.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/text.h"
#include "book/charset_converter.h"
#include "book/old/old_writers.h"
#include "cli/words.h"

namespace orvik::book_cli {
namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  orvik-book show book.ldif\n"
    "  orvik-book convert book.ldif -o contacts.vcf\n"
    "  orvik-book convert old.vcf work.ldif --vcard 4 -o all.vcf\n"
    "  orvik-book convert outlook.csv --to google -o google.csv\n"
    "  orvik-book convert contacts.vcf -o addrbook.nv\n"
    "  orvik-book convert contacts.vcf --to mutt -o aliases\n"
    "  orvik-book check book.ldif\n"
    "  orvik-book convert outlook.csv --map \"Club=groups\" -o contacts.vcf\n"
    "  orvik-book diff book.ldif contacts.vcf\n"
    "\n"
    "A file named - is standard input.\n"
    "\n"
    "Exit status: 0 all, 1 something skipped, lost, bad or different, 2 usage,\n"
    "65 no address book, 66 no input, 71 out of memory, 73 cannot create,\n"
    "74 input/output error, 130 interrupted.";

// The parser would take a name in brackets for a list of names.
std::string Unbracketed(std::string_view word) {
    const bool list = word.starts_with('[') && word.ends_with(']');
    return (list ? "./" : "") + std::string(word);
}

std::string CheckName(const std::string& name) {
    return name.empty() ? "a file's name is empty" : "";
}

std::string CheckNoStream(const std::string& name) {
    return name == kStandardStream
               ? "- would be standard output, which is not for reports; a file of this name is ./-"
               : CheckName(name);
}

std::string CheckCharset(const std::string& name) {
    return book::CharsetConverter::Named(name) ? "" : "nobody knows the character set " + name;
}

std::string CheckMapping(const std::string& text) {
    const book::CsvMapping mapping = book::ParseMapping(text);
    if (mapping.Header.empty()) {
        return "--map needs HEADER=FIELD";
    }
    return mapping.Field != nullptr ? "" : "nobody knows the field of " + text;
}

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
    return HasEnding(name, ".ldif") || HasEnding(name, ".ldi");
}

bool IsVCardName(std::string_view name) {
    return HasEnding(name, ".vcf") || HasEnding(name, ".vcard");
}

// The options of each verb, and what they were given.
class Parser {
 public:
    Parser()
        : app_(
              "Reads address books with all that they hold, and writes them: LDIF, vCard, CSV, "
              "Netscape 2 and 3, Juno, Pegasus Mail, mutt, pine, abook and plain lists. Reads "
              "those "
              "of WordPerfect, cc:Mail, Eudora and mailx, too.",
              "orvik-book") {
        app_.set_version_flag(
            "--version", "orvik-book " ORVIK_VERSION, "Print the version and exit");
        app_.set_help_flag("-h,--help", "Print this help and exit");
        app_.footer(kExamples);
        app_.failure_message(&cli::UsageMessage);
        app_.require_subcommand(1);
        show_ = AddVerb("show", "Say what is in address books", "FILE");
        convert_ = AddVerb("convert", "Write address books as one file", "FILE");
        check_ = AddVerb("check", "Say which e-mail addresses can be none", "FILE");
        diff_ = AddVerb("diff", "Compare two address books", "LEFT RIGHT");
        AddConvertOptions();
    }

    [[nodiscard]] CLI::App& App() { return app_; }

    // Errors: CLI::ParseError.
    Arguments Parse(int argc, const char* const* argv) {
        std::vector<std::string> plain;
        std::vector<const char*> pointers;
        plain.reserve(static_cast<std::size_t>(argc));
        for (int i = 0; i < argc; ++i) {
            plain.push_back(Unbracketed(argv[i]));
        }
        pointers.reserve(plain.size());
        for (const std::string& word : plain) {
            pointers.push_back(word.c_str());
        }
        CheckOrder(plain);
        const cli::Words words(static_cast<int>(pointers.size()), pointers.data());
        app_.parse(words.Count(), words.Pointers());
        arguments_.What = convert_->parsed() ? Verb::Convert
                          : check_->parsed() ? Verb::Check
                          : diff_->parsed()  ? Verb::Diff
                                             : Verb::Show;
        for (const std::string& map : maps_) {
            arguments_.Columns.push_back(book::ParseMapping(map));
        }
        CheckFiles();
        if (arguments_.What == Verb::Convert) {
            FindTarget();
        }
        return arguments_;
    }

 private:
    CLI::App* AddVerb(const char* name, const char* what, const char* files) {
        CLI::App* const verb = app_.add_subcommand(name, what);
        verb->failure_message(&cli::UsageMessage);
        verb->add_option("FILES", arguments_.Files, "The address books; - is standard input")
            ->type_name(files)
            ->required()
            ->check(&CheckName);
        Single(verb->add_option(
                   "--charset", arguments_.Charset, "The letters of what does not say it"))
            ->type_name("NAME")
            ->check(&CheckCharset);
        verb->add_option(
                "--map", maps_, "Take a column of CSV for a field, whatever its header says")
            ->type_name("HEADER=FIELD")
            ->expected(1)
            ->allow_extra_args(false)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
            ->check(&CheckMapping);
        verb->add_flag("--json", arguments_.Json, "Print an object a line instead of text");
        Single(verb->add_option("--report", arguments_.Report, "Write what became of each value"))
            ->type_name("FILE")
            ->check(&CheckNoStream);
        verb->add_flag("--force", arguments_.Force, "Replace files that are there without asking");
        return verb;
    }

    void AddConvertOptions() {
        output_ = Single(convert_->add_option("-o,--output",
                                              arguments_.Output,
                                              "Where to write, - for standard output; .vcf, "
                                              ".ldif, .htm, .nv, .pml and .txt tell the format"));
        output_->type_name("FILE")->check(&CheckName);
        vcard_ = Single(convert_->add_option("--vcard", version_, "Write vCard 3.0 or 4.0"));
        vcard_->type_name("3|4")->check(CLI::IsMember({"3", "4"}));
        attributes_ = Single(convert_->add_option(
            "--attributes", set_, "Write LDIF with the attributes of a program"));
        attributes_->type_name("PROGRAM")
            ->check(CLI::IsMember({"netscape", "mozilla", "kcontacts", "evolution"}))
            ->excludes(vcard_);
        Single(convert_->add_option(
                   "--to", program_, "Write what a program imports, and say where it does"))
            ->type_name("PROGRAM")
            ->check(CLI::IsMember(ProgramNames()))
            ->excludes(vcard_)
            ->excludes(attributes_);
        split_ = Single(convert_->add_option(
            "--split", most_, "Write files NAME-1, NAME-2 ... of at most so many records"));
        split_->type_name("N")->check(&CheckCount);
        convert_
            ->add_option(
                "--new-since", arguments_.NewSince, "Leave out the people of an older book")
            ->type_name("OLD")
            ->expected(1)
            ->allow_extra_args(false)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
            ->check(&CheckName);
        convert_->add_flag(
            "--allow-loss", arguments_.AllowLoss, "Write what can be, even if values are lost");
    }

    // Whoever writes an option before the verb is told where it belongs.
    static void CheckOrder(const std::vector<std::string>& words) {
        constexpr std::array<std::string_view, 4> kVerbs = {"show", "convert", "check", "diff"};
        constexpr std::array<std::string_view, 3> kBefore = {"-h", "--help", "--version"};
        const bool option = words.size() > 1 && words[1].size() > 1 && words[1].starts_with('-') &&
                            std::find(kBefore.begin(), kBefore.end(), words[1]) == kBefore.end();
        const auto verb =
            std::find_first_of(words.begin(), words.end(), kVerbs.begin(), kVerbs.end());
        if (option && verb != words.end()) {
            throw CLI::ValidationError(words[1], "options stand behind the verb " + *verb);
        }
    }

    static CLI::Option* Single(CLI::Option* option) {
        return option->expected(1)->allow_extra_args(false);
    }

    void CheckFiles() const {
        const auto& files = arguments_.Files;
        if (arguments_.What == Verb::Diff && files.size() != 2) {
            throw CLI::ValidationError("diff", "compares two address books");
        }
        const auto& older = arguments_.NewSince;
        if (std::count(files.begin(), files.end(), kStandardStream) +
                std::count(older.begin(), older.end(), kStandardStream) >
            1) {
            throw CLI::ValidationError(kStandardStream, "standard input can be read once only");
        }
    }

    void FindTarget() {
        const std::string& name = arguments_.Output;
        const bool stream = name == kStandardStream;
        if (name.ends_with('/')) {
            throw CLI::ValidationError("-o", name + " is a folder; a file in it needs a name");
        }
        if (stream && arguments_.Json) {
            throw CLI::ValidationError("--json", "needs -o FILE: both would go to standard output");
        }
        if (split_->count() > 0 && stream) {
            throw CLI::ValidationError("--split", "needs -o FILE");
        }
        arguments_.Split = split_->count() > 0 ? std::stoul(most_) : 0;
        arguments_.For = ProgramNamed(program_);
        if (arguments_.For != nullptr) {
            FindForm(*arguments_.For);
        } else {
            FindFormat(name, stream);
        }
        if (split_->count() > 0 && book::OldWriterOf(arguments_.Target) != nullptr) {
            throw CLI::ValidationError("--split", "parts vCard, LDIF and CSV alone");
        }
    }

    // What the program imports under the name that was given; standard output takes any.
    void FindForm(const Program& program) {
        const std::string& name = arguments_.Output;
        if (const ImportForm* const form = FormOf(program, name); form != nullptr) {
            arguments_.Choose(*form);
        } else if (name != kStandardStream) {
            throw CLI::ValidationError("-o",
                                       "for " + program_ + " a file ends in " + EndingsOf(program) +
                                           ", not as " + name + " does");
        }
    }

    void FindFormat(const std::string& name, bool stream) {
        if (HasEnding(name, ".csv")) {
            throw CLI::ValidationError(
                "-o",
                "the columns of " + name +
                    " depend on the program; --to names it: " + CsvPrograms());
        }
        // An option says more than such an ending: any list may be called .txt.
        const book::OldWriter* const old = book::OldWriterFor(name);
        if (old != nullptr && vcard_->count() + attributes_->count() == 0) {
            arguments_.Target = old->Form;
            return;
        }
        if (vcard_->count() > 0 && IsLdifName(name)) {
            throw CLI::ValidationError("--vcard", "the ending of " + name + " asks for LDIF");
        }
        if (attributes_->count() > 0 && IsVCardName(name)) {
            throw CLI::ValidationError("--attributes", "the ending of " + name + " asks for vCard");
        }
        if (attributes_->count() > 0 || IsLdifName(name)) {
            arguments_.Target = book::Dialect::Ldif;
            arguments_.Set = AskedSet();
        } else if (version_ == "4") {
            arguments_.Target = book::Dialect::VCard40;
        } else if (vcard_->count() == 0 && !stream && !IsVCardName(name)) {
            throw CLI::ValidationError(
                "-o", "the ending of " + name + " tells no format; --vcard and --attributes do");
        }
    }

    [[nodiscard]] std::optional<book::LdifAttributes> AskedSet() const {
        using enum book::LdifAttributes;
        if (set_.empty()) {
            return std::nullopt;
        }
        return set_ == "netscape"    ? Netscape
               : set_ == "kcontacts" ? KContacts
               : set_ == "evolution" ? Evolution
                                     : Mozilla;
    }

    CLI::App app_;
    Arguments arguments_;
    std::string version_;
    std::string set_;
    std::string program_;
    std::string most_;
    std::vector<std::string> maps_;
    CLI::App* show_ = nullptr;
    CLI::App* convert_ = nullptr;
    CLI::App* check_ = nullptr;
    CLI::App* diff_ = nullptr;
    CLI::Option* output_ = nullptr;
    CLI::Option* vcard_ = nullptr;
    CLI::Option* attributes_ = nullptr;
    CLI::Option* split_ = nullptr;
};

}  // namespace

void Arguments::Choose(const ImportForm& form) {
    Form = &form;
    Target = form.Form;
    Set = form.Set;
}

std::variant<Arguments, cli::ExitStatus> ParseArguments(int argc,
                                                        const char* const* argv,
                                                        std::ostream& out,
                                                        std::ostream& err) {
    Parser parser;
    try {
        return parser.Parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return cli::Explain(parser.App(), error, out, err);
    }
}

}  // namespace orvik::book_cli
