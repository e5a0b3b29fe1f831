#include "formats/ldif_writer.h"

#include <algorithm>

#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

// The nickname serves as common name, given name and nickname, unescaped and unfolded: that is what
// Netscape itself accepts, and our own books depend on it.
void AppendRecord(std::string& ldif, std::string_view address, std::string_view nickname) {
    ldif.append("dn: cn=").append(nickname).append(",mail=").append(address);
    ldif.append("\r\ncn: ").append(nickname);
    ldif.append("\r\ngivenname: ").append(nickname);
    ldif.append("\r\nxmozillanickname: ").append(nickname);
    ldif.append("\r\nobjectclass: top\r\nobjectclass: person\r\nmail: ").append(address);
    ldif.append("\r\nxnavusehtmlmail: TRUE\r\n\r\n");
}

}  // namespace

std::string WriteLdif(std::string_view native, Progress& progress) {
    NativeReader reader(native);
    PercentMeter meter(progress, reader.Separator());
    std::string ldif;
    // Each nickname is written four times and each address twice. Growing to this size step by step
    // would take longer than the conversion.
    constexpr std::size_t kRecordFrame = 150;
    const auto entries = static_cast<std::size_t>(std::count(native.begin(), native.end(), '\r'));
    ldif.reserve(entries / 2 * kRecordFrame + 4 * native.size());
    std::string address;
    while (reader.Next()) {
        meter.Reach(reader.AddressEnd());
        address.clear();
        AppendWithout(address, reader.RawAddress(), '\n');
        AppendRecord(ldif, address, reader.TakeNickname());
        progress.Record();
    }
    meter.Reach(reader.Separator());
    CutEnd(ldif, kCrLf.size());
    return ldif;
}

}  // namespace orvik
