#include "cli/words.h"

#include <new>
#include <sstream>
#include <string_view>

#include "app/printable.h"

namespace orvik::cli {

Words::Words(int argc, const char* const* argv) {
    for (int i = 0; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word.starts_with("--") && word.find('=') + 1 == word.size()) {
            words_.emplace_back(word.substr(0, word.size() - 1));
            words_.emplace_back();
        } else {
            words_.emplace_back(word);
        }
    }
    pointers_.reserve(words_.size());
    for (const std::string& word : words_) {
        pointers_.push_back(word.c_str());
    }
}

std::string UsageMessage(const CLI::App* app, const CLI::Error& error) {
    return CLI::FailureMessage::simple(
        app, CLI::Error(error.get_name(), Printable(error.what()), error.get_exit_code()));
}

ExitStatus Explain(const CLI::App& app,
                   const CLI::ParseError& error,
                   std::ostream& out,
                   std::ostream& err) {
    const std::string help = app.help();
    std::ostringstream text;
    if (app.exit(error, text, err) != 0) {
        return ExitStatus::Usage;
    }
    // A stream that lacks memory leaves out letters without a word, also inside the parser.
    if (text.fail() || (error.get_name() == "CallForHelp" && text.view() != help)) {
        throw std::bad_alloc();
    }
    out << text.view();
    if (!out.flush()) {
        err << app.get_name() << ": Standard output cannot be written to\n";
        return ExitStatus::InputOutput;
    }
    return ExitStatus::Done;
}

}  // namespace orvik::cli
