#include "book/old/entry_builder.h"

#include <algorithm>

#include "book/carried_name.h"
#include "book/csv_cells.h"
#include "book/ldif_dn.h"
#include "book/old/likely_name.h"
#include "book/record_lines.h"
#include "book/value_form.h"

namespace orvik::book {
EntryBuilder::EntryBuilder(Book& book, std::uint32_t file, Charset& charset)
    : book_(book),
      file_(file),
      charset_(charset),
      plain_(charset.IsUtf8() && book.SourceAt(file).BadLetters() == 0) {}

void EntryBuilder::Begin(std::string_view bytes,
                         std::uint32_t line,
                         std::uint32_t lines,
                         ContactKind kind,
                         std::span<const std::string_view> values) {
    const Origin from{file_,
                      line,
                      lines,
                      book_.SourceAt(file_).OffsetOf(bytes.data()),
                      static_cast<std::uint32_t>(bytes.size())};
    book_.BeginRead(contact_, from, charset_.IsUtf8());
    contact_.Kind = kind;
    piece_ = PieceCharset::Utf8;
    if (!charset_.IsUtf8()) {
        piece_ = charset_.Judge(values, line);
        contact_.IsUtf8 = contact_.IsUtf8 || piece_ == PieceCharset::Broken;
    }
}

std::string_view EntryBuilder::Letters(std::string_view value, std::string_view field) {
    if (plain_) {
        return value;
    }
    std::size_t bad = 0;
    const std::string_view text = charset_.Decode(value, piece_, book_.Texts(), bad);
    if (bad > 0 || book_.SourceAt(file_).IsBroken(text)) {
        Doubt(field, text, Reason::NoLetter);
    }
    return text;
}

std::string_view EntryBuilder::LettersOfName(std::string_view value, std::string_view field) {
    if (piece_ == PieceCharset::Other) {
        charset_.Example(WithoutBlanksAround(value));
    }
    return Letters(value, field);
}

void EntryBuilder::Push(NameId name,
                        std::string_view value,
                        std::uint32_t line,
                        std::uint32_t details) {
    properties_.push_back({value, name, file_, line, details});
}

void EntryBuilder::PushKept(NameId name,
                            const std::string& value,
                            std::uint32_t line,
                            std::uint32_t details) {
    Push(name, book_.Keep(value), line, details);
}

void EntryBuilder::PushName(std::string_view name, std::uint32_t line) {
    const std::string_view plain = WithoutBlanksAround(name);
    if (plain.empty()) {
        return;
    }
    Push(field::kFn, name, line);
    PushKept(field::kN, LikelyName(plain), line);
    if (!guessed_ && IsGuessedName(plain)) {
        guessed_ = true;
        Doubt("N", plain, Reason::GuessedName);
    }
}

bool EntryBuilder::AreExchanged(std::string_view name, std::string_view address) {
    if (address.empty() || address.find('@') != std::string_view::npos || !IsAddressCell(name)) {
        return false;
    }
    if (!exchanged_) {
        exchanged_ = true;
        Doubt("EMAIL", name, Reason::Exchanged);
    }
    return true;
}

void EntryBuilder::PushCarried(std::string_view format,
                               std::string_view field,
                               std::string_view value,
                               std::uint32_t line) {
    const std::string start = "X-ORVIK-" + std::string(format) + "-";
    const NameId name = book_.Names.Intern(CarriedName(start, field, 0));
    const std::string_view own = book_.Names.Text(name).substr(start.size());
    Push(name, value, line, KeepHeader(book_, own, field));
}

void EntryBuilder::PushWords(NameId name, std::string_view value, std::uint32_t line) {
    if (!NeedsEscapes(value)) {
        return Push(name, value, line);
    }
    std::string escaped;
    AppendEscaped(value, escaped);
    PushKept(name, escaped, line);
}

void EntryBuilder::PushMemberAt(std::uint32_t member, std::uint32_t line) {
    PushKept(field::kMember, std::string(kLineScheme) + std::to_string(member), line);
}

void EntryBuilder::PushMember(std::string_view address, std::string_view name, std::uint32_t line) {
    if (!address.empty()) {
        // With a name it is what LDIF calls somebody, which every writer knows.
        return PushKept(field::kMember,
                        name.empty() || name == address ? "mailto:" + std::string(address)
                                                        : DnOf(name, address),
                        line);
    }
    if (as_text_ == 0) {
        const Param text{field::kValue, "text"};
        as_text_ = book_.KeepDetails({}, {&text, 1});
    }
    std::string escaped;
    AppendEscaped(name, escaped);
    PushKept(field::kMember, escaped, line, as_text_);
}

std::uint32_t EntryBuilder::Types(std::string_view types) {
    std::vector<Param> params;
    while (!types.empty()) {
        const std::size_t end = std::min(types.find(' '), types.size());
        params.push_back({field::kType, book_.Keep(types.substr(0, end))});
        types.remove_prefix(std::min(end + 1, types.size()));
    }
    return book_.KeepDetails({}, params);
}

void EntryBuilder::Doubt(std::string_view field, std::string_view value, Reason why) {
    book_.Told.Add(
        {field, value, file_, contact_.From.Line, FieldNames::kNone, What::Doubtful, why});
}

void EntryBuilder::Skip(std::string_view text, std::uint32_t line, Reason why) {
    book_.Told.Add({{}, text, file_, line, FieldNames::kNone, What::Skipped, why});
}

void EntryBuilder::End() {
    book_.AddRead(contact_, properties_);
}

}  // namespace orvik::book
