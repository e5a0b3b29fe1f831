#include "app/file_slot.h"

#include <algorithm>
#include <utility>

#include "app/book_copies.h"
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
    OfferCopies(name);
    std::unique_ptr<InputFile> file;
    FileStatus opened;
    CheckFile(files_, Persist([&] { return files_.OpenToRead(path_, file); }), path_);
    CheckFile(files_, Persist([&] { return file->Status(opened); }), path_);
    known_[files_.ResolveLinks(name)] = opened.Identity;
    length_ = static_cast<std::size_t>(opened.Length());
    file_ = std::move(file);
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

bool FileSlot::ReadPieces(const TakeOrStop& take) {
    // A piece stays in the processor's cache until it is read.
    constexpr std::size_t kPiece = std::size_t{256} << 10U;
    for (std::size_t left = Length(); left > 0;) {
        const std::string piece = Read(std::min(left, kPiece));
        if (!take(piece)) {
            return false;
        }
        left -= piece.size();
    }
    return true;
}

void FileSlot::Rewind() {
    CheckOpen();
    CheckFile(files_, Persist([&] { return file_->Rewind(); }), path_);
}

void FileSlot::Close() {
    file_.reset();
}

void FileSlot::Append(const std::string& name, std::string_view contents) {
    Save(name, true, Adding(contents));
}

bool FileSlot::Rewrite(const std::string& name, const orvik::Rewrite& rewrite) {
    return Save(name, true, rewrite);
}

void FileSlot::Replace(const std::string& name, LateText contents) {
    Save(name, false, Replacing(std::move(contents)));
}

void FileSlot::TryWriting(const std::string& name) {
    Close();
    orvik::TryWriting(files_, name);
}

bool FileSlot::Save(const std::string& name, bool wants_old, const orvik::Rewrite& rewrite) {
    Close();
    if (StatusOf(files_, name).Kind == FileKind::Regular) {
        OfferCopies(name);
    }
    // Asked under the lock: the program that was waited for may have changed the file.
    const auto noting = [&](std::optional<std::string> old) {
        if (HasChanged(name)) {
            talk_.Note("Another program changed the file since it was opened or saved");
        }
        return rewrite(std::move(old));
    };
    const Saved saved = SaveFile(files_, talk_, name, wants_old, noting);
    if (saved.Identity) {
        known_[files_.ResolveLinks(name)] = *saved.Identity;
    } else if (saved.Written) {
        known_.erase(files_.ResolveLinks(name));
    }
    return saved.Written;
}

bool FileSlot::HasChanged(const std::string& name) const {
    const auto known = known_.find(files_.ResolveLinks(name));
    FileStatus now;
    return known != known_.end() && !Persist([&] { return files_.Status(name, now); }) &&
           now.Kind == FileKind::Regular && now.Identity != known->second;
}

void FileSlot::OfferCopies(const std::string& name) {
    for (const FileSystem::Path& copy : LeftCopies(files_, name)) {
        if (put_off_.contains(copy)) {
            continue;
        }
        switch (talk_.OfferCopy(name, copy.string())) {
            case CopyAnswer::Restore:
                RestoreCopy(files_, talk_, name, copy);
                return;
            case CopyAnswer::Keep:
                files_.Remove(copy);
                break;
            case CopyAnswer::NotNow:
                put_off_.insert(copy);
                break;
        }
    }
}

}  // namespace orvik
