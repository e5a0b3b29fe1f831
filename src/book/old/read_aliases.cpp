#include "book/old/read_aliases.h"

#include <cstddef>
#include <deque>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "app/text.h"
#include "book/old/alias_lines.h"
#include "book/old/alias_text.h"
#include "book/old/entry_builder.h"
#include "book/old/nicknames.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// An alias, with all lines that have its name.
struct Alias {
    struct Part {
        std::string_view Text;  // behind the name
        std::uint32_t Line = 0;
        std::string_view Groups = {};  // "-group a -group b "
    };
    std::string_view Name;
    std::string_view Bytes;
    std::uint32_t Line = 0;
    std::uint32_t Lines = 0;
    std::vector<Part> Parts;
};

class AliasReader {
 public:
    AliasReader(Book& book, std::uint32_t file, Charset& charset, bool mutt)
        : book_(book), file_(file), entry_(book, file, charset), mutt_(mutt) {}

    void Read() {
        LongLine line;
        for (LongLines lines(book_.SourceAt(file_)); lines.Next(line);) {
            Collect(line);
        }
        TellSettings();
        for (const Alias& one : aliases_) {
            nicknames_.Add(one.Name, one.Line);
        }
        for (const Alias& one : aliases_) {
            Take(one);
        }
    }

 private:
    void Collect(const LongLine& line) {
        std::string_view rest = WithoutBlanksAround(line.Text);
        if (rest.empty() || rest.starts_with('#')) {
            return;
        }
        // Those of several lines stand in no source.
        rest = line.Lines > 1 ? book_.Keep(rest) : rest;
        const std::string_view whole = rest;
        const std::string_view word = TakeWord(rest, false);
        if (SameName(word, "alias") || (!mutt_ && word == "group")) {
            const std::string_view groups = mutt_ ? TakeGroups(rest) : std::string_view{};
            if (const std::string_view name = Unquoted(TakeWord(rest, true)); !name.empty()) {
                return Add(name, {rest, line.Number, groups}, line);
            }
        }
        if (word == "source") {
            return entry_.Skip(whole, line.Number, Reason::NamedFile);
        }
        setting_ = settings_ == 0 ? whole : setting_;
        setting_line_ = settings_ == 0 ? line.Number : setting_line_;
        ++settings_;
    }

    // All of them once, as there may be many more than aliases.
    void TellSettings() {
        if (settings_ > 0) {
            const std::string others =
                settings_ == 1 ? ""
                               : " (and " + std::to_string(settings_ - 1) + " more of the file)";
            entry_.Skip(book_.Keep(std::string(setting_) + others), setting_line_, Reason::Setting);
        }
    }

    static std::string_view TakeGroups(std::string_view& rest) {
        const char* const begin = rest.data();
        while (rest.starts_with("-group ") || rest.starts_with("-group\t")) {
            static_cast<void>(TakeWord(rest, false));
            static_cast<void>(TakeWord(rest, false));
        }
        return {begin, static_cast<std::size_t>(rest.data() - begin)};
    }

    // Those of settings around a word.
    static std::string_view Unquoted(std::string_view name) {
        const bool quoted = name.size() > 2 && name.starts_with('\'') && name.ends_with('\'');
        return quoted ? name.substr(1, name.size() - 2) : name;
    }

    void Add(std::string_view name, const Alias::Part& part, const LongLine& line) {
        // mailx adds to an alias that is there; for mutt only a second address of a person does.
        const std::string_view base = mutt_ ? BaseOf(name, part) : name;
        const auto found = places_.find(ToLower(base));
        if (!base.empty() && found != places_.end()) {
            return aliases_[found->second].Parts.push_back(part);
        }
        places_.emplace(ToLower(name), aliases_.size());
        aliases_.push_back({name, line.Bytes, line.Number, line.Lines, {part}});
    }

    // "ada" of "ada__ada@y", which another program writes for the second address of ada.
    [[nodiscard]] std::string_view BaseOf(std::string_view name, const Alias::Part& part) const {
        constexpr std::size_t kLongest = 1000;
        const std::size_t mark = name.find("__");
        if (mark == std::string_view::npos || part.Text.size() > kLongest) {
            return {};
        }
        const auto found = places_.find(ToLower(name.substr(0, mark)));
        const auto boxes = MuttAliasOf(part.Text).Boxes;
        if (found == places_.end() || boxes.size() != 1 ||
            boxes[0].Address != name.substr(mark + 2)) {
            return {};
        }
        const std::string_view text = aliases_[found->second].Parts[0].Text;
        const auto first = MuttAliasOf(text.substr(0, kLongest)).Boxes;
        return first.size() == 1 && first[0].Name == boxes[0].Name ? name.substr(0, mark)
                                                                   : std::string_view{};
    }

    [[nodiscard]] AliasText TextOf(std::string_view text) const {
        return mutt_ ? MuttAliasOf(text) : MailxAliasOf(text);
    }

    void Take(const Alias& alias) {
        std::vector<std::string_view> values = {alias.Name};
        std::size_t count = 0;
        bool word = false;
        for (const Alias::Part& part : alias.Parts) {
            values.push_back(part.Text);
            values.push_back(part.Groups);
            for (const Mailbox& box : TextOf(part.Text).Boxes) {
                word = word || box.Address.empty();
                ++count;
            }
        }
        // Each line of mutt has the one address of the same person.
        const bool list = word || (mutt_ ? count > alias.Parts.size() : count > 1);
        entry_.Begin(alias.Bytes,
                     alias.Line,
                     alias.Lines,
                     list ? ContactKind::List : ContactKind::Person,
                     values);
        entry_.PushWords(field::kNickname, entry_.Letters(alias.Name, "alias"), alias.Line);
        for (const Alias::Part& part : alias.Parts) {
            const AliasText text = TextOf(entry_.LettersOfName(part.Text, "alias"));
            if (list) {
                nicknames_.PushMembers(entry_, text.Boxes, part.Line);
            } else {
                PushPerson(text.Boxes, part.Line, &part == alias.Parts.data());
            }
            PushGroups(entry_.Letters(part.Groups, "group"), part.Line);
            PushComment(text.Comment, part.Line);
        }
        entry_.End();
    }

    void PushPerson(const std::vector<Mailbox>& boxes, std::uint32_t line, bool first) {
        for (const Mailbox& box : boxes) {
            if (first && !box.Name.empty()) {
                entry_.PushName(book_.Keep(box.Name), line);
            }
            entry_.PushKept(field::kEmail, box.Address, line);
        }
    }

    void PushGroups(std::string_view groups, std::uint32_t line) {
        while (!groups.empty()) {
            static_cast<void>(TakeWord(groups, false));
            if (const std::string_view group = TakeWord(groups, false); !group.empty()) {
                entry_.PushWords(field::kCategories, group, line);
            }
        }
    }

    // "rows on Tuesday tags:friends,rowers"
    void PushComment(std::string_view comment, std::uint32_t line) {
        constexpr std::string_view kTags = "tags:";
        std::string note;
        while (!comment.empty()) {
            std::string_view word = TakeWord(comment, false);
            if (!mutt_ || !word.starts_with(kTags)) {
                note.append(note.empty() ? "" : " ").append(word);
                continue;
            }
            word.remove_prefix(kTags.size());
            while (!word.empty()) {
                const std::size_t comma = std::min(word.find(','), word.size());
                if (comma > 0) {
                    entry_.PushWords(field::kCategories, book_.Keep(word.substr(0, comma)), line);
                }
                word.remove_prefix(std::min(comma + 1, word.size()));
            }
        }
        if (!note.empty()) {
            entry_.PushKept(field::kNote, note, line);
        }
    }

    Book& book_;
    std::uint32_t file_;
    EntryBuilder entry_;
    bool mutt_;
    std::deque<Alias> aliases_;
    std::unordered_map<std::string, std::size_t> places_;
    Nicknames nicknames_;
    std::size_t settings_ = 0;
    std::string_view setting_;  // the first one
    std::uint32_t setting_line_ = 0;
};

}  // namespace

std::optional<std::string> MailrcEvidence(const Source& source) {
    return AliasEvidence(source, AliasBook::Mailrc);
}

std::optional<std::string> MuttEvidence(const Source& source) {
    return AliasEvidence(source, AliasBook::Mutt);
}

void ReadMailrc(Book& book, std::uint32_t file, Charset& charset) {
    AliasReader(book, file, charset, false).Read();
}

void ReadMutt(Book& book, std::uint32_t file, Charset& charset) {
    AliasReader(book, file, charset, true).Read();
}

}  // namespace orvik::book
