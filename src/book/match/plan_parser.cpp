#include <algorithm>
#include <charconv>
#include <unordered_set>
#include <utility>

#include <glib.h>

#include "book/match/plan.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kSumLength = 64;

bool IsSum(std::string_view text) {
    return text.size() == kSumLength &&
           std::all_of(text.begin(), text.end(), [](char c) { return g_ascii_isxdigit(c); });
}

void SkipBlanks(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
}

// A word up to a blank; the name in quotes at its beginning may hold some. False for a quote that
// is never closed, or for an escape that is none.
struct Word {
    std::string Name;  // what stood in quotes; or all of the word
    std::string_view Behind;
    bool IsQuoted = false;
};

bool TakeQuoted(std::string_view& rest, std::string& name) {
    rest.remove_prefix(1);
    for (; !rest.empty() && rest.front() != '"'; rest.remove_prefix(1)) {
        if (rest.front() != '\\') {
            name += rest.front();
            continue;
        }
        rest.remove_prefix(1);
        if (rest.starts_with('"') || rest.starts_with('\\')) {
            name += rest.front();
        } else if (rest.size() > 2 && rest.front() == 'x' && g_ascii_isxdigit(rest[1]) &&
                   g_ascii_isxdigit(rest[2])) {
            name += static_cast<char>(g_ascii_xdigit_value(rest[1]) * 16 +
                                      g_ascii_xdigit_value(rest[2]));
            rest.remove_prefix(2);
        } else {
            return false;
        }
    }
    if (rest.empty()) {
        return false;
    }
    rest.remove_prefix(1);
    return true;
}

bool TakeWord(std::string_view& rest, Word& word) {
    word = {};
    word.IsQuoted = rest.starts_with('"');
    if (word.IsQuoted && !TakeQuoted(rest, word.Name)) {
        return false;
    }
    const std::string_view plain =
        rest.substr(0, std::min(rest.find_first_of(" \t#"), rest.size()));
    rest.remove_prefix(plain.size());
    if (word.IsQuoted) {
        word.Behind = plain;
    } else {
        word.Name = plain;
    }
    return true;
}

class PlanParser {
 public:
    Plan Parse(std::string_view text) && {
        constexpr std::string_view kMark = "\xEF\xBB\xBF";
        if (text.starts_with(kMark)) {
            text.remove_prefix(kMark.size());
        }
        while (!text.empty()) {
            const std::size_t end = std::min(text.find('\n'), text.size());
            ++number_;
            TakeLine(WithoutBlanksAround(text.substr(0, end)));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        if (plan_.Sources.empty() && !plan_.LacksSource) {
            plan_.LacksSource = true;
            plan_.Errors.insert(
                plan_.Errors.begin(),
                {1, "the plan names no source; a line \"# source FILE SHA-256\" does for each"});
        }
        return std::move(plan_);
    }

 private:
    void TakeLine(std::string_view line) {
        if (line.starts_with('#')) {
            TakeComment(line.substr(1));
        } else if (!line.empty()) {
            TakeAction(line);
        }
    }

    // Anything else behind the sign is a comment, also about sources.
    void TakeComment(std::string_view rest) {
        SkipBlanks(rest);
        Word word;
        if (!TakeWord(rest, word) || word.Name != "source" || word.IsQuoted) {
            return;
        }
        SkipBlanks(rest);
        Word file;
        if (!TakeWord(rest, file)) {
            return FailAsSource("the name of a source has a quote that is not closed");
        }
        SkipBlanks(rest);
        Word sum;
        const bool whole = TakeWord(rest, sum) && IsSum(sum.Name) && file.Behind.empty();
        if (!whole || !WithoutBlanksAround(rest).empty()) {
            return FailAsSource("a source needs its name and the 64 digits of its SHA-256");
        }
        if (!names_.insert(file.Name).second) {
            return Fail("this source is named twice");
        }
        plan_.Sources.push_back({std::move(file.Name), std::move(sum.Name), number_});
    }

    void TakeAction(std::string_view rest) {
        Word word;
        const bool has_word = TakeWord(rest, word) && !word.IsQuoted;
        const auto* const found = std::find(kActionNames.begin(), kActionNames.end(), word.Name);
        if (!has_word || found == kActionNames.end()) {
            return Fail("a line begins with merge, ask, keep or #");
        }
        PlannedLine line{static_cast<Action>(found - kActionNames.begin()), {}, number_, {}};
        for (SkipBlanks(rest); !rest.empty() && rest.front() != '#'; SkipBlanks(rest)) {
            if (!TakePlace(rest, line)) {
                return;
            }
        }
        if (line.Places.empty()) {
            return Fail("no record is named, as FILE:LINE");
        }
        if (!rest.empty()) {
            line.Comment = WithoutBlanksAround(rest.substr(1));
        }
        plan_.Lines.push_back(std::move(line));
    }

    bool TakePlace(std::string_view& rest, PlannedLine& line) {
        Word word;
        if (!TakeWord(rest, word)) {
            Fail("the name of a file has a quote that is not closed");
            return false;
        }
        const std::string_view whole = word.IsQuoted ? word.Behind : std::string_view(word.Name);
        const std::size_t colon = whole.rfind(':');
        const bool placed = colon != std::string_view::npos && (!word.IsQuoted || colon == 0);
        const std::string_view digits = placed ? whole.substr(colon + 1) : std::string_view{};
        PlanPlace place;
        const char* const end = digits.data() + digits.size();
        const auto read = std::from_chars(digits.data(), end, place.Line);
        if (digits.empty() || read.ec != std::errc() || read.ptr != end) {
            Fail("a record is named as FILE:LINE, with the name in quotes where it has blanks");
            return false;
        }
        place.File = word.IsQuoted ? word.Name : std::string(whole.substr(0, colon));
        line.Places.push_back(std::move(place));
        return true;
    }

    void FailAsSource(std::string text) {
        Fail(std::move(text));
        plan_.LacksSource = true;
    }

    void Fail(std::string text) { plan_.Errors.push_back({number_, std::move(text)}); }

    Plan plan_;
    std::unordered_set<std::string> names_;
    std::size_t number_ = 0;
};

}  // namespace

Plan ParsePlan(std::string_view text) {
    return PlanParser().Parse(text);
}

}  // namespace orvik::book
