#include "book/mail/mail_walk.h"

#include <algorithm>

#include "app/file_calls.h"
#include "book/mail/unseen_mail.h"

namespace orvik::book {
namespace {

std::pair<std::uint64_t, std::uint64_t> IdentityOf(const FileStatus& status) {
    return {status.Identity.Device, status.Identity.Number};
}

std::string Joined(const std::string& folder, const std::string& name) {
    return folder + (folder.ends_with('/') ? "" : "/") + name;
}

bool HasFolder(const std::vector<FolderEntry>& entries, std::string_view name) {
    return std::any_of(entries.begin(), entries.end(), [name](const FolderEntry& one) {
        return one.Name == name && one.Status.Kind == FileKind::Folder;
    });
}

}  // namespace

void MailWalk::Avoid(const std::string& path) {
    FileStatus status;
    if (!path.empty() && !Persist([&] { return files_.Status(path, status); }) &&
        status.Kind == FileKind::Regular) {
        seen_.insert(IdentityOf(status));
    }
}

void MailWalk::Walk(const std::vector<std::string>& paths) {
    std::vector<FileStatus> found(paths.size());
    std::vector<std::error_code> errors(paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        errors[i] = Persist([&] { return files_.Status(paths[i], found[i]); });
        if (!errors[i] && found[i].Kind == FileKind::Regular) {
            named_.insert(IdentityOf(found[i]));
        }
    }
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const FileKind kind = found[i].Kind;
        if (errors[i] || kind == FileKind::Missing) {
            listener_.Tell(
                paths[i],
                WalkNote::Failed,
                errors[i] ? errors[i] : make_error_code(std::errc::no_such_file_or_directory));
        } else if (kind == FileKind::Folder) {
            WalkFolder(paths[i]);
        } else if (kind != FileKind::Regular) {
            listener_.Tell(paths[i], WalkNote::NoInput, {});
        } else if (!seen_.insert(IdentityOf(found[i])).second) {
            listener_.Tell(paths[i], WalkNote::Again, {});
        } else {
            listener_.Take({paths[i], paths[i], false, found[i].Length()});
        }
    }
}

void MailWalk::WalkFolder(const std::string& path) {
    std::vector<Pending> pending = {{path, {}}};
    while (!pending.empty()) {
        const Pending folder = std::move(pending.back());
        pending.pop_back();
        FileStatus status;
        std::vector<FolderEntry> entries;
        std::error_code error = Persist([&] { return files_.Status(folder.Path, status); });
        if (!error && !seen_.insert(IdentityOf(status)).second) {
            listener_.Tell(folder.Path, WalkNote::Again, {});
            continue;
        }
        error = error ? error : Persist([&] {
            entries.clear();
            return files_.List(folder.Path, "", entries);
        });
        if (error) {
            listener_.Tell(folder.Path, WalkNote::Failed, error);
            continue;
        }
        std::sort(entries.begin(), entries.end(), [](const auto& one, const auto& other) {
            return one.Name < other.Name;
        });
        const bool maildir = HasFolder(entries, "cur") && HasFolder(entries, "new");
        std::vector<Pending> below;
        for (const FolderEntry& entry : entries) {
            if (entry.Name == "." || entry.Name == "..") {
                continue;
            }
            const bool in_maildir =
                maildir && (entry.Name == "cur" || entry.Name == "new" || entry.Name == "tmp");
            if (maildir && entry.Name == "tmp" && entry.Status.Kind == FileKind::Folder) {
                listener_.Tell(Joined(folder.Path, entry.Name), WalkNote::Unsent, {});
            } else if (maildir && entry.Status.Kind == FileKind::Regular &&
                       !named_.contains(IdentityOf(entry.Status))) {
                listener_.Tell(Joined(folder.Path, entry.Name), WalkNote::OfServer, {});
            } else if (entry.Status.Kind == FileKind::Folder) {
                below.push_back({Joined(folder.Path, entry.Name), in_maildir ? folder.Path : ""});
            } else {
                TakeEntry(folder, entry);
            }
        }
        // The first name is to be the next.
        pending.insert(pending.end(),
                       std::make_move_iterator(below.rbegin()),
                       std::make_move_iterator(below.rend()));
    }
}

void MailWalk::TakeEntry(const Pending& folder, const FolderEntry& entry) {
    const std::string path = Joined(folder.Path, entry.Name);
    if (entry.Status.Kind != FileKind::Regular) {
        // Links are not told from pipes by their status.
        FileStatus target;
        const bool leads = !Persist([&] { return files_.Status(path, target); }) &&
                           target.Identity.Number != entry.Status.Identity.Number;
        listener_.Tell(path, leads ? WalkNote::Link : WalkNote::NoFile, {});
        return;
    }
    const auto identity = IdentityOf(entry.Status);
    if (named_.contains(identity) || seen_.contains(identity)) {
        return;
    }
    if (IsTrashedName(entry.Name)) {
        listener_.Tell(path, WalkNote::Trashed, {});
        return;
    }
    const bool message = !folder.Maildir.empty();
    listener_.Take({path, message ? folder.Maildir : path, message, entry.Status.Length()});
}

}  // namespace orvik::book
