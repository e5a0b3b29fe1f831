#include "book_cli/book_arguments.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "book/charset_converter.h"
#include "book_cli/clean_arguments.h"
#include "book_cli/option_checks.h"
#include "book_cli/target_arguments.h"
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
    "  orvik-book find Mail/Inbox Maildir letter.eml --min 2 -o people.vcf\n"
    "  orvik-book dupes *.vcf book.ldif --plan plan.txt\n"
    "  orvik-book clean --plan plan.txt --sort family -o clean.vcf\n"
    "\n"
    "A file named - is standard input.\n"
    "\n";

// Mail is no stream.
constexpr const char* kExamplesOfFind =
    "Examples:\n"
    "  orvik-book find Mail/Inbox Maildir letter.eml --min 2 -o people.vcf\n"
    "  orvik-book find Mail --since 2024-05-31 --me me@example.org --json\n"
    "\n";

constexpr const char* kStatuses =
    "Exit status: 0 all, 1 something skipped, lost, bad or different, 2 usage,\n"
    "65 no address book, 66 no input, 71 out of memory, 73 cannot create,\n"
    "74 input/output error, 130 interrupted.";

// The parser would take a name in brackets for a list of names.
std::string Unbracketed(std::string_view word) {
    const bool list = word.starts_with('[') && word.ends_with(']');
    return (list ? "./" : "") + std::string(word);
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

// The options of each verb, and what they were given.
class Parser {
 public:
    Parser()
        : app_(
              "Reads address books, LDIF, vCard, CSV and those of old programs, with all that they "
              "hold, and writes them. Finds the people in mail.",
              "orvik-book") {
        app_.set_version_flag(
            "--version", "orvik-book " ORVIK_VERSION, "Print the version and exit");
        app_.set_help_flag("-h,--help", "Print this help and exit");
        app_.footer(std::string(kExamples) + kStatuses);
        app_.failure_message(&cli::UsageMessage);
        app_.require_subcommand(1);
        show_ = AddVerb("show", "Say what is in address books", "FILE");
        dupes_ = AddVerb("dupes", "Say which records may be one person", "FILE");
        clean_ =
            AddVerb("clean", "Merge them, as a plan says or where nothing is in doubt", "FILE");
        convert_ = AddVerb("convert", "Write address books as one file", "FILE");
        check_ = AddVerb("check", "Say which e-mail addresses can be none", "FILE");
        diff_ = AddVerb("diff", "Compare two address books", "LEFT RIGHT");
        AddFind();
        target_.AddTo(*convert_, arguments_);
        target_.AddTo(*clean_, arguments_);
        AddNewSince();
        duplicates_.AddToDupes(dupes_);
        duplicates_.AddToClean(clean_);
        duplicates_.AddOrder(convert_);
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
                          : find_->parsed()  ? Verb::Find
                          : dupes_->parsed() ? Verb::Dupes
                          : clean_->parsed() ? Verb::Clean
                                             : Verb::Show;
        for (const std::string& map : maps_) {
            arguments_.Columns.push_back(book::ParseMapping(map));
        }
        if (arguments_.What == Verb::Find) {
            SortOutMine(arguments_.Files, arguments_.Find);
        }
        duplicates_.Take(arguments_);
        CheckFiles();
        if (arguments_.What == Verb::Convert || arguments_.What == Verb::Clean ||
            arguments_.What == Verb::Find) {
            target_.Take(arguments_);
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
        Repeated(verb->add_option(
                     "--map", maps_, "Take a column of CSV for a field, whatever its header says"))
            ->type_name("HEADER=FIELD")
            ->check(&CheckMapping);
        AddPrinting(*verb);
        return verb;
    }

    void AddPrinting(CLI::App& verb) {
        verb.add_flag("--json", arguments_.Json, "Print an object a line instead of text");
        Single(verb.add_option("--report", arguments_.Report, "Write what became of each value"))
            ->type_name("FILE")
            ->check(&CheckNoStream);
        verb.add_flag("--force", arguments_.Force, "Replace files that are there without asking");
    }

    void AddNewSince() {
        Repeated(convert_->add_option(
                     "--new-since", arguments_.NewSince, "Leave out the people of an older book"))
            ->type_name("OLD")
            ->check(&CheckName);
    }

    void AddFind() {
        find_ = app_.add_subcommand("find", "Find the people in mail, and write them");
        find_->failure_message(&cli::UsageMessage);
        find_->footer(std::string(kExamplesOfFind) + kStatuses);
        AddFindOptions(*find_, arguments_.Files, arguments_.Find);
        AddPrinting(*find_);
        target_.AddTo(*find_, arguments_);
    }

    // Whoever writes an option before the verb is told where it belongs, and that there is a verb
    // whoever begins with a file.
    static void CheckOrder(const std::vector<std::string>& words) {
        constexpr std::array<std::string_view, 7> kVerbs = {
            "show", "convert", "check", "diff", "find", "dupes", "clean"};
        constexpr std::array<std::string_view, 3> kBefore = {"-h", "--help", "--version"};
        const bool option = words.size() > 1 && words[1].size() > 1 && words[1].starts_with('-') &&
                            std::find(kBefore.begin(), kBefore.end(), words[1]) == kBefore.end();
        const auto verb =
            std::find_first_of(words.begin(), words.end(), kVerbs.begin(), kVerbs.end());
        if (option && verb != words.end()) {
            throw CLI::ValidationError(words[1], "options stand behind the verb " + *verb);
        }
        const bool other = words.size() > 1 && !words[1].starts_with('-') &&
                           std::find(kVerbs.begin(), kVerbs.end(), words[1]) == kVerbs.end();
        if (words.size() == 1 || other) {
            throw CLI::ValidationError(other ? words[1] : "orvik-book",
                                       "a verb stands first: show, convert, check, diff, find, "
                                       "dupes or clean");
        }
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

    CLI::App app_;
    Arguments arguments_;
    std::vector<std::string> maps_;
    CLI::App* show_ = nullptr;
    CLI::App* convert_ = nullptr;
    CLI::App* check_ = nullptr;
    CLI::App* diff_ = nullptr;
    CLI::App* find_ = nullptr;
    CLI::App* dupes_ = nullptr;
    CLI::App* clean_ = nullptr;
    TargetOptions target_;
    CleanOptions duplicates_;
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
