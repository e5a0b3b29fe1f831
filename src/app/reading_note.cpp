#include "app/reading_note.h"

namespace orvik {
namespace {

std::string Counted(std::size_t count, std::string_view one, std::string_view several) {
    return std::to_string(count).append(" ").append(count == 1 ? one : several);
}

std::string SentenceOf(const Unread& left_out) {
    return Counted(left_out.Attributes, "attribute", "attributes") + " of " +
           Counted(left_out.Entries, "entry", "entries") +
           (left_out.Attributes == 1 ? " was not read" : " were not read");
}

}  // namespace

void ReadingNote::Join(const ReadingNote& other) {
    LeftOut.Attributes += other.LeftOut.Attributes;
    LeftOut.Entries += other.LeftOut.Entries;
    if (LooksLike.empty()) {
        LooksLike = other.LooksLike;
    }
}

std::string ReadingNote::Text() const {
    std::string text;
    if (!LooksLike.empty()) {
        text.append("The contents look like ").append(LooksLike);
    }
    if (LeftOut.Attributes > 0) {
        text.append(text.empty() ? "" : "\n").append(SentenceOf(LeftOut));
    }
    return text;
}

}  // namespace orvik
