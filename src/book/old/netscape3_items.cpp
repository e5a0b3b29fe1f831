#include "book/old/netscape3_items.h"

#include <utility>

#include "book/value_form.h"

namespace orvik::book {
namespace {

class Parser {
 public:
    explicit Parser(std::string_view page) : page_(page), tags_(page) {}

    Netscape3Page Parse() {
        for (HtmlTag tag; tags_.Next(tag);) {
            Take(tag);
        }
        Close(page_.size(), page_.size());
        for (const std::size_t folder : open_) {
            if (folder != Netscape3Item::kNone) {
                found_.Items[folder].NotEnded = true;
            }
        }
        for (std::size_t i = 0; i < found_.Items.size(); ++i) {
            found_.Items[i].End =
                i + 1 < found_.Items.size() ? found_.Items[i + 1].Offset : page_.size();
        }
        return std::move(found_);
    }

 private:
    // What the text between two tags is.
    enum class Region : std::uint8_t { Stray, Ignored, Term, Name, Note };

    void Take(HtmlTag& tag) {
        const auto begin = static_cast<std::size_t>(tag.Span.data() - page_.data());
        const std::size_t end = begin + tag.Span.size();
        const bool in_note = region_ == Region::Note;
        switch (tag.Kind) {
            case HtmlTagKind::Break:
            case HtmlTagKind::Other:
                return Pass(begin, end);
            case HtmlTagKind::Link:
                // A link in a note belongs to it.
                if (in_note && !IsMailLink(ValueOf(tag.Attributes, "HREF"))) {
                    return;
                }
                return Begin(tag, begin, end);
            case HtmlTagKind::Folder:
                return Begin(tag, begin, end);
            case HtmlTagKind::LinkEnd:
            case HtmlTagKind::FolderEnd:
                if (region_ == Region::Name) {
                    Enter(Region::Stray, begin, end);
                }
                return;
            case HtmlTagKind::Heading:
                return Enter(Region::Ignored, begin, end);
            case HtmlTagKind::HeadingEnd:
                if (region_ == Region::Ignored) {
                    Enter(Region::Stray, begin, end);
                }
                return;
            case HtmlTagKind::Term:
                Enter(Region::Term, begin, end);
                term_ = begin;
                term_line_ = tag.Line;
                return;
            case HtmlTagKind::Note:
                return Enter(found_.Items.empty() ? Region::Stray : Region::Note, begin, end);
            case HtmlTagKind::Block:
                Enter(Region::Stray, begin, end);
                open_.push_back(pending_ == Netscape3Item::kNone ? Folder() : pending_);
                pending_ = Netscape3Item::kNone;
                return;
            case HtmlTagKind::BlockEnd:
                Enter(Region::Stray, begin, end);
                if (!open_.empty()) {
                    open_.pop_back();
                }
                return;
        }
    }

    // What looks like a tag parts no name and no note.
    void Pass(std::size_t begin, std::size_t end) {
        if (region_ == Region::Stray || region_ == Region::Term) {
            const Region region = region_;
            Enter(region, begin, end);
        }
    }

    void Enter(Region region, std::size_t begin, std::size_t end) {
        Close(begin, end);
        region_ = region;
    }

    // An entry begins with its term, or without one.
    void Begin(HtmlTag& tag, std::size_t begin, std::size_t end) {
        const bool termed = region_ == Region::Term;
        Close(begin, end);
        region_ = Region::Name;
        Add(termed && !used_ ? term_ : begin, termed && !used_ ? term_line_ : tag.Line);
        Netscape3Item& item = found_.Items.back();
        item.IsFolder = tag.Kind == HtmlTagKind::Folder;
        item.Attributes = std::move(tag.Attributes);
        tag.Attributes = {};
        pending_ = item.IsFolder ? found_.Items.size() - 1 : Netscape3Item::kNone;
    }

    void Add(std::size_t offset, std::uint32_t line) {
        Netscape3Item item;
        item.Offset = offset;
        item.Line = line;
        item.Folder = Folder();
        if (item.Folder != Netscape3Item::kNone) {
            ++found_.Items[item.Folder].Children;
        }
        found_.Items.push_back(std::move(item));
        pending_ = Netscape3Item::kNone;
    }

    [[nodiscard]] std::size_t Folder() const {
        return open_.empty() ? Netscape3Item::kNone : open_.back();
    }

    // Ends the region where a tag begins; the next one begins behind the tag.
    void Close(std::size_t begin, std::size_t end) {
        const std::string_view text = page_.substr(from_, begin - from_);
        const bool blank = WithoutBlanksAround(text).empty();
        used_ = false;
        if (region_ == Region::Name) {
            found_.Items.back().Name = text;
        } else if (region_ == Region::Note && !blank) {
            found_.Items.back().Notes.push_back(text);
        } else if (region_ == Region::Term && !blank) {
            // Somebody without a link.
            Add(term_, term_line_);
            found_.Items.back().Name = text;
            used_ = true;
        } else if (region_ == Region::Stray && !blank && found_.Stray.Text.empty()) {
            found_.Stray.Text = WithoutBlanksAround(text);
            found_.Stray.Text =
                found_.Stray.Text.substr(0, found_.Stray.Text.find_first_of("\r\n"));
            const auto place = static_cast<std::size_t>(found_.Stray.Text.data() - page_.data());
            const LineEnds ends = CountLineEnds(page_.substr(0, place));
            found_.Stray.Line = static_cast<std::uint32_t>(ends.Lf + ends.CrLf + ends.Cr + 1);
        }
        from_ = end;
    }

    std::string_view page_;
    HtmlTags tags_;
    Netscape3Page found_;
    Region region_ = Region::Stray;
    std::size_t from_ = 0;  // where the region begins
    std::size_t term_ = 0;
    std::uint32_t term_line_ = 0;
    bool used_ = false;                           // the term has its entry
    std::size_t pending_ = Netscape3Item::kNone;  // the folder whose block may follow
    std::vector<std::size_t> open_;
};

}  // namespace

bool IsMailLink(std::string_view href) {
    return StartsAsName(WithoutBlanksAround(href), "mailto:");
}

Netscape3Page ItemsOf(std::string_view page) {
    return Parser(page).Parse();
}

}  // namespace orvik::book
