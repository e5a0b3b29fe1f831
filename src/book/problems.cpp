#include "book/problems.h"

#include "app/printable.h"
#include "book/address_check.h"
#include "book/readable_value.h"
#include "book/report.h"
#include "book/utf8.h"

namespace orvik::book {

std::optional<ProblemKind> ProblemKindOf(What what) {
    switch (what) {
        case What::Lost:
            return ProblemKind::Lost;
        case What::Skipped:
            return ProblemKind::Skipped;
        case What::Doubtful:
            return ProblemKind::Doubtful;
        default:
            return std::nullopt;
    }
}

void AddAddressProblems(const Contact& contact, std::uint32_t record, std::vector<Problem>& to) {
    for (std::size_t i = 0; i < contact.Properties.size(); ++i) {
        const Property& one = contact.Properties[i];
        if (one.Name != field::kEmail || one.Value.empty()) {
            continue;
        }
        const AddressClass found = CheckAddress(one.Value).Class();
        if (found != AddressClass::Valid) {
            to.push_back(
                {record,
                 static_cast<std::uint32_t>(i),
                 found == AddressClass::Bad ? ProblemKind::BadAddress : ProblemKind::OddAddress});
        }
    }
}

std::string FlawWords(const Book& book, const Property& one, ProblemKind kind) {
    const std::string reason = kind == ProblemKind::NoRecord
                                   ? std::string(WordsFor(Reason::NotFound))
                                   : CheckAddress(one.Value).Reason();
    return "\"" + Printable(Shortened(ReadableValue(book, one))) + "\": " + Printable(reason);
}

}  // namespace orvik::book
