#include "book/old/post_lines.h"

#include <algorithm>
#include <array>

#include "book/value_form.h"

namespace orvik::book {

void AppendTextLines(std::string_view text, std::vector<std::string>& lines) {
    while (!(text = WithoutBlanksAround(text)).empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.push_back(OneLine(text.substr(0, end)));
        text.remove_prefix(end);
    }
}

std::vector<std::string> TakePostLines(Fitting& entry, const Property& post) {
    // Street and what is beside it, box, town and what is around it.
    constexpr std::array<std::size_t, 7> kOrder = {2, 1, 0, 3, 4, 5, 6};
    constexpr std::size_t kStreet = 2;
    std::vector<std::string> lines;
    bool street_alone = true;
    for (const std::size_t part : kOrder) {
        std::string_view values = PartAt(post.Value, part);
        for (TakenPart value{{}, true}; value.More;) {
            value = TakePart(values, ',');
            const std::size_t before = lines.size();
            AppendTextLines(Unescaped(value.Text), lines);
            // Several lines of one street would be several streets.
            street_alone = street_alone && lines.size() <= before + (part == kStreet ? 1 : 0);
        }
    }
    if (street_alone) {
        entry.Keep(post, post.Value);
    } else {
        entry.Doubt(post, Reason::PartedElse);
    }
    return lines;
}

}  // namespace orvik::book
