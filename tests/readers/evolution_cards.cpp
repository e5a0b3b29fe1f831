// Prints what Evolution's library finds in a file of cards, one JSON object a line:
//
//   evolution_cards FILE

#include <libebook-contacts/libebook-contacts.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>
#include <vector>

namespace {

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

std::string fieldOf(EContact* contact, EContactField field) {
    return textOf(static_cast<const char*>(e_contact_get_const(contact, field)));
}

std::vector<std::string> textsOf(EContact* contact, EContactField field) {
    auto* list = static_cast<GList*>(e_contact_get(contact, field));
    std::vector<std::string> texts;
    for (const GList* one = list; one != nullptr; one = one->next) {
        texts.push_back(textOf(static_cast<const char*>(one->data)));
    }
    g_list_free_full(list, g_free);
    return texts;
}

nlohmann::json show(EContact* contact) {
    const std::unique_ptr<EContactName, void (*)(EContactName*)> name(
        static_cast<EContactName*>(e_contact_get(contact, E_CONTACT_NAME)), e_contact_name_free);
    nlohmann::json found = {{"uid", fieldOf(contact, E_CONTACT_UID)},
                            {"name", fieldOf(contact, E_CONTACT_FULL_NAME)},
                            {"emails", textsOf(contact, E_CONTACT_EMAIL)},
                            {"phones", textsOf(contact, E_CONTACT_TEL)}};
    found["family"] = textOf(name ? name->family : nullptr);
    found["given"] = textOf(name ? name->given : nullptr);
    found["additional"] = textOf(name ? name->additional : nullptr);
    found["prefix"] = textOf(name ? name->prefixes : nullptr);
    found["suffix"] = textOf(name ? name->suffixes : nullptr);
    return found;
}

// The library reads one card at a time; a file is cut where a line begins one.
std::vector<std::string> cardsOf(const std::string& text) {
    const std::regex begin("(^|\r|\n)BEGIN:VCARD *(?=\r|\n)", std::regex::icase);
    std::vector<std::string> cards;
    std::ptrdiff_t place = -1;
    for (std::sregex_iterator one(text.begin(), text.end(), begin), end; one != end; ++one) {
        const std::ptrdiff_t next = one->position() + one->length(1);
        if (place >= 0) {
            cards.push_back(text.substr(static_cast<std::size_t>(place),
                                        static_cast<std::size_t>(next - place)));
        }
        place = next;
    }
    if (place >= 0) {
        cards.push_back(text.substr(static_cast<std::size_t>(place)));
    }
    return cards;
}

}  // namespace

int main(int argc, char** argv) {
    std::ifstream file(argc == 2 ? argv[1] : "", std::ios::binary);
    if (!file) {
        std::cerr << "usage: evolution_cards FILE\n";
        return 2;
    }
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    for (const std::string& card : cardsOf(text)) {
        EContact* contact = e_contact_new_from_vcard(card.c_str());
        std::cout << show(contact).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)
                  << '\n';
        g_object_unref(contact);
    }
    std::cout.flush();
    return std::cout ? 0 : 1;
}
