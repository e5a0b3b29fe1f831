#include "formats/csv_reader.h"

#include "app/text.h"
#include "app/working_text.h"
#include "formats/columns.h"

namespace orvik {
namespace {

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
