#include "book/old/read_pegasus_list.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "app/text.h"
#include "book/lines.h"
#include "book/old/entry_builder.h"
#include "book/old/mailboxes.h"
#include "book/old/plain_entry.h"
#include "book/old/read_plain_list.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kListTitle = "TITLE";

struct ListSetting {
    std::string_view Keyword;
    std::string_view Value;
};

// "\TITLE Friends "; nothing for a line that is none of the program's own.
std::optional<ListSetting> SettingOf(std::string_view line) {
    if (!line.starts_with('\\')) {
        return std::nullopt;
    }
    line.remove_prefix(1);
    const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
    return ListSetting{line.substr(0, end), WithoutBlanksAround(line.substr(end))};
}

// "lists/TEAM.PML" -> "TEAM"
std::string_view BaseOfName(std::string_view file) {
    file.remove_prefix(file.find_last_of("/\\") + 1);
    const std::size_t dot = file.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? file : file.substr(0, dot);
}

class ListReader {
 public:
    ListReader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), source_(book.SourceAt(file)), entry_(book, file, charset) {}

    // The people come before the list: a line that begins both is the person's.
    void Read() {
        Line line;
        for (Lines lines(source_.Text(), source_.Signs().Cr); lines.Next(line);) {
            last_ = line.Number;
            if (const auto setting = SettingOf(line.Text)) {
                settings_.push_back({*setting, line.Number});
            } else if (!WithoutBlanksAround(line.Text).empty()) {
                TakeMember(line);
            }
        }
        if (last_ > 0) {
            AddList();
        }
    }

 private:
    struct Member {
        std::uint32_t Line = 0;
        std::string_view Words = {};  // a name, or another list
        Mailbox Person = {};          // of several in one line
    };
    struct SettingLine {
        ListSetting Is;
        std::uint32_t Line = 0;
    };

    void TakeMember(const Line& line) {
        const std::string_view text = WithoutBlanksAround(line.Text);
        std::vector<Mailbox> boxes = MailboxesOf(text);
        const bool people = std::all_of(
            boxes.begin(), boxes.end(), [](const Mailbox& box) { return !box.Address.empty(); });
        if (text.starts_with('@') || !people || boxes.empty()) {
            return members_.push_back({line.Number, text});
        }
        const bool several = boxes.size() > 1;
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            entry_.Begin(line.Text, line.Number, 1, ContactKind::Person, {&text, 1});
            if (i == 0) {
                boxes = MailboxesOf(entry_.LettersOfName(text, {}));
            }
            if (entry_.AreExchanged(boxes[i].Name, boxes[i].Address)) {
                std::swap(boxes[i].Name, boxes[i].Address);
            }
            entry_.PushName(book_.Keep(boxes[i].Name), line.Number);
            entry_.PushKept(field::kEmail, boxes[i].Address, line.Number);
            entry_.End();
            // Who is not the first in a line is found by address.
            members_.push_back({line.Number, {}, several ? boxes[i] : Mailbox{}});
        }
    }

    void AddList() {
        // Who has an address has letters of his own.
        std::vector<std::string_view> values;
        for (const SettingLine& one : settings_) {
            values.push_back(one.Is.Value);
        }
        for (const Member& one : members_) {
            values.push_back(one.Words);
        }
        entry_.Begin(source_.Text(), 1, last_, ContactKind::List, values);
        AddSettings();
        for (const Member& one : members_) {
            if (!one.Words.empty()) {
                entry_.PushMember({}, entry_.Letters(one.Words, "MEMBER"), one.Line);
            } else if (!one.Person.Address.empty()) {
                entry_.PushMember(one.Person.Address, one.Person.Name, one.Line);
            } else {
                entry_.PushMemberAt(one.Line, one.Line);
            }
        }
        entry_.End();
    }

    // The first title is the name of the list, else its file's is.
    void AddSettings() {
        const auto title =
            std::find_if(settings_.begin(), settings_.end(), [](const SettingLine& one) {
                return one.Is.Keyword == kListTitle && !one.Is.Value.empty();
            });
        if (title == settings_.end()) {
            entry_.Push(field::kFn, BaseOfName(source_.Name()), 1);
        } else {
            entry_.Push(field::kFn, entry_.LettersOfName(title->Is.Value, kListTitle), title->Line);
        }
        for (auto one = settings_.begin(); one != settings_.end(); ++one) {
            if (one != title && !one->Is.Keyword.empty()) {
                const std::string_view value = entry_.Letters(one->Is.Value, one->Is.Keyword);
                entry_.PushCarried("PML", one->Is.Keyword, value, one->Line);
            }
        }
    }

    Book& book_;
    const Source& source_;
    EntryBuilder entry_;
    std::vector<SettingLine> settings_;
    std::vector<Member> members_;
    std::uint32_t last_ = 0;
};

}  // namespace

bool IsListKeyword(std::string_view word) {
    return std::all_of(
        word.begin(), word.end(), [](char c) { return (c >= 'A' && c <= 'Z') || c == '-'; });
}

bool IsListMember(std::string_view line) {
    constexpr std::size_t kLongest = 200;
    return IsQuotedEntry(line) ||
           (line.size() <= kLongest && line.find_first_of("{}=;\t") == std::string_view::npos);
}

std::optional<std::string> PegasusListEvidence(const Source& source) {
    std::uint32_t first = 0;
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        const auto setting = SettingOf(line.Text);
        if (!setting && !IsListMember(line.Text)) {
            return std::nullopt;
        }
        if (setting && !setting->Keyword.empty()) {
            if (!IsListKeyword(setting->Keyword)) {
                return std::nullopt;
            }
            first = first == 0 ? line.Number : first;
        }
    }
    return first == 0 ? std::nullopt
                      : std::optional("line " + std::to_string(first) + " is a setting of a list");
}

std::optional<std::string> NamedPegasusListEvidence(const Source& source) {
    // What a table is, it is for better reasons.
    if (!HasEnding(source.Name(), ".pml") || IsTable(source)) {
        return std::nullopt;
    }
    bool any = false;
    Line line;
    for (Lines lines(source.Text(), source.Signs().Cr); lines.Next(line);) {
        if (!IsListMember(line.Text)) {
            return std::nullopt;
        }
        any = any || !WithoutBlanksAround(line.Text).empty();
    }
    return any ? std::optional<std::string>("the ending of its name is that of lists")
               : std::nullopt;
}

void ReadPegasusList(Book& book, std::uint32_t file, Charset& charset) {
    ListReader(book, file, charset).Read();
}

}  // namespace orvik::book
