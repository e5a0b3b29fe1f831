// What is to be said of an e-mail address, found out slowly with the grammar.

#pragma once

#include <optional>
#include <regex>
#include <string>
#include <string_view>

#include "book/address_check.h"
#include "book/ascii_domain.h"
#include "unit/book/address_grammar.h"

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

// RFC 5321, 4.1.3
inline Flaw LiteralFlawOf(const std::string& literal) {
    static const std::string kNumber = "(?:25[0-5]|2[0-4][0-9]|[01]?[0-9]?[0-9])";
    static const std::string kIpv4 = kNumber + "(?:\\." + kNumber + "){3}";
    static const std::string kHex = "[0-9A-Fa-f]{1,4}";
    static const std::string kGroups = kHex + "(?::" + kHex + ")*";
    static const std::regex kMachine(kIpv4);
    static const std::regex kTag("[Ii][Pp][Vv]6:[^]*");
    static const std::regex kFull(kHex + "(?::" + kHex + "){7}");
    static const std::regex kFull4(kHex + "(?::" + kHex + "){5}:" + kIpv4);
    static const std::regex kShort("(" + kGroups + ")?::(" + kGroups + ")?");
    static const std::regex kShort4("(" + kGroups + ")?::(?:(" + kGroups + "):)?" + kIpv4);
    if (!std::regex_match(literal, kTag)) {
        return std::regex_match(literal, kMachine) ? Flaw::Machine : Flaw::UnknownLiteral;
    }
    const std::string address = literal.substr(5);
    if (std::regex_match(address, kFull) || std::regex_match(address, kFull4)) {
        return Flaw::Machine;
    }
    std::smatch found;
    const bool short4 = std::regex_match(address, found, kShort4);
    if (!short4 && !std::regex_match(address, found, kShort)) {
        return Flaw::NoIpAddress;
    }
    std::size_t groups = short4 ? 2 : 0;
    for (const std::string& some : {found.str(1), found.str(2)}) {
        groups += some.empty() ? 0U : 1U;
        for (const char c : some) {
            groups += c == ':' ? 1U : 0U;
        }
    }
    return groups <= 6 ? Flaw::Machine : groups == 7 ? Flaw::OneGroup : Flaw::NoIpAddress;
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
            static const std::regex kHost("[-.0-9A-Za-z\x80-\xFF]{1,1024}");
            static const std::regex kLongLabel("[^.]{64}");
            static const std::regex kNumber("(^|\\.)[0-9]+$");
            if (std::regex_match(domain, kHost)) {
                const AsciiDomain ascii = AsciiDomainOf(domain);
                if (ascii.IsRefused) {
                    return false;
                }
                Note(ascii.HasNoLetters ? Flaw::NoLetters : Flaw::None);
                Note(ascii.IsMapped ? Flaw::MappedDomain : Flaw::None);
                domain = ascii.Text;
            }
            Note(std::regex_search(domain, kLongLabel) ? Flaw::LabelLong : Flaw::None);
            Note(domain.find('.') == std::string::npos ? Flaw::OneLabel : Flaw::None);
            Note(std::regex_search(domain, kNumber) ? Flaw::NumberAtEnd : Flaw::None);
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
