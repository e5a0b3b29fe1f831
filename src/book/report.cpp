#include "book/report.h"

namespace orvik::book {

std::string_view NameOf(What what) {
    constexpr std::array<std::string_view, 6> kNames = {
        "read", "kept", "carried", "lost", "doubtful", "skipped"};
    return kNames[static_cast<std::size_t>(what)];
}

std::string_view WordsFor(Reason reason) {
    constexpr std::array<std::string_view, static_cast<std::size_t>(Reason::kCount)> kWords = {
        "",
        "belongs to no record",
        "is no field",
        "changes or deletes another record",
        "is a control of a change",
        "is a record that a change adds",
        "names a file or an address that is never opened",
        "is no base64",
        "has bytes that are no text",
        "a line of blanks was taken for an empty one",
        "goes on after a tab",
        "can be there only once",
        "has no end",
        "ends what was not begun",
        "has no version",
        "has a version that is not known",
        "is cut off by the end of the file",
        "has no name",
        "is not in these files",
        "is no quoted-printable",
        "has a character set that is not known",
        "has blanks around it",
        "has fewer parts than it should",
        "holds nothing",
        "has signs that the target cannot hold",
        "has no place in the target",
        "looks encoded twice",
        "has a quote without an end",
        "has a quote that is not doubled",
        "has lines that look like rows of their own",
        "stands behind the last column",
        "is the header once more",
        "was parted at a blank into given and family name, as all such names of the file",
        "is kept without its kind",
        "has letters that the target's set has not",
        "is a list, and the target knows none",
        "is a list in a list",
        "is one more than the program takes",
        "is in the file, but the program does not read it",
        "is larger than the program takes",
        "has members in other files",
        "is the name of more than one record, of which the first was taken",
        "is a setting of the program",
        "stood in the place of the name, as in all such entries of the file",
        "is marked as deleted",
        "is in one piece, and may be parted otherwise when it is read",
        "is the nickname of another record, too, and was numbered",
        "is not all that the book holds, and a file of the target is one list and its members",
        "was put together again from what a comma had made two entries of",
        "has signs that the format does not know",
        "has no address, and the target has nothing else"};
    static_assert(!kWords.back().empty());
    return kWords[static_cast<std::size_t>(reason)];
}

void Report::Add(const Remark& remark) {
    CountMore(remark.Kind);
    if (remark.Kind == What::Skipped && !remarks_.empty()) {
        const Remark& last = remarks_.back();
        const bool goes_on = last.Kind == What::Skipped && last.Why == remark.Why &&
                             last.File == remark.File && last_skipped_ + 1 == remark.Line;
        if (goes_on) {
            last_skipped_ = remark.Line;
            return;
        }
    }
    last_skipped_ = remark.Line;
    remarks_.push_back(remark);
}

}  // namespace orvik::book
