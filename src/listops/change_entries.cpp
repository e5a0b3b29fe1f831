#include "listops/change_entries.h"

#include <algorithm>

#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

// Cuts the first line, with what ends it, off a block that is not empty. A line ends at CR, as in
// the lists, and an LF behind it belongs to it.
std::string_view CutLine(std::string_view& block) {
    std::size_t length = std::min(block.find('\r'), block.size() - 1) + 1;
    if (length < block.size() && block[length] == '\n') {
        ++length;
    }
    const std::string_view line = block.substr(0, length);
    block.remove_prefix(length);
    return line;
}

std::size_t CountLines(std::string_view block) {
    std::size_t lines = 0;
    for (; !block.empty(); ++lines) {
        CutLine(block);
    }
    return lines;
}

// Ends the last line with CR LF, which the middle line of the text needs before it.
void EndLine(std::string& text) {
    if (text.ends_with('\r')) {
        text += '\n';
    } else if (!text.empty() && !text.ends_with(kCrLf)) {
        text.append(kCrLf);
    }
}

// Appends a block with value as its line in this row.
void AppendReplaced(std::string& to,
                    std::string_view block,
                    std::size_t row,
                    std::string_view value) {
    std::size_t lines = 0;
    for (; lines < row && !block.empty(); ++lines) {
        to.append(CutLine(block));
    }
    if (block.empty()) {
        EndLine(to);
    }
    for (; lines < row; ++lines) {
        to.append(kCrLf);
    }
    to.append(value).append(kCrLf);
    if (!block.empty()) {
        CutLine(block);
        to.append(block);
    }
    EndLine(to);
}

// Appends a block without these rows.
void AppendKept(std::string& to, std::string_view block, const std::vector<std::size_t>& rows) {
    auto next = rows.begin();
    for (std::size_t row = 0; !block.empty(); ++row) {
        const std::string_view line = CutLine(block);
        if (next != rows.end() && *next == row) {
            ++next;
        } else {
            to.append(line);
        }
    }
    EndLine(to);
}

}  // namespace

EntryFault FaultOf(std::string_view address,
                   std::string_view nickname,
                   std::string_view separator) {
    const auto has = [](std::string_view text, std::string_view characters) {
        return text.find_first_of(characters) != std::string_view::npos;
    };
    constexpr std::string_view kLineBreaks("\r\n\0", 3);
    if (has(address, kLineBreaks) || has(nickname, kLineBreaks)) {
        return EntryFault::LineBreak;
    }
    if (has(address, "\"") || has(nickname, "\"")) {
        return EntryFault::Quote;
    }
    if (has(address, "<>")) {
        return EntryFault::AngleBracket;
    }
    if (has(address, separator.substr(0, 1))) {
        return EntryFault::Separator;
    }
    if (address.find(kNick) != std::string_view::npos) {
        return EntryFault::MiddleInAddress;
    }
    return nickname == kNick ? EntryFault::MiddleAsNickname : EntryFault::None;
}

std::size_t CountRows(std::string_view native) {
    const ListedBlocks blocks = FindBlocks(native);
    return std::max(CountLines(blocks.Addresses), CountLines(blocks.Nicknames));
}

std::string ReplaceRow(std::string_view native,
                       std::size_t row,
                       std::string_view address,
                       std::string_view nickname) {
    const ListedBlocks blocks = FindBlocks(native);
    std::string text;
    text.reserve(native.size() + address.size() + nickname.size() + kNick.size());
    AppendReplaced(text, blocks.Addresses, row, address);
    text.append(kNick).append(kCrLf);
    AppendReplaced(text, blocks.Nicknames, row, nickname);
    return text;
}

std::string DeleteRows(std::string_view native, const std::vector<std::size_t>& rows) {
    const ListedBlocks blocks = FindBlocks(native);
    std::string text;
    text.reserve(native.size());
    AppendKept(text, blocks.Addresses, rows);
    std::string nicknames;
    AppendKept(nicknames, blocks.Nicknames, rows);
    if (text.empty() && nicknames.empty()) {
        return {};
    }
    // The lists find the middle line behind a line end only.
    if (text.empty()) {
        text.append(kCrLf);
    }
    return text.append(kNick).append(kCrLf).append(nicknames);
}

}  // namespace orvik
