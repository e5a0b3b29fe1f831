#include "book/old/write_juno.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>

#include "app/text.h"
#include "book/csv_kinds.h"
#include "book/csv_values.h"
#include "book/identity.h"
#include "book/members.h"
#include "book/old/fitting.h"
#include "book/old/keyed_line.h"
#include "book/old/post_lines.h"
#include "book/typed_views.h"
#include "book/windows_1252.h"

namespace orvik::book {
namespace {

constexpr std::array<KindBits, 2> kHomePhones = {kind::kHome, 0};
constexpr std::array<KindBits, 2> kMobilePhones = {kind::kCell, kind::kCell | kind::kHome};
constexpr std::array<KindBits, 2> kHomes = {kind::kHome, 0};

// Whether a row of a person or a list is read as what it is.
bool IsJunoRow(std::string_view field, std::string_view line) {
    constexpr std::array<std::string_view, 3> kTypes = {"Entry", "MList", "Version"};
    constexpr std::array<std::string_view, 8> kPlaces = {
        "Name", "Email", "Alias", "Member", "Primary Phone", "Mobile Phone", "Birth", "Address"};
    const auto is_of = [](const auto& words, std::string_view text) {
        return std::any_of(words.begin(), words.end(), [text](std::string_view one) {
            return SameName(one, text);
        });
    };
    if (field == "no-field") {
        return !line.empty() && !KeyedLineOf(line);
    }
    if (SameName(field, "Type")) {
        return !is_of(kTypes, line);
    }
    const std::string row = std::string(field) + ":";
    const auto keyed = KeyedLineOf(row);
    return keyed && keyed->Key == field && !is_of(kPlaces, field) &&
           !(SameName(field, "Deleted") && line == "1");
}

// What a list may call its members: whoever reads it looks for aliases first, then for addresses,
// then for names, and takes the first one.
class JunoNames {
 public:
    void Add(std::size_t record,
             std::string_view alias,
             std::string_view email,
             std::string_view name) {
        const std::array texts = {alias, email, name};
        Names& own = own_[record];
        for (std::size_t i = 0; i < texts.size(); ++i) {
            own[i] = texts[i];
            if (!texts[i].empty()) {
                places_[i].emplace(KeyOf(texts[i]), record);
            }
        }
    }

    // Empty where each name of the record is another one's.
    [[nodiscard]] std::string Of(std::size_t record) const {
        const auto own = own_.find(record);
        if (own == own_.end()) {
            return {};
        }
        for (const std::string& name : own->second) {
            if (!name.empty() && RecordOf(name) == record) {
                return name;
            }
        }
        return {};
    }

 private:
    using Names = std::array<std::string, 3>;
    using Places = std::unordered_map<std::string, std::size_t>;

    // Letters that the file cannot hold are alike in it.
    [[nodiscard]] std::string KeyOf(std::string_view name) const {
        std::string bytes;
        letters_.Append(name, bytes);
        return ToLower(bytes);
    }

    [[nodiscard]] std::size_t RecordOf(std::string_view name) const {
        const std::string key = KeyOf(name);
        for (const Places& places : places_) {
            if (const auto found = places.find(key); found != places.end()) {
                return found->second;
            }
        }
        return ListMember::kNobody;
    }

    std::unordered_map<std::size_t, Names> own_;
    std::array<Places, 3> places_;
    Windows1252 letters_;
};

class JunoWriter {
 public:
    explicit JunoWriter(Book& book)
        : book_(book),
          identities_(book),
          directory_(book, identities_),
          entry_(book, {.Own = "JUNO", .Windows = true}) {}

    std::string Write() {
        // Readers that look for a line end before each key find the first one, too.
        text_ = "\r\n\r\nType:Version\r\nVersion:AB 0.3.0\r\n";
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            if (book_.Contacts[i].Kind == ContactKind::Person) {
                WritePerson(i);
            }
        }
        // Those that know no lists have read all people by then.
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            if (book_.Contacts[i].Kind == ContactKind::List) {
                BeginList(i);
            }
        }
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            if (book_.Contacts[i].Kind == ContactKind::List) {
                text_ += heads_[i];
                WriteMembers(book_.Contacts[i]);
                text_ += tails_[i];
            }
            book_.CountWritten(i + 1);
        }
        std::string bytes;
        letters_.Append(text_, bytes);
        return bytes;
    }

 private:
    static void AppendRow(std::string_view key, std::string_view value, std::string& to) {
        to.append(key).append(":").append(value).append("\r\n");
    }
    void Append(std::string_view key, std::string_view value) { AppendRow(key, value, text_); }

    void AppendIf(std::string_view key, const Property* one) {
        if (one != nullptr) {
            Append(key, entry_.Take(*one));
        }
    }

    void WritePerson(std::size_t record) {
        entry_.Begin(book_.Contacts[record]);
        const std::vector<const Property*> addresses = entry_.Addresses();
        const std::string name = entry_.TakeNameOrNickname();
        const std::string address = addresses.empty() ? "" : entry_.Take(*addresses.front());
        const auto aliases = entry_.TakeWords(field::kNickname, 1, Fitting::IsAny);
        const std::string alias = aliases.empty() ? "" : aliases.front();
        const std::string own = OwnRows();
        text_ += "\r\n";
        Append("Type", type_);
        // In this order readers of old have always taken a name and its address together.
        Append("Name", name);
        Append("Email", address);
        Append("Alias", alias);
        AppendIf("Primary Phone", entry_.NextOf(field::kTel, kHomePhones));
        AppendIf("Mobile Phone", entry_.NextOf(field::kTel, kMobilePhones));
        if (const Property* const day = entry_.Next(field::kBday); day != nullptr) {
            const std::string text = entry_.Take(*day);
            const std::string date = PlainDate(text);
            Append("Birth", date.empty() ? text : date);
        }
        if (const Property* const home = entry_.NextOf(field::kAdr, kHomes); home != nullptr) {
            for (const std::string& line : TakePostLines(entry_, *home)) {
                Append("Address", line);
            }
        }
        text_ += own;
        names_.Add(record, alias, address, name);
        static_cast<void>(entry_.Rest({}));
    }

    // Fields that Juno or the user has besides.
    std::string OwnRows() {
        std::string rows;
        type_ = "Entry";
        for (const Property* const one : entry_.OwnFields(IsJunoRow)) {
            const std::string field = entry_.OwnFieldOf(*one);
            const std::string value = entry_.Take(*one);
            if (SameName(field, "Type")) {
                type_ = value;
            } else if (field == "no-field") {
                rows.append(value).append("\r\n");
            } else {
                AppendRow(field, value, rows);
            }
        }
        return rows;
    }

    // The members may be lists that stand behind it, so they come later.
    void BeginList(std::size_t record) {
        entry_.Begin(book_.Contacts[record]);
        const std::string name = entry_.TakeListName();
        const auto aliases = entry_.TakeWords(field::kNickname, 1, Fitting::IsAny);
        const std::string alias = aliases.empty() ? "" : aliases.front();
        tails_[record] = OwnRows();
        std::string& head = heads_[record];
        head = "\r\n";
        AppendRow("Type", "MList", head);
        AppendRow("Name", name, head);
        if (!alias.empty()) {
            AppendRow("Alias", alias, head);
        }
        names_.Add(record, alias, {}, name);
        static_cast<void>(entry_.Rest({}));
    }

    void WriteMembers(const Contact& list) {
        for (const ListMember& member : directory_.MembersOf(list)) {
            const bool found = member.Record != ListMember::kNobody;
            const std::string name = found                    ? names_.Of(member.Record)
                                     : member.Address.empty() ? OneLine(member.Name)
                                                              : OneLine(member.Address);
            if (name.empty()) {
                TellLostMember(book_, list, member);
                continue;
            }
            Append("Member", name);
            TellMember(book_, list, *member.Field, member);
            book_.Told.CountMore(What::Kept);
        }
    }

    Book& book_;
    Identities identities_;
    Directory directory_;
    Fitting entry_;
    Windows1252 letters_;
    JunoNames names_;
    std::string text_;
    std::string type_;
    // Of lists, by their records.
    std::unordered_map<std::size_t, std::string> heads_;
    std::unordered_map<std::size_t, std::string> tails_;
};

}  // namespace

std::string WriteJuno(Book& book) {
    return JunoWriter(book).Write();
}

}  // namespace orvik::book
