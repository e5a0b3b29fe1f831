#include "book/address_book.h"

#include <algorithm>
#include <utility>

#include "book/utf8.h"

namespace orvik::book {

std::unique_ptr<Book> Book::Snapshot(std::span<const std::uint32_t> contacts) const {
    auto copy = std::make_unique<Book>();
    for (const std::uint32_t number : contacts) {
        copy->Contacts.push_back(Contacts[number]);
    }
    copy->Names = Names;
    copy->Told = Told;
    copy->sources_ = sources_;
    copy->read_ = read_;
    copy->older_ = older_;
    copy->older_.push_back(own_);
    copy->details_ = details_;
    copy->left_out_ = left_out_;
    return copy;
}

std::unique_ptr<Book> Book::Excerpt(std::span<const std::uint32_t> contacts) const {
    auto copy = std::make_unique<Book>();
    copy->sources_ = sources_;
    copy->read_ = read_;
    copy->older_ = older_;
    copy->older_.push_back(own_);
    std::vector<Property> properties;
    std::vector<Param> params;
    for (const std::uint32_t number : contacts) {
        Contact contact = Contacts[number];
        for (Property one : contact.Properties) {
            const Details& details = DetailsOf(one);
            params.assign(details.Params.begin(), details.Params.end());
            for (Param& param : params) {
                param.Name = copy->Names.Intern(Names.Text(param.Name));
            }
            one.Name = copy->Names.Intern(Names.Text(one.Name));
            one.Details = copy->KeepDetails(details.Group, params);
            properties.push_back(one);
        }
        contact.Properties = copy->KeepFields(properties);
        contact.Remarks = 0;
        copy->Contacts.push_back(contact);
    }
    return copy;
}

void Book::TakeOver(std::unique_ptr<Book> grown) {
    grown->Contacts = std::move(Contacts);
    grown->HowFar = std::move(HowFar);
    *this = std::move(*grown);
}

std::uint32_t Book::AddSource(std::unique_ptr<const Source> source) {
    sources_.push_back(std::move(source));
    read_.push_back(0);
    return static_cast<std::uint32_t>(sources_.size() - 1);
}

void Book::BeginRead(Contact& contact, const Origin& from, bool all_utf8) const {
    contact = {};
    contact.From = from;
    // The bytes of a wide file are others than its text.
    contact.IsUtf8 = SourceAt(from.File).Wide() == WideForm::None &&
                     (all_utf8 || CountUtf8(TextOf(from)).Bad == 0);
    contact.FirstRemark = static_cast<std::uint32_t>(Told.Remarks().size());
}

void Book::CountRead(Contact& contact) {
    const Origin& from = contact.From;
    contact.Remarks = static_cast<std::uint32_t>(Told.Remarks().size()) - contact.FirstRemark;
    ++read_[from.File];
    Told.CountMore(What::Read);
    TellFar(from.Offset + std::size_t{from.Bytes}, SourceAt(from.File).Text().size());
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

void Book::TellFar(std::size_t done, std::size_t all) const {
    if (HowFar) {
        HowFar(done, all);
    }
}

void Book::CountWritten(std::size_t count) const {
    TellFar(count, Contacts.size());
}

std::uint32_t Book::KeepDetails(std::string_view group, std::span<const Param> params) {
    if (group.empty() && params.empty()) {
        return 0;
    }
    details_.push_back({group, own_->Texts.KeepJoined<Param>(params, {})});
    return static_cast<std::uint32_t>(details_.size() - 1);
}

std::uint32_t Book::TakeDetails(std::string_view group, std::vector<Param>& params) {
    if (params.size() <= kMostCopied) {
        return KeepDetails(group, params);
    }
    details_.push_back({group, own_->LongParams.emplace_back(std::move(params))});
    params.clear();
    return static_cast<std::uint32_t>(details_.size() - 1);
}

void Book::AddRead(const Contact& contact, std::vector<Property>& properties) {
    Contacts.push_back(contact);
    Contacts.back().Properties = KeepFields(properties);
    CountRead(Contacts.back());
}

std::span<Property> Book::KeepFields(std::vector<Property>& properties) {
    std::span<Property> kept;
    if (properties.size() > kMostCopied) {
        kept = own_->LongRows.emplace_back(std::move(properties));
    } else {
        kept = own_->Fields.KeepJoined<Property>(properties, {});
    }
    properties.clear();
    return kept;
}

void Book::Replace(Contact& contact, std::vector<Property>& properties) {
    contact = WithFields(contact, properties);
}

Contact Book::WithFields(const Contact& contact, std::vector<Property>& properties) {
    Contact changed = contact;
    changed.Properties = KeepFields(properties);
    changed.Changed = true;
    return changed;
}

void Book::SetValue(Contact& contact, std::size_t property, std::string_view value) {
    contact.Properties[property].Value = Keep(value);
    contact.Changed = true;
}

void Book::Add(Contact& contact, NameId name, std::string_view value) {
    const Property added{Keep(value), name, contact.From.File, 0, 0};
    contact.Properties = own_->Fields.KeepJoined<Property>(contact.Properties, {&added, 1});
    contact.Changed = true;
}

void Book::Remove(Contact& contact, std::size_t property) {
    const std::span<Property> all = contact.Properties;
    const std::span<Property> behind = all.subspan(property + 1);
    std::copy(behind.begin(), behind.end(), all.subspan(property).begin());
    contact.Properties = all.first(all.size() - 1);
    contact.Changed = true;
}

std::string_view Book::BytesOf(const Contact& contact) const {
    if (contact.From.Lines == 0) {
        return {};
    }
    return TextOf(contact.From);
}

std::size_t Book::LikelyLength() const {
    constexpr std::size_t kOfContact = 120;
    constexpr std::size_t kOfProperty = 24;
    std::size_t length = 0;
    for (const Contact& contact : Contacts) {
        length += kOfContact;
        for (const Property& one : contact.Properties) {
            const std::size_t text = one.Value.size() + Names.Text(one.Name).size();
            // Folding adds three bytes a line.
            length += kOfProperty + text + text / 16;
        }
    }
    return length;
}

std::string_view Book::TextOf(const Origin& from) const {
    return SourceAt(from.File).Text().substr(from.Offset, from.Bytes);
}

}  // namespace orvik::book
