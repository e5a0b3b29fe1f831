#include "book/old/mailboxes.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kBoxBlanks = " \t";

// The pieces of a text: in quotes, in brackets, in comments, and letters between them.
class Pieces {
 public:
    enum class Kind { Letter, Quoted, Bracketed, Comment };
    struct Piece {
        Kind Is = Kind::Letter;
        std::string_view Text;  // without what closes it in
    };

    explicit Pieces(std::string_view text) : text_(text) {}

    bool Next(Piece& piece) {
        if (at_ == text_.size()) {
            return false;
        }
        const char c = text_[at_];
        if ((c == '"' && Close('"', '"', quotes_, Kind::Quoted, piece)) ||
            (c == '<' && Close('\0', '>', brackets_, Kind::Bracketed, piece)) ||
            (c == '(' && Close('(', ')', comments_, Kind::Comment, piece))) {
            return true;
        }
        piece = {Kind::Letter, text_.substr(at_, 1)};
        ++at_;
        return true;
    }
    [[nodiscard]] std::size_t At() const { return at_; }

 private:
    // What one letter opens is open until the other one; open_again is one that opens another
    // level. What nothing closes is not looked for again.
    bool Close(char open_again, char close, bool& may, Kind kind, Piece& piece) {
        std::size_t depth = 1;
        for (std::size_t i = at_ + 1; may && i < text_.size(); ++i) {
            if (text_[i] == '\\' && kind != Kind::Bracketed) {
                ++i;
            } else if (text_[i] == close && --depth == 0) {
                piece = {kind, text_.substr(at_ + 1, i - at_ - 1)};
                at_ = i + 1;
                return true;
            } else if (text_[i] == open_again) {
                ++depth;
            }
        }
        may = false;
        return false;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    bool quotes_ = true;
    bool brackets_ = true;
    bool comments_ = true;
};

std::string WithoutBackslashes(std::string_view quoted) {
    std::string text;
    for (std::size_t i = 0; i < quoted.size(); ++i) {
        i += quoted[i] == '\\' && i + 1 < quoted.size() ? 1U : 0U;
        text += quoted[i];
    }
    return text;
}

// "Ada Abbott ada@x": the one word with an at is the address.
void TakeWords(std::string_view words, Mailbox& box) {
    const std::size_t at = words.find('@');
    if (at == std::string_view::npos || at != words.rfind('@')) {
        box.Name = words;
        return;
    }
    const std::size_t before = words.find_last_of(kBoxBlanks, at);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(words.find_first_of(kBoxBlanks, at), words.size());
    box.Address = words.substr(begin, end - begin);
    std::string name(WithoutBlanksAround(words.substr(0, begin)));
    const std::string_view behind = WithoutBlanksAround(words.substr(end));
    box.Name = name.append(name.empty() || behind.empty() ? "" : " ").append(behind);
}

}  // namespace

Mailbox MailboxOf(std::string_view text) {
    text = WithoutBlanksAround(text);
    Pieces pieces(text);
    std::string phrase;  // with what is in quotes
    std::string plain;   // without
    std::string quoted;
    std::string comment;
    std::string_view bracketed;
    for (Pieces::Piece piece; pieces.Next(piece);) {
        if (piece.Is == Pieces::Kind::Letter) {
            phrase += piece.Text;
            plain += piece.Text;
        } else if (piece.Is == Pieces::Kind::Quoted) {
            const std::string words = WithoutBackslashes(piece.Text);
            phrase += words;
            quoted += words;
        } else if (piece.Is == Pieces::Kind::Comment) {
            comment += WithoutBackslashes(piece.Text);
        } else if (bracketed.empty()) {
            // One address is all there can be.
            bracketed = WithoutBlanksAround(piece.Text);
        }
    }
    Mailbox box;
    const std::string_view words = WithoutBlanksAround(plain);
    if (!bracketed.empty()) {
        box.Address = bracketed;
        box.Name = WithoutBlanksAround(phrase);
    } else if (!quoted.empty() && words.starts_with('@')) {
        // The quotes belong to the address.
        box.Address = text;
    } else if (words.find('@') != std::string_view::npos) {
        TakeWords(words, box);
        box.Name = box.Name.empty() ? quoted : box.Name;
    } else {
        box.Name = WithoutBlanksAround(phrase);
    }
    box.Name = box.Name.empty() ? comment : box.Name;
    return box;
}

std::vector<Mailbox> MailboxesOf(std::string_view text) {
    std::vector<Mailbox> boxes;
    Pieces pieces(text);
    std::size_t begin = 0;
    const auto take = [&](std::size_t end) {
        Mailbox box = MailboxOf(text.substr(begin, end - begin));
        if (!box.Name.empty() || !box.Address.empty()) {
            boxes.push_back(std::move(box));
        }
    };
    for (Pieces::Piece piece; pieces.Next(piece);) {
        if (piece.Is == Pieces::Kind::Letter && piece.Text == ",") {
            take(pieces.At() - 1);
            begin = pieces.At();
        }
    }
    take(text.size());
    return boxes;
}

bool IsAddressAlone(std::string_view text) {
    const std::vector<Mailbox> boxes = MailboxesOf(text);
    return boxes.size() == 1 && boxes[0].Name.empty() && boxes[0].Address == text;
}

std::string QuotedPhrase(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c == '"' || c == '\\' ? "\\" : "";
        quoted += c;
    }
    return quoted + '"';
}

}  // namespace orvik::book
