#include "book/vcard_contact.h"

#include <algorithm>
#include <deque>
#include <span>
#include <utility>

#include "book/line_breaks.h"
#include "book/transfer.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kCharset = "CHARSET";

bool IsQuotedPrintable(const VCardParts& parts) {
    return EncodingOf(parts.Params) == VCardEncoding::QuotedPrintable;
}

std::string_view CharsetNamed(std::string_view params) {
    while (const auto param = TakeParam(params)) {
        if (SameName(param->Name, kCharset)) {
            return param->Value;
        }
    }
    return {};
}

// Text of vCard 2.1: only separators are escaped, and what needs an escape elsewhere.
std::string WithoutOldEscapes(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '\\' && i + 1 < text.size() &&
                            (text[i + 1] == ';' || text[i + 1] == ',' || text[i + 1] == '\\');
        i += escape ? 1 : 0;
        plain += text[i];
    }
    return plain;
}

// Ends of lines become what stands for them in the form; a CR alone is a sign like others.
void AppendLines(std::string_view text, std::string_view end, std::string& to) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        i += text.substr(i, 2) == "\r\n" ? 1 : 0;
        to += text[i] == '\n' ? end : text.substr(i, 1);
    }
}

bool HasLoneCr(std::string_view text) {
    for (std::size_t at = text.find('\r'); at < text.size(); at = text.find('\r', at + 1)) {
        if (!text.substr(at + 1).starts_with('\n')) {
            return true;
        }
    }
    return false;
}

}  // namespace

VCardContacts::VCardContacts(Book& book, Charset& charset, std::uint32_t file)
    : book_(book), charset_(charset), file_(file) {}

void VCardContacts::Add(const std::vector<TextRow>& rows, Dialect form, const Origin& from) {
    details_ = 0;
    properties_.clear();
    book_.BeginRead(contact_, from, charset_.IsUtf8());
    properties_.reserve(rows.size());
    contact_.Form = form;
    form_ = form == Dialect::None ? Dialect::VCard30 : form;
    Judge(rows);
    for (const TextRow& row : rows) {
        TakeRow(row);
    }
    book_.AddRead(contact_, properties_);
}

// A card is of one set but for the values that name theirs. Quoted-printable without a name is of
// the set of the program that wrote it.
void VCardContacts::Judge(const std::vector<TextRow>& rows) {
    std::vector<std::string_view> raw;
    const auto add_raw = [&](std::string_view text) {
        if (!charset_.IsUtf8()) {
            raw.push_back(text);
        }
    };
    std::deque<std::string> quoted;
    std::vector<std::string_view> quoted_values;
    for (const TextRow& row : rows) {
        const auto parts = SplitVCardLine(row.Text);
        if (!parts) {
            add_raw(row.Text);
        } else if (CharsetNamed(parts->Params).empty()) {
            if (!IsQuotedPrintable(*parts)) {
                add_raw(row.Text);
            } else {
                AppendQuotedPrintable(parts->Value, quoted.emplace_back());
                quoted_values.push_back(quoted.back());
            }
        }
    }
    piece_ = charset_.Judge(raw, contact_.From.Line);
    quoted_ = charset_.JudgeApart(quoted_values, contact_.From.Line);
    const bool other = charset_.IsOther(piece_) || charset_.IsOther(quoted_);
    contact_.IsUtf8 = piece_ == PieceCharset::Broken || (contact_.IsUtf8 && !other);
}

void VCardContacts::TakeRow(const TextRow& row) {
    params_.clear();
    auto parts = SplitVCardLine(row.Text);
    if (!parts) {
        const VCardParts none{{}, {}, {}, row.Text};
        Doubt(Reason::NoField, none);
        std::string text;
        AppendOneLine(Letters(row.Text, none, {}), text);
        const NameId name = book_.Names.Intern("X-ORVIK-VCARD-no-field");
        properties_.push_back({book_.Keep(text), name, file_, row.Number, 0});
        return;
    }
    const NameId name = book_.Names.Intern(parts->Name);
    if (name == field::kVersion) {
        return TakeVersion(*parts, row.Number);
    }
    const Manner manner = TakeParams(*parts);
    const std::string_view value = TakeBreaks(name, ValueOf(name, *parts, manner));
    if (const auto group = TakeOwnParam(kGroupParam); group && parts->Group.empty()) {
        parts->Group = *group;
    }
    FindKind(name, value);
    constexpr std::size_t kNameParts = 5;
    if (name == field::kN && PartCount(value) < kNameParts) {
        Doubt(Reason::FewParts, *parts);
    }
    properties_.push_back({value, name, file_, row.Number, DetailsOf(*parts)});
}

// A parameter that Orvik added is gone when it is read.
std::optional<std::string_view> VCardContacts::TakeOwnParam(std::string_view own) {
    const NameId id = params_.empty() ? FieldNames::kNone : book_.Names.Find(own);
    const auto found = std::find_if(
        params_.begin(), params_.end(), [id](const Param& param) { return param.Name == id; });
    if (found == params_.end()) {
        return std::nullopt;
    }
    const std::string_view value = found->Value;
    params_.erase(found);
    return value;
}

std::string_view VCardContacts::TakeBreaks(NameId name, std::string_view value) {
    const auto breaks = TakeOwnParam(kBreaksParam);
    return breaks ? book_.Keep(WithBreaks(value, *breaks, ValueFormOf(book_.Names, name))) : value;
}

// Fields with the same parameters follow each other, and share them.
std::uint32_t VCardContacts::DetailsOf(const VCardParts& parts) {
    if (details_ == 0 || !parts.Group.empty() || parts.Params != details_of_) {
        const std::uint32_t details = book_.TakeDetails(parts.Group, params_);
        details_ = parts.Group.empty() ? details : 0;
        details_of_ = parts.Params;
        return details;
    }
    return details_;
}

void VCardContacts::TakeVersion(const VCardParts& parts, std::uint32_t line) {
    const Dialect version = VersionOf(parts.Value);
    if (version == Dialect::None) {
        Doubt(Reason::OtherVersion, parts);
    } else if (contact_.Form != Dialect::None && contact_.Form != version) {
        Doubt(Reason::TwoLines, parts);
    } else {
        contact_.Form = version;
        return;
    }
    std::string text;
    AppendOneLine(Letters(parts.Value, parts, {}), text);
    const NameId name = book_.Names.Intern("X-ORVIK-VCARD-VERSION");
    properties_.push_back({book_.Keep(text), name, file_, line, 0});
}

VCardContacts::Manner VCardContacts::TakeParams(const VCardParts& parts) {
    constexpr std::size_t kLongParams = 4096;
    Manner manner;
    if (parts.Params.size() > kLongParams) {
        // Millions of them are counted, as they would be there three times while they grow.
        params_.reserve(2 + static_cast<std::size_t>(
                                std::count_if(parts.Params.begin(), parts.Params.end(), [](char c) {
                                    return c == ';' || c == ',';
                                })));
    }
    std::string_view rest = parts.Params;
    while (const auto param = TakeParam(rest)) {
        if (const auto encoding = EncodingNamed(*param)) {
            manner.Encoding = *encoding;
        } else if (SameName(param->Name, kCharset)) {
            manner.Charset = param->Value;
        } else if (param->Name.empty()) {
            TakeTypes(field::kType, param->Value, parts);
        } else {
            const NameId name = book_.Names.Intern(param->Name);
            if (name == field::kType) {
                TakeTypes(name, param->Value, parts);
            } else {
                params_.push_back({name, ParamText(param->Value, parts)});
            }
        }
    }
    if (manner.Encoding == VCardEncoding::Base64) {
        params_.insert(params_.begin(), {field::kEncoding, "b"});
    }
    return manner;
}

// Each type by itself, however they were joined.
void VCardContacts::TakeTypes(NameId name, std::string_view value, const VCardParts& parts) {
    while (!value.empty()) {
        const std::size_t comma = std::min(value.find(','), value.size());
        if (comma > 0) {
            params_.push_back({name, ParamText(value.substr(0, comma), parts)});
        }
        value.remove_prefix(std::min(comma + 1, value.size()));
    }
}

std::string_view VCardContacts::ParamText(std::string_view value, const VCardParts& parts) {
    std::size_t bad = 0;
    const std::string_view text = charset_.Decode(value, piece_, book_.Texts(), bad);
    if (bad > 0 || book_.SourceAt(file_).IsBroken(text)) {
        Doubt(Reason::NoLetter, {{}, parts.Name, {}, value});
    }
    const bool escapes = form_ == Dialect::VCard40 && text.find('^') != std::string_view::npos;
    return escapes ? book_.Keep(WithoutCarets(text)) : text;
}

std::string_view VCardContacts::ValueOf(NameId name,
                                        const VCardParts& parts,
                                        const Manner& manner) {
    if (manner.Encoding == VCardEncoding::Base64) {
        return Base64Of(parts);
    }
    const ValueForm form = ValueFormOf(book_.Names, name);
    const bool quoted = manner.Encoding == VCardEncoding::QuotedPrintable;
    if (quoted || form_ == Dialect::VCard21) {
        return OldValue(form, parts, manner);
    }
    const std::string_view text = Letters(parts.Value, parts, manner);
    const bool escapes = form == ValueForm::Text && text.find('\\') != std::string_view::npos;
    return escapes ? book_.Keep(Unescaped(text)) : text;
}

std::string_view VCardContacts::Base64Of(const VCardParts& parts) {
    const bool blanks = parts.Value.find_first_of(" \t") != std::string_view::npos;
    std::string bytes;
    if (!AppendBase64(parts.Value, bytes)) {
        Doubt(Reason::NoBase64, parts);
        return Letters(parts.Value, parts, {});
    }
    return blanks ? book_.Keep(ToBase64(bytes)) : parts.Value;
}

// Values of vCard 2.1, and quoted-printable in any version: separators count before the letters are
// decoded, as a part may hold one in its encoded form.
std::string_view VCardContacts::OldValue(ValueForm form,
                                         const VCardParts& parts,
                                         const Manner& manner) {
    const bool quoted = manner.Encoding == VCardEncoding::QuotedPrintable;
    // Letters first where a backslash or a comma may be a part of one.
    std::string_view text = quoted ? parts.Value : Letters(parts.Value, parts, manner);
    // A soft line end that nothing follows.
    text.remove_suffix(quoted && text.ends_with('=') ? 1 : 0);
    const bool as_it_is =
        form == ValueForm::Parts
            ? text.find_first_of("\\,") == std::string_view::npos
            : form != ValueForm::List || text.find('\\') == std::string_view::npos;
    if (!quoted && as_it_is) {
        return text;
    }
    std::string value;
    if (form != ValueForm::Parts && form != ValueForm::List) {
        AppendOld(text, form, parts, manner, value);
        return book_.Keep(value);
    }
    const char separator = form == ValueForm::Parts ? ';' : ',';
    std::string_view rest = text;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(rest, separator);
        AppendOld(part.Text, form, parts, manner, value);
        value += part.More ? std::string_view(&separator, 1) : std::string_view{};
    }
    return book_.Keep(value);
}

void VCardContacts::AppendOld(std::string_view part,
                              ValueForm form,
                              const VCardParts& parts,
                              const Manner& manner,
                              std::string& to) {
    const bool structured = form == ValueForm::Parts || form == ValueForm::List;
    std::string text = structured ? WithoutOldEscapes(part) : std::string(part);
    if (manner.Encoding == VCardEncoding::QuotedPrintable) {
        std::string bytes;
        if (AppendQuotedPrintable(text, bytes)) {
            Doubt(Reason::NoQuotedPrintable, parts);
        }
        text = Letters(bytes, parts, manner);
    }
    if (structured) {
        if (HasLoneCr(text)) {
            Doubt(Reason::ChangedSigns, parts);
        }
        AppendEscaped(text, to);
    } else if (form == ValueForm::Verbatim) {
        AppendLines(text, "\\n", to);
    } else {
        const bool escapes = form_ != Dialect::VCard21 && text.find('\\') != std::string::npos;
        AppendLines(escapes ? Unescaped(text) : text, "\n", to);
    }
}

std::string_view VCardContacts::Letters(std::string_view bytes,
                                        const VCardParts& parts,
                                        const Manner& manner) {
    const bool quoted = manner.Encoding == VCardEncoding::QuotedPrintable;
    const PieceCharset piece = quoted ? quoted_ : piece_;
    std::size_t bad = 0;
    std::optional<std::string_view> text;
    if (!manner.Charset.empty()) {
        text = charset_.DecodeAs(bytes, manner.Charset, book_.Texts(), bad);
        if (!text) {
            Doubt(Reason::UnknownCharset, parts);
        }
    }
    if (!text) {
        // What names a set that nobody knows was not judged with the others.
        text = manner.Charset.empty()
                   ? charset_.Decode(bytes, piece, book_.Texts(), bad)
                   : charset_.DecodeAlone(bytes, contact_.From.Line, book_.Texts(), bad);
        if (piece == PieceCharset::Other &&
            (SameName(parts.Name, "FN") || SameName(parts.Name, "N"))) {
            charset_.Example(bytes);
        }
    }
    if (bad > 0 || book_.SourceAt(file_).IsBroken(*text)) {
        Doubt(Reason::NoLetter, parts);
    }
    return *text;
}

void VCardContacts::FindKind(NameId name, std::string_view value) {
    const bool group =
        (name == field::kKind || name == field::kServerKind) && SameName(value, "group");
    if (group || (name == field::kEvolutionList && SameName(value, "TRUE"))) {
        contact_.Kind = ContactKind::List;
    }
}

void VCardContacts::Doubt(Reason reason, const VCardParts& parts) {
    book_.Told.Add({parts.Name,
                    parts.Value,
                    file_,
                    contact_.From.Line,
                    FieldNames::kNone,
                    What::Doubtful,
                    reason});
}

}  // namespace orvik::book
