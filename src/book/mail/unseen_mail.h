// Messages that stand in folders though a mail program shows them to nobody.

#pragma once

#include <cstdint>
#include <string_view>

namespace orvik::book {

enum class Unseen : std::uint8_t {
    None,
    Deleted,    // X-Mozilla-Status has the bit of mail that waits for its folder to be compacted
    FolderData  // what mail servers keep of a folder in its first message
};

// UnseenKindOf: by the header at the beginning of a message.
[[nodiscard]] Unseen UnseenKindOf(std::string_view message);

// IsTrashedName: whether the file of a message is marked as deleted, as Maildirs do.
//   "1700.M1.host:2,ST" -> true;  "1700.M1.host:2,S" -> false
[[nodiscard]] bool IsTrashedName(std::string_view name);

}  // namespace orvik::book
