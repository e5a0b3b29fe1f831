// A folder with books, and a whole program in front of it.

#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "program/program.h"
#include "reliability/person.h"

namespace orvik::test {

// Each file below a folder: its contents, permissions and how many names it has.
using Snapshot = std::map<std::string, std::string>;
[[nodiscard]] Snapshot SnapshotOf(const std::filesystem::path& folder);

class World {
 public:
    // A started program; the folder is there.
    World(const std::filesystem::path& folder, FileSystem& files);

    // The full name of a file of the folder.
    [[nodiscard]] std::string Name(std::string_view file) const;
    void WriteFile(std::string_view file, std::string_view contents) const;

    // The book with two entries that is open before a command, in the Native form.
    void PutBook();
    // Clicks on what a handler is named after, as a command of the user.
    void Click(Form& form, std::string_view handler);
    // Runs an event that can be undone.
    void Run(const std::function<void()>& event);

    // Leaves edit mode and undoes all that can be undone.
    void UndoAll();
    // Whether the working text is one of these, or undo brings back the first.
    [[nodiscard]] bool Keeps(const std::string& old_text, const std::string& new_text);
    // Saves the book under another name, as a person does whose command failed; returns what the
    // new file holds, empty if there is none.
    [[nodiscard]] std::string SavedElsewhere();

    Person person;
    Program program;
    Module1& module = program.module;
    // The file that a command reads or writes.
    std::string Target;

 private:
    std::filesystem::path folder_;
};

}  // namespace orvik::test
