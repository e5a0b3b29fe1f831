#include "formats/csv_reader.h"

#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

// Walks over the columns of a text. A column ends at a comma; where the text has none left, or
// where a comma that is passed over is its last character, the walk fails.
class Columns {
 public:
    // Begins behind the first line.
    explicit Columns(std::string_view text) : text_(text), p_(FindFrom(text, "\n", 1) + 1) {}

    [[nodiscard]] bool AtEnd() const { return p_ > text_.size(); }

    // Goes to the next comma.
    void GoToComma() { p_ = FindFrom(text_, ",", p_); }
    // Goes behind the comma it stands on.
    void PassComma() { ++p_; }

    // Takes what stands before the next comma, and goes to that comma.
    bool Take(std::string_view& column) {
        column = TakeUntil(text_, p_, ",");
        return p_ <= text_.size();
    }

    // Goes behind the count-th comma from here.
    bool PassCommas(int count) {
        for (; count > 0; --count) {
            GoToComma();
            if (p_ >= text_.size()) {
                return false;
            }
            PassComma();
        }
        return true;
    }

    // Goes to the next line.
    void EndLine() { p_ = FindFrom(text_, kCrLf, p_) + kCrLf.size(); }

 private:
    std::string_view text_;
    std::size_t p_;
};

// Collects the entries of a file in the Native form.
class Collector {
 public:
    void Add(std::string_view email, std::string_view nick) {
        emails_.append(email).append(kCrLf);
        nicks_.append(nick).append(kCrLf);
    }
    void AddUnquoted(std::string_view email, std::string_view nick) {
        AppendWithout(emails_, email, '"');
        AppendWithout(nicks_, nick, '"');
        Add("", "");
    }
    [[nodiscard]] std::string Native() const {
        return std::string(emails_).append(kNick).append(kCrLf).append(nicks_);
    }

 private:
    std::string emails_;
    std::string nicks_;
};

}  // namespace

std::optional<std::string> CsvToNative(std::string_view csv) {
    Collector entries;
    std::string_view email;
    std::string_view nick;
    for (Columns columns(csv); !columns.AtEnd(); columns.EndLine()) {
        if (!columns.Take(nick)) {
            return std::nullopt;
        }
        columns.PassComma();
        // The commas that end columns 2 to 15.
        if (!columns.Take(email) || !columns.PassCommas(14)) {
            return std::nullopt;
        }
        entries.Add(email, nick);
    }
    return entries.Native();
}

std::optional<std::string> WordPerfectToNative(std::string_view csv) {
    Collector entries;
    std::string_view email;
    std::string_view nick;
    for (Columns columns(csv); !columns.AtEnd(); columns.EndLine()) {
        columns.GoToComma();
        columns.PassComma();
        if (!columns.Take(nick)) {
            return std::nullopt;
        }
        columns.PassComma();
        // The commas that end columns 3 to 5.
        if (!columns.PassCommas(3) || !columns.Take(email)) {
            return std::nullopt;
        }
        entries.AddUnquoted(email, nick);
    }
    return entries.Native();
}

}  // namespace orvik
