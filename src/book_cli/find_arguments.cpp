#include "book_cli/find_arguments.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <string_view>

#include "book/mail/people.h"
#include "book_cli/book_arguments.h"
#include "book_cli/option_checks.h"

namespace orvik::book_cli {
namespace {

// Takes so many digits from the start; false if there are others or none.
bool TakeNumber(std::string_view& text, std::size_t digits, int& number) {
    const std::string_view part = text.substr(0, digits);
    const auto read = std::from_chars(part.data(), part.data() + part.size(), number);
    const bool good = part.size() == digits && part.front() != '-' && part.front() != '+' &&
                      read.ec == std::errc() && read.ptr == part.data() + part.size();
    text.remove_prefix(part.size());
    return good;
}

// The beginning of a day "2024-05-31"; kNoTime for what is none.
book::MailTime DayOf(std::string_view text) {
    using namespace std::chrono;
    int y = 0;
    int m = 0;
    int d = 0;
    const auto take_hyphen = [&text] {
        const bool there = text.starts_with('-');
        text.remove_prefix(there ? 1 : 0);
        return there;
    };
    if (!TakeNumber(text, 4, y) || !take_hyphen() || !TakeNumber(text, 2, m) || !take_hyphen() ||
        !TakeNumber(text, 2, d) || !text.empty()) {
        return book::kNoTime;
    }
    const year_month_day date{
        year{y}, month{static_cast<unsigned>(m)}, day{static_cast<unsigned>(d)}};
    return date.ok()
               ? book::MailTime{duration_cast<seconds>(sys_days{date}.time_since_epoch()).count()}
               : book::kNoTime;
}

std::string CheckPath(const std::string& path) {
    return path == kStandardStream ? "find reads files and folders; a file of this name is ./-"
                                   : CheckName(path);
}

std::string CheckDay(const std::string& text) {
    return DayOf(text) == book::kNoTime ? "no day as 2024-05-31 is: " + text : "";
}

bool IsPath(const std::string& word) {
    const std::size_t at = word.find('@');
    return at == std::string::npos || word.find('/') < at;
}

}  // namespace

void AddFindOptions(CLI::App& verb, std::vector<std::string>& paths, FindArguments& arguments) {
    verb.add_option("PATHS", paths, "Mail: folders, mbox files, Maildirs, messages, any other text")
        ->type_name("PATH")
        ->check(&CheckPath);
    verb.add_flag("--headers-only", arguments.HeadersOnly, "Look at no texts of messages");
    Single(verb.add_option("--min", arguments.Least, "Leave out whoever is in fewer messages"))
        ->type_name("N")
        ->check(CLI::Range(std::size_t{1}, std::size_t{1} << 31U));
    Single(verb.add_option_function<std::string>(
               "--since",
               [&arguments](const std::string& text) { arguments.Since = DayOf(text); },
               "Leave out older mail, and what has no date"))
        ->type_name("YYYY-MM-DD")
        ->check(&CheckDay);
    verb.add_option("--me", arguments.Mine, "Leave out your own addresses")->type_name("ADDRESS");
    verb.add_flag("--no-reply",
                  arguments.NoReply,
                  "Keep addresses that nobody reads, which are left out otherwise");
}

void SortOutMine(std::vector<std::string>& paths, FindArguments& arguments) {
    std::vector<std::string>& mine = arguments.Mine;
    const auto behind = std::stable_partition(
        mine.begin(), mine.end(), [](const std::string& word) { return !IsPath(word); });
    for (auto one = behind; one != mine.end(); ++one) {
        if (const std::string mistake = CheckPath(*one); !mistake.empty()) {
            throw CLI::ValidationError("PATHS", mistake);
        }
    }
    paths.insert(paths.end(), behind, mine.end());
    mine.erase(behind, mine.end());
    for (const std::string& one : mine) {
        if (book::FoldedAddress(one).empty()) {
            throw CLI::ValidationError("--me", "no address: " + one);
        }
    }
    if (paths.empty()) {
        throw CLI::RequiredError("PATHS");
    }
}

}  // namespace orvik::book_cli
