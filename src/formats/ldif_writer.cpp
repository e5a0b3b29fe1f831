#include "formats/ldif_writer.h"

#include <cstddef>

#include "app/run_time_error.h"
#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

// A piece stays in the processor's cache until it is written to a file.
constexpr std::size_t kPiece = std::size_t{128} << 10U;

// The nickname serves as common name, given name and nickname, unescaped and unfolded: that is what
// Netscape itself accepts, and our own books depend on it.
void AppendRecord(std::string& ldif, std::string_view address, std::string_view nickname) {
    ldif.append("dn: cn=").append(nickname).append(",mail=").append(address);
    ldif.append("\r\ncn: ").append(nickname);
    ldif.append("\r\ngivenname: ").append(nickname);
    ldif.append("\r\nxmozillanickname: ").append(nickname);
    ldif.append("\r\nobjectclass: top\r\nobjectclass: person\r\nmail: ").append(address);
    ldif.append("\r\nxnavusehtmlmail: TRUE\r\n");
}

}  // namespace

void GiveLdif(std::string_view native, const TakePiece& take) {
    NativeReader reader(native);
    std::string piece;
    std::string address;
    for (bool is_first = true; reader.Next(); is_first = false) {
        if (!is_first) {
            piece.append(kCrLf);
        }
        address.clear();
        AppendWithout(address, reader.RawAddress(), '\n');
        AppendRecord(piece, address, reader.TakeNickname());
        if (piece.size() >= kPiece) {
            take(piece);
            piece.clear();
        }
    }
    if (!piece.empty()) {
        take(piece);
    }
}

void PassLdif(std::string_view native, Progress& progress) {
    NativeReader reader(native);
    PercentMeter meter(progress, reader.Separator());
    bool is_empty = true;
    while (reader.Next()) {
        meter.Reach(reader.AddressEnd());
        progress.Record();
        is_empty = false;
    }
    meter.Reach(reader.Separator());
    if (is_empty) {
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
}

std::string WriteLdif(std::string_view native, Progress& progress) {
    PassLdif(native, progress);
    std::string ldif;
    GiveLdif(native, [&ldif](std::string_view piece) { ldif.append(piece); });
    return ldif;
}

}  // namespace orvik
