#include "book/mail/people.h"

#include <algorithm>

#include "book/address_letters.h"
#include "book/ascii_domain.h"
#include "book/field_names.h"

namespace orvik::book {
namespace {

constexpr std::size_t kMostNames = 16;
constexpr std::size_t kMostPlacesKept = 20;
constexpr std::uint32_t kNobody = ~std::uint32_t{0};

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

void AppendLower(std::string_view text, std::string& to) {
    for (const char c : text) {
        to += Lower(c);
    }
}

// A name that is an address is none.
bool IsName(std::string_view name) {
    return !name.empty() && name.find('@') == std::string_view::npos;
}

bool IsFull(const Person::Called& one) {
    return one.Name.find(' ') != std::string::npos;
}

// Whether a name is better than another; of equal ones the first that was seen stays.
bool IsBetter(const Person::Called& one, const Person::Called& other) {
    if (IsFull(one) != IsFull(other)) {
        return IsFull(one);
    }
    if ((one.InHeaders > 0) != (other.InHeaders > 0)) {
        return one.InHeaders > 0;
    }
    return one.InHeaders != other.InHeaders ? one.InHeaders > other.InHeaders
                                            : one.InTexts > other.InTexts;
}

void AddName(Person& person, const Mention& mention) {
    if (!IsName(mention.Name)) {
        return;
    }
    auto found = std::find_if(person.Names.begin(), person.Names.end(), [&](const auto& one) {
        return one.Name == mention.Name;
    });
    if (found == person.Names.end()) {
        if (person.Names.size() == kMostNames) {
            return;
        }
        found = person.Names.insert(found, {mention.Name, 0, 0});
    }
    ++(mention.Field == MailField::Body ? found->InTexts : found->InHeaders);
}

void AddTime(Person& person, MailTime time) {
    if (time != kNoTime) {
        person.First = person.First == kNoTime ? time : std::min(person.First, time);
        person.Last = std::max(person.Last, time);
    }
}

}  // namespace

std::string FoldedAddress(std::string_view address) {
    const std::size_t at = address.rfind('@');
    if (at == std::string_view::npos || at == 0 || at + 1 == address.size()) {
        return {};
    }
    std::string key;
    AppendLower(address.substr(0, at + 1), key);
    const std::string_view domain = address.substr(at + 1);
    if (IsPlainAscii(domain)) {
        AppendLower(domain, key);
        return key;
    }
    const bool labels = domain.size() <= kLongestDomainLookedUp && domain.front() != '.' &&
                        domain.back() != '.' && domain.find("..") == std::string_view::npos;
    const std::string ascii = labels ? AsciiDomainOf(domain).Text : std::string();
    if (ascii.empty()) {
        return {};
    }
    AppendLower(ascii, key);
    return key;
}

bool IsNoReply(std::string_view folded) {
    constexpr std::array<std::string_view, 5> kInside = {
        "noreply", "donotreply", "dontreply", "noresponse", "nepasrepondre"};
    constexpr std::array<std::string_view, 3> kWhole = {"mailerdaemon", "nobody", "devnull"};
    std::string name;
    for (const char c : folded.substr(0, folded.rfind('@'))) {
        if (IsLetterOrDigit(c)) {
            name += c;
        }
    }
    const auto is_inside = [&name](std::string_view one) {
        return name.find(one) != std::string::npos;
    };
    return std::any_of(kInside.begin(), kInside.end(), is_inside) ||
           std::find(kWhole.begin(), kWhole.end(), name) != kWhole.end();
}

std::string_view Person::BestName() const {
    const Called* best = nullptr;
    for (const Called& one : Names) {
        if (!SameName(one.Name, Address) && (best == nullptr || IsBetter(one, *best))) {
            best = &one;
        }
    }
    return best == nullptr ? std::string_view() : best->Name;
}

std::uint32_t People::PlaceNumber(const std::string& place) {
    if (places_.empty() || places_.back() != place) {
        places_.push_back(place);
    }
    return static_cast<std::uint32_t>(places_.size() - 1);
}

std::uint32_t People::Find(const std::string& address) {
    std::string key = FoldedAddress(address);
    if (key.empty()) {
        return kNobody;
    }
    const auto place = by_key_.find(key);
    if (place != by_key_.end()) {
        return place->second;
    }
    const auto number = static_cast<std::uint32_t>(all_.size());
    all_.push_back({std::move(key), {}});
    counted_.push_back(0);
    by_key_.emplace(all_.back().Key, number);
    return number;
}

void People::AddMention(const Mention& mention, const std::string& place, std::uint64_t round) {
    const std::uint32_t number = Find(mention.Address);
    if (number == kNobody) {
        return;
    }
    Person* const person = &all_[number].Who;
    const bool header = mention.Field != MailField::Body;
    if (person->Address.empty() || (header && !person->InHeader)) {
        person->Address = mention.Address;
        person->InHeader = header;
    }
    std::uint64_t& counted = counted_[number];
    const bool is_new = counted != round;
    counted = round;
    person->Count += is_new ? 1U : 0U;
    AddTime(*person, mention.Time);
    AddName(*person, mention);
    const std::uint32_t field = 1U << static_cast<unsigned>(mention.Field);
    auto& places = person->Places;
    if (!places.empty() && places_[places.back().File] == place) {
        places.back().Fields |= field;
        places.back().Count += is_new ? 1U : 0U;
    } else if (places.size() < kMostPlacesKept) {
        places.push_back({PlaceNumber(place), field, 1});
    } else {
        person->MorePlaces = true;
    }
}

void People::Add(const MailFindings& findings, const std::string& place) {
    ++round_;
    for (const Mention& one : findings.Mentions) {
        AddMention(one, place, round_);
    }
}

}  // namespace orvik::book
