#include "reliability/world.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "reliability/allocations.h"

namespace orvik::test {

namespace fs = std::filesystem;

Snapshot SnapshotOf(const fs::path& folder) {
    Snapshot files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) {
            continue;
        }
        std::ifstream file(entry.path(), std::ios::binary);
        std::string& shown = files[entry.path().lexically_relative(folder).string()];
        shown.assign(std::istreambuf_iterator<char>(file), {});
        shown += "|mode " + std::to_string(static_cast<int>(entry.status().permissions())) +
                 "|names " + std::to_string(entry.hard_link_count());
    }
    return files;
}

World::World(const fs::path& folder, FileSystem& files) : program(person, files), folder_(folder) {
    module.RunEvent([this] { program.form1.Show(Showing::Modeless); });
}

std::string World::Name(std::string_view file) const {
    return (folder_ / file).string();
}

void World::WriteFile(std::string_view file, std::string_view contents) const {
    std::ofstream out(Name(file), std::ios::binary);
    out << contents;
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + Name(file));
    }
}

void World::PutBook() {
    module.WorkText = "bo@books.example\r\nal@books.example\r\n-nick-\r\nBo Berg\r\nAl Abbott\r\n";
    module.TextMode = mode::kNative;
    module.RefreshLists();
    program.form1.Text1.Restore(module.WorkText);
}

void World::Click(Form& form, std::string_view handler) {
    NamedHandler found;
    {
        const OwnMemory own;
        for (NamedHandler& one : form.Handlers()) {
            if (one.Name == handler) {
                found = std::move(one);
            }
        }
    }
    if (!found.Run) {
        throw std::logic_error("no handler " + std::string(handler));
    }
    module.RunCommand(found);
}

void World::Run(const std::function<void()>& event) {
    module.history.Run("Test", event);
}

void World::UndoAll() {
    // In edit mode there is no undo.
    if (module.EditMode) {
        Click(program.form1, "mnuEntEd_Click");
    }
    while (!module.history.UndoTitle().empty()) {
        module.RunEvent([this] { module.history.Undo(); });
    }
}

bool World::Keeps(const std::string& old_text, const std::string& new_text) {
    if (module.WorkText == old_text || module.WorkText == new_text) {
        return true;
    }
    module.RunEvent([this] { module.history.Undo(); });
    return module.WorkText == old_text;
}

std::string World::SavedElsewhere() {
    constexpr std::string_view kName = "elsewhere.txt";
    person.picks = {Name(kName)};
    Click(program.form1, "mnuSave_Click");
    std::ifstream file(Name(kName), std::ios::binary);
    std::string saved(std::istreambuf_iterator<char>(file), {});
    file.close();
    fs::remove(Name(kName));
    return saved;
}

}  // namespace orvik::test
