// The settings of this user: one INI file, written through at each save. Keys have no case.
//
// Values are bytes. A file that cannot be read is never written; a problem is told once.

#pragma once

#include <QSettings>
#include <QString>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace orvik {

class SettingsStore {
 public:
    // report is given what the user should know.
    SettingsStore(const QString& file, std::function<void(const QString&)> report);

    // Section "Settings\AutoSteps" is the group "Settings/AutoSteps".
    [[nodiscard]] std::optional<std::string> get(std::string_view section, std::string_view key);
    // What cannot be written is kept for this run.
    void save(std::string_view section, std::string_view key, std::string_view value);

    // Deletes every setting, also for this run. A file that was not understood stays as it is.
    void clear();

    // orvik/orvik.conf in the user's configuration folder.
    [[nodiscard]] static QString userFile();

 private:
    // The stored path that differs in case only, or the path itself.
    [[nodiscard]] QString find(const QString& path) const;
    void check(const QString& problem);

    QSettings settings_;
    std::function<void(const QString&)> report_;
    // What was saved in this run, by path in lower case.
    std::map<QString, std::string> kept_;
    bool reported_ = false;
};

}  // namespace orvik
