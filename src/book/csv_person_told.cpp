// What is told of a person's values.

#include "book/csv_person.h"

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

}  // namespace orvik::book
