#include "book/facts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>

#include "app/text.h"
#include "book/csv_form.h"
#include "book/csv_rows.h"
#include "book/ldif_fields.h"
#include "book/ldif_lines.h"
#include "book/lines.h"
#include "book/old/old_formats.h"
#include "book/typed_views.h"

namespace orvik::book {
namespace {

// From the one that others are told from first: KContacts writes the names of Mozilla, too, and
// Mozilla those of Netscape.
enum Program : std::size_t { kKContacts, kMozilla, kNetscape, kPrograms };
constexpr std::array<std::string_view, kPrograms> kProgramNames = {
    "KContacts", "Mozilla", "Netscape 4"};

struct Sign {
    std::string_view Name;  // the attribute begins so
    Program Of;
};
constexpr std::array kSigns = {
    Sign{"organizationname", kKContacts},
    Sign{"vocation", kKContacts},
    Sign{"mozilla", kMozilla},
    Sign{"xmozilla", kNetscape},
    Sign{"xnav", kNetscape},
};

// Each attribute of a text as it stands at the start of a line.
template <class Take>
void ForEachAttribute(std::string_view text, const Take& take) {
    Line line;
    for (Lines lines(text); lines.Next(line);) {
        const bool begins = !line.Text.empty() && line.Text.front() != ' ' &&
                            line.Text.front() != '\t' && line.Text.front() != '#';
        if (const auto parts = begins ? SplitLdifLine(line.Text) : std::nullopt) {
            take(*parts);
        }
    }
}

Program ProgramOf(const LdifParts& parts) {
    if (SameName(parts.Name, "objectclass")) {
        return StartsAsName(parts.Value, "mozillaAb") ? kMozilla : kPrograms;
    }
    const auto* const found = std::find_if(kSigns.begin(), kSigns.end(), [&](const Sign& sign) {
        return StartsAsName(parts.Name, sign.Name);
    });
    return found == kSigns.end() ? kPrograms : found->Of;
}

void AddLdifFacts(std::string_view text, Facts& facts) {
    const std::string_view program = LdifProgram(text);
    facts.Form = program.empty() ? "LDIF" : std::string(program) + " LDIF";
    std::set<std::string> names;
    ForEachAttribute(text, [&](const LdifParts& parts) {
        if (LdifFieldOf(parts.Name).Property == field::kNickname) {
            names.insert(ToLower(parts.Name));
        }
    });
    facts.NicknameNames.assign(names.begin(), names.end());
}

// Those inside of cells are no ends of rows.
LineEnds EndsOfRows(std::string_view text) {
    const CsvForm form = LikelyCsvForm(text);
    Arena texts;
    CsvRows rows(text.substr(form.From), form.Separator, texts);
    LineEnds ends = CountLineEnds(text.substr(0, form.From));
    for (CsvRow row; rows.Next(row);) {
        const LineEnds one = CountLineEnds(row.Span.substr(row.Span.find_last_not_of("\r\n") + 1));
        ends.Lf += one.Lf;
        ends.CrLf += one.CrLf;
        ends.Cr += one.Cr;
    }
    return ends;
}

std::string Shown(const LineEnds& ends) {
    const std::size_t all = ends.Lf + ends.CrLf + ends.Cr;
    const std::size_t others = all - std::max({ends.Lf, ends.CrLf, ends.Cr});
    std::string name(NameOf(ends));
    if (others > 0) {
        name += " (" + std::to_string(others) + (others == 1 ? " other)" : " others)");
    }
    return name;
}

std::string_view VersionName(Dialect form) {
    switch (form) {
        case Dialect::VCard21:
            return "2.1";
        case Dialect::VCard30:
            return "3.0";
        case Dialect::VCard40:
            return "4.0";
        default:
            return "without a version";
    }
}

// Begins the names of fields that another format calls so, behind which the format stands.
constexpr std::string_view kCarried = "X-ORVIK-";

// What is gathered of one source while the contacts come by.
struct Gathered {
    std::set<Dialect> Forms;
    std::set<std::string_view> Unknown;
};

void AddContact(const Book& book, const Contact& contact, Facts& facts, Gathered& gathered) {
    ++(contact.Kind == ContactKind::List ? facts.Lists : facts.People);
    gathered.Forms.insert(contact.Form);
    facts.Nicknames += NicknamesOf(book, contact).size();
    const bool is_old = contact.Form == Dialect::None || contact.Form == Dialect::Csv;
    for (const Property& one : contact.Properties) {
        facts.Addresses += one.Name == field::kEmail ? 1U : 0U;
        facts.Phones += one.Name == field::kTel ? 1U : 0U;
        facts.Notes += one.Name == field::kNote ? 1U : 0U;
        const std::string_view name = book.Names.Text(one.Name);
        if (one.Name >= field::kKnown && !one.Value.empty() &&
            StartsAsName(name, kCarriedFromLdif)) {
            gathered.Unknown.insert(name.substr(kCarriedFromLdif.size()));
        } else if (StartsAsName(name, kCarriedFromCsv)) {
            gathered.Unknown.insert(name.substr(kCarriedFromCsv.size()));
        } else if (one.Name >= field::kKnown && is_old && StartsAsName(name, kCarried)) {
            const std::string_view field = name.substr(kCarried.size());
            gathered.Unknown.insert(field.substr(std::min(field.find('-') + 1, field.size())));
        }
    }
}

}  // namespace

std::string_view LdifProgram(std::string_view text) {
    Program first = kPrograms;
    ForEachAttribute(text,
                     [&](const LdifParts& parts) { first = std::min(first, ProgramOf(parts)); });
    return first == kPrograms ? std::string_view{} : kProgramNames[first];
}

std::string LineEndsOf(std::string_view text) {
    return Shown(CountLineEnds(text));
}

std::string_view NameOf(Format form) {
    switch (form) {
        case Format::Ldif:
            return "LDIF";
        case Format::VCard:
            return "vCard";
        case Format::Csv:
            return "CSV";
        default:
            break;
    }
    const OldFormat* const old = OldFormatOf(form);
    return old == nullptr ? std::string_view{} : old->Name;
}

std::vector<Facts> FactsOf(const Book& book, std::span<const Format> formats) {
    std::vector<Facts> all(formats.size());
    std::vector<Gathered> gathered(formats.size());
    for (const Contact& contact : book.Contacts) {
        AddContact(book, contact, all[contact.From.File], gathered[contact.From.File]);
    }
    for (std::uint32_t i = 0; i < formats.size(); ++i) {
        const std::string_view text = book.SourceAt(i).Text();
        all[i].LineEnds = LineEndsOf(text);
        all[i].UnknownNames.assign(gathered[i].Unknown.begin(), gathered[i].Unknown.end());
        if (formats[i] == Format::Ldif) {
            AddLdifFacts(text, all[i]);
            continue;
        }
        if (formats[i] == Format::Csv) {
            all[i].Form = NameOf(Format::Csv);
            all[i].LineEnds = Shown(EndsOfRows(text));
            continue;
        }
        all[i].Form = NameOf(formats[i]);
        if (formats[i] != Format::VCard) {
            continue;
        }
        for (const Dialect form : gathered[i].Forms) {
            all[i].Form += all[i].Form.ends_with('d') ? " " : ", ";
            all[i].Form += VersionName(form);
        }
    }
    return all;
}

}  // namespace orvik::book
