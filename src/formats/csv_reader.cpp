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

bool PassColumns(Columns& columns, int count, UnreadEntries* left_out) {
    std::string_view column;
    for (; count > 0; --count) {
        if (!columns.TakeAndPass(column)) {
            return false;
        }
        if (left_out != nullptr) {
            left_out->Other(column);
        }
    }
    return true;
}

void EndLine(Columns& columns,
             std::string_view email,
             std::string_view nick,
             UnreadEntries* left_out) {
    if (left_out == nullptr) {
        columns.EndLine([](std::string_view /*column*/) {});
        return;
    }
    left_out->Nickname(nick);
    left_out->Address(email);
    columns.EndLine([left_out](std::string_view column) { left_out->Other(column); });
    left_out->EndEntry();
}

}  // namespace

std::optional<std::string> CsvToNative(std::string_view csv, UnreadEntries* left_out) {
    Collector entries;
    std::string_view email;
    std::string_view nick;
    for (Columns columns(csv); !columns.AtEnd();) {
        // Columns 3 to 15 are passed over.
        if (!columns.TakeAndPass(nick) || !columns.TakeAndPass(email) ||
            !PassColumns(columns, 13, left_out)) {
            return std::nullopt;
        }
        entries.Add(email, nick);
        EndLine(columns, email, nick, left_out);
    }
    return std::move(entries).Native();
}

// Column 1 says what kind of entry it is.
std::optional<std::string> WordPerfectToNative(std::string_view csv, UnreadEntries* left_out) {
    Collector entries;
    std::string_view kind;
    std::string_view email;
    std::string_view nick;
    for (Columns columns(csv); !columns.AtEnd();) {
        // Columns 3 to 5 are passed over.
        if (!columns.TakeAndPass(kind) || !columns.TakeAndPass(nick) ||
            !PassColumns(columns, 3, left_out) || !columns.Take(email)) {
            return std::nullopt;
        }
        entries.AddUnquoted(email, nick);
        EndLine(columns, email, nick, left_out);
    }
    return std::move(entries).Native();
}

}  // namespace orvik
