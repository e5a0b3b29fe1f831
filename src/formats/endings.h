// The endings of file names: the one table of which format each stands for, and of what saving
// under it does to a file that is there.

#pragma once

#include <span>
#include <string_view>

namespace orvik {

enum class Format {
    Netscape3,
    Netscape4,
    TextList,
    Csv,
    WordPerfect,
    Juno,
    Pegasus,
    AnyFile,  // of any kind, for the addresses in it
};

// Whether saving replaces a file that is there or adds to it; some formats are only read.
enum class Saving { Never, Replaces, Adds };

struct Ending {
    std::string_view Text;  // in lower case, without a dot
    Format What;
    Saving Way;
};

// All of them.
[[nodiscard]] std::span<const Ending> Endings();

// FindEnding: the ending of a file name, in any case and with no dot required; null if it is none
// that we know.
//   "BOOK.LDIF" -> "ldif", Netscape 4, replaces;  "abook.html" -> "html", Netscape 3, adds
[[nodiscard]] const Ending* FindEnding(std::string_view name);

// SavingOf: what saving under a name does; Never where the name does not say in which format.
[[nodiscard]] Saving SavingOf(std::string_view name);

// IsAliasFile: whether a file is the one of nicknames that the automation reads and writes as lines
// of aliases. For everything else it is a text list.
//   "home/nndbase.txt" -> true
[[nodiscard]] bool IsAliasFile(std::string_view name);

}  // namespace orvik
