#include "book_cli/json_lines.h"

#include <ostream>
#include <unordered_map>
#include <vector>

#include <nlohmann/json.hpp>

#include "book/typed_views.h"

namespace orvik::book_cli {
namespace {

using Json = nlohmann::ordered_json;

std::string TextOf(const Json& json) {
    constexpr int kOneLine = -1;
    return json.dump(kOneLine, ' ', false, Json::error_handler_t::replace);
}

// All of a parameter's values, in their order. A field may have very many.
std::string ParamsOf(const book::Book& book, const book::Property& one) {
    std::unordered_map<book::NameId, std::size_t> places;
    std::vector<std::string> lists;
    for (const book::Param& param : book.DetailsOf(one).Params) {
        const auto [place, is_new] = places.try_emplace(param.Name, lists.size());
        if (is_new) {
            lists.push_back(TextOf(book.Names.Text(param.Name)) + ":[");
        }
        std::string& list = lists[place->second];
        list += (list.ends_with('[') ? "" : ",") + TextOf(param.Value);
    }
    std::string text = "{";
    for (const std::string& list : lists) {
        text += (text.size() == 1 ? "" : ",") + list + "]";
    }
    return text + "}";
}

// A member that is named by the line of its record has that record's UID.
std::string ValueOf(const Catalogue& from, const book::Property& one) {
    const auto record = one.Name == book::field::kMember ? from.Uids().RecordOf(one) : std::nullopt;
    return record ? book::AsUrn(from.Uids().UidAt(*record)) : book::TextOf(from.Book(), one);
}

std::string PropertyOf(const Catalogue& from, const book::Property& one) {
    const book::Book& book = from.Book();
    std::string text = "{\"name\":" + TextOf(book.Names.Text(one.Name)) +
                       ",\"params\":" + ParamsOf(book, one) +
                       ",\"value\":" + TextOf(ValueOf(from, one)) +
                       ",\"file\":" + TextOf(book.SourceAt(one.File).Name()) +
                       ",\"line\":" + std::to_string(one.Line);
    if (const std::string_view group = book.DetailsOf(one).Group; !group.empty()) {
        text += ",\"group\":" + TextOf(group);
    }
    return text + "}";
}

// ,"name":[...], item by item: a record may have millions.
template <class Items, class Text>
void PrintArray(std::ostream& out, const char* name, const Items& items, const Text& text) {
    out << ",\"" << name << "\":[";
    const char* between = "";
    for (const auto& item : items) {
        out << between << text(item);
        between = ",";
    }
    out << "]";
}

void PrintFields(std::ostream& out, const Catalogue& from, std::size_t number) {
    const book::Book& book = from.Book();
    const book::Contact& contact = book.Contacts[number];
    const book::PersonName name = book::NameOf(book, contact);
    const bool list = contact.Kind == book::ContactKind::List;
    const auto plain = [](const std::string& text) { return TextOf(text); };
    out << R"({"kind":")" << (list ? "list" : "person") << R"(","uid":)"
        << TextOf(from.Uids().UidAt(number)) << ",\"name\":" << TextOf(name.Shown)
        << ",\"given\":" << TextOf(name.Given) << ",\"family\":" << TextOf(name.Family);
    PrintArray(out, "nicknames", book::NicknamesOf(book, contact), plain);
    PrintArray(out, "emails", book::AddressesOf(contact), plain);
    PrintArray(out, "phones", book::PhonesOf(contact), plain);
    PrintArray(
        out, "members", from.Members().MembersOf(contact), [&from](const book::ListMember& member) {
            return TextOf({{"name", member.Name},
                           {"address", member.Address},
                           {"uid", from.Members().UidOf(member)}});
        });
    PrintArray(out, "properties", contact.Properties, [&from](const book::Property& one) {
        return PropertyOf(from, one);
    });
    out << R"(,"origin":{"file":)" << TextOf(book.SourceAt(contact.From.File).Name())
        << ",\"line\":" << contact.From.Line << "}";
}

void PrintObject(std::ostream& out, const Catalogue& from, std::size_t number) {
    PrintFields(out, from, number);
    out << "}";
}

}  // namespace

void PrintRecord(std::ostream& out, const Catalogue& from, std::size_t contact) {
    PrintObject(out, from, contact);
    out << "\n";
}

void PrintFound(std::ostream& out,
                const Catalogue& from,
                std::size_t contact,
                const FoundEntry& found) {
    const auto time = [](const std::string& text) { return text.empty() ? "null" : TextOf(text); };
    PrintFields(out, from, contact);
    out << ",\"count\":" << found.Count << ",\"first\":" << time(found.First)
        << ",\"last\":" << time(found.Last);
    PrintArray(out, "seen", found.Seen, [](const FoundEntry::Place& place) {
        return TextOf({{"file", place.File}, {"fields", place.Fields}, {"count", place.Count}});
    });
    out << ",\"seen_elsewhere\":" << (found.SeenElsewhere ? "true" : "false") << "}\n";
}

void PrintDifference(std::ostream& out,
                     const Catalogue& left,
                     const Catalogue& right,
                     const book::Compared& found) {
    const bool only_right = found.What == book::Difference::OnlyRight;
    out << R"({"what":")"
        << (only_right                                 ? "only right"
            : found.What == book::Difference::OnlyLeft ? "only left"
            : found.What == book::Difference::Same     ? "same"
                                                       : "changed")
        << R"(","fields":)" << TextOf(found.Fields);
    if (!only_right) {
        out << ",\"left\":";
        PrintObject(out, left, found.Left);
    }
    if (found.Right != book::Compared::kNobody) {
        out << ",\"right\":";
        PrintObject(out, right, found.Right);
    }
    out << "}\n";
}

std::string MatchJson(const book::Book& book, const book::MatchLine& line) {
    Json json = {{"action", std::string(NameOf(line.Do))},
                 {"tier", std::string(NameOf(line.Why))},
                 {"reason", line.Reason},
                 {"records", Json::array()}};
    for (const std::uint32_t record : line.Records) {
        const book::Contact& contact = book.Contacts[record];
        json["records"].push_back({{"file", book.SourceAt(contact.From.File).Name()},
                                   {"line", contact.From.Line},
                                   {"name", book::NameOf(book, contact).Shown}});
    }
    return TextOf(json) + "\n";
}

std::string ReportLine(const ReportEntry& entry) {
    const Json line = {{"what", std::string(entry.What)},
                       {"file", std::string(entry.File)},
                       {"line", entry.Line},
                       {"field", std::string(entry.Field)},
                       {"value", std::string(entry.Value)},
                       {"target", std::string(entry.Target)},
                       {"reason", std::string(entry.Reason)}};
    return TextOf(line) + "\n";
}

std::string AddressLine(const AddressEntry& entry) {
    Json line = {{"file", std::string(entry.File)},
                 {"line", entry.Line},
                 {"address", std::string(entry.Address)},
                 {"class", std::string(entry.Class)},
                 {"reason", std::string(entry.Reason)}};
    if (!entry.Ascii.empty()) {
        line["ascii"] = std::string(entry.Ascii);
    }
    return TextOf(line) + "\n";
}

}  // namespace orvik::book_cli
