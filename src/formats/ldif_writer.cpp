#include "formats/ldif_writer.h"

#include <algorithm>
#include <cstddef>

#include "app/run_time_error.h"
#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

// A piece stays in the processor's cache until it is written to a file.
constexpr std::size_t kPiece = std::size_t{256} << 10U;

// What a record holds beside its nickname, four times, and its address, twice.
constexpr std::size_t kMostOfFrame = 150;

// The nickname serves as common name, given name and nickname, unescaped and unfolded: that is what
// Netscape itself accepts, and our own books depend on it. Returns the end of the record.
char* PutRecord(char* to, std::string_view address, std::string_view nickname) {
    to = Put(Put(to, "dn: cn="), nickname);
    to = Put(Put(to, ",mail="), address);
    to = Put(Put(to, "\r\ncn: "), nickname);
    to = Put(Put(to, "\r\ngivenname: "), nickname);
    to = Put(Put(to, "\r\nxmozillanickname: "), nickname);
    to = Put(Put(to, "\r\nobjectclass: top\r\nobjectclass: person\r\nmail: "), address);
    return Put(to, "\r\nxnavusehtmlmail: TRUE\r\n");
}

}  // namespace

void GiveLdif(std::string_view native, const TakePiece& take) {
    NativeReader reader(native);
    // A short list needs no more than it may become.
    constexpr std::size_t kMostGrowth = kMostOfFrame + 6;
    std::string piece(std::min(kPiece, kMostGrowth * (native.size() + 1)), '\0');
    std::size_t length = 0;
    std::string kept;
    for (bool is_first = true; reader.Next(); is_first = false) {
        const std::string_view address = WithoutLf(reader.RawAddress(), kept);
        const std::string_view nickname = reader.TakeNickname();
        const std::size_t most = kMostOfFrame + 4 * nickname.size() + 2 * address.size();
        if (length + most > piece.size()) {
            take(std::string_view(piece).substr(0, length));
            length = 0;
            piece.resize(std::max(piece.size(), most));
        }
        char* const to = piece.data() + length;
        char* const end = PutRecord(is_first ? to : Put(to, kCrLf), address, nickname);
        length += static_cast<std::size_t>(end - to);
    }
    if (length > 0) {
        take(std::string_view(piece).substr(0, length));
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

void PassLdif(const std::vector<std::uint32_t>& address_lengths, Progress& progress) {
    std::size_t separator = 1;
    for (const std::size_t length : address_lengths) {
        separator += length + kCrLf.size();
    }
    PercentMeter meter(progress, separator);
    std::size_t address_end = 1;
    for (const std::size_t length : address_lengths) {
        address_end += length;
        meter.Reach(address_end);
        progress.Record();
        address_end += kCrLf.size();
    }
    meter.Reach(separator);
}

std::string WriteLdif(std::string_view native, Progress& progress) {
    PassLdif(native, progress);
    std::string ldif;
    GiveLdif(native, [&ldif](std::string_view piece) { ldif.append(piece); });
    return ldif;
}

}  // namespace orvik
