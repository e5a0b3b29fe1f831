// E-mail addresses by the productions of RFC 5322, with the letters of RFC 6531. The quick code is
// compared with it.

#pragma once

#include <cstddef>
#include <string_view>

#include "unit/book/grammar.h"

namespace orvik::book::test {

// Productions that can be left out, to see whether a text needs them.
struct Productions {
    bool ObsFws = true;
    bool ObsText = true;  // obs-NO-WS-CTL as a letter
    bool ObsPair = true;
    bool ObsName = true;
    bool ObsDomain = true;
    bool GapBesideAt = true;
    bool Blanks = true;  // FWS in CFWS
    bool Comments = true;
    bool Quotes = true;
    bool OtherSigns = true;  // atext in a label that no sub-domain of RFC 5321 has
};

class AddressGrammar : private Grammar {
 public:
    AddressGrammar(std::string_view text, const Productions& with) : Grammar(text), with_(with) {}

    // addr-spec = local-part "@" domain, of the whole text.
    [[nodiscard]] bool DerivesAddress() const {
        return IsWhole(Domain(Letter(LocalPart(At(0)), '@')));
    }
    // Where the "@" is behind which the domain begins.
    [[nodiscard]] std::size_t AtSign() const {
        const Places ends = LocalPart(At(0));
        for (std::size_t i = 0; i < Text().size(); ++i) {
            if (ends[i] && IsWhole(Domain(Letter(At(i), '@')))) {
                return i;
            }
        }
        return Text().size();
    }
    // *(%x00-7F / UTF8-non-ascii)
    [[nodiscard]] bool IsUtf8() const {
        return Any(At(0), [this](const Places& from) {
            return Range(from, 0, 0x7F) | Utf8NonAscii(from);
        })[Text().size()];
    }

 private:
    [[nodiscard]] Places ObsNoWsCtl(const Places& from) const {
        return with_.ObsText ? Range(from, 1, 8) | Range(from, 11, 12) | Range(from, 14, 31) |
                                   Range(from, 127, 127)
                             : Places();
    }
    [[nodiscard]] Places Wsp(const Places& from) const { return OneOf(from, " \t"); }
    [[nodiscard]] Places CrLf(const Places& from) const { return Letter(Letter(from, '\r'), '\n'); }
    // FWS = ([*WSP CRLF] 1*WSP) / obs-FWS, with obs-FWS = 1*([CRLF] WSP)
    [[nodiscard]] Places Fws(const Places& from) const {
        if (OneOf(from, " \t\r").none()) {
            return {};
        }
        const auto wsp = [this](const Places& some) { return Wsp(some); };
        Places ends = Some(from | CrLf(Any(from, wsp)), wsp);
        if (with_.ObsFws) {
            ends |= Some(from, [this](const Places& some) { return Wsp(some | CrLf(some)); });
        }
        return ends;
    }
    // "\" (VCHAR / WSP) / obs-qp, with obs-qp = "\" (%d0 / obs-NO-WS-CTL / LF / CR)
    [[nodiscard]] Places QuotedPair(const Places& from) const {
        const Places behind = Letter(from, '\\');
        Places ends = Range(behind, 33, 126) | Wsp(behind);
        if (with_.ObsPair) {
            ends |= Range(behind, 0, 8) | Range(behind, 10, 31) | Range(behind, 127, 127);
        }
        return ends;
    }
    // *([FWS] rule) [FWS]
    template <class Rule>
    [[nodiscard]] Places Folded(const Places& from, const Rule& rule) const {
        const Places ends = Any(from, [&](const Places& some) { return rule(some | Fws(some)); });
        return ends | Fws(ends);
    }
    // ctext / quoted-pair / comment
    [[nodiscard]] Places Ccontent(const Places& from) const {
        return Range(from, 33, 39) | Range(from, 42, 91) | Range(from, 93, 126) |
               Utf8NonAscii(from) | ObsNoWsCtl(from) | QuotedPair(from) | Comment(from);
    }
    [[nodiscard]] Places Comment(const Places& from) const {
        const Places inside = Letter(from, '(');
        if (inside.none()) {
            return {};
        }
        return Letter(Folded(inside, [this](const Places& some) { return Ccontent(some); }), ')');
    }
    // CFWS = (1*([FWS] comment) [FWS]) / FWS, or nothing
    [[nodiscard]] Places OptionalCfws(const Places& from) const {
        if (OneOf(from, " \t\r(").none()) {
            return from;
        }
        const auto blanks = [this](const Places& some) {
            return with_.Blanks ? some | Fws(some) : some;
        };
        Places ends = blanks(from);
        if (with_.Comments) {
            ends |= blanks(Some(from, [&](const Places& some) { return Comment(blanks(some)); }));
        }
        return ends;
    }

    [[nodiscard]] Places AlphaOrDigit(const Places& from) const {
        return Ends(from, [](char c) {
            return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        });
    }
    [[nodiscard]] Places Atext(const Places& from) const {
        return AlphaOrDigit(from) | OneOf(from, "!#$%&'*+-/=?^_`{|}~") | Utf8NonAscii(from);
    }
    [[nodiscard]] Places AtomText(const Places& from) const {
        return Some(from, [this](const Places& some) { return Atext(some); });
    }
    [[nodiscard]] Places Qcontent(const Places& from) const {
        return Range(from, 33, 33) | Range(from, 35, 91) | Range(from, 93, 126) |
               Utf8NonAscii(from) | ObsNoWsCtl(from) | QuotedPair(from);
    }
    [[nodiscard]] Places QuotedText(const Places& from) const {
        const auto content = [this](const Places& some) { return Qcontent(some); };
        return with_.Quotes ? Letter(Folded(Letter(from, '"'), content), '"') : Places();
    }
    // rule *("." rule)
    template <class Rule>
    [[nodiscard]] Places Dotted(const Places& from, const Rule& rule) const {
        return Any(rule(from), [&](const Places& some) { return rule(Letter(some, '.')); });
    }
    // dot-atom / quoted-string / obs-local-part
    [[nodiscard]] Places LocalPart(const Places& from) const {
        const auto atom = [this](const Places& some) { return AtomText(some); };
        const Places begin = OptionalCfws(from);
        const Places ends = Dotted(begin, atom) | QuotedText(begin);
        Places words;
        if (with_.ObsName) {
            // The gap behind the last word is that beside the "@".
            words = Any(begin, [&](const Places& some) {
                const Places word = AtomText(some) | QuotedText(some);
                return OptionalCfws(Letter(OptionalCfws(word), '.'));
            });
            words = AtomText(words) | QuotedText(words);
        }
        return with_.GapBesideAt ? OptionalCfws(ends | words) : ends | words;
    }
    // A label, which has no hyphen at its ends: atext, or Let-dig [Ldh-str] or a U-label.
    [[nodiscard]] Places Label(const Places& from) const {
        const auto inner = [this](const Places& some) {
            return AlphaOrDigit(some) | Utf8NonAscii(some) |
                   (with_.OtherSigns ? OneOf(some, "!#$%&'*+/=?^_`{|}~") : Places());
        };
        const Places begin = inner(from);
        return begin | inner(Any(begin, [&](const Places& some) {
                   return inner(some) | Letter(some, '-');
               }));
    }
    [[nodiscard]] Places Dtext(const Places& from) const {
        return Range(from, 33, 90) | Range(from, 94, 126) | Utf8NonAscii(from) | ObsNoWsCtl(from) |
               (with_.ObsText ? QuotedPair(from) : Places());
    }
    // dot-atom / domain-literal / obs-domain
    [[nodiscard]] Places Domain(const Places& from) const {
        const Places begin = with_.GapBesideAt ? OptionalCfws(from) : from;
        const auto label = [this](const Places& some) { return Label(some); };
        Places ends = Dotted(begin, label);
        ends |= Letter(
            Folded(Letter(begin, '['), [this](const Places& some) { return Dtext(some); }), ']');
        if (with_.ObsDomain) {
            const Places labels = Any(begin, [&](const Places& some) {
                return OptionalCfws(Letter(OptionalCfws(Label(some)), '.'));
            });
            ends |= Label(labels);
        }
        return OptionalCfws(ends);
    }

    Productions with_;
};

}  // namespace orvik::book::test
