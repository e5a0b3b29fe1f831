#include "book/address_book.h"

#include <iterator>
#include <utility>

#include "book/utf8.h"

namespace orvik::book {

std::uint32_t Book::AddSource(std::unique_ptr<Source> source) {
    sources_.push_back(std::move(source));
    read_.push_back(0);
    return static_cast<std::uint32_t>(sources_.size() - 1);
}

void Book::BeginRead(Contact& contact, const Origin& from) const {
    contact = {};
    contact.From = from;
    contact.IsUtf8 = IsUtf8(from);
    contact.FirstRemark = static_cast<std::uint32_t>(Told.Remarks().size());
}

void Book::CountRead(Contact& contact) {
    const Origin& from = contact.From;
    contact.Remarks = static_cast<std::uint32_t>(Told.Remarks().size()) - contact.FirstRemark;
    ++read_[from.File];
    Told.CountMore(What::Read);
    if (HowFar) {
        HowFar(from.Offset + std::size_t{from.Bytes}, SourceAt(from.File).Text().size());
    }
}

void Book::TellLosses(const Contact& contact) {
    const char* last = nullptr;
    for (std::size_t i = 0; i < contact.Remarks; ++i) {
        Remark remark = Told.Remarks()[contact.FirstRemark + i];
        // The parts of a value may each have been told.
        if (remark.Why == Reason::NoLetter && remark.Value.data() != last) {
            last = remark.Value.data();
            remark.Kind = What::Lost;
            Told.Add(remark);
        }
    }
}

void Book::CountWritten(std::size_t count) const {
    if (HowFar) {
        HowFar(count, Contacts.size());
    }
}

std::uint32_t Book::KeepDetails(std::string_view group, std::span<const Param> params) {
    if (group.empty() && params.empty()) {
        return 0;
    }
    details_.push_back({group, texts_.KeepAll(params)});
    return static_cast<std::uint32_t>(details_.size() - 1);
}

void Book::SetValue(Contact& contact, std::size_t property, std::string_view value) {
    contact.Properties[property].Value = Keep(value);
    contact.Changed = true;
}

void Book::Add(Contact& contact, NameId name, std::string_view value) {
    contact.Properties.push_back({Keep(value), name, contact.From.File, 0, 0});
    contact.Changed = true;
}

void Book::Remove(Contact& contact, std::size_t property) {
    contact.Properties.erase(
        std::next(contact.Properties.begin(), static_cast<std::ptrdiff_t>(property)));
    contact.Changed = true;
}

std::string_view Book::BytesOf(const Contact& contact) const {
    if (contact.From.Lines == 0) {
        return {};
    }
    return TextOf(contact.From);
}

bool Book::IsUtf8(const Origin& from) const {
    return SourceAt(from.File).Wide() == WideForm::None && CountUtf8(TextOf(from)).Bad == 0;
}

std::string_view Book::TextOf(const Origin& from) const {
    return SourceAt(from.File).Text().substr(from.Offset, from.Bytes);
}

}  // namespace orvik::book
