#include "book_cli/option_checks.h"

#include "book_cli/book_arguments.h"

namespace orvik::book_cli {

CLI::Option* Single(CLI::Option* option) {
    return option->expected(1)->allow_extra_args(false);
}

CLI::Option* Repeated(CLI::Option* option) {
    return Single(option)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

std::string CheckName(const std::string& name) {
    return name.empty() ? "a file's name is empty" : "";
}

std::string CheckNoStream(const std::string& name) {
    return name == kStandardStream
               ? "- would be a standard stream, which is for books; a file of this name is ./-"
               : CheckName(name);
}

}  // namespace orvik::book_cli
