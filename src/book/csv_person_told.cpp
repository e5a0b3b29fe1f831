// What is told of a person's values, and how they read in the notes.

#include "book/csv_person.h"
#include "book/value_form.h"

namespace orvik::book {

void CsvPersonWriter::Kept(const Property& one) {
    if (program_ == CsvProgram::Outlook && !letters_.Has(one.Value)) {
        return Lose(one, Reason::NoSuchLetter);
    }
    book_.Told.CountMore(What::Kept);
}

void CsvPersonWriter::WithoutKind(const Property& one) {
    Tell(one, What::Doubtful, Reason::NoKind);
}

void CsvPersonWriter::Carry(const Property& one, std::string_view label, std::string_view value) {
    AddNote(label, value);
    Tell(one, What::Carried, Reason::NotInTarget, note_name_);
}

void CsvPersonWriter::Lose(const Property& one, Reason why) {
    book_.Told.Add({book_.Names.Text(one.Name),
                    one.Value,
                    contact_->From.File,
                    contact_->From.Line,
                    FieldNames::kNone,
                    What::Lost,
                    why});
}

void CsvPersonWriter::Tell(const Property& one, What what, Reason why, NameId target) {
    if (program_ == CsvProgram::Outlook && !letters_.Has(one.Value)) {
        return Lose(one, Reason::NoSuchLetter);
    }
    book_.Told.Add({book_.Names.Text(one.Name),
                    one.Value,
                    contact_->From.File,
                    contact_->From.Line,
                    target,
                    what,
                    why});
}

// A value as a person reads it in notes.
std::string CsvPersonWriter::Readable(const Property& one) const {
    const ValueForm form = ValueFormOf(book_.Names, one.Name);
    if (form == ValueForm::Text) {
        return std::string(one.Value);
    }
    if (form == ValueForm::Verbatim) {
        return Unescaped(one.Value);
    }
    std::string text;
    std::string_view rest = one.Value;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(rest, form == ValueForm::List ? ',' : ';');
        std::string_view values = part.Text;
        for (TakenPart value{{}, true}; value.More;) {
            value = TakePart(values, ',');
            const std::string plain = Unescaped(value.Text);
            const std::string_view shown = WithoutBlanksAround(plain);
            text.append(text.empty() || shown.empty() ? "" : ", ").append(shown);
        }
    }
    return text;
}

// What a line of the notes begins with.
std::string CsvPersonWriter::LabelOf(const Property& one) const {
    for (std::size_t i = 0; i < CsvFieldCount(); ++i) {
        const CsvField& field = CsvFieldAt(i);
        const bool whole = field.Meaning == CsvMeaning::Simple ||
                           field.Meaning == CsvMeaning::Date ||
                           field.Meaning == CsvMeaning::Photo ||
                           field.Meaning == CsvMeaning::Html || field.Meaning == CsvMeaning::Values;
        if (field.Property == one.Name && whole) {
            return Capitalised(ShownName(field));
        }
    }
    std::string_view name = book_.Names.Text(one.Name);
    for (const std::string_view ours : {kCarriedFromLdif, kCarriedFromVCard}) {
        name.remove_prefix(StartsAsName(name, ours) ? ours.size() : 0);
    }
    return one.Name == field::kImpp ? "Messenger" : std::string(name);
}

}  // namespace orvik::book
