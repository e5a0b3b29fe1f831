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
    LdifList(std::string& list, std::string_view entry_end) : list_(list), entry_end_(entry_end) {}

    void Nickname(std::string_view nickname) { list_.append("\"").append(nickname).append("\" "); }
    void Address(std::string_view address) { list_.append("<").append(address).append(">"); }
    void EmptyLine() { list_ += entry_end_; }

 private:
    std::string& list_;
    std::string_view entry_end_;
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
    const std::string entry_end = EntryEnd(separator);
    LdifList maker(list, entry_end);
    ReadKeyedLines(ldif, LdifLines(), maker, left_out);
    return Finish(std::move(list), separator);
}

LdifReading::LdifReading(std::string_view separator, UnreadEntries* left_out)
    : separator_(separator), entry_end_(EntryEnd(separator)), left_out_(left_out) {}

void LdifReading::Take(std::string_view piece) {
    // Behind an empty line nothing of an entry is kept, whatever stands before it.
    constexpr std::string_view kEnd = "\r\n\r\n";
    const std::size_t first = FindText(piece, kEnd);
    if (first == std::string_view::npos) {
        rest_.append(piece);
        return;
    }
    const std::size_t start = first + kEnd.size();
    const std::size_t end = piece.rfind(kEnd) + kEnd.size();
    Read(rest_.append(piece.substr(0, start)));
    Read(piece.substr(start, end - start));
    rest_.assign(piece.substr(end));
}

void LdifReading::Read(std::string_view entries) {
    LdifList maker(list_, entry_end_);
    ReadKeyedLines(entries, LdifLines(), maker, left_out_, !is_first_);
    is_first_ = false;
}

std::string LdifReading::List() && {
    Read(rest_);
    return Finish(std::move(list_), separator_);
}

void GiveLdifOf(std::string_view list, const TakePiece& take) {
    // Nothing is read on the first line, nor on the one behind an address.
    take(kCrLf);
    std::string record;
    while (!list.empty()) {
        std::string_view entry = TakePart(list, kCrLf);
        record.clear();
        // Which of the quotes and brackets inside are part of a value does not matter for the list.
        if (entry.starts_with('<') && entry.ends_with("\" ")) {
            const std::size_t end = entry.find(">\"", 1);
            record.append("mail: ").append(entry.substr(1, end - 1)).append("\r\n\r\n");
            entry.remove_prefix(end + 1);
        }
        if (entry.starts_with('"')) {
            const std::size_t end = entry.ends_with('>') ? entry.find("\" <", 1) : entry.size() - 2;
            record.append("xmozillanickname: ").append(entry.substr(1, end - 1)).append(kCrLf);
            entry.remove_prefix(end + 2);
        }
        if (!entry.empty()) {
            record.append("mail: ").append(entry.substr(1, entry.size() - 2)).append("\r\n\r\n");
        }
        take(record.append(kCrLf));
    }
}

// The empty line behind the last record is never written.
std::string ReadWrittenLdif(std::string_view native, std::string_view separator) {
    std::string list;
    constexpr std::size_t kFrame = std::string_view("\"\" <>\r\n").size();
    const auto ends = static_cast<std::size_t>(std::count(native.begin(), native.end(), '\r'));
    list.reserve(native.size() + ends / 2 * kFrame);
    const std::string entry_end = EntryEnd(separator);
    LdifList maker(list, entry_end);
    NativeReader reader(native);
    std::string kept;
    for (bool is_first = true; reader.Next(); is_first = false) {
        if (!is_first) {
            maker.EmptyLine();
        }
        maker.Nickname(reader.TakeNickname());
        maker.Address(WithoutLf(reader.RawAddress(), kept));
    }
    return Finish(std::move(list), separator);
}

}  // namespace orvik
