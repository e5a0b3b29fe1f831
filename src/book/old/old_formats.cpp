#include "book/old/old_formats.h"

#include <algorithm>
#include <array>

#include "book/old/read_abook.h"
#include "book/old/read_abx.h"
#include "book/old/read_aliases.h"
#include "book/old/read_cc_mail.h"
#include "book/old/read_eudora.h"
#include "book/old/read_juno.h"
#include "book/old/read_netscape3.h"
#include "book/old/read_pegasus_list.h"
#include "book/old/read_pegasus_text.h"
#include "book/old/read_pine.h"
#include "book/old/read_plain_list.h"

namespace orvik::book {
namespace {

// What is found out about columns is for whoever asks the reader itself.
void ReadRows(Book& book, std::uint32_t file, Charset& charset) {
    ReadAbx(book, file, charset, {});
}

constexpr std::array kFormats = {
    OldFormat{
        Format::Netscape3, "Netscape 3 HTML", "record", true, Netscape3Evidence, ReadNetscape3},
    OldFormat{
        Format::Netscape3, "Netscape 3 HTML", "record", false, AddressPageEvidence, ReadNetscape3},
    OldFormat{
        Format::WordPerfect, "WordPerfect address book", "row", true, TaggedEvidence, ReadRows},
    OldFormat{Format::PegasusList,
              "Pegasus Mail distribution list",
              "entry",
              false,
              PegasusListEvidence,
              ReadPegasusList},
    OldFormat{Format::PegasusText,
              "Pegasus Mail addresses as text",
              "entry",
              false,
              PegasusTextEvidence,
              ReadPegasusText},
    OldFormat{Format::Abook, "abook address book", "entry", true, AbookEvidence, ReadAbook},
    OldFormat{Format::Eudora, "Eudora nicknames", "nickname", false, EudoraEvidence, ReadEudora},
    OldFormat{Format::Mailrc, "mailrc aliases", "alias", false, MailrcEvidence, ReadMailrc},
    OldFormat{Format::Mutt, "mutt aliases", "alias", false, MuttEvidence, ReadMutt},
    OldFormat{Format::Pine, "pine address book", "entry", false, PineEvidence, ReadPine},
    OldFormat{Format::WordPerfect, "WordPerfect address book", "row", false, AbxEvidence, ReadRows},
    OldFormat{Format::Juno, "Juno address book", "record", false, JunoEvidence, ReadJuno},
    OldFormat{Format::CcMail, "cc:Mail directory", "record", false, CcMailEvidence, ReadCcMail},
    // What other programs write may look like these, so they are asked last.
    OldFormat{Format::PegasusList,
              "Pegasus Mail distribution list",
              "entry",
              false,
              NamedPegasusListEvidence,
              ReadPegasusList},
    OldFormat{Format::PlainList, "plain list", "record", false, PlainListEvidence, ReadPlainList},
};

}  // namespace

std::span<const OldFormat> OldFormats() {
    return kFormats;
}

const OldFormat* OldFormatOf(Format form) {
    const auto formats = OldFormats();
    const auto found = std::find_if(
        formats.begin(), formats.end(), [form](const OldFormat& one) { return one.Form == form; });
    return found == formats.end() ? nullptr : &*found;
}

}  // namespace orvik::book
