#include "formats/csv_reader.h"

#include <utility>

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
    [[nodiscard]] std::string Native() && {
        emails_.append(kNick).append(kCrLf).append(nicks_);
        return std::move(emails_);
    }

 private:
    std::string emails_;
    std::string nicks_;
};

Columns BehindFirstLine(std::string_view text) {
    const std::size_t end = text.find('\n');
    return Columns(text, end == std::string_view::npos ? text.size() : end + 1);
}

// Gives each line to add. Returns false if the text ends inside a column.
template <ColumnLayout kLayout, class Add>
bool TakeLines(std::string_view csv, UnreadEntries* left_out, const Add& add) {
    UnreadEntries nobodys;
    UnreadEntries& unread = left_out != nullptr ? *left_out : nobodys;
    ColumnLine line;
    for (Columns columns = BehindFirstLine(csv); !columns.AtEnd();) {
        if (!TakeLine<kLayout>(columns, line, unread)) {
            return false;
        }
        add(line);
        unread.EndEntry();
    }
    return true;
}

}  // namespace

std::optional<std::string> CsvToNative(std::string_view csv, UnreadEntries* left_out) {
    Collector entries;
    const auto add = [&](const ColumnLine& line) { entries.Add(line.Address, line.Nickname); };
    if (!TakeLines<kCsv>(csv, left_out, add)) {
        return std::nullopt;
    }
    return std::move(entries).Native();
}

std::optional<std::string> WordPerfectToNative(std::string_view csv, UnreadEntries* left_out) {
    Collector entries;
    const auto add = [&](const ColumnLine& line) {
        entries.AddUnquoted(line.Address, line.Nickname);
    };
    if (!TakeLines<kWordPerfect>(csv, left_out, add)) {
        return std::nullopt;
    }
    return std::move(entries).Native();
}

}  // namespace orvik
