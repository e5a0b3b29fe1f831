#include "app/file_calls.h"

#include <array>
#include <memory>

namespace orvik {

Failure FailureOf(std::error_code error) {
    struct Row {
        std::errc Error;
        Failure What;
    };
    constexpr std::array kRows = {
        Row{std::errc::no_such_file_or_directory, Failure::FileNotFound},
        Row{std::errc::not_a_directory, Failure::PathNotFound},
        Row{std::errc::permission_denied, Failure::PermissionDenied},
        Row{std::errc::operation_not_permitted, Failure::PermissionDenied},
        Row{std::errc::read_only_file_system, Failure::PermissionDenied},
        Row{std::errc::device_or_resource_busy, Failure::PermissionDenied},
        Row{std::errc::io_error, Failure::DeviceError},
        Row{std::errc::no_space_on_device, Failure::DiskFull},
        Row{std::errc::file_too_large, Failure::DiskFull},
        Row{std::errc::not_enough_memory, Failure::OutOfMemory},
    };
    for (const Row& row : kRows) {
        if (error == row.Error) {
            return row.What;
        }
    }
    return Failure::PathFileAccess;
}

void CheckFile(FileSystem& files, std::error_code error, const FileSystem::Path& path) {
    if (!error) {
        return;
    }
    if (error == std::errc::no_such_file_or_directory) {
        FileStatus folder;
        if (Persist([&] { return files.Status(FolderOf(path), folder); }) ||
            folder.Kind != FileKind::Folder) {
            throw RunTimeError(Failure::PathNotFound);
        }
    }
    throw RunTimeError(FailureOf(error));
}

FileStatus StatusOf(FileSystem& files, const std::string& name) {
    if (name.empty()) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    // Behind a zero byte the system would not see the rest of the name.
    if (name.find('\0') != std::string::npos) {
        throw RunTimeError(Failure::BadFileNumber);
    }
    FileStatus status;
    CheckFile(files, Persist([&] { return files.Status(name, status); }), name);
    return status;
}

std::error_code ReadBytes(InputFile& file, std::size_t count, std::string& bytes) {
    bytes.clear();
    std::string part;
    while (bytes.size() < count) {
        const std::error_code error =
            Persist([&] { return file.Read(count - bytes.size(), part); });
        if (error) {
            return error;
        }
        if (part.empty()) {
            break;
        }
        if (bytes.empty()) {
            bytes.swap(part);
        } else {
            bytes.append(part);
        }
    }
    return {};
}

std::error_code ReadWhole(FileSystem& files, const FileSystem::Path& path, std::string& bytes) {
    std::unique_ptr<InputFile> file;
    FileStatus status;
    std::error_code error = Persist([&] { return files.OpenToRead(path, file); });
    if (!error) {
        error = Persist([&] { return file->Status(status); });
    }
    return error ? error : ReadBytes(*file, static_cast<std::size_t>(status.Length()), bytes);
}

std::error_code WriteBytes(OutputFile& file, std::string_view bytes) {
    std::error_code error;
    while (!bytes.empty() && !error) {
        std::size_t written = 0;
        error = Persist([&] { return file.Write(bytes, written); });
        bytes.remove_prefix(written);
    }
    return error;
}

std::error_code WriteSynced(OutputFile& file, std::string_view bytes) {
    const std::error_code error = WriteBytes(file, bytes);
    return error ? error : Persist([&] { return file.Sync(); });
}

std::error_code CloseSynced(OutputFile& file) {
    const std::error_code error = file.Close();
    // A close that a signal interrupts has closed the file, and what it held is on the disk.
    return error == std::errc::interrupted ? std::error_code() : error;
}

}  // namespace orvik
