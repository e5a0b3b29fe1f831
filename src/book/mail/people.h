// The people that mail names: each address once, with its names, when and where it was seen.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "book/mail/mail_findings.h"

namespace orvik::book {

// FoldedAddress: what addresses are compared by: capitals aside, the domain in its ASCII form.
// Empty for what is no address.
//   "Ada@B\xC3\xBC" "cher.Example" -> "ada@xn--bcher-kva.example"
[[nodiscard]] std::string FoldedAddress(std::string_view address);

// IsNoReply: whether nobody reads what is sent to a folded address.
//   "do-not-reply@example.org" "mailer-daemon@example.org" -> true
[[nodiscard]] bool IsNoReply(std::string_view folded);

struct Person {
    struct Called {
        std::string Name;
        std::uint32_t InHeaders = 0;
        std::uint32_t InTexts = 0;
    };
    struct Place {
        std::uint32_t File = 0;
        std::uint32_t Fields = 0;  // a bit for each MailField
        std::uint32_t Count = 0;
    };

    std::string Address;  // as it was written first, in a header if it is in any
    std::uint32_t Count = 0;
    bool InHeader = false;
    MailTime First = kNoTime;
    MailTime Last = kNoTime;
    std::vector<Called> Names;
    // The first of them; more_places says that there are others.
    std::vector<Place> Places;
    bool MorePlaces = false;

    // The name that is most often used, of those that have more than one word if there are any, of
    // those in headers before those in texts; empty for none.
    [[nodiscard]] std::string_view BestName() const;
};

class People {
 public:
    // Counts each person of a message or text once. place is where it stands: a folder or a file.
    void Add(const MailFindings& findings, const std::string& place);

    // By folded address, in the order in which they were seen first.
    struct Entry {
        std::string Key;
        Person Who;
    };
    [[nodiscard]] const std::deque<Entry>& All() const { return all_; }
    [[nodiscard]] const std::string& PlaceAt(std::uint32_t file) const { return places_[file]; }

 private:
    // The number of a person, who is new if need be; kNobody for what is no address.
    std::uint32_t Find(const std::string& address);
    void AddMention(const Mention& mention, const std::string& place, std::uint64_t round);
    std::uint32_t PlaceNumber(const std::string& place);

    std::deque<Entry> all_;
    std::unordered_map<std::string_view, std::uint32_t> by_key_;
    // In which round each was counted last.
    std::vector<std::uint64_t> counted_;
    std::deque<std::string> places_;
    std::uint64_t round_ = 0;
};

}  // namespace orvik::book
