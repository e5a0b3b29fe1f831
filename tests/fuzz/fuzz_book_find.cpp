// Reads any bytes as a mail folder, as a message, as a text and as a page, and looks for people.

#include <cstdint>
#include <string>
#include <string_view>

#include "book/address_check.h"
#include "book/mail/mail_kind.h"
#include "book/mail/mbox.h"
#include "book/mail/message_reader.h"
#include "book/mail/page_text.h"
#include "book/mail/people.h"
#include "book/mail/people_book.h"
#include "book/mail/text_addresses.h"
#include "book/utf8.h"
#include "book/write_vcard.h"
#include "fuzz/fuzz_target.h"

namespace {

using namespace orvik::book;
using orvik::fuzz::Check;

// The messages of a folder are all of its bytes but the markers, however they come.
void CheckFolder(std::string_view text, std::size_t piece, MessageReader& reader, People& people) {
    std::size_t at = 0;
    constexpr std::size_t kLongest = 1024;
    MboxReader mbox(
        [&](std::string& to) {
            const std::string_view more = text.substr(at, piece);
            to += more;
            at += more.size();
            return !more.empty();
        },
        kLongest);
    std::size_t bytes = 0;
    for (MboxMessage message; mbox.Next(message);) {
        const char* const begin =
            message.Marker.empty() ? message.Text.data() : message.Marker.data();
        bytes += static_cast<std::size_t>(message.Text.data() + message.Text.size() - begin);
        people.Add(reader.Read(message.Text, message.Marker), "folder");
    }
    Check(bytes == text.size(), "each byte is in one message");
}

void CheckPeople(const People& people) {
    std::vector<std::uint32_t> all;
    for (std::uint32_t i = 0; i < people.All().size(); ++i) {
        const auto& [key, person] = people.All()[i];
        Check(!key.empty() && key == FoldedAddress(person.Address), "a person is found again");
        Check(CheckAddress(person.Address).Class() != AddressClass::Bad, "an address can be one");
        Check(CountUtf8(person.BestName()).Bad == 0, "a name is UTF-8");
        Check(person.Count > 0 && !person.Places.empty(), "a person was seen somewhere");
        all.push_back(i);
    }
    Book book;
    AddPeople(people, all, true, book);
    Check(book.Contacts.size() == all.size(), "each is a contact");
    Check(all.empty() == WriteVCard(book, Dialect::VCard30).empty(), "each is written");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = orvik::fuzz::TextOf(data, size);
    static_cast<void>(KindOfMail(text, "mail"));
    MessageReader reader(false);
    People people;
    people.Add(reader.Read(text, {}), "message");
    CheckFolder(text, 1 + size / 3, reader, people);
    MailFindings findings;
    reader.ReadText(text, findings);
    std::string page;
    AppendHtmlText(text, page);
    reader.ReadText(page, findings);
    people.Add(findings, "text");
    CheckPeople(people);
    return 0;
}
