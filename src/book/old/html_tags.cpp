#include "book/old/html_tags.h"

#include <algorithm>
#include <array>

namespace orvik::book {
namespace {

struct KnownTag {
    std::string_view Name;
    HtmlTagKind Kind;
};

constexpr std::array kKnownTags = {
    KnownTag{"DT", HtmlTagKind::Term},
    KnownTag{"DD", HtmlTagKind::Note},
    KnownTag{"A", HtmlTagKind::Link},
    KnownTag{"/A", HtmlTagKind::LinkEnd},
    KnownTag{"H3", HtmlTagKind::Folder},
    KnownTag{"/H3", HtmlTagKind::FolderEnd},
    KnownTag{"DL", HtmlTagKind::Block},
    KnownTag{"/DL", HtmlTagKind::BlockEnd},
    KnownTag{"BR", HtmlTagKind::Break},
    KnownTag{"H1", HtmlTagKind::Heading},
    KnownTag{"/H1", HtmlTagKind::HeadingEnd},
    KnownTag{"TITLE", HtmlTagKind::Heading},
    KnownTag{"/TITLE", HtmlTagKind::HeadingEnd},
};

constexpr std::array<std::string_view, 6> kOtherTags = {"P", "HR", "META", "HTML", "HEAD", "BODY"};

constexpr std::string_view kEndsWord = " \t\r\n<>\"'=";

}  // namespace

std::string_view ValueOf(std::span<const HtmlAttribute> attributes, std::string_view name) {
    const auto found =
        std::find_if(attributes.begin(), attributes.end(), [name](const HtmlAttribute& one) {
            return SameName(one.Name, name);
        });
    return found == attributes.end() ? std::string_view{} : found->Value;
}

HtmlTags::HtmlTags(std::string_view text) : text_(text), lines_(text) {}

bool HtmlTags::Next(HtmlTag& tag) {
    for (;;) {
        const std::size_t begin = text_.find('<', at_);
        if (begin == std::string_view::npos) {
            at_ = text_.size();
            return false;
        }
        at_ = begin + 1;
        tag.Attributes.clear();
        if (TakeComment(tag) || TakeTag(tag)) {
            tag.Span = text_.substr(begin, at_ - begin);
            tag.Line = LineAt(begin);
            return true;
        }
        at_ = begin + 1;
    }
}

bool HtmlTags::TakeComment(HtmlTag& tag) {
    constexpr std::string_view kBegin = "!--";
    constexpr std::string_view kEnd = "-->";
    const bool type = StartsAsName(Rest(), "!DOCTYPE");
    if (!type && (no_comment_ends_ || !Rest().starts_with(kBegin))) {
        return false;
    }
    constexpr std::size_t kLongestType = 200;
    const std::size_t end = type ? text_.substr(0, at_ + kLongestType).find('>', at_)
                                 : text_.find(kEnd, at_ + kBegin.size());
    if (end == std::string_view::npos) {
        no_comment_ends_ = no_comment_ends_ || !type;
        return false;
    }
    tag.Kind = HtmlTagKind::Other;
    at_ = end + (type ? 1 : kEnd.size());
    return true;
}

bool HtmlTags::TakeTag(HtmlTag& tag) {
    std::size_t end = at_ + (Rest().starts_with('/') ? 1 : 0);
    constexpr std::size_t kLongest = 6;
    const std::size_t last = std::min(text_.size(), end + kLongest);
    while (end < last && kEndsWord.find(text_[end]) == std::string_view::npos) {
        ++end;
    }
    const std::string_view name = text_.substr(at_, end - at_);
    const auto* const known =
        std::find_if(kKnownTags.begin(), kKnownTags.end(), [name](const KnownTag& one) {
            return SameName(one.Name, name);
        });
    if (known != kKnownTags.end()) {
        tag.Kind = known->Kind;
    } else {
        const std::string_view plain = name.substr(name.starts_with('/') ? 1 : 0);
        tag.Kind = HtmlTagKind::Other;
        if (std::none_of(kOtherTags.begin(), kOtherTags.end(), [plain](std::string_view one) {
                return SameName(one, plain);
            })) {
            return false;
        }
    }
    at_ = end;
    TakeAttributes(tag);
    return true;
}

void HtmlTags::SkipBlanks() {
    at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size());
}

std::string_view HtmlTags::Word() {
    const std::size_t begin = at_;
    at_ = std::min(text_.find_first_of(kEndsWord, at_), text_.size());
    return text_.substr(begin, at_ - begin);
}

// Up to the bracket, or to the next tag.
void HtmlTags::TakeAttributes(HtmlTag& tag) {
    for (;;) {
        SkipBlanks();
        if (at_ == text_.size() || text_[at_] == '<') {
            return;
        }
        if (text_[at_] == '>') {
            ++at_;
            return;
        }
        const std::string_view name = Word();
        if (name.empty()) {
            ++at_;
            continue;
        }
        SkipBlanks();
        std::string_view value;
        if (Rest().starts_with('=')) {
            ++at_;
            SkipBlanks();
            value = TakeValue();
        }
        tag.Attributes.push_back({name, value});
    }
}

// A quote that nothing closes in its line, or only behind the name of the next attribute, counts
// for nothing.
std::string_view HtmlTags::TakeValue() {
    const char quote = at_ < text_.size() ? text_[at_] : ' ';
    if (quote == '"' || quote == '\'') {
        const std::size_t begin = at_ + 1;
        const std::string_view ends = quote == '"' ? "\"\r\n" : "'\r\n";
        const std::size_t end = text_.find_first_of(ends, begin);
        if (end != std::string_view::npos && text_[end] == quote && text_[end - 1] != '=') {
            at_ = end + 1;
            return text_.substr(begin, end - begin);
        }
        at_ = begin;
    }
    const std::size_t begin = at_;
    at_ = std::min(text_.find_first_of(" \t\r\n<>\"", at_), text_.size());
    return text_.substr(begin, at_ - begin);
}

std::uint32_t HtmlTags::LineAt(std::size_t place) {
    const auto behind = [this] { return text_.size() - lines_.Rest().size(); };
    for (Line line; behind() <= place && lines_.Next(line);) {
        line_ = line.Number;
    }
    return line_;
}

}  // namespace orvik::book
