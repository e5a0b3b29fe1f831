// What is to be said of an e-mail address, found out slowly with the grammar.

#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "book/address_check.h"
#include "book/ascii_domain.h"
#include "unit/book/address_grammar.h"
#include "unit/book/literal_grammar.h"

namespace orvik::book::test {

// A text without CFWS, with what stands in quotation marks or brackets as it is, but for line
// breaks. It is a name or a domain by the grammar.
inline std::string Stripped(std::string_view text) {
    std::string kept;
    std::size_t depth = 0;
    char end = '\0';
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool pair = c == '\\' && (end != '\0' || depth > 0);
        if (pair) {
            kept += depth > 0 ? "" : std::string(text.substr(i, 2));
            ++i;
        } else if (end != '\0') {
            kept += c == '\r' || c == '\n' ? "" : std::string(1, c);
            end = c == end ? '\0' : end;
        } else if (c == '(' || c == ')') {
            depth += c == '(' ? std::size_t{1} : ~std::size_t{0};
        } else if (depth == 0 && std::string_view(" \t\r\n").find(c) == std::string_view::npos) {
            kept += c;
            end = c == '"' ? '"' : c == '[' ? ']' : '\0';
        }
    }
    return kept;
}

inline Flaw LiteralFlawOf(std::string_view literal) {
    const LiteralGrammar grammar(literal);
    if (!grammar.HasTag()) {
        return grammar.IsIpv4() ? Flaw::Machine : Flaw::UnknownLiteral;
    }
    bool is_address = grammar.IsFullIpv6();
    for (std::size_t groups = 0; groups <= 6; ++groups) {
        is_address = is_address || grammar.IsShortIpv6(groups);
    }
    return is_address ? Flaw::Machine : grammar.IsShortIpv6(7) ? Flaw::OneGroup : Flaw::NoIpAddress;
}

class AddressTwin {
 public:
    // Of at most kLongestDerived bytes.
    explicit AddressTwin(std::string_view text) : text_(text) {}

    // The gravest flaw, letters that nobody sees aside; nothing for a bad address.
    std::optional<Flaw> Worst() {
        const AddressGrammar grammar(text_, {});
        if (grammar.DerivesAddress() && CheckDomain(grammar.AtSign())) {
            CheckProductions();
            return worst_;
        }
        const bool exchange = text_.starts_with("/O=") || text_.starts_with("/o=");
        return exchange && grammar.IsUtf8() ? std::optional(Flaw::Exchange) : std::nullopt;
    }

 private:
    void Note(Flaw flaw) { worst_ = std::max(worst_, flaw); }

    // What cannot be derived without a production needs it.
    void CheckProductions() {
        const Productions none{
            false, false, false, false, false, false, false, false, false, false};
        if (AddressGrammar(text_, none).DerivesAddress()) {
            return;
        }
        const struct {
            bool Productions::*Which;
            Flaw What;
        } rows[] = {
            {&Productions::ObsFws, Flaw::FoldedTwice},
            {&Productions::ObsText, Flaw::ControlInside},
            {&Productions::ObsPair, Flaw::EscapedControl},
            {&Productions::ObsName, Flaw::OldName},
            {&Productions::ObsDomain, Flaw::GapInDomain},
            {&Productions::GapBesideAt, Flaw::GapBesideAt},
            {&Productions::Blanks, Flaw::Blanks},
            {&Productions::Comments, Flaw::Comment},
            {&Productions::Quotes, Flaw::Quoted},
            {&Productions::OtherSigns, Flaw::NoHost},
        };
        for (const auto& row : rows) {
            Productions without;
            without.*row.Which = false;
            if (row.What > worst_ && !AddressGrammar(text_, without).DerivesAddress()) {
                Note(row.What);
            }
        }
    }

    // Returns false for a domain that UTS 46 refuses.
    bool CheckDomain(std::size_t at_sign) {
        const std::string name = Stripped(text_.substr(0, at_sign));
        std::string domain = Stripped(text_.substr(at_sign + 1));
        if (domain.starts_with('[')) {
            Note(LiteralFlawOf(domain.substr(1, domain.size() - 2)));
        } else {
            Productions hosts;
            hosts.OtherSigns = false;
            if (AddressGrammar(text_, hosts).DerivesAddress()) {
                const AsciiDomain ascii = AsciiDomainOf(domain);
                if (ascii.IsRefused) {
                    return false;
                }
                Note(ascii.HasNoLetters ? Flaw::NoLetters : Flaw::None);
                Note(ascii.IsMapped ? Flaw::MappedDomain : Flaw::None);
                domain = ascii.Text;
            }
            std::string label;
            for (const char c : domain) {
                label = c == '.' ? "" : label + c;
                Note(label.size() > 63 ? Flaw::LabelLong : Flaw::None);
            }
            Note(label == domain ? Flaw::OneLabel : Flaw::None);
            const bool number = label.find_first_not_of("0123456789") == std::string::npos;
            Note(number ? Flaw::NumberAtEnd : Flaw::None);
        }
        Note(name.size() > 64 ? Flaw::NameLong : Flaw::None);
        Note(domain.size() > 255 ? Flaw::DomainLong : Flaw::None);
        Note(name.size() + domain.size() > 253 ? Flaw::AddressLong : Flaw::None);
        return true;
    }

    std::string_view text_;
    Flaw worst_ = Flaw::None;
};

// Whether the quick code says the same of an address.
inline bool AgreesWithTwin(std::string_view address) {
    const CheckedAddress quick = CheckAddress(address);
    const std::optional<Flaw> slow = AddressTwin(address).Worst();
    if (!slow) {
        return quick.Class() == AddressClass::Bad;
    }
    // Grammars know nothing of letters without ink.
    const bool unseen =
        quick.Worst.What == Flaw::HiddenLetter || quick.Worst.What == Flaw::LostLetter;
    return unseen ? *slow < quick.Worst.What : *slow == quick.Worst.What;
}

}  // namespace orvik::book::test
