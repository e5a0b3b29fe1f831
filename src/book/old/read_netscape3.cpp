#include "book/old/read_netscape3.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/text.h"
#include "book/html_entities.h"
#include "book/lines.h"
#include "book/old/entry_builder.h"
#include "book/old/html_text.h"
#include "book/old/netscape3_items.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kNetscape3 = "NETSCAPE3";
constexpr std::string_view kMailto = "mailto:";

// Those that become something else, and those that tell nothing to people.
constexpr std::array<std::string_view, 5> kKnownAttributes = {
    "HREF", "NICKNAME", "ALIASID", "ALIASOF", "FOLDED"};

// The address of a link; the whole link, if it leads to no address.
std::string AddressOf(std::string_view href) {
    const std::string_view link = WithoutBlanksAround(href);
    return IsMailLink(link) ? WithoutPercents(WithoutEntities(link.substr(kMailto.size())))
                            : WithoutEntities(link);
}

std::string KeyOfBoth(std::string_view id, std::string_view address) {
    std::string both(id);
    return both.append(" ").append(address);
}

class Netscape3Reader {
 public:
    Netscape3Reader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book),
          text_(book.SourceAt(file).Text()),
          page_(ItemsOf(text_)),
          entry_(book, file, charset) {}

    void Read() {
        if (!page_.Stray.Text.empty()) {
            entry_.Skip(page_.Stray.Text, page_.Stray.Line, Reason::NotBegun);
        }
        Index();
        Resolve();
        for (std::size_t i = 0; i < page_.Items.size(); ++i) {
            if (original_[i] == i) {
                Take(i);
            }
        }
    }

 private:
    static constexpr std::size_t kNone = Netscape3Item::kNone;
    using Places = std::unordered_map<std::string, std::size_t>;

    [[nodiscard]] static std::string_view Value(const Netscape3Item& item, std::string_view name) {
        return WithoutBlanksAround(ValueOf(item.Attributes, name));
    }

    // Whether an item may be the copy of another one: what is in a folder says of whom.
    [[nodiscard]] static bool MayBeCopy(const Netscape3Item& item) {
        return item.Folder != kNone && item.Children == 0 && !Value(item, "ALIASOF").empty();
    }

    // Books that were joined have the same numbers twice, so the address counts, too.
    void Index() {
        for (std::size_t i = 0; i < page_.Items.size(); ++i) {
            const Netscape3Item& item = page_.Items[i];
            addresses_.push_back(AddressOf(ValueOf(item.Attributes, "HREF")));
            if (MayBeCopy(item)) {
                continue;
            }
            const std::string address = ToLower(addresses_.back());
            const std::string id(Value(item, "ALIASID"));
            if (!id.empty()) {
                by_id_.emplace(id, i);
                by_both_.emplace(KeyOfBoth(id, address), i);
            }
            if (!address.empty()) {
                by_address_.emplace(address, i);
            }
        }
    }

    static std::size_t FindIn(const Places& places, const std::string& key) {
        const auto found = places.find(key);
        return found == places.end() ? kNone : found->second;
    }

    [[nodiscard]] std::size_t OriginalOf(std::size_t i) const {
        const std::string id(Value(page_.Items[i], "ALIASOF"));
        const std::string address = ToLower(addresses_[i]);
        if (address.empty()) {
            return FindIn(by_id_, id);
        }
        const std::size_t both = FindIn(by_both_, KeyOfBoth(id, address));
        return both == kNone ? FindIn(by_address_, address) : both;
    }

    // Copies of nobody are people who are in the folder alone.
    void Resolve() {
        for (std::size_t i = 0; i < page_.Items.size(); ++i) {
            const std::size_t found = MayBeCopy(page_.Items[i]) ? OriginalOf(i) : i;
            original_.push_back(found == kNone ? i : found);
        }
        next_.assign(page_.Items.size(), kNone);
        first_.assign(page_.Items.size(), kNone);
        std::size_t last_begun = kNone;
        alone_.assign(page_.Items.size(), true);
        for (std::size_t i = page_.Items.size(); i-- > 0;) {
            const std::size_t folder = page_.Items[i].Folder;
            if (folder != kNone) {
                next_[i] = first_[folder];
                first_[folder] = i;
            }
            if (original_[i] != i) {
                continue;
            }
            if (last_begun != kNone && page_.Items[last_begun].Line == page_.Items[i].Line) {
                alone_[i] = false;
                alone_[last_begun] = false;
            }
            last_begun = i;
        }
    }

    void Take(std::size_t i) {
        const Netscape3Item& item = page_.Items[i];
        const std::string_view bytes =
            WithoutBlanksAround(text_.substr(item.Offset, item.End - item.Offset));
        const LineEnds ends = CountLineEnds(bytes);
        std::vector<std::string_view> values = item.Notes;
        values.push_back(item.Name);
        for (const HtmlAttribute& one : item.Attributes) {
            values.push_back(one.Value);
        }
        entry_.Begin(bytes,
                     item.Line,
                     static_cast<std::uint32_t>(ends.Lf + ends.CrLf + ends.Cr + 1),
                     item.IsFolder ? ContactKind::List : ContactKind::Person,
                     values);
        TakePerson(item);
        TakeNotes(item);
        for (const HtmlAttribute& one : item.Attributes) {
            TakeAttribute(item, one);
        }
        TakeMembers(i);
        if (item.NotEnded) {
            entry_.Doubt("H3", {}, Reason::NotEnded);
        }
        entry_.End();
    }

    std::string_view Letters(std::string_view value, std::string_view field) {
        return book_.Keep(WithoutEntities(entry_.Letters(WithoutBlanksAround(value), field)));
    }

    // A folder may have nothing but a nickname.
    void TakePerson(const Netscape3Item& item) {
        std::string_view name =
            book_.Keep(HtmlText(entry_.LettersOfName(item.Name, item.IsFolder ? "H3" : "A")));
        std::string_view address = OwnAddress(item);
        const std::string_view nickname = Letters(ValueOf(item.Attributes, "NICKNAME"), "NICKNAME");
        const bool mail = IsMailLink(ValueOf(item.Attributes, "HREF"));
        if (mail && entry_.AreExchanged(name, address)) {
            // Blanks of what was taken for an address became underscores.
            std::string words(address);
            std::replace(words.begin(), words.end(), '_', ' ');
            address = name;
            name = book_.Keep(words);
        }
        if (item.IsFolder) {
            entry_.Push(field::kFn, name.empty() ? nickname : name, item.Line);
        } else {
            entry_.PushName(name, item.Line);
        }
        if (!nickname.empty()) {
            entry_.PushWords(field::kNickname, nickname, item.Line);
        }
        if (!address.empty()) {
            entry_.Push(mail ? field::kEmail : field::kUrl, address, item.Line);
        }
    }

    std::string_view OwnAddress(const Netscape3Item& item) {
        return book_.Keep(AddressOf(entry_.Letters(ValueOf(item.Attributes, "HREF"), "HREF")));
    }

    void TakeNotes(const Netscape3Item& item) {
        std::string note;
        for (const std::string_view one : item.Notes) {
            note += note.empty() ? "" : "\n";
            note += HtmlText(entry_.Letters(one, "DD"));
        }
        if (!note.empty()) {
            entry_.PushKept(field::kNote, note, item.Line);
        }
    }

    void TakeAttribute(const Netscape3Item& item, const HtmlAttribute& one) {
        const bool known = std::any_of(
            kKnownAttributes.begin(), kKnownAttributes.end(), [&one](std::string_view name) {
                return SameName(name, one.Name);
            });
        const bool stray_copy = SameName(one.Name, "ALIASOF");
        if (known && !stray_copy) {
            return;
        }
        if (stray_copy) {
            entry_.Doubt("ALIASOF", one.Value, Reason::NotFound);
        }
        entry_.PushCarried(kNetscape3, one.Name, Letters(one.Value, one.Name), item.Line);
    }

    void TakeMembers(std::size_t folder) {
        for (std::size_t i = first_[folder]; i != kNone; i = next_[i]) {
            const Netscape3Item& item = page_.Items[i];
            if (alone_[original_[i]]) {
                entry_.PushMemberAt(page_.Items[original_[i]].Line, item.Line);
            } else {
                entry_.PushMember(OwnAddress(item),
                                  book_.Keep(HtmlText(entry_.Letters(item.Name, "A"))),
                                  item.Line);
            }
            TakeCopy(i);
        }
    }

    // What a copy says otherwise than its original.
    void TakeCopy(std::size_t i) {
        const Netscape3Item& copy = page_.Items[i];
        const Netscape3Item& item = page_.Items[original_[i]];
        const auto carry = [&](std::string_view field, std::string_view value) {
            const std::string text = HtmlText(entry_.Letters(value, field));
            if (!text.empty()) {
                entry_.PushCarried(kNetscape3, field, book_.Keep(text), copy.Line);
            }
        };
        if (copy.Name != item.Name) {
            carry("copy-name", copy.Name);
        }
        if (Value(copy, "NICKNAME") != Value(item, "NICKNAME")) {
            carry("copy-nickname", Value(copy, "NICKNAME"));
        }
        if (copy.Notes != item.Notes) {
            for (const std::string_view note : copy.Notes) {
                carry("copy-note", note);
            }
        }
    }

    Book& book_;
    std::string_view text_;
    Netscape3Page page_;
    EntryBuilder entry_;
    std::vector<std::string> addresses_;
    Places by_id_;
    Places by_both_;
    Places by_address_;
    std::vector<std::size_t> original_;  // of a copy; else the item itself
    std::vector<std::size_t> first_;     // in a folder
    std::vector<std::size_t> next_;      // in the same folder
    std::vector<bool> alone_;            // no other record begins in its line
};

// The number of the line, one of the first, in which a page says what it is; 0 for none.
std::uint32_t LineThatNames(const Source& source, std::string_view name) {
    constexpr std::uint32_t kLines = 6;
    constexpr std::size_t kLongest = 1000;
    Line line;
    for (Lines lines(source.Text()); lines.Next(line) && line.Number <= kLines;) {
        if (ToLower(line.Text.substr(0, kLongest)).find(name) != std::string::npos) {
            return line.Number;
        }
    }
    return 0;
}

}  // namespace

std::optional<std::string> Netscape3Evidence(const Source& source) {
    const std::uint32_t line = LineThatNames(source, "netscape-addressbook-file");
    return line == 0 ? std::nullopt
                     : std::optional("line " + std::to_string(line) + " names the format");
}

bool IsBookmarkPage(const Source& source) {
    return LineThatNames(source, "netscape-bookmark-file") > 0;
}

std::optional<std::string> AddressPageEvidence(const Source& source) {
    // Bookmarks have the same tags, and now and then a link to an address.
    if (!WithoutBlanksAround(source.Text().substr(0, 4096)).starts_with('<') ||
        IsBookmarkPage(source)) {
        return std::nullopt;
    }
    HtmlTagKind last = HtmlTagKind::Other;
    bool block = false;
    HtmlTags tags(source.Text());
    for (HtmlTag tag; tags.Next(tag); last = tag.Kind) {
        block = block || tag.Kind == HtmlTagKind::Block;
        if (block && last == HtmlTagKind::Term && tag.Kind == HtmlTagKind::Link &&
            IsMailLink(ValueOf(tag.Attributes, "HREF"))) {
            return "line " + std::to_string(tag.Line) + " links an address in a list";
        }
    }
    return std::nullopt;
}

void ReadNetscape3(Book& book, std::uint32_t file, Charset& charset) {
    Netscape3Reader(book, file, charset).Read();
}

}  // namespace orvik::book
