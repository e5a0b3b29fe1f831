#include "batch/arguments.h"

#include <algorithm>
#include <map>
#include <string_view>

#include <CLI/CLI.hpp>

#include "cli/words.h"
#include "formats/endings.h"

namespace orvik::batch {
namespace {

constexpr const char* kExamples =
    "Steps run in the order given; the first one that fails ends the run.\n"
    "\n"
    "Examples:\n"
    "  orvik-batch --open book.nv --sort address --save book.ldif\n"
    "  orvik-batch --extract Inbox --answer yes --save found.txt\n"
    "  orvik-batch --open home.ldif --merge work.csv --save all.ldif --save all.txt\n"
    "  orvik-batch --pim book.ldif organiser.csv\n"
    "\n"
    "--sort takes up to 500 entries, and nothing here removes duplicates. orvik-book does both\n"
    "without limit:\n"
    "  orvik-book convert book.ldif --sort address -o sorted.ldif\n"
    "  orvik-book clean book.ldif -o clean.ldif\n"
    "\n"
    "Each entry is an address and a nickname. Books with all of their fields, of any\n"
    "length, with other line ends and of other programs are read by orvik-book:\n"
    "  orvik-book convert book.nv -o contacts.vcf\n"
    "\n"
    "Exit status: 0 done, 1 a message reported a problem, 2 usage, 66 no input,\n"
    "71 out of memory, 73 cannot create, 74 input/output error.";

// What is wrong with the name of a file, empty if nothing is.
std::string CheckName(const std::string& name) {
    if (name == "-") {
        return "- would be standard input or output, which is no book: the ending of its name "
               "tells "
               "the format, and it may be read twice. A file of this name is ./-";
    }
    return name.empty() ? "a file's name is empty" : "";
}

//   Saving::Replaces  ->  ".ldif, .txt"
std::string EndingsThat(Saving way) {
    std::string list;
    for (const Ending& ending : Endings()) {
        if (ending.Way == way) {
            list.append(list.empty() ? "." : ", .").append(ending.Text);
        }
    }
    return list;
}

// The options that are steps, and the steps behind them in the order given.
class StepOptions {
 public:
    void Add(CLI::Option* option, Command what) { commands_[option] = what; }

    [[nodiscard]] std::vector<Step> Steps(const CLI::App& app) const {
        std::vector<Step> steps;
        std::map<const CLI::Option*, std::size_t> taken;
        for (const CLI::Option* const option : app.parse_order()) {
            const auto known = commands_.find(option);
            const std::vector<std::string>& values = option->results();
            // An option stands there once for each of its values.
            if (known == commands_.end() || taken[option] >= values.size()) {
                continue;
            }
            const auto next = [&] { return values.at(taken[option]++); };
            Step step{known->second, {}, {}};
            switch (step.What) {
                case Command::Automation:
                    next();
                    break;
                case Command::SortByAddress:
                case Command::SortByNickname:
                    step.What =
                        next() == "address" ? Command::SortByAddress : Command::SortByNickname;
                    break;
                case Command::Pim:
                    step.File = next();
                    step.Output = next();
                    break;
                default:
                    step.File = next();
            }
            steps.push_back(std::move(step));
        }
        return steps;
    }

 private:
    std::map<const CLI::Option*, Command> commands_;
};

}  // namespace

bool Arguments::UsesSettings() const {
    return std::any_of(Steps.begin(), Steps.end(), [](const Step& step) {
        return step.What == Command::Automation;
    });
}

std::variant<Arguments, Status> ParseArguments(int argc,
                                               const char* const* argv,
                                               std::ostream& out,
                                               std::ostream& err) {
    CLI::App app("Opens, sorts, merges and converts e-mail address books without a window.",
                 "orvik-batch");
    app.set_version_flag("--version", "orvik-batch " ORVIK_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.footer(kExamples);
    app.failure_message(&cli::UsageMessage);

    StepOptions steps;
    std::vector<std::string> ignored;
    // Without extra arguments a name in brackets is no list of names.
    const auto file = [&](const char* name, Command what, const std::string& description) {
        CLI::Option* const option = app.add_option(name, ignored, description)
                                        ->type_name("FILE")
                                        ->allow_extra_args(false)
                                        ->check(&CheckName);
        steps.Add(option, what);
        return option;
    };
    CLI::Option* const open =
        file("--open", Command::Open, "Open an address book; its ending tells the format");
    CLI::Option* const extract =
        file("--extract", Command::Extract, "Take the addresses out of any file");
    open->expected(1)->excludes(extract->expected(1));
    file("--merge", Command::Merge, "Join another address book to the entries");
    steps.Add(app.add_option("--sort", ignored, "Sort the entries, up to 500 of them")
                  ->type_name("KEY")
                  ->expected(1)
                  ->allow_extra_args(false)
                  ->check(CLI::IsMember({"address", "nickname"})),
              Command::SortByAddress);
    file("--save",
         Command::Save,
         "Save the entries in the format of the file's ending; a file that is there is replaced (" +
             EndingsThat(Saving::Replaces) + ") or added to (" + EndingsThat(Saving::Adds) + ")");
    steps.Add(app.add_option("--pim", ignored, "Export an LDIF file for a handheld organiser")
                  ->type_name("IN OUT")
                  ->expected(2)
                  ->allow_extra_args(false)
                  ->check(&CheckName),
              Command::Pim);
    Arguments arguments;
    bool automation = false;
    steps.Add(
        app.add_flag("--automation", automation, "Run the automation that the preferences store"),
        Command::Automation);
    std::string separator;
    std::string reply = "no";
    app.add_option("--separator", separator, "What separates the entries of text lists")
        ->type_name("SIGN")
        ->check(CLI::IsMember({"newline", "comma"}));
    app.add_option("--answer", reply, "What every question is answered")
        ->capture_default_str()
        ->type_name("WORD")
        ->check(CLI::IsMember({"yes", "no"}));
    app.add_flag("-q,--quiet", arguments.Quiet, "Tell problems only");

    try {
        const cli::Words words(argc, argv);
        app.parse(words.Count(), words.Pointers());
        arguments.Steps = steps.Steps(app);
        if (arguments.Steps.empty()) {
            throw CLI::RequiredError("A step");
        }
    } catch (const CLI::ParseError& error) {
        return cli::Explain(app, error, out, err);
    }
    if (!separator.empty()) {
        arguments.EntriesBy = separator == "comma" ? Separator::Comma : Separator::Newline;
    }
    arguments.Reply = reply == "yes" ? Answer::Yes : Answer::No;
    return arguments;
}

}  // namespace orvik::batch
