#include "book/old/alias_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "book/old/encoded_words.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kMailxBlanks = " \t";

bool IsMuttBlank(char c) {
    return c == ' ' || c == '\t';
}

class MailxWords {
 public:
    explicit MailxWords(std::string_view text) : rest_(text) {}

    AliasText Run() {
        while (true) {
            rest_.remove_prefix(std::min(rest_.find_first_not_of(kMailxBlanks), rest_.size()));
            if (rest_.empty()) {
                break;
            }
            if (rest_.front() == '#') {
                found_.Comment = WithoutBlanksAround(rest_.substr(1));
                break;
            }
            TakeOne(rest_.front());
        }
        Flush();
        return std::move(found_);
    }

 private:
    void TakeOne(char c) {
        if (c == ',') {
            rest_.remove_prefix(1);
            Flush();
        } else if (const auto quoted = c == '"' || c == '\'' ? Closed(c, quotes_) : std::nullopt) {
            if (quoted->find('@') == std::string_view::npos) {
                words_.emplace_back(*quoted);
            } else {
                Add(MailboxOf(*quoted));
            }
        } else if (const auto address = c == '<' ? Closed('>', brackets_) : std::nullopt) {
            AddNamed(*address);
        } else if (const auto comment = c == '(' ? Closed(')', comments_) : std::nullopt) {
            TakeComment(*comment);
        } else {
            TakeWord();
        }
    }

    // What is in signs of which the first one stands here; nothing if they are never closed.
    std::optional<std::string_view> Closed(char close, bool& may) {
        const std::size_t end = may ? rest_.find(close, 1) : std::string_view::npos;
        if (end == std::string_view::npos) {
            may = false;
            return std::nullopt;
        }
        const std::string_view inside = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        return inside;
    }

    void TakeWord() {
        const std::size_t end = std::min(rest_.find_first_of(" \t,<(\"", 1), rest_.size());
        const std::string_view word = rest_.substr(0, end);
        rest_.remove_prefix(end);
        if (word.find('@') == std::string_view::npos) {
            words_.emplace_back(word);
        } else {
            Add({{}, std::string(word)});
        }
    }

    // It names the address before it, else the one behind it.
    void TakeComment(std::string_view comment) {
        const bool behind = words_.empty() && !found_.Boxes.empty() &&
                            !found_.Boxes.back().Address.empty() &&
                            found_.Boxes.back().Name.empty();
        (behind ? found_.Boxes.back().Name : comment_) = WithoutBlanksAround(comment);
    }

    void AddNamed(std::string_view address) {
        std::string name;
        for (const std::string& word : words_) {
            name.append(name.empty() ? "" : " ").append(word);
        }
        words_.clear();
        found_.Boxes.push_back({std::move(name), std::string(WithoutBlanksAround(address))});
    }

    void Add(Mailbox box) {
        Flush();
        box.Name = box.Name.empty() ? std::exchange(comment_, {}) : std::move(box.Name);
        found_.Boxes.push_back(std::move(box));
    }

    // Words without an address are other aliases.
    void Flush() {
        for (std::string& word : words_) {
            found_.Boxes.push_back({std::move(word), {}});
        }
        words_.clear();
    }

    std::string_view rest_;
    AliasText found_;
    std::vector<std::string> words_;
    bool quotes_ = true;
    bool brackets_ = true;
    bool comments_ = true;
    std::string comment_;
};

// Takes the quotes of settings away, and keeps those of addresses.
class MuttText {
 public:
    explicit MuttText(std::string_view text) : text_(text) {}

    AliasText Run() {
        AliasText found;
        for (std::size_t at = 0; at < text_.size();) {
            const char c = text_[at];
            const bool begins = at == 0 || IsMuttBlank(text_[at - 1]);
            if (c == '#' && begins) {
                found.Comment = WithoutBlanksAround(text_.substr(at + 1));
                break;
            }
            if (c == '\\' && at + 1 < text_.size()) {
                plain_ += text_[at + 1];
                at += 2;
            } else if (const std::size_t end =
                           (c == '"' && double_) || (c == '\'' && begins && single_)
                               ? TakeQuoted(at, c)
                               : at;
                       end > at) {
                at = end;
            } else {
                plain_ += c;
                ++at;
            }
        }
        found.Boxes = MailboxesOf(plain_);
        for (Mailbox& box : found.Boxes) {
            box.Name = DecodedWords(box.Name);
        }
        return found;
    }

 private:
    // Returns where the rest begins; the same place if nothing closes the quote.
    std::size_t TakeQuoted(std::size_t begin, char quote) {
        std::string inside;
        bool escaped = false;
        for (std::size_t i = begin + 1; i < text_.size(); ++i) {
            if (text_[i] == '\\' && quote == '"' && i + 1 < text_.size()) {
                escaped = escaped || text_[i + 1] == '"';
                inside += text_[++i];
            } else if (text_[i] == quote) {
                AppendQuoted(inside, escaped);
                return i + 1;
            } else {
                inside += text_[i];
            }
        }
        (quote == '"' ? double_ : single_) = false;
        return begin;
    }

    // Quotes around a name alone are meant for the address, too.
    void AppendQuoted(const std::string& inside, bool escaped) {
        if (escaped || inside.find_first_of("@<") != std::string::npos) {
            plain_ += inside;
            return;
        }
        plain_ += '"';
        for (const char c : inside) {
            plain_ += c == '\\' || c == '"' ? "\\" : "";
            plain_ += c;
        }
        plain_ += '"';
    }

    std::string_view text_;
    std::string plain_;
    bool double_ = true;
    bool single_ = true;
};

}  // namespace

AliasText MailxAliasOf(std::string_view text) {
    return MailxWords(text).Run();
}

AliasText MuttAliasOf(std::string_view text) {
    return MuttText(text).Run();
}

}  // namespace orvik::book
