// What has to hold after each step, whatever was done. An invariant that breaks ends the program.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "depth/chance_person.h"
#include "depth/state.h"
#include "depth/watched_files.h"
#include "fuzz/fuzz_program.h"

namespace orvik::depth {

// One step: what was done, and what was there before and after.
struct Step {
    std::string Act;
    std::string Title;
    State Before = {};
    State After = {};
    bool ByCr = true;  // entries are ended by CR
    std::string Clipboard = {};
    // Of a single entry.
    std::vector<std::size_t> Rows = {};
    Entry NewEntry = {};
};

class Checks {
 public:
    // All must outlive this.
    Checks(const fuzz::FuzzedProgram& program,
           const ChancePerson& person,
           const WatchedFiles& files)
        : program_(program), person_(person), files_(files) {}

    void After(const Step& step);
    // A new run of the program began.
    void Forget();

 private:
    void CheckFiles() const;
    void CheckFailures(const Step& step) const;
    void CheckHistory(const Step& step);
    void CheckLists(const Step& step) const;
    void CheckCommand(const Step& step);
    void CheckSort(const Step& step, bool by_address) const;
    void CheckEntryCommand(const Step& step) const;
    void CheckExtraction(const Step& step) const;
    void CheckConversion(const Step& step) const;
    void CheckCopies(const Step& step) const;
    void CheckPaste(const Step& step) const;
    void CheckOpened(const Step& step);
    void CheckMerge(const Step& step) const;
    void CheckSaved(const Step& step);
    void CheckNeutral(const Step& step) const;
    [[nodiscard]] const Module1& Module() const { return program_.Root().module; }

    const fuzz::FuzzedProgram& program_;
    const ChancePerson& person_;
    const WatchedFiles& files_;
    UndoTwin history_;
    // What a file has to show when it is opened next: its name, and its entries.
    std::string saved_name_;
    Entries saved_;

 public:
    // The file that was saved last, if its format can hold all that was in the book.
    [[nodiscard]] const std::string& SavedName() const { return saved_name_; }
    // What the next clipboard holds, where a person could say.
    std::optional<Entries> pasted;
};

}  // namespace orvik::depth
