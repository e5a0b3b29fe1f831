#include "reliability/tolerated.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace orvik::test {
namespace {

constexpr std::string_view kInPlace = "the book is written in place, a copy on the disk";
constexpr std::string_view kUnread = "a book that may be written but not read is written in place";
constexpr std::string_view kOtherCopy = "the copy stands elsewhere, or there is none";
constexpr std::string_view kGone = "that a copy is gone need not be on the disk";
constexpr std::string_view kLitter = "what cannot be listed or removed stays";
constexpr std::string_view kLooked = "some looks serve nothing but a note to the user";
constexpr std::string_view kNoFolder = "a folder that cannot be looked at is a missing one";

constexpr int kPathNotFound = 76;

constexpr std::array kRows = {
    Tolerance{FileState::Existing, "CreateUnseen", EACCES, kInPlace},
    Tolerance{FileState::Existing, "new TakeAttributesOf", 0, kInPlace},
    Tolerance{FileState::Existing, "OpenToRead", EACCES, kUnread},
    Tolerance{FileState::Linked, "OpenToRead", EACCES, kUnread},
    Tolerance{FileState::ClosedFolder, "OpenToRead", EACCES, kUnread},
    Tolerance{FileState::Linked, "CreateUnseen", 0, kOtherCopy},
    Tolerance{FileState::Linked, "new Write", 0, kOtherCopy},
    Tolerance{FileState::Linked, "new Sync", 0, kOtherCopy},
    Tolerance{FileState::Linked, "new TakeName", 0, kOtherCopy},
    Tolerance{FileState::Linked, "new Close", 0, kOtherCopy},
    Tolerance{FileState::Linked, "SyncFolder", 0, kOtherCopy},
    Tolerance{FileState::ClosedFolder, "CreateUnseen", 0, kOtherCopy},
    Tolerance{FileState::ClosedFolder, "SyncFolder", 0, kGone},
    Tolerance{{}, "List", 0, kLitter},
    Tolerance{{}, "Remove", 0, kLitter, true},
    Tolerance{FileState::Missing, "Status", 0, kNoFolder, false, kPathNotFound},
    Tolerance{{}, "Status", 0, kLooked},
};

}  // namespace

const Tolerance* FindTolerance(FileState state, std::string_view call, int error) {
    const auto* const found = std::find_if(kRows.begin(), kRows.end(), [&](const Tolerance& row) {
        return row.State.value_or(state) == state && row.Call == call &&
               (row.Error == 0 || row.Error == error);
    });
    return found == kRows.end() ? nullptr : found;
}

}  // namespace orvik::test
