#include "book/labelled_members.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>

#include "book/csv_lists.h"
#include "book/identity.h"
#include "book/members.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// The groups behind those that are there; programs read the first field of them.
std::string Joined(std::string_view value, std::span<const std::string_view> labels) {
    std::string joined(value);
    std::unordered_set<std::string> known;
    for (TakenPart part{{}, !value.empty()}; part.More;) {
        part = TakePart(value, ',');
        known.insert(std::string(WithoutBlanksAround(Unescaped(part.Text))));
    }
    for (const std::string_view label : labels) {
        const std::string_view name = WithoutBlanksAround(label);
        if (known.emplace(name).second) {
            joined += joined.empty() ? "" : ",";
            AppendEscaped(name, joined);
        }
    }
    return joined;
}

void Label(Book& book, Contact& person, std::span<const std::string_view> labels) {
    if (labels.empty()) {
        return;
    }
    const auto& properties = person.Properties;
    const auto found = std::find_if(properties.begin(), properties.end(), [](const Property& one) {
        return one.Name == field::kCategories;
    });
    if (found == properties.end()) {
        book.Add(person, field::kCategories, Joined({}, labels));
        return;
    }
    const std::string joined = Joined(found->Value, labels);
    if (joined != found->Value) {
        book.SetValue(person, static_cast<std::size_t>(found - properties.begin()), joined);
    }
}

}  // namespace

std::vector<Contact> LabelMembers(Book& book) {
    {
        const Identities identities(book);
        const Directory directory(book, identities);
        const CsvLists lists(book, directory);
        for (std::size_t i = 0; i < book.Contacts.size(); ++i) {
            Label(book, book.Contacts[i], lists.Of(i));
        }
    }
    const auto first =
        std::stable_partition(book.Contacts.begin(), book.Contacts.end(), [](const Contact& one) {
            return one.Kind == ContactKind::Person;
        });
    std::vector<Contact> taken(first, book.Contacts.end());
    book.Contacts.erase(first, book.Contacts.end());
    return taken;
}

}  // namespace orvik::book
