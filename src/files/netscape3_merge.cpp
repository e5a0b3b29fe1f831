#include "files/netscape3_merge.h"

#include "app/text.h"
#include "formats/netscape3_writer.h"

namespace orvik {

std::optional<std::string> MergeNetscape3(std::string_view old_book, std::string_view new_book) {
    for (std::size_t end = old_book.rfind('>'); end != std::string_view::npos && end > 0;
         end = old_book.rfind('>', end - 1)) {
        const std::string_view before = old_book.substr(0, end + 1);
        if (end + 1 < old_book.size() && HasEnding(before, "<dd>")) {
            std::string merged(old_book.substr(0, end + 2));
            return merged.append(kCrLf).append(new_book.substr(kNetscape3HeaderLength));
        }
    }
    return std::nullopt;
}

}  // namespace orvik
