#include "store/recent_books.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <utility>

#include <glib.h>

#include "store/kept_file.h"
#include "store/owned.h"
#include "store/shared_list.h"
#include "store/user_folder.h"

namespace orvik {
namespace {

// The one line of the file while no book is to be remembered. A URI is never this.
constexpr std::string_view kOff = "off";

// A name may hold any byte; a line of the file may not.
std::string UriOf(const std::string& name) {
    const Owned<gchar> uri(g_filename_to_uri(name.c_str(), nullptr, nullptr), &g_free);
    return uri == nullptr ? std::string() : uri.get();
}

std::string NameOf(const std::string& uri) {
    const Owned<gchar> name(g_filename_from_uri(uri.c_str(), nullptr, nullptr), &g_free);
    return name == nullptr ? std::string() : name.get();
}

}  // namespace

RecentBooks::RecentBooks(FileSystem& files, std::string own, std::string shared)
    : files_(&files), own_(std::move(own)), shared_(std::move(shared)) {}

RecentBooks RecentBooks::OfUser(FileSystem& files) {
    return {files,
            UserFolder("XDG_STATE_HOME", ".local/state") + "/orvik/books",
            UserFolder("XDG_DATA_HOME", ".local/share") + "/recently-used.xbel"};
}

std::vector<std::string> RecentBooks::Books() {
    Read();
    return books_;
}

void RecentBooks::Add(const std::string& book) {
    if (UriOf(book).empty() || !Remembers()) {
        return;
    }
    Change([&] {
        // Another program may have switched it off meanwhile.
        if (remembers_) {
            std::erase(books_, book);
            books_.insert(books_.begin(), book);
            books_.resize(std::min(books_.size(), kMost));
        }
    });
    if (files_ != nullptr && remembers_) {
        AddToSharedList(*files_, shared_, book);
    }
}

void RecentBooks::Clear() {
    Change([&] { books_.clear(); });
    ClearShared();
}

bool RecentBooks::Remembers() {
    Read();
    return remembers_;
}

void RecentBooks::SetRemembers(bool remembers) {
    Change([&] {
        remembers_ = remembers;
        if (!remembers) {
            books_.clear();
        }
    });
    if (!remembers) {
        ClearShared();
    }
}

void RecentBooks::ClearShared() const {
    if (files_ != nullptr) {
        RemoveFromSharedList(*files_, shared_);
    }
}

void RecentBooks::Read() {
    if (files_ != nullptr) {
        Parse(ReadKept(*files_, own_).value_or(""));
    }
}

void RecentBooks::Change(const std::function<void()>& change) {
    if (files_ == nullptr) {
        change();
        return;
    }
    bool nothing = false;
    RewriteKept(*files_, own_, [&](const std::optional<std::string>& old) {
        Parse(old.value_or(""));
        change();
        nothing = books_.empty() && remembers_;
        return Lines();
    });
    if (nothing) {
        // As it is at first.
        files_->Remove(own_);
    }
}

void RecentBooks::Parse(const std::string& text) {
    books_.clear();
    remembers_ = true;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line) && books_.size() < kMost;) {
        if (line == kOff) {
            remembers_ = false;
        } else if (std::string name = NameOf(line); !name.empty()) {
            books_.push_back(std::move(name));
        }
    }
}

std::string RecentBooks::Lines() const {
    std::string lines = remembers_ ? std::string() : std::string(kOff) + "\n";
    for (const std::string& book : books_) {
        lines.append(UriOf(book)).append("\n");
    }
    return lines;
}

}  // namespace orvik
