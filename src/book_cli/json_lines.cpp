#include "book_cli/json_lines.h"

#include <nlohmann/json.hpp>

#include "book/typed_views.h"

namespace orvik::book_cli {
namespace {

using Json = nlohmann::ordered_json;

// All of a parameter's values, in their order.
Json ParamsOf(const book::Book& book, const book::Property& one) {
    Json params = Json::object();
    for (const book::Param& param : book.DetailsOf(one).Params) {
        params[std::string(book.Names.Text(param.Name))].push_back(std::string(param.Value));
    }
    return params;
}

Json PropertyOf(const book::Book& book, const book::Property& one) {
    Json property = {{"name", std::string(book.Names.Text(one.Name))},
                     {"params", ParamsOf(book, one)},
                     {"value", book::TextOf(book, one)},
                     {"file", book.SourceAt(one.File).Name()},
                     {"line", one.Line}};
    if (const std::string_view group = book.DetailsOf(one).Group; !group.empty()) {
        property["group"] = std::string(group);
    }
    return property;
}

Json RecordOf(const Catalogue& from, std::size_t number) {
    const book::Book& book = from.Book();
    const book::Contact& contact = book.Contacts[number];
    const book::PersonName name = book::NameOf(book, contact);
    Json members = Json::array();
    for (const book::ListMember& member : from.Members().MembersOf(contact)) {
        members.push_back(
            {{"name", member.Name}, {"address", member.Address}, {"uid", member.Uid}});
    }
    Json properties = Json::array();
    for (const book::Property& one : contact.Properties) {
        properties.push_back(PropertyOf(book, one));
    }
    return {{"kind", contact.Kind == book::ContactKind::List ? "list" : "person"},
            {"uid", from.Uids().UidAt(number)},
            {"name", name.Shown},
            {"given", name.Given},
            {"family", name.Family},
            {"nicknames", book::NicknamesOf(book, contact)},
            {"emails", book::AddressesOf(contact)},
            {"phones", book::PhonesOf(contact)},
            {"members", std::move(members)},
            {"properties", std::move(properties)},
            {"origin",
             {{"file", book.SourceAt(contact.From.File).Name()}, {"line", contact.From.Line}}}};
}

std::string LineOf(const Json& json) {
    constexpr int kOneLine = -1;
    return json.dump(kOneLine, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string RecordLine(const Catalogue& from, std::size_t contact) {
    return LineOf(RecordOf(from, contact));
}

std::string DifferenceLine(const Catalogue& left,
                           const Catalogue& right,
                           const book::Compared& found) {
    const bool only_right = found.What == book::Difference::OnlyRight;
    Json line = {{"what",
                  only_right                                 ? "only right"
                  : found.What == book::Difference::OnlyLeft ? "only left"
                  : found.What == book::Difference::Same     ? "same"
                                                             : "changed"},
                 {"fields", found.Fields}};
    if (!only_right) {
        line["left"] = RecordOf(left, found.Left);
    }
    if (found.Right != book::Compared::kNobody) {
        line["right"] = RecordOf(right, found.Right);
    }
    return LineOf(line);
}

std::string ReportLine(const ReportEntry& entry) {
    return LineOf({{"what", std::string(entry.What)},
                   {"file", std::string(entry.File)},
                   {"line", entry.Line},
                   {"field", std::string(entry.Field)},
                   {"value", std::string(entry.Value)},
                   {"target", std::string(entry.Target)},
                   {"reason", std::string(entry.Reason)}});
}

}  // namespace orvik::book_cli
