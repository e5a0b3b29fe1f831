// The settings of one user, in one INI file that a person can read and edit. Names of sections and
// keys have no case; values are any bytes.
//
// Every save reads the file anew, changes one value and renames a new file over the old one, all
// under a lock: of two running programs the last save of a key holds, and other keys and comments
// stay. A file that cannot be read is never written. What was read once is read again when the file
// is another one, or has another length or time.

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/file_system.h"

namespace orvik {

struct KeyFile;

class SettingsStore {
 public:
    // report is given what the user should know, each problem once. files must outlive the store.
    SettingsStore(FileSystem& files,
                  std::string file,
                  std::function<void(const std::string&)> report);
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;
    SettingsStore(SettingsStore&&) = delete;
    SettingsStore& operator=(SettingsStore&&) = delete;
    ~SettingsStore();

    [[nodiscard]] std::optional<std::string> Get(std::string_view section, std::string_view key);
    // What cannot be written is kept for this run.
    void Save(std::string_view section, std::string_view key, std::string_view value);
    // Deletes every setting, also for this run. A file that was not understood stays as it is.
    void Clear();

    // orvik/orvik.conf in the user's configuration folder.
    [[nodiscard]] static std::string UserFile();

 private:
    enum class Outcome { Written, Unreadable, Unwritable };

    // What the file holds, none where it cannot be read.
    const KeyFile* Read();
    Outcome ChangeFile(const std::function<void(KeyFile&)>& change);
    // Changes the file under the lock; returns whether it holds the change now.
    bool Change(const std::function<void(KeyFile&)>& change);
    void TellOf(Outcome outcome);
    void Report(const std::string& problem);

    FileSystem& files_;
    std::string file_;
    std::function<void(const std::string&)> report_;
    std::set<std::string> reported_;
    // The file as it was read last.
    bool was_read_ = false;
    FileIdentity identity_;
    std::unique_ptr<KeyFile> keys_;
    // What could not be written, by section and key in lower case.
    std::map<std::pair<std::string, std::string>, std::string> kept_;
};

}  // namespace orvik
