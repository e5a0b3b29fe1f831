#include "formats/ldif_reader.h"

#include "app/working_text.h"
#include "formats/keyed_lines.h"

namespace orvik {
namespace {

class LdifList {
 public:
    LdifList(std::string& list, std::string_view separator)
        : list_(list), entry_end_(EntryEnd(separator)) {}

    void Nickname(std::string_view nickname) { list_.append("\"").append(nickname).append("\" "); }
    void Address(std::string_view address) { list_.append("<").append(address).append(">"); }
    void EmptyLine() { list_ += entry_end_; }

 private:
    std::string& list_;
    std::string entry_end_;
};

}  // namespace

// The line behind an address is passed over: in Netscape's books it is never one that matters.
std::string ReadLdif(std::string_view ldif, std::string_view separator, UnreadEntries* left_out) {
    std::string list;
    list.reserve(ldif.size() / 4);
    LdifList maker(list, separator);
    ReadKeyedLines(ldif, LdifLines(), maker, left_out);
    if (list.empty() ||
        (!separator.empty() && list.back() != separator.back() && list.back() != '\n')) {
        maker.EmptyLine();
    }
    return list;
}

}  // namespace orvik
