// The settings of one user, in one INI file that a person can read and edit. Names of sections and
// keys have no case; values are any bytes.
//
// Every save reads the file anew, changes one value and renames a new file over the old one, all
// under a lock: of two running programs the last save of a key holds, and other keys and comments
// stay. A file that cannot be read is never written.

#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace orvik {

class SettingsStore {
 public:
    // report is given what the user should know, each problem once.
    SettingsStore(std::string file, std::function<void(const std::string&)> report);

    [[nodiscard]] std::optional<std::string> Get(std::string_view section, std::string_view key);
    // What cannot be written is kept for this run.
    void Save(std::string_view section, std::string_view key, std::string_view value);
    // Deletes every setting, also for this run. A file that was not understood stays as it is.
    void Clear();

    // orvik/orvik.conf in the user's configuration folder.
    [[nodiscard]] static std::string UserFile();

 private:
    // Changes the file under the lock; returns whether it holds the change now.
    bool Change(const std::function<void(struct KeyFile&)>& change);
    void Report(const std::string& problem);

    std::string file_;
    std::function<void(const std::string&)> report_;
    std::set<std::string> reported_;
    // What could not be written, by section and key in lower case.
    std::map<std::pair<std::string, std::string>, std::string> kept_;
};

}  // namespace orvik
