#include "book/mail/raw_part.h"

#include <algorithm>

namespace orvik::book {

RawPart RawOf(GMimePart* part) {
    GMimeDataWrapper* const content = g_mime_part_get_content(part);
    GMimeStream* const stream =
        content == nullptr ? nullptr : g_mime_data_wrapper_get_stream(content);
    if (stream == nullptr || GMIME_IS_STREAM_MEM(stream) == 0) {
        return {};
    }
    const GByteArray* const bytes = g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(stream));
    const auto begin = static_cast<std::size_t>(std::max<gint64>(stream->bound_start, 0));
    const std::size_t end =
        stream->bound_end < 0
            ? bytes->len
            : std::min<std::size_t>(static_cast<std::size_t>(stream->bound_end), bytes->len);
    const std::string_view all(reinterpret_cast<const char*>(bytes->data), bytes->len);
    return {all, std::min(begin, end), end};
}

std::string_view LinesBefore(const RawPart& body) {
    constexpr std::string_view kBreaks = "\r\n";
    std::string_view text = body.All.substr(0, body.Begin);
    text = text.substr(0, text.find_last_not_of(kBreaks) + 1);
    const std::size_t unix_gap = text.rfind("\n\n");
    const std::size_t dos_gap = text.rfind("\n\r\n");
    const std::size_t gap = unix_gap == std::string_view::npos  ? dos_gap
                            : dos_gap == std::string_view::npos ? unix_gap
                                                                : std::max(unix_gap, dos_gap);
    return gap == std::string_view::npos ? std::string_view() : text.substr(gap);
}

std::string Unfolded(std::string_view text) {
    std::string whole;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t end = text[i] == '\r' && i + 1 < text.size() ? i + 1 : i;
        const bool folded = text[end] == '\n' && end + 1 < text.size() &&
                            (text[end + 1] == ' ' || text[end + 1] == '\t');
        if (folded) {
            i = end + 1;
        } else {
            whole += text[i];
        }
    }
    return whole;
}

}  // namespace orvik::book
