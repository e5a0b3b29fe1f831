#include "book/old/old_writers.h"

#include <algorithm>
#include <array>

#include "app/text.h"
#include "book/old/write_abook.h"
#include "book/old/write_juno.h"
#include "book/old/write_mutt.h"
#include "book/old/write_netscape3.h"
#include "book/old/write_pegasus_list.h"
#include "book/old/write_pegasus_text.h"
#include "book/old/write_pine.h"
#include "book/old/write_plain_list.h"

namespace orvik::book {
namespace {

constexpr std::array kWriters = {
    OldWriter{Dialect::Netscape3,
              "Netscape 3 HTML, windows-1252",
              ".htm",
              ".html",
              true,
              true,
              WriteNetscape3},
    OldWriter{Dialect::Juno, "Juno address book, windows-1252", ".nv", "", true, false, WriteJuno},
    OldWriter{Dialect::PegasusList,
              "Pegasus Mail distribution list, windows-1252",
              ".pml",
              "",
              true,
              false,
              WritePegasusList},
    OldWriter{Dialect::PlainList, "plain list, UTF-8", ".txt", "", false, false, WritePlainList},
    OldWriter{Dialect::PegasusText,
              "Pegasus Mail addresses as text, windows-1252",
              "",
              "",
              false,
              true,
              WritePegasusText},
    OldWriter{Dialect::Mutt, "mutt aliases, UTF-8", "", "", true, true, WriteMutt},
    OldWriter{Dialect::Pine, "pine address book, ASCII", "", "", true, true, WritePine},
    OldWriter{Dialect::Abook, "abook address book, UTF-8", "", "", false, true, WriteAbook},
};

template <class Is>
const OldWriter* Find(Is is) {
    const auto* const found = std::find_if(kWriters.begin(), kWriters.end(), is);
    return found == kWriters.end() ? nullptr : found;
}

}  // namespace

std::span<const OldWriter> OldWriters() {
    return kWriters;
}

const OldWriter* OldWriterOf(Dialect form) {
    return Find([form](const OldWriter& one) { return one.Form == form; });
}

const OldWriter* OldWriterFor(std::string_view file) {
    return Find([file](const OldWriter& one) {
        return (!one.Ending.empty() && HasEnding(file, one.Ending)) ||
               (!one.OtherEnding.empty() && HasEnding(file, one.OtherEnding));
    });
}

}  // namespace orvik::book
