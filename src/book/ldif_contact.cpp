#include "book/ldif_contact.h"

#include <algorithm>
#include <string>

#include "book/transfer.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

bool HasControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        constexpr std::string_view kOfText = "\t\n\v\f\r\x1B";
        return static_cast<unsigned char>(c) < ' ' && kOfText.find(c) == std::string_view::npos;
    });
}

// "20010409210816Z" -> "20010409T210816Z"; empty for anything else.
std::string TimeStampOf(std::string_view text) {
    constexpr std::size_t kDate = 8;
    constexpr std::size_t kLength = 15;
    if (text.size() != kLength || text.find_first_not_of("0123456789") != kLength - 1 ||
        text.back() != 'Z') {
        return {};
    }
    return std::string(text.substr(0, kDate)) + "T" + std::string(text.substr(kDate));
}

}  // namespace

LdifContacts::LdifContacts(Book& book, Charset& charset, std::uint32_t file)
    : book_(book),
      charset_(charset),
      file_(file),
      attributes_(book.Names),
      has_nul_(book.SourceAt(file).Signs().Nul),
      plain_(charset.IsUtf8() && book.SourceAt(file).BadLetters() == 0) {}

void LdifContacts::Clear() {
    properties_.clear();
    dn_ = any_phone_ = post_box_ = postal_ = home_postal_ = unit_ = {};
    name_ = work_ = home_ = org_ = {};
    birth_ = {};
    of_kcontacts_ = named_by_display_ = false;
    late_.clear();
    carried_.clear();
    last_was_carried_ = false;
}

void LdifContacts::Add(const std::vector<TextRow>& rows, std::size_t first, const Origin& from) {
    Clear();
    book_.BeginRead(contact_, from, charset_.IsUtf8());
    contact_.Form = Dialect::Ldif;
    properties_.reserve(rows.size());
    piece_ = PieceCharset::Utf8;
    if (!charset_.IsUtf8()) {
        std::vector<std::string_view> values;
        values.reserve(rows.size());
        for (const TextRow& row : rows) {
            values.push_back(row.Text);
        }
        piece_ = charset_.Judge(values, from.Line);
        contact_.IsUtf8 =
            piece_ == PieceCharset::Broken || (contact_.IsUtf8 && !charset_.IsOther(piece_));
    }
    for (std::size_t i = first; i < rows.size(); ++i) {
        TakeRow(rows[i]);
    }
    Finish();
    book_.AddRead(contact_, properties_);
}

void LdifContacts::TakeRow(const TextRow& row) {
    row_ = row.Number;
    if (row.Colon != TextRow::kNoColon) {
        const LdifAttribute* const known = attributes_.Known(row.Text.substr(0, row.Colon));
        if (known != nullptr) {
            return TakeAttribute(*known, PartsAtColon(row.Text, row.Colon));
        }
    }
    if (const auto parts = SplitLdifLine(row.Text)) {
        TakeAttribute(attributes_.Of(parts->Name), *parts);
    } else {
        const LdifParts none{{}, {}, row.Text, LdifForm::Plain};
        Doubt(Reason::NoField, none);
        Carry("no-field", Letters(row.Text, LdifFieldOf({}), none));
    }
}

void LdifContacts::TakeAttribute(const LdifAttribute& attribute, const LdifParts& parts) {
    const LdifField& field = *attribute.Field;
    const Value value = ValueOf(field, parts);
    if (value.Raw || value.Binary) {
        TakeBytes(field, parts, value);
    } else if (attribute.IsCarriedVCard && TakeCarried(parts, value.Text)) {
        return;
    } else if (!parts.Options.empty()) {
        TakeOptions(field, parts, value.Text);
    } else if (field.Meaning == LdifMeaning::Unknown) {
        Carry(parts.Name, value.Text);
    } else if (!value.Text.empty()) {
        TakeText(field, parts, value.Text);
    } else if (field.Meaning != LdifMeaning::Dn) {
        Carry(parts.Name, {});
    }
    last_was_carried_ = false;
}

// Bytes, or where they are.
void LdifContacts::TakeBytes(const LdifField& field, const LdifParts& parts, const Value& value) {
    const bool picture = !value.Raw && field.Meaning == LdifMeaning::Photo;
    std::array<Param, 3> params{};
    std::size_t count = 0;
    params[count++] = value.Raw ? Param{field::kValue, "uri"} : Param{field::kEncoding, "b"};
    if (picture) {
        params[count++] = {field::kType, field.Type};
    }
    if (!parts.Options.empty()) {
        params[count++] = {book_.Names.Intern("X-ORVIK-OPTIONS"), parts.Options};
    }
    const std::span<const Param> all = std::span(params).first(count);
    if (picture) {
        Push(field::kPhoto, value.Text, book_.KeepDetails({}, all));
    } else {
        Carry(parts.Name, value.Text, all);
    }
}

LdifContacts::Value LdifContacts::ValueOf(const LdifField& field, const LdifParts& parts) {
    if (parts.Form == LdifForm::Url) {
        Doubt(Reason::NamedFile, parts);
        return {Letters(parts.Value, field, parts), false, true};
    }
    if (parts.Form == LdifForm::Base64) {
        return FromBase64(field, parts);
    }
    if (has_nul_ && parts.Value.find('\0') != std::string_view::npos) {
        return {book_.Keep(ToBase64(parts.Value)), true, false};
    }
    return {Letters(parts.Value, field, parts)};
}

LdifContacts::Value LdifContacts::FromBase64(const LdifField& field, const LdifParts& parts) {
    std::string bytes;
    if (!AppendBase64(parts.Value, bytes)) {
        Doubt(Reason::NoBase64, parts);
        return {Letters(parts.Value, field, parts)};
    }
    const bool picture = field.Meaning == LdifMeaning::Photo;
    // Base64 is UTF-8 or bytes; only in fields that are text for sure programs left other letters.
    const bool valid = CountUtf8(bytes).Bad == 0;
    const bool unknown = field.Meaning == LdifMeaning::Unknown;
    const bool own = valid && StartsAsName(parts.Name, kCarriedFromVCard);
    const bool no_text = (bytes.find('\0') != std::string::npos && !own) ||
                         (!valid && (unknown || HasControls(bytes)));
    if (picture || no_text || parts.Options == "binary") {
        const bool plain = parts.Value.find_first_of(" \t") == std::string_view::npos;
        return {plain ? parts.Value : book_.Keep(ToBase64(bytes)), true, false};
    }
    std::size_t bad = 0;
    const std::string_view kept = book_.Keep(bytes);
    const std::string_view text = charset_.DecodeAlone(kept, row_, book_.Texts(), bad);
    if (bad > 0) {
        Doubt(Reason::NoLetter, parts);
    }
    if (text.data() != kept.data() &&
        (field.Property == field::kFn || field.Property == field::kN)) {
        charset_.Example(bytes);
    }
    return {text};
}

std::string_view LdifContacts::Letters(std::string_view bytes,
                                       const LdifField& field,
                                       const LdifParts& parts) {
    if (plain_) {
        return bytes;
    }
    std::size_t bad = 0;
    const std::string_view text = charset_.Decode(bytes, piece_, book_.Texts(), bad);
    if (bad > 0 || book_.SourceAt(file_).IsBroken(text)) {
        Doubt(Reason::NoLetter, parts);
    }
    if (piece_ == PieceCharset::Other && field.Property == field::kFn) {
        charset_.Example(bytes);
    }
    return text;
}

void LdifContacts::TakeOptions(const LdifField& field,
                               const LdifParts& parts,
                               std::string_view text) {
    constexpr std::string_view kLanguage = "lang-";
    const bool simple =
        field.Meaning == LdifMeaning::Simple || field.Meaning == LdifMeaning::Single;
    const bool language = SameName(parts.Options.substr(0, kLanguage.size()), kLanguage) &&
                          parts.Options.find(';') == std::string_view::npos;
    if (simple && language && field.Type.empty()) {
        const std::array params = {Param{field::kLanguage, parts.Options.substr(kLanguage.size())}};
        const bool list = ValueFormOf(book_.Names, field.Property) == ValueForm::List;
        Push(field.Property, list ? AsPart(text) : text, book_.KeepDetails({}, params));
        return;
    }
    const std::array params = {Param{book_.Names.Intern("X-ORVIK-OPTIONS"), parts.Options}};
    Carry(parts.Name, text, params);
}

// A record is called by cn; displayName is its name where there is no other, wherever it stands.
void LdifContacts::TakeShownName(const LdifField& field,
                                 const LdifParts& parts,
                                 std::string_view text) {
    const std::string_view there = First(field.Property);
    const bool display = SameName(parts.Name, "displayname");
    if (there.empty()) {
        Push(field.Property, text);
        named_by_display_ = display;
    } else if (there != text && named_by_display_ && !display) {
        const auto name =
            std::find_if(properties_.begin(), properties_.end(), [&](const Property& one) {
                return one.Name == field.Property && one.Value == there;
            });
        name->Value = text;
        Carry("displayName", there);
        named_by_display_ = false;
    } else if (there != text) {
        Carry(parts.Name, text);
    }
}

void LdifContacts::TakeText(const LdifField& field, const LdifParts& parts, std::string_view text) {
    switch (field.Meaning) {
        case LdifMeaning::Simple:
        case LdifMeaning::ListName: {
            const bool list = ValueFormOf(book_.Names, field.Property) == ValueForm::List;
            PushOnce(field.Property, list ? AsPart(text) : text, TypeDetails(field.Type));
            return;
        }
        case LdifMeaning::Single: {
            return TakeShownName(field, parts, text);
        }
        case LdifMeaning::ObjectClass:
            return TakeObjectClass(parts, text);
        case LdifMeaning::Url:
            return TakeUrl(field, parts, text);
        case LdifMeaning::Member:
            return Push(field.Property, text);
        case LdifMeaning::Uid:
            // In a directory it is the name to log in with.
            if (SameName(dn_.substr(0, 4), "uid=") || !First(field::kUid).empty()) {
                return Carry(parts.Name, text);
            }
            return Push(field.Property, text);
        case LdifMeaning::Html:
            if (SameName(text, "true") || SameName(text, "false")) {
                return PushOnce(field.Property, text.size() == 4 ? "TRUE" : "FALSE");
            }
            return Carry(parts.Name, text);
        case LdifMeaning::TimeStamp: {
            const std::string time = TimeStampOf(text);
            return time.empty() ? Carry(parts.Name, text) : Push(field.Property, book_.Keep(time));
        }
        case LdifMeaning::ProxyAddress: {
            constexpr std::string_view kSmtp = "smtp:";
            if (!SameName(text.substr(0, kSmtp.size()), kSmtp)) {
                return Carry(parts.Name, text);
            }
            // In capitals it is the one that the person prefers.
            return PushOnce(field.Property,
                            text.substr(kSmtp.size()),
                            TypeDetails(text.starts_with('S') ? "pref" : ""));
        }
        case LdifMeaning::Unknown:
        case LdifMeaning::Photo:
            return Carry(parts.Name, text);
        default:
            return TakeMerged(field, parts, text);
    }
}

void LdifContacts::TakeMerged(const LdifField& field,
                              const LdifParts& parts,
                              std::string_view text) {
    switch (field.Meaning) {
        case LdifMeaning::Dn:
            return TakeOnce(dn_, parts, text);
        case LdifMeaning::NamePart:
            return TakePart(name_, field.Part, parts, text);
        case LdifMeaning::OrgPart:
            of_kcontacts_ = of_kcontacts_ || SameName(parts.Name, "organizationname");
            return TakePart(org_, field.Part, parts, text);
        case LdifMeaning::WorkAddress:
            return TakePart(work_, field.Part, parts, text);
        case LdifMeaning::HomeAddress:
            return TakePart(home_, field.Part, parts, text);
        case LdifMeaning::PostalLines:
            return TakeOnce(postal_, parts, text);
        case LdifMeaning::HomePostalLines:
            return TakeOnce(home_postal_, parts, text);
        case LdifMeaning::PostBox:
            return TakeOnce(post_box_, parts, text);
        case LdifMeaning::Unit:
            return TakeOnce(unit_, parts, text);
        case LdifMeaning::AnyPhone:
            return TakeOnce(any_phone_, parts, text);
        case LdifMeaning::BirthYear:
            return TakeOnce(birth_[0], parts, text);
        case LdifMeaning::BirthMonth:
            return TakeOnce(birth_[1], parts, text);
        default:
            return TakeOnce(birth_[2], parts, text);
    }
}

}  // namespace orvik::book
