#include "platform/links.h"

#include <system_error>

namespace orvik {

namespace fs = std::filesystem;

fs::path FolderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

fs::path ResolveLinks(fs::path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int links = 0; fs::is_symlink(path, error) && links < kMostLinks; ++links) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) {
            break;
        }
        path = FolderOf(path) / target;
    }
    return path;
}

}  // namespace orvik
