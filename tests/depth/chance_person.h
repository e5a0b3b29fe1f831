// A person who acts by chance: answers boxes, picks files that may have just been written, fills
// forms in, and presses Cancel while the program works.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "depth/books.h"
#include "depth/dice.h"
#include "depth/tally.h"
#include "fuzz/fuzz_program.h"

namespace orvik::depth {

class ChancePerson : public fuzz::FuzzPlatform {
 public:
    // Both must outlive the person. What the person does in a form counts as a handler that ran.
    ChancePerson(Dice& dice, Tally& tally) : dice_(dice), tally_(tally) {}

    // What the person wants in the next step.
    struct Wish {
        // The name that the next file dialog gets; empty to cancel it.
        std::optional<std::string> Pick;
        bool NeverSaves = false;
        // To be asked for the format of every file from now on.
        bool AsksAlways = false;
    };
    Wish wish;

    // What there was to see in a step.
    struct Seen {
        std::vector<int> Failures;  // the numbers of those that were told
        std::size_t Displays = 0;   // how often the windows were shown while a command ran
        std::string Opened;         // the name of the file picked last, and what it holds
        Book Content;
        std::string Saved;  // the name picked last to save under
        bool SaveWas = false;
        bool PickedMissing = false;  // a file that is not there, or of no format to save
        bool Cancelled = false;      // a question whether to save
        bool Stopped = false;        // an extraction that was refused or cancelled
        bool ChooserCame = false;
        bool AutomationShows = false;  // its little window stands there
    };
    Seen seen;

    Answer ShowBox(const MessageBox& box) override;
    std::string ShowFileDialog(FileDialog& dialog) override;
    void ShowForm(Form& form, Showing showing) override;
    void HideForm(Form& form) override;
    void CloseForm(Form& form) override;
    void ReportFailure(const RunTimeError& failure) override;
    void Repaint() override;
    void Yield() override;

    // A file with a new book in it, or one that is there as it is.
    std::string PickToOpen(bool to_extract);

 private:
    [[nodiscard]] Answer AnswerTo(const MessageBox& box);
    std::string PickToSave();
    // A few acts in a form, joined by ";".
    [[nodiscard]] std::string ActsIn(const Form& form);

    Dice& dice_;
    Tally& tally_;
};

}  // namespace orvik::depth
