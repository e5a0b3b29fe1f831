#include "store/settings_store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <system_error>
#include <thread>

#include <glib.h>

#include "app/text.h"
#include "platform/system_files.h"
#include "store/owned.h"
#include "store/setting_text.h"
#include "store/user_folder.h"

namespace orvik {

namespace fs = std::filesystem;

// The contents of a settings file.
struct KeyFile {
    std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> Keys{g_key_file_new(),
                                                                &g_key_file_unref};
};

namespace {

// So long a save waits for another program's.
constexpr std::chrono::milliseconds kLongestWait{2000};
constexpr std::chrono::milliseconds kBetweenTries{10};

// What others wrote into the file stays.
constexpr auto kKeepAll =
    static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);

// The last of the names that differs in case only: in a file edited by hand there may be several.
std::optional<std::string> FindName(gchar** names, std::string_view wanted) {
    std::optional<std::string> found;
    for (gchar** name = names; name != nullptr && *name != nullptr; ++name) {
        if (ToLower(UnescapeSetting(*name)) == ToLower(wanted)) {
            found = *name;
        }
    }
    g_strfreev(names);
    return found;
}

// The names under which a file has a section and a key, or those that they get.
struct Place {
    Place(const KeyFile& file, std::string_view section, std::string_view key)
        : Section(FindName(g_key_file_get_groups(file.Keys.get(), nullptr), section)
                      .value_or(EscapeSetting(section, SettingPart::Name))) {
        const auto stored =
            FindName(g_key_file_get_keys(file.Keys.get(), Section.c_str(), nullptr, nullptr), key);
        Known = stored.has_value();
        Key = stored.value_or(EscapeSetting(key, SettingPart::Name));
    }

    std::string Section;
    std::string Key;
    bool Known = false;
};

enum class State { Missing, Read, Unreadable };

State Load(const std::string& name, KeyFile& file) {
    std::error_code error;
    const fs::file_status status = fs::status(name, error);
    if (status.type() == fs::file_type::not_found) {
        return State::Missing;
    }
    // A pipe would hang the program.
    gchar* contents = nullptr;
    gsize length = 0;
    if (status.type() != fs::file_type::regular ||
        g_file_get_contents(name.c_str(), &contents, &length, nullptr) == FALSE) {
        return State::Unreadable;
    }
    const Owned<gchar> owner(contents, &g_free);
    const bool understood =
        length == 0 ||
        g_key_file_load_from_data(file.Keys.get(), contents, length, kKeepAll, nullptr) != FALSE;
    return understood ? State::Read : State::Unreadable;
}

// Holds the lock of a folder, which goes with the process: nothing is left behind to clean up.
class FolderLock {
 public:
    explicit FolderLock(const std::string& folder)
        : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        const auto start = std::chrono::steady_clock::now();
        while (folder_ >= 0 && !held_) {
            held_ = flock(folder_, LOCK_EX | LOCK_NB) == 0;
            if (held_ || std::chrono::steady_clock::now() - start > kLongestWait) {
                return;
            }
            std::this_thread::sleep_for(kBetweenTries);
        }
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    FolderLock(FolderLock&&) = delete;
    FolderLock& operator=(FolderLock&&) = delete;
    ~FolderLock() {
        if (folder_ >= 0) {
            close(folder_);
        }
    }

    [[nodiscard]] bool IsHeld() const { return held_; }

 private:
    int folder_;
    bool held_ = false;
};

enum class Outcome { Written, Unreadable, Unwritable };

Outcome ChangeUnderLock(const std::string& name, const std::function<void(KeyFile&)>& change) {
    const std::string folder = FolderOf(name);
    g_mkdir_with_parents(folder.c_str(), kFolderMode);
    const FolderLock lock(folder);
    KeyFile file;
    if (Load(name, file) == State::Unreadable) {
        return Outcome::Unreadable;
    }
    change(file);
    gsize length = 0;
    const Owned<gchar> contents(g_key_file_to_data(file.Keys.get(), &length, nullptr), &g_free);
    const bool written =
        lock.IsHeld() &&
        g_file_set_contents_full(SystemFiles().ResolveLinks(name).c_str(),
                                 contents.get(),
                                 static_cast<gssize>(length),
                                 static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT |
                                                                    G_FILE_SET_CONTENTS_DURABLE),
                                 kFileMode,
                                 nullptr) != FALSE;
    return written ? Outcome::Written : Outcome::Unwritable;
}

}  // namespace

SettingsStore::SettingsStore(std::string file, std::function<void(const std::string&)> report)
    : file_(std::move(file)), report_(std::move(report)) {}

std::string SettingsStore::UserFile() {
    return UserFolder("XDG_CONFIG_HOME", ".config") + "/orvik/orvik.conf";
}

std::optional<std::string> SettingsStore::Get(std::string_view section, std::string_view key) {
    if (const auto kept = kept_.find({ToLower(section), ToLower(key)}); kept != kept_.end()) {
        return kept->second;
    }
    KeyFile file;
    if (Load(file_, file) == State::Unreadable) {
        Report("The settings file " + file_ + " cannot be read.");
        return {};
    }
    const Place place(file, section, key);
    if (!place.Known) {
        return {};
    }
    const Owned<gchar> value(
        g_key_file_get_value(file.Keys.get(), place.Section.c_str(), place.Key.c_str(), nullptr),
        &g_free);
    return UnescapeSetting(value.get());
}

void SettingsStore::Save(std::string_view section, std::string_view key, std::string_view value) {
    const bool saved = Change([&](KeyFile& file) {
        const Place place(file, section, key);
        g_key_file_set_value(file.Keys.get(),
                             place.Section.c_str(),
                             place.Key.c_str(),
                             EscapeSetting(value, SettingPart::Value).c_str());
    });
    const auto name = std::pair(ToLower(section), ToLower(key));
    if (saved) {
        kept_.erase(name);
    } else {
        kept_[name] = value;
    }
}

void SettingsStore::Clear() {
    kept_.clear();
    std::error_code error;
    if (fs::exists(file_, error)) {
        Change([](KeyFile& file) { file = {}; });
    }
}

bool SettingsStore::Change(const std::function<void(KeyFile&)>& change) {
    // What is told may wait for the user, and no other program shall wait for that.
    const Outcome outcome = ChangeUnderLock(file_, change);
    if (outcome == Outcome::Unreadable) {
        Report("The settings file " + file_ + " cannot be read.");
    } else if (outcome == Outcome::Unwritable) {
        Report("The settings file " + file_ + " cannot be written.");
    }
    return outcome == Outcome::Written;
}

void SettingsStore::Report(const std::string& problem) {
    if (reported_.insert(problem).second) {
        report_(problem);
    }
}

}  // namespace orvik
