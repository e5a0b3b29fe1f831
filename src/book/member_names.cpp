#include "book/member_names.h"

#include <algorithm>
#include <array>
#include <utility>

#include "book/folded_words.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// "abbott, ada" -> "ada abbott"
std::string Turned(const std::string& folded) {
    const std::size_t comma = folded.find(',');
    if (comma == std::string::npos) {
        return folded;
    }
    const std::string_view text = folded;
    const std::string_view given = WithoutBlanksAround(text.substr(comma + 1));
    const std::string_view family = WithoutBlanksAround(text.substr(0, comma));
    return std::string(given).append(given.empty() ? "" : " ").append(family);
}

std::string FileKey(std::string_view name) {
    return FoldedWords(name.substr(name.find_last_of("/\\:") + 1));
}

}  // namespace

std::string NicknameKey(std::string_view nickname) {
    std::string text(nickname);
    std::replace(text.begin(), text.end(), '_', ' ');
    return FoldedWords(text);
}

MemberNames::Found MemberNames::Find(std::string_view name) const {
    if (!made_) {
        MakeAll();
    }
    name = WithoutBlanksAround(name);
    if (name.starts_with('@')) {
        name.remove_prefix(1);
        if (const auto file = files_.find(FileKey(name)); file != files_.end()) {
            return file->second;
        }
    }
    const std::string folded = FoldedWords(name);
    const std::array<std::pair<const Index*, std::string>, 4> places = {
        {{&exact_, std::string(name)},
         {&folded_, folded},
         {&turned_, Turned(folded)},
         {&nicknames_, NicknameKey(name)}}};
    for (const auto& [index, key] : places) {
        const auto found = index->find(key);
        if (!key.empty() && found != index->end()) {
            return found->second;
        }
    }
    return {};
}

void MemberNames::MakeAll() const {
    made_ = true;
    for (const ContactKind kind : {ContactKind::Person, ContactKind::List}) {
        for (std::size_t i = 0; i < book_.Contacts.size(); ++i) {
            if (book_.Contacts[i].Kind == kind) {
                AddRecord(i);
            }
        }
    }
}

void MemberNames::AddRecord(std::size_t record) const {
    const Contact& contact = book_.Contacts[record];
    const std::string name = NameOf(book_, contact).Shown;
    const std::string folded = FoldedWords(name);
    Add(exact_, std::string(WithoutBlanksAround(name)), record);
    Add(turned_, Turned(folded), record);
    Add(folded_, folded, record);
    for (const std::string& nickname : NicknamesOf(book_, contact)) {
        Add(nicknames_, NicknameKey(nickname), record);
    }
    if (contact.Kind == ContactKind::List) {
        // A file may have many lists, of which the first is meant; two files leave a doubt.
        const std::string file = FileKey(book_.SourceAt(contact.From.File).Name());
        Found& found = files_.try_emplace(file, Found{record}).first->second;
        const Contact& first = book_.Contacts[found.Record];
        found.Shared = found.Shared || first.From.File != contact.From.File;
    }
}

void MemberNames::Add(Index& index, std::string key, std::size_t record) {
    if (key.empty()) {
        return;
    }
    Found& found = index.try_emplace(std::move(key), Found{record}).first->second;
    found.Shared = found.Shared || found.Record != record;
}

}  // namespace orvik::book
