// Reads the file that a command has opened.

#include <algorithm>
#include <string>
#include <utility>

#include "app/module1.h"
#include "files/form3.h"
#include "formats/endings.h"
#include "formats/ldif_reader.h"
#include "formats/unread_entries.h"

namespace orvik {
namespace {

// How the books begin that are read as they come: they are nothing else for certain.
constexpr std::string_view kLdifStart = "dn:";

bool IsLargeLdif(const Module1& module, const std::string& name) {
    constexpr std::size_t kLarge = std::size_t{4} << 20U;
    const Ending* const ending = FindEnding(name);
    return ending != nullptr && ending->What == Format::Netscape4 &&
           module.File1.Length() >= kLarge && module.textSep == "\r";
}

}  // namespace

void Module1::ReadFile(const std::string& name) {
    read_ahead_ = {};
    const std::size_t length = File1.Length();
    if (OpenMode == kAskAlways || !IsLargeLdif(*this, name)) {
        WorkText = File1.Read(length);
        return;
    }
    std::string start = File1.Read(kLdifStart.size());
    const std::size_t rest = length - start.size();
    if (start != kLdifStart) {
        start.reserve(length);
        File1.ReadPieces(rest, [&start](std::string_view piece) { start.append(piece); });
        WorkText = std::move(start);
        return;
    }
    UnreadEntries left_out;
    LdifReading reading(textSep, &left_out);
    reading.Take(start);
    File1.ReadPieces(rest, [&reading](std::string_view piece) { reading.Take(piece); });
    WorkText = std::move(reading).List();
    read_ahead_ = {WorkText.Revision(), left_out.Total()};
}

}  // namespace orvik
