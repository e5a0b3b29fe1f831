// Which kind of phone, address or web page a property is, as the columns of programs tell it.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "book/address_book.h"

namespace orvik::book {

// Types that a column or a label can tell, one bit each. Others say nothing to a person: "voice".
using KindBits = std::uint32_t;
namespace kind {
enum : KindBits { kHome = 1, kWork = 2, kOther = 4, kCell = 8, kMain = 16, kFax = 1U << 14U };
}  // namespace kind

// BitsOfTypes: "home fax" -> kHome | kFax;  "voice" -> 0
[[nodiscard]] KindBits BitsOfTypes(std::string_view types);

// KindWord: what a person calls a kind, and which bits it leaves out. Empty for none.
//   kHome | kFax -> "Home Fax";  kCell | kWork -> "Mobile", kWork
struct KindWord {
    std::string Text;
    KindBits Left = 0;
};
[[nodiscard]] KindWord WordOfKind(KindBits bits);

//   "car phone" -> "Car phone"
[[nodiscard]] std::string Capitalised(std::string_view text);

// What the parameters of a property and the label of its group say.
struct KindOfProperty {
    KindBits Bits = 0;
    std::uint32_t Rank = kLast;  // 1 for the preferred one
    std::string_view Label;      // that a user gave; no known kind

    static constexpr std::uint32_t kLast = 101;
    [[nodiscard]] bool IsPreferred() const { return Rank == 1; }
};

// The labels of one contact's groups.
class GroupLabels {
 public:
    void Fill(const Book& book, const Contact& contact);
    // The label of a group; empty for none.
    [[nodiscard]] std::string_view Of(std::string_view group) const;

 private:
    std::unordered_map<std::string, std::string_view> labels_;
};

[[nodiscard]] KindOfProperty KindOf(const Book& book,
                                    const Property& property,
                                    const GroupLabels& labels);

}  // namespace orvik::book
