#include "platform/system_files.h"

#include <cerrno>
#include <cstdio>
#include <utility>

namespace orvik {
namespace {

namespace fs = std::filesystem;

// What the system said. A quota that is used up is a disk that is full.
std::error_code Told(const std::error_code& error) {
    return error.value() == EDQUOT ? std::make_error_code(std::errc::no_space_on_device) : error;
}

std::error_code LastError() {
    return Told({errno, std::generic_category()});
}

struct FileCloser {
    void operator()(std::FILE* file) const noexcept {
        std::fclose(file);  // NOLINT: the owner closes here; Close() has checked a written file
    }
};
using OwnedFile = std::unique_ptr<std::FILE, FileCloser>;

OwnedFile Open(const fs::path& path, const char* how, std::error_code& error) {
    OwnedFile file(std::fopen(path.c_str(), how));
    error = file ? std::error_code() : LastError();
    return file;
}

class SystemInput : public InputFile {
 public:
    explicit SystemInput(OwnedFile file) : file_(std::move(file)) {}

    std::error_code Read(std::size_t count, std::string& bytes) override {
        bytes.resize(count);
        const std::size_t got = std::fread(bytes.data(), 1, count, file_.get());
        bytes.resize(got);
        return got < count && std::ferror(file_.get()) != 0 ? LastError() : std::error_code();
    }

 private:
    OwnedFile file_;
};

class SystemOutput : public OutputFile {
 public:
    explicit SystemOutput(OwnedFile file) : file_(std::move(file)) {}

    std::error_code Write(std::string_view bytes) override {
        return std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) == bytes.size()
                   ? std::error_code()
                   : LastError();
    }
    // A full disk may be noticed only here.
    std::error_code Close() override {
        return std::fclose(file_.release()) == 0 ? std::error_code() : LastError();
    }

 private:
    OwnedFile file_;
};

const char* ModeOf(Writing how) {
    switch (how) {
        case Writing::New:
            return "wbx";
        case Writing::Appending:
            return "ab";
        case Writing::Updating:
            return "r+b";
        case Writing::Replacing:
            break;
    }
    return "wb";
}

FileKind KindOf(fs::file_type type) {
    switch (type) {
        case fs::file_type::not_found:
            return FileKind::Missing;
        case fs::file_type::regular:
            return FileKind::Regular;
        case fs::file_type::directory:
            return FileKind::Folder;
        case fs::file_type::character:
            return FileKind::CharacterDevice;
        default:
            return FileKind::Other;
    }
}

}  // namespace

std::error_code SystemFiles::Status(const Path& path, FileStatus& status) {
    std::error_code error;
    const fs::file_status found = fs::status(path, error);
    if (found.type() == fs::file_type::none) {
        return error;
    }
    status = {KindOf(found.type()), 0, found.permissions()};
    error.clear();
    if (status.Kind == FileKind::Regular) {
        status.Length = fs::file_size(path, error);
    }
    return error;
}

std::error_code SystemFiles::OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) {
    std::error_code error;
    if (OwnedFile opened = Open(path, "rb", error)) {
        file = std::make_unique<SystemInput>(std::move(opened));
    }
    return error;
}

std::error_code SystemFiles::OpenToWrite(const Path& path,
                                         Writing how,
                                         std::unique_ptr<OutputFile>& file) {
    std::error_code error;
    if (OwnedFile opened = Open(path, ModeOf(how), error)) {
        file = std::make_unique<SystemOutput>(std::move(opened));
    }
    return error;
}

std::error_code SystemFiles::SetPermissions(const Path& path, fs::perms permissions) {
    std::error_code error;
    fs::permissions(path, permissions, error);
    return Told(error);
}

bool SystemFiles::IsSame(const Path& one, const Path& other) {
    std::error_code error;
    return fs::equivalent(one, other, error) && !error;
}

std::error_code SystemFiles::SetLength(const Path& path, std::uintmax_t length) {
    std::error_code error;
    fs::resize_file(path, length, error);
    return Told(error);
}

std::error_code SystemFiles::Rename(const Path& from, const Path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    return Told(error);
}

std::error_code SystemFiles::Remove(const Path& path) {
    std::error_code error;
    fs::remove(path, error);
    return Told(error);
}

FileSystem::Path SystemFiles::ResolveLinks(Path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int links = 0; fs::is_symlink(path, error) && links < kMostLinks; ++links) {
        const Path target = fs::read_symlink(path, error);
        if (error) {
            break;
        }
        path = FolderOf(path) / target;
    }
    return path;
}

}  // namespace orvik
