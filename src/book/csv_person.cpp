#include "book/csv_person.h"

#include <algorithm>

#include "app/text.h"
#include "book/csv_contact.h"
#include "book/csv_values.h"
#include "book/typed_views.h"
#include "book/utf8.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

struct OtherName {
    std::string_view Property;
    std::string_view Field;
};

// What programs call what a column has, without a name in vCard.
constexpr std::array kOtherNames = {
    OtherName{"X-SPOUSE", "spouse"},
    OtherName{"X-EVOLUTION-SPOUSE", "spouse"},
    OtherName{"X-KADDRESSBOOK-X-SPOUSESNAME", "spouse"},
    OtherName{"X-MANAGER", "manager"},
    OtherName{"X-EVOLUTION-MANAGER", "manager"},
    OtherName{"X-KADDRESSBOOK-X-MANAGERSNAME", "manager"},
    OtherName{"X-ASSISTANT", "assistant"},
    OtherName{"X-EVOLUTION-ASSISTANT", "assistant"},
    OtherName{"X-KADDRESSBOOK-X-ASSISTANTSNAME", "assistant"},
    OtherName{"X-KADDRESSBOOK-X-PROFESSION", "role"},
    OtherName{"X-KADDRESSBOOK-X-OFFICE", "office"},
};

}  // namespace

bool MayBeNumbered(const Book& book, const Property& one) {
    const std::string text = one.Name == field::kAdr ? Unescaped(one.Value)
                                                     : std::string(WithoutBlanksAround(one.Value));
    const auto is_one = [](std::string_view value) {
        return value.find(kBetweenValues) == std::string_view::npos;
    };
    const bool related = one.Name == field::kRelated;
    return HoldsSomething(one.Value) && is_one(text) &&
           (!related || (SameName(ParamOf(book, one, field::kValue), "text") &&
                         is_one(ParamOf(book, one, field::kType))));
}

CsvPersonWriter::CsvPersonWriter(Book& book,
                                 CsvProgram program,
                                 const CsvLayout& layout,
                                 const Windows1252& letters,
                                 CsvRowWriter& row)
    : book_(book),
      program_(program),
      layout_(layout),
      letters_(letters),
      row_(row),
      google_(program == CsvProgram::Google) {
    Prepare();
    PreparePosts();
}

void CsvPersonWriter::Prepare() {
    simple_.fill(CsvLayout::kNone);
    const auto columns = layout_.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const CsvField& field = *columns[i].Field;
        const bool simple = field.Meaning == CsvMeaning::Simple && columns[i].Number == 0;
        if (simple && field.Property == field::kTel) {
            phone_columns_.push_back({i, BitsOfTypes(field.Types)});
        } else if ((simple || field.Meaning == CsvMeaning::Date) &&
                   simple_[field.Property] == CsvLayout::kNone) {
            simple_[field.Property] = i;
        }
    }
    constexpr std::array<std::string_view, 5> kNames = {
        "family", "given", "middle", "prefix", "suffix"};
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        name_columns_[i] = layout_.Find(kNames[i]);
    }
    birth_columns_ = {layout_.Find("birthday.year"),
                      layout_.Find("birthday.month"),
                      layout_.Find("birthday.day")};
    full_name_ = layout_.Find("fn");
    note_column_ = simple_[field::kNote];
    groups_column_ = layout_.Find("label");
    filed_column_ = layout_.Find("fileas");
    firm_columns_ = {layout_.Find("org"), layout_.Find("dept")};
    note_name_ = book_.Names.Intern(columns[note_column_].Header);
    numbered_emails_ = NumberedOf("emailN");
    numbered_phones_ = NumberedOf("phoneN");
    numbered_urls_ = NumberedOf("urlN");
    numbered_relations_ = NumberedOf("relation");
    // Programs that number no addresses in their words have two or three columns of them.
    for (const std::string_view name : {"email1", "email2", "email3"}) {
        const std::size_t column = layout_.Find(name);
        const std::size_t sort = layout_.Find(std::string(name) + ".type");
        if (!google_ && column != CsvLayout::kNone) {
            numbered_emails_.push_back({column, CsvLayout::kNone});
        }
        if (sort != CsvLayout::kNone) {
            shown_addresses_.push_back({column, sort, layout_.Find(std::string(name) + ".name")});
        }
    }
}

std::vector<CsvPersonWriter::Numbered> CsvPersonWriter::NumberedOf(std::string_view name) const {
    std::vector<Numbered> all;
    const std::string label = std::string(name) + ".label";
    for (std::uint32_t i = 1; layout_.Find(name, i) != CsvLayout::kNone; ++i) {
        all.push_back({layout_.Find(name, i), layout_.Find(label, i)});
    }
    return all;
}

void CsvPersonWriter::Write(const Contact& contact, std::span<const std::string_view> lists) {
    contact_ = &contact;
    name_ = shown_ = firm_ = nullptr;
    for (std::vector<Reach>* const all : {&emails_, &phones_, &posts_, &urls_}) {
        all->clear();
    }
    post_labels_.clear();
    for (auto* const all : {&relations_, &carried_, &groups_}) {
        all->clear();
    }
    notes_.clear();
    lines_.clear();
    book_.TellLosses(contact);
    labels_.Fill(book_, contact);
    for (const Property& one : contact.Properties) {
        Take(one);
    }
    WriteEmails();
    WritePhones();
    WritePosts();
    WriteUrls();
    WriteOrganisation();
    WriteName();
    WriteGroups(lists);
    WriteRelations();
    WriteCarried();
    WriteBirthParts();
    WriteShownAddresses();
    WriteNote();
    if (!row_.End()) {
        book_.Told.Add({{},
                        {},
                        contact.From.File,
                        contact.From.Line,
                        FieldNames::kNone,
                        What::Skipped,
                        Reason::Empty});
    }
}

void CsvPersonWriter::Take(const Property& one) {
    if (IsHousekeeping(book_, one)) {
        return;
    }
    if (!HoldsSomething(one.Value)) {
        return Kept(one);
    }
    const auto first_or = [&](const Property*& place, std::string_view label) {
        if (place == nullptr) {
            place = &one;
        } else {
            Carry(one, label, ReadableValue(book_, one));
        }
    };
    const auto add_to = [&](std::vector<Reach>& all) {
        all.push_back({&one, KindOf(book_, one, labels_)});
    };
    switch (one.Name) {
        case field::kN:
            return first_or(name_, "Name");
        case field::kFn:
            return first_or(shown_, "Name");
        case field::kOrg:
            return first_or(firm_, "Organisation");
        case field::kNickname:
            return TakeNickname(one);
        case field::kEmail:
            return add_to(emails_);
        case field::kTel:
            return add_to(phones_);
        case field::kAdr:
            return add_to(posts_);
        case field::kUrl:
            return add_to(urls_);
        case field::kLabel:
            return post_labels_.push_back({&one, posts_.size()});
        case field::kCategories:
            return groups_.push_back(&one);
        case field::kRelated:
            return relations_.push_back(&one);
        case field::kBday:
        case field::kAnniversary:
            return TakeDate(one);
        case field::kPhoto:
        case field::kLogo:
        case field::kSound:
        case field::kKey:
            return TakeMedia(one);
        case field::kGender:
            return TakeGender(one);
        case field::kNote:
            notes_.append(notes_.empty() ? "" : row_.LineBreak()).append(one.Value);
            return Kept(one);
        default:
            return TakeOther(one);
    }
}

void CsvPersonWriter::TakeOther(const Property& one) {
    if (IsBytes(one)) {
        return Lose(one, Reason::NotInTarget);
    }
    const std::string_view name = book_.Names.Text(one.Name);
    if (StartsAsName(name, kCarriedFromCsv)) {
        return carried_.push_back(&one);
    }
    const auto* const other =
        std::find_if(kOtherNames.begin(), kOtherNames.end(), [name](const OtherName& known) {
            return SameName(known.Property, name);
        });
    const std::string text = ReadableValue(book_, one);
    // Apple's dates and relations say by their label what they are.
    if (const std::string_view label = labels_.Of(book_.DetailsOf(one).Group); !label.empty()) {
        const std::size_t column = layout_.Find(ToLower(label));
        const bool own = column != CsvLayout::kNone &&
                         layout_.Columns()[column].Field->Meaning == CsvMeaning::Carried;
        return own && Put(column, text) ? Kept(one) : Carry(one, label, text);
    }
    const std::size_t column = other != kOtherNames.end() ? layout_.Find(other->Field)
                               : one.Name < field::kKnown ? simple_[one.Name]
                                                          : CsvLayout::kNone;
    if (Put(column, text)) {
        return Kept(one);
    }
    Carry(one,
          other != kOtherNames.end() ? Capitalised(other->Field) : LabelOfValue(book_, one),
          text);
}

// A cell is one name; the others would become part of it.
void CsvPersonWriter::TakeNickname(const Property& one) {
    bool whole = true;
    std::string_view rest = one.Value;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(rest, ',');
        const std::string text = Unescaped(part.Text);
        if (!WithoutBlanksAround(text).empty() && !Put(simple_[field::kNickname], text)) {
            AddNote("Nickname", text);
            whole = false;
        }
    }
    whole ? Kept(one) : Tell(one, What::Carried, Reason::NotInTarget, note_name_);
}

void CsvPersonWriter::TakeMedia(const Property& one) {
    if (IsBytes(one) || StartsAsName(one.Value, "data:")) {
        return Lose(one, Reason::NotInTarget);
    }
    const std::size_t column = one.Name == field::kPhoto ? layout_.Find("photo") : CsvLayout::kNone;
    if (Put(column, one.Value)) {
        return Kept(one);
    }
    Carry(one, LabelOfValue(book_, one), one.Value);
}

void CsvPersonWriter::TakeGender(const Property& one) {
    const std::string_view sex = PartAt(one.Value, 0);
    const std::string_view word = sex == "M" ? "Male" : sex == "F" ? "Female" : "";
    const bool plain = sex.size() == one.Value.size() && !word.empty();
    if (plain && Put(layout_.Find("gender"), word)) {
        return Kept(one);
    }
    Carry(one, "Gender", plain ? std::string(word) : ReadableValue(book_, one));
}

bool CsvPersonWriter::IsBytes(const Property& one) const {
    return ParamOf(book_, one, field::kEncoding) == "b";
}

bool CsvPersonWriter::IsText(const Property& one) const {
    return SameName(ParamOf(book_, one, field::kValue), "text");
}

bool CsvPersonWriter::Put(std::size_t column, std::string_view value) {
    value = WithoutBlanksAround(value);
    if (column == CsvLayout::kNone || value.empty() || !row_.IsFree(column) || !Fits(value)) {
        return false;
    }
    row_.AppendLines(value, column);
    return true;
}

// Google parts several values of a cell.
bool CsvPersonWriter::Fits(std::string_view value) const {
    return !google_ || value.find(kBetweenValues) == std::string_view::npos;
}

void CsvPersonWriter::AddNote(std::string_view label, std::string_view value) {
    lines_.append(lines_.empty() ? "" : row_.LineBreak());
    // Names of fields may be any bytes.
    AppendUtf8(label, lines_);
    lines_.append(": ").append(value);
}

void CsvPersonWriter::WriteNote() {
    std::string& cell = row_.Cell(note_column_);
    cell.append(notes_);
    cell.append(cell.empty() || lines_.empty() ? "" : row_.LineBreak()).append(lines_);
}

}  // namespace orvik::book
