#include "app/book_file.h"

#include <memory>
#include <utility>

#include "app/book_copies.h"
#include "app/run_time_error.h"

namespace orvik {

Saved SaveFile(FileSystem& files,
               FileTalk& talk,
               const std::string& name,
               bool wants_old,
               const Rewrite& rewrite,
               const SaveManner& manner) {
    const FileKind kind = StatusOf(files, name).Kind;
    BookWriter saving(files, talk, name, manner);
    if (kind == FileKind::CharacterDevice) {
        // A device such as a terminal takes the bytes as they come.
        const std::optional<LateText> contents = rewrite(std::nullopt);
        if (contents) {
            saving.WriteToDevice(*contents);
        }
        return {contents.has_value(), {}};
    }
    if (kind != FileKind::Regular && kind != FileKind::Missing) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    saving.Lock();
    const std::optional<LateText> contents =
        rewrite(saving.Read(kind == FileKind::Regular, wants_old));
    if (contents) {
        saving.Write(*contents);
    }
    return {contents.has_value(), saving.Identity()};
}

Rewrite Replacing(LateText contents) {
    return [contents = std::move(contents)](const auto& /*old*/) { return contents; };
}

Rewrite Adding(std::string_view contents) {
    return [contents](std::optional<std::string> old) {
        return std::move(old).value_or("").append(contents);
    };
}

bool RewriteFile(FileSystem& files,
                 const std::string& name,
                 const Rewrite& rewrite,
                 const SaveManner& manner) {
    FileTalk nobody;
    return SaveFile(files, nobody, name, true, rewrite, manner).Written;
}

void ReplaceFile(FileSystem& files, const std::string& name, LateText contents) {
    FileTalk nobody;
    SaveFile(files, nobody, name, false, Replacing(std::move(contents)));
}

void AppendToFile(FileSystem& files, const std::string& name, std::string_view contents) {
    RewriteFile(files, name, Adding(contents));
}

void TryWriting(FileSystem& files, const std::string& name) {
    const FileStatus status = StatusOf(files, name);
    std::unique_ptr<OutputFile> file;
    if (status.Kind == FileKind::Missing) {
        const FileSystem::Path path = files.ResolveLinks(name);
        CheckFile(
            files, Persist([&] { return files.CreateUnseen(FolderOf(path), true, file); }), path);
    } else if (status.Kind == FileKind::Regular || status.Kind == FileKind::CharacterDevice) {
        CheckFile(files, Persist([&] { return files.OpenToWrite(name, file); }), name);
    } else {
        throw RunTimeError(Failure::PathFileAccess);
    }
}

void KeepCopy(FileSystem& files, const std::string& name, std::string_view contents) {
    FileSystem::Path copy;
    const std::error_code error = WriteCopy(files, name + ".bak", contents, copy);
    if (error) {
        throw RunTimeError(FailureOf(error), copy.string() + " could not be written.");
    }
}

}  // namespace orvik
