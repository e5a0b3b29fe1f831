#include "book/old/old_formats.h"

#include <algorithm>
#include <array>

#include "book/old/read_cc_mail.h"
#include "book/old/read_juno.h"
#include "book/old/read_netscape3.h"
#include "book/old/read_plain_list.h"

namespace orvik::book {
namespace {

constexpr std::array kFormats = {
    OldFormat{
        Format::Netscape3, "Netscape 3 HTML", "record", true, Netscape3Evidence, ReadNetscape3},
    OldFormat{
        Format::Netscape3, "Netscape 3 HTML", "record", false, AddressPageEvidence, ReadNetscape3},
    OldFormat{Format::Juno, "Juno address book", "record", false, JunoEvidence, ReadJuno},
    OldFormat{Format::CcMail, "cc:Mail directory", "record", false, CcMailEvidence, ReadCcMail},
    // What other programs write may look like this, so it is asked last.
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
