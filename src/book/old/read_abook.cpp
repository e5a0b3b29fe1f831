#include "book/old/read_abook.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "book/lines.h"
#include "book/old/entry_builder.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

struct AbookKey {
    std::string_view Text;
    NameId Name;
    std::string_view Types = {};
};
constexpr std::array kAbookKeys = {
    AbookKey{"nick", field::kNickname},
    AbookKey{"phone", field::kTel, "home"},
    AbookKey{"workphone", field::kTel, "work"},
    AbookKey{"fax", field::kTel, "fax"},
    AbookKey{"mobile", field::kTel, "cell"},
    AbookKey{"url", field::kUrl},
    AbookKey{"notes", field::kNote},
    AbookKey{"anniversary", field::kAnniversary},
};
// Where each stands in ADR; the second line of the address is below the first.
constexpr std::array<std::string_view, 6> kAbookPost = {
    "address", "address2", "city", "state", "zip", "country"};

bool IsAbookFormat(std::string_view section) {
    return WithoutBlanksAround(section) == "[format]";
}

struct AbookRow {
    std::string_view Text;
    std::uint32_t Number = 0;
};

class AbookReader {
 public:
    AbookReader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), file_(file), entry_(book, file, charset) {}

    void Read() {
        const Source& source = book_.SourceAt(file_);
        Line line;
        for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
            if (IsAbookSection(line.Text)) {
                Finish();
                state_ = IsAbookFormat(line.Text) ? State::Format : State::Entry;
                first_ = line;
                last_ = line;
            } else if (line.Text.starts_with('[')) {
                // What is never closed ends the item, and nothing is read up to the next one.
                Finish();
                state_ = State::Outside;
                entry_.Skip(line.Text, line.Number, Reason::NotBegun);
            } else if (WithoutBlanksAround(line.Text).empty() || line.Text.starts_with('#') ||
                       state_ == State::Format) {
                continue;
            } else if (state_ == State::Entry) {
                rows_.push_back({line.Text, line.Number});
                last_ = line;
            } else {
                entry_.Skip(line.Text, line.Number, Reason::NotBegun);
            }
        }
        Finish();
    }

 private:
    enum class State { Outside, Format, Entry };

    void Finish() {
        if (state_ != State::Entry) {
            return;
        }
        std::vector<std::string_view> values;
        values.reserve(rows_.size());
        for (const AbookRow& row : rows_) {
            values.push_back(row.Text);
        }
        const char* const end = last_.WithEnd.data() + last_.WithEnd.size();
        entry_.Begin({first_.Text.data(), static_cast<std::size_t>(end - first_.Text.data())},
                     first_.Number,
                     last_.Number - first_.Number + 1,
                     ContactKind::Person,
                     values);
        for (const AbookRow& row : rows_) {
            Take(row);
        }
        PushPost();
        entry_.End();
        rows_.clear();
    }

    void Take(const AbookRow& row) {
        const std::size_t equal = row.Text.find('=');
        if (equal == std::string_view::npos) {
            const std::string_view text = entry_.Letters(row.Text, {});
            entry_.Doubt({}, text, Reason::NoField);
            return entry_.PushCarried("ABOOK", "no-field", text, row.Number);
        }
        const std::string_view key = WithoutBlanksAround(row.Text.substr(0, equal));
        const std::string_view raw = WithoutBlanksAround(row.Text.substr(equal + 1));
        if (raw.empty()) {
            return;
        }
        if (key == "name") {
            return entry_.PushName(entry_.LettersOfName(raw, key), row.Number);
        }
        const std::string_view value = entry_.Letters(raw, key);
        const auto* const post = std::find(kAbookPost.begin(), kAbookPost.end(), key);
        const auto* const known =
            std::find_if(kAbookKeys.begin(), kAbookKeys.end(), [key](const AbookKey& one) {
                return one.Text == key;
            });
        if (key == "email") {
            PushEach(field::kEmail, value, row.Number);
        } else if (key == "groups") {
            PushEach(field::kCategories, value, row.Number);
        } else if (post != kAbookPost.end() && PostOf(post).Text.empty()) {
            PostOf(post) = {value, row.Number};
        } else if (known == kAbookKeys.end()) {
            entry_.PushCarried("ABOOK", key, value, row.Number);
        } else if (known->Name == field::kNickname) {
            entry_.PushWords(known->Name, value, row.Number);
        } else {
            entry_.Push(known->Name, value, row.Number, entry_.Types(known->Types));
        }
    }

    AbookRow& PostOf(const std::string_view* key) {
        return post_[static_cast<std::size_t>(key - kAbookPost.begin())];
    }

    void PushEach(NameId name, std::string_view list, std::uint32_t line) {
        while (!list.empty()) {
            const std::size_t comma = std::min(list.find(','), list.size());
            const std::string_view one = WithoutBlanksAround(list.substr(0, comma));
            if (!one.empty() && name == field::kCategories) {
                entry_.PushWords(name, one, line);
            } else if (!one.empty()) {
                entry_.Push(name, one, line);
            }
            list.remove_prefix(std::min(comma + 1, list.size()));
        }
    }

    void PushPost() {
        std::string value = ";;";
        std::uint32_t line = 0;
        for (std::size_t i = 0; i < post_.size(); ++i) {
            const bool second = i == 1;
            const bool below = second && !post_[i].Text.empty() && !post_[0].Text.empty();
            value += second ? (below ? "\\n" : "") : i == 0 ? "" : ";";
            AppendEscaped(post_[i].Text, value);
            line = line == 0 ? post_[i].Number : line;
        }
        post_ = {};
        if (line > 0) {
            entry_.PushKept(field::kAdr, value, line);
        }
    }

    Book& book_;
    std::uint32_t file_;
    EntryBuilder entry_;
    State state_ = State::Outside;
    Line first_;
    Line last_;
    std::vector<AbookRow> rows_;
    std::array<AbookRow, kAbookPost.size()> post_{};
};

}  // namespace

std::optional<std::string> AbookEvidence(const Source& source) {
    bool format = false;
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        const std::string_view text = WithoutBlanksAround(line.Text);
        if (text == "# abook addressbook file" || (format && text == "program=abook")) {
            return "line " + std::to_string(line.Number) + " names abook";
        }
        if (text.empty() || text.starts_with('#')) {
            continue;
        }
        if (!IsAbookFormat(text) && !format) {
            return std::nullopt;
        }
        if (IsAbookSection(text) && !IsAbookFormat(text)) {
            return std::nullopt;
        }
        format = true;
    }
    return std::nullopt;
}

bool IsAbookKeyword(std::string_view key) {
    return key == "name" || key == "email" || key == "groups" ||
           std::find(kAbookPost.begin(), kAbookPost.end(), key) != kAbookPost.end() ||
           std::any_of(kAbookKeys.begin(), kAbookKeys.end(), [key](const AbookKey& one) {
               return one.Text == key;
           });
}

// What is never closed is no section.
bool IsAbookSection(std::string_view line) {
    return line.starts_with('[') && line.find(']') != std::string_view::npos;
}

void ReadAbook(Book& book, std::uint32_t file, Charset& charset) {
    AbookReader(book, file, charset).Read();
}

}  // namespace orvik::book
