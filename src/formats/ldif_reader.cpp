#include "formats/ldif_reader.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "app/text.h"
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

std::string Finish(std::string&& list, std::string_view separator) {
    if (list.empty() ||
        (!separator.empty() && list.back() != separator.back() && list.back() != '\n')) {
        list += EntryEnd(separator);
    }
    return std::move(list);
}

}  // namespace

// The line behind an address is passed over: in Netscape's books it is never one that matters.
std::string ReadLdif(std::string_view ldif, std::string_view separator, UnreadEntries* left_out) {
    std::string list;
    list.reserve(ldif.size() / 4);
    LdifList maker(list, separator);
    ReadKeyedLines(ldif, LdifLines(), maker, left_out);
    return Finish(std::move(list), separator);
}

// The empty line behind the last record is never written.
std::string ReadWrittenLdif(std::string_view native, std::string_view separator) {
    std::string list;
    constexpr std::size_t kFrame = std::string_view("\"\" <>\r\n").size();
    const auto ends = static_cast<std::size_t>(std::count(native.begin(), native.end(), '\r'));
    list.reserve(native.size() + ends / 2 * kFrame);
    LdifList maker(list, separator);
    NativeReader reader(native);
    std::string address;
    for (bool is_first = true; reader.Next(); is_first = false) {
        if (!is_first) {
            maker.EmptyLine();
        }
        address.clear();
        AppendWithout(address, reader.RawAddress(), '\n');
        maker.Nickname(reader.TakeNickname());
        maker.Address(address);
    }
    return Finish(std::move(list), separator);
}

}  // namespace orvik
