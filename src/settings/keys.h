// Names and values of the settings that several commands use.

#pragma once

#include <string_view>

namespace orvik {

namespace key {
inline constexpr std::string_view kSettings = "Settings";
// The five steps of the automation, keys "1" to "5".
inline constexpr std::string_view kSteps = "Settings\\AutoSteps";
// The values of "textSep".
inline constexpr int kByNewlines = 5;
inline constexpr int kByCommas = 6;
// What is told of a value that no setting has.
inline constexpr std::string_view kCorrupt = "Error, Registry information Corrupt!";
}  // namespace key

// The steps of the automation: their codes as the preferences store them, and
// their names there. The runner takes the two sorts the other way round.
namespace step {
inline constexpr int kDoneCode = 0;
inline constexpr int kSaveCode = 1;
inline constexpr int kExtractCode = 2;
inline constexpr int kSortByNicknameCode = 3;
inline constexpr int kSortByAddressCode = 4;
inline constexpr int kOpenCode = 5;
inline constexpr std::string_view kSortByAddress = "Sort by Address";
inline constexpr std::string_view kSortByNickname = "Sort by Nickname";
inline constexpr std::string_view kDone = "Done";
}  // namespace step

}  // namespace orvik
