// Takes any bytes apart as a list, puts them together as a Native text and reads that; and reads
// the bytes themselves as a Native text.

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "app/text.h"
#include "app/working_text.h"
#include "fuzz/fuzz_target.h"

namespace orvik::fuzz {
namespace {

struct Lists {
    std::vector<std::string> emails;
    std::vector<std::string> nicks;
};

std::size_t CountOf(std::string_view text, char c) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), c));
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

Lists ListAndCheck(std::string_view text) {
    Lists lists;
    const std::size_t count = ListNative(
        text,
        [&](std::string_view item) { lists.emails.emplace_back(item); },
        [&](std::string_view item) { lists.nicks.emplace_back(item); });
    Check(count == lists.emails.size(), "the count is that of the addresses");
    Check(count >= 1, "there is an address");
    for (const auto* items : {&lists.emails, &lists.nicks}) {
        for (const std::string& item : *items) {
            Check(!Contains(item, "\r") && !Contains(item, "\n"), "an item is one line");
        }
    }
    return lists;
}

// Returns the entries with LF characters dropped from the addresses.
Lists ReadAndCheck(std::string_view text) {
    Lists lists;
    NativeReader reader(text);
    std::size_t last_end = 0;
    while (reader.Next()) {
        Check(reader.AddressEnd() > last_end, "address lines go forward");
        Check(reader.AddressEnd() < reader.Separator(), "address lines stand before -nick-");
        last_end = reader.AddressEnd();
        Check(!Contains(reader.RawAddress(), "\r"), "an address is one line");
        std::string address;
        AppendWithout(address, reader.RawAddress(), '\n');
        lists.emails.push_back(address);
        lists.nicks.emplace_back(reader.TakeNickname());
        Check(!Contains(lists.nicks.back(), kCrLf), "a nickname is one line");
    }
    Check(!reader.Next(), "the end stays the end");
    return lists;
}

void CheckSplit(std::string_view text, std::string_view separator) {
    NativeBlocks blocks;
    const int failure = FailureOf([&] { blocks = SplitBlocks(text, separator); });
    if (failure != 0) {
        Check(failure == 5, "a list without entry is failure 5");
        return;
    }
    Check(CountOf(blocks.Emails(), '\n') == CountOf(blocks.Nicks(), '\n'), "the blocks are paired");
    Check(!Contains(blocks.Emails(), "\"") && !Contains(blocks.Nicks(), "\""), "no quote is left");
    Check(!Contains(blocks.Emails(), "<") && !Contains(blocks.Emails(), ">"), "no bracket is left");

    const std::string& native = blocks.Native;
    const Lists listed = ListAndCheck(native);
    if (!Contains(blocks.Emails(), "\r\n-nick-")) {
        Check(listed.emails.size() == CountOf(blocks.Emails(), '\r') + 1,
              "every address is listed");
        Check(listed.nicks.size() == CountOf(blocks.Nicks(), '\r') + 1, "every nickname is listed");
    }
    const Lists read = ReadAndCheck(native);
    if (!Contains(blocks.Emails(), kNick)) {
        Check(read.emails == listed.emails, "the reader and the list agree on addresses");
        if (separator == "\r") {
            Check(read.nicks == listed.nicks, "the reader and the list agree on nicknames");
        }
    }
}

}  // namespace
}  // namespace orvik::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = orvik::fuzz::TextOf(data, size);
    orvik::fuzz::CheckSplit(text, "\r");
    orvik::fuzz::CheckSplit(text, ",");
    orvik::fuzz::ListAndCheck(text);
    orvik::fuzz::ReadAndCheck(text);
    return 0;
}
