#include "book/identity.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <unordered_map>

#include <glib.h>

#include "app/text.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Where the UUIDs of records live; every UID that was ever given depends on it.
constexpr std::array<std::uint8_t, 16> kNameSpace = {
    0x3B, 0x5E, 0x0C, 0x8A, 0x6D, 0x41, 0x4F, 0x27, 0x9C, 0xE4, 0x15, 0x72, 0xA0, 0xBD, 0x38, 0x96};

struct SumFreer {
    void operator()(GChecksum* sum) const { g_checksum_free(sum); }
};

// Empty for a contact that came without one.
std::string_view OwnUid(const Contact& contact) {
    const auto own =
        std::find_if(contact.Properties.begin(), contact.Properties.end(), [](const Property& one) {
            return one.Name == field::kUid && !WithoutBlanksAround(one.Value).empty();
        });
    return own == contact.Properties.end() ? std::string_view{} : WithoutBlanksAround(own->Value);
}

// Each byte of a sum is as good as any other.
struct FirstBytes {
    std::size_t operator()(const Uuid& uuid) const {
        std::size_t hash = 0;
        std::memcpy(&hash, uuid.data(), sizeof(hash));
        return hash;
    }
};

bool IsOfTheRecord(NameId name) {
    return name != field::kUid && name != field::kRev && name != field::kProdId;
}

// Kind, names and values of a contact, sorted, without blanks around them, without UID and what
// changes with each saving. A member that is named by the line of its record is that record's name
// and address, as lines move when a file is edited.
class NormalisedRecords {
 public:
    NormalisedRecords(const Book& book, const RecordLines& lines) : book_(book), lines_(lines) {}

    std::string TextOf(const Contact& contact) {
        std::vector<std::string> lines;
        lines.reserve(contact.Properties.size());
        for (const Property& one : contact.Properties) {
            const std::string_view value = WithoutBlanksAround(one.Value);
            if (!IsOfTheRecord(one.Name) || value.empty()) {
                continue;
            }
            std::string& line =
                lines.emplace_back(UpperName(book_.Names.Text(one.Name)).append(":"));
            const auto record =
                one.Name == field::kMember ? lines_.RecordOf(one) : std::optional<std::size_t>{};
            line += record ? CalledBy(*record) : value;
        }
        std::sort(lines.begin(), lines.end());
        std::string text = contact.Kind == ContactKind::List ? "list" : "person";
        for (const std::string& line : lines) {
            text.append("\n").append(line);
        }
        return text;
    }

 private:
    // "Ada Abbott <ada@example.org>". Many may name one record, which may have many fields, and a
    // name that nobody would read.
    std::string_view CalledBy(std::size_t record) {
        constexpr std::size_t kLongest = 1000;
        const auto [place, is_new] = called_.try_emplace(record);
        if (is_new) {
            const Contact& contact = book_.Contacts[record];
            std::string& text = place->second;
            text = NameOf(book_, contact).Shown.append(" <");
            text.append(FirstOf(book_, contact, field::kEmail)).append(">");
            if (text.size() > kLongest) {
                text = book::TextOf(Version5Uuid(text));
            }
        }
        return place->second;
    }

    const Book& book_;
    const RecordLines& lines_;
    std::unordered_map<std::size_t, std::string> called_;
};

}  // namespace

Uuid Version5Uuid(std::string_view name) {
    const std::unique_ptr<GChecksum, SumFreer> sum(g_checksum_new(G_CHECKSUM_SHA1));
    g_checksum_update(sum.get(), kNameSpace.data(), kNameSpace.size());
    g_checksum_update(
        sum.get(), reinterpret_cast<const guchar*>(name.data()), static_cast<gssize>(name.size()));
    std::array<guint8, 20> digest{};
    gsize length = digest.size();
    g_checksum_get_digest(sum.get(), digest.data(), &length);
    Uuid uuid{};
    std::copy_n(digest.begin(), uuid.size(), uuid.begin());
    uuid[6] = static_cast<std::uint8_t>((uuid[6] & 0x0FU) | 0x50U);
    uuid[8] = static_cast<std::uint8_t>((uuid[8] & 0x3FU) | 0x80U);
    return uuid;
}

std::string TextOf(const Uuid& uuid) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < uuid.size(); ++i) {
        text += i == 4 || i == 6 || i == 8 || i == 10 ? "-" : "";
        text += kDigits[uuid[i] >> 4U];
        text += kDigits[uuid[i] & 0x0FU];
    }
    return text;
}

std::string PlainUid(std::string_view uid) {
    constexpr std::string_view kUrn = "urn:uuid:";
    std::string plain = ToLower(WithoutBlanksAround(uid));
    return plain.starts_with(kUrn) ? plain.substr(kUrn.size()) : plain;
}

bool IsUuid(std::string_view uid) {
    constexpr std::string_view kShape = "99999999-9999-9999-9999-999999999999";
    return uid.size() == kShape.size() &&
           std::equal(uid.begin(), uid.end(), kShape.begin(), [](char c, char wanted) {
               return wanted == '9' ? g_ascii_isxdigit(c) : c == wanted;
           });
}

std::string AsUrn(std::string_view uid) {
    return (IsUuid(uid) ? "urn:uuid:" : "") + std::string(uid);
}

void Identities::FindOwn() const {
    if (own_.empty()) {
        own_.reserve(book_.Contacts.size());
        for (const Contact& one : book_.Contacts) {
            own_.push_back(OwnUid(one));
        }
    }
}

void Identities::MakeNow() const {
    FindOwn();
    if (made_.empty()) {
        MakeAll();
    }
}

std::string Identities::UidAt(std::size_t contact) const {
    FindOwn();
    if (!own_[contact].empty()) {
        return std::string(own_[contact]);
    }
    MakeNow();
    return TextOf(made_[contact]);
}

void Identities::MakeAll() const {
    // How often the UID of a record came by itself.
    std::unordered_map<Uuid, std::uint32_t, FirstBytes> given;
    NormalisedRecords records(book_, lines_);
    made_.reserve(book_.Contacts.size());
    for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
        Uuid& made = made_.emplace_back();
        if (!own_[i].empty()) {
            continue;
        }
        std::string record = records.TextOf(book_.Contacts[i]);
        made = Version5Uuid(record);
        if (const std::uint32_t number = ++given[made]; number > 1) {
            record.append("\n").append(std::to_string(number));
            made = Version5Uuid(record);
        }
    }
}

}  // namespace orvik::book
