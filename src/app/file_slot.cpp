#include "app/file_slot.h"

#include "app/run_time_error.h"

namespace orvik {

void FileSlot::OpenForInput(const std::string& name) {
    Close();
    const FileStatus status = StatusOf(files_, name);
    path_ = name;
    if (status.Kind == FileKind::Missing) {
        CheckFile(files_, std::make_error_code(std::errc::no_such_file_or_directory), path_);
    }
    // A pipe or a socket could hang the program.
    if (status.Kind != FileKind::Regular) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    CheckFile(files_, files_.OpenToRead(path_, file_), path_);
    length_ = static_cast<std::size_t>(status.Length());
}

void FileSlot::CheckOpen() const {
    if (!file_) {
        throw RunTimeError(Failure::BadFileNumber);
    }
}

std::size_t FileSlot::Length() const {
    CheckOpen();
    return length_;
}

std::string FileSlot::Read(std::size_t count) {
    CheckOpen();
    std::string bytes;
    CheckFile(files_, ReadBytes(*file_, count, bytes), path_);
    if (bytes.size() < count) {
        throw RunTimeError(Failure::InputPastEnd);
    }
    return bytes;
}

void FileSlot::Close() {
    file_.reset();
}

void FileSlot::Append(const std::string& name, std::string_view contents) {
    Close();
    AppendToFile(files_, name, contents);
}

bool FileSlot::Rewrite(const std::string& name, const orvik::Rewrite& rewrite) {
    Close();
    return RewriteFile(files_, name, rewrite);
}

void FileSlot::TryWriting(const std::string& name) {
    Close();
    orvik::TryWriting(files_, name);
}

void FileSlot::Replace(const std::string& name, std::string_view contents) {
    Close();
    ReplaceFile(files_, name, contents);
}

}  // namespace orvik
