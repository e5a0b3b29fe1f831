#include "store/settings_store.h"

#include <chrono>
#include <utility>

#include <glib.h>

#include "app/book_file.h"
#include "app/printable.h"
#include "app/run_time_error.h"
#include "app/text.h"
#include "store/owned.h"
#include "store/setting_text.h"
#include "store/user_folder.h"

namespace orvik {

// The contents of a settings file.
struct KeyFile {
    std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> Keys{g_key_file_new(),
                                                                &g_key_file_unref};
};

namespace {

// So long a save waits for another program's.
constexpr std::chrono::milliseconds kLongestWait{2000};

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

// The settings of a text; none where they are not understood.
std::unique_ptr<KeyFile> Parse(const std::string& contents) {
    auto file = std::make_unique<KeyFile>();
    const bool understood =
        contents.empty() ||
        g_key_file_load_from_data(
            file->Keys.get(), contents.data(), contents.size(), kKeepAll, nullptr) != FALSE;
    return understood ? std::move(file) : nullptr;
}

std::string TextOf(const KeyFile& file) {
    gsize length = 0;
    const Owned<gchar> text(g_key_file_to_data(file.Keys.get(), &length, nullptr), &g_free);
    return {text.get(), length};
}

}  // namespace

SettingsStore::SettingsStore(FileSystem& files,
                             std::string file,
                             std::function<void(const std::string&)> report)
    : files_(files), file_(std::move(file)), report_(std::move(report)) {}

SettingsStore::~SettingsStore() = default;

std::string SettingsStore::UserFile() {
    return UserFolder("XDG_CONFIG_HOME", ".config") + "/orvik/orvik.conf";
}

std::optional<std::string> SettingsStore::Get(std::string_view section, std::string_view key) {
    if (const auto kept = kept_.find({ToLower(section), ToLower(key)}); kept != kept_.end()) {
        return kept->second;
    }
    const KeyFile* const file = Read();
    if (file == nullptr) {
        TellOf(Outcome::Unreadable);
        return {};
    }
    const Place place(*file, section, key);
    if (!place.Known) {
        return {};
    }
    const Owned<gchar> value(
        g_key_file_get_value(file->Keys.get(), place.Section.c_str(), place.Key.c_str(), nullptr),
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
    FileStatus status;
    const std::error_code error = Persist([&] { return files_.Status(file_, status); });
    if (error || status.Kind != FileKind::Missing) {
        Change([](KeyFile& file) { file = {}; });
    }
}

const KeyFile* SettingsStore::Read() {
    try {
        const FileStatus status = StatusOf(files_, file_);
        if (was_read_ && status.Identity == identity_) {
            return keys_.get();
        }
        FileStatus opened;
        std::string contents;
        was_read_ = false;
        keys_.reset();
        if (status.Kind != FileKind::Missing) {
            // A pipe would hang the program.
            if (status.Kind != FileKind::Regular) {
                return nullptr;
            }
            std::unique_ptr<InputFile> file;
            const auto check = [&](std::error_code error) { CheckFile(files_, error, file_); };
            check(Persist([&] { return files_.OpenToRead(file_, file); }));
            check(Persist([&] { return file->Status(opened); }));
            check(ReadBytes(*file, static_cast<std::size_t>(opened.Length()), contents));
        }
        keys_ = Parse(contents);
        identity_ = opened.Identity;
        was_read_ = true;
    } catch (const RunTimeError&) {
        return nullptr;
    }
    return keys_.get();
}

SettingsStore::Outcome SettingsStore::ChangeFile(const std::function<void(KeyFile&)>& change) {
    bool understood = true;
    was_read_ = false;
    try {
        const FileKind kind = StatusOf(files_, file_).Kind;
        if (kind != FileKind::Regular && kind != FileKind::Missing) {
            return Outcome::Unreadable;
        }
        const FileSystem::Path folder = FolderOf(file_);
        CheckFile(files_, Persist([&] { return files_.CreateFolders(folder); }), folder);
        RewriteFile(files_,
                    file_,
                    [&](const std::optional<std::string>& old) -> std::optional<std::string> {
                        const std::unique_ptr<KeyFile> file = Parse(old.value_or(""));
                        understood = file != nullptr;
                        if (!understood) {
                            return std::nullopt;
                        }
                        change(*file);
                        return TextOf(*file);
                    },
                    {.LongestWait = kLongestWait, .OnlyMine = true});
    } catch (const RunTimeError&) {
        return Read() == nullptr ? Outcome::Unreadable : Outcome::Unwritable;
    }
    return understood ? Outcome::Written : Outcome::Unreadable;
}

bool SettingsStore::Change(const std::function<void(KeyFile&)>& change) {
    // What is told may wait for the user, and no other program shall wait for that.
    const Outcome outcome = ChangeFile(change);
    TellOf(outcome);
    return outcome == Outcome::Written;
}

void SettingsStore::TellOf(Outcome outcome) {
    if (outcome == Outcome::Unreadable) {
        Report("The settings file " + Printable(file_) + " cannot be read.");
    } else if (outcome == Outcome::Unwritable) {
        Report("The settings file " + Printable(file_) + " cannot be written.");
    }
}

void SettingsStore::Report(const std::string& problem) {
    if (reported_.insert(problem).second) {
        report_(problem);
    }
}

}  // namespace orvik
