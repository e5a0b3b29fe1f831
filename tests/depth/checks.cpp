#include "depth/checks.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string_view>

#include "fuzz/fuzz_target.h"

namespace orvik::depth {
namespace {

using fuzz::Check;

constexpr int kInvalidCall = 5;
constexpr int kBadFileNumber = 52;

bool Is(const Step& step, std::string_view command) {
    return step.Act == std::string("Form1.").append(command).append("_Click");
}

bool HasFailed(const ChancePerson::Seen& seen) {
    return !seen.Failures.empty();
}

// As a page has them.
Entries OnPage(Entries entries) {
    for (Entry& entry : entries) {
        std::replace(entry.Address.begin(), entry.Address.end(), ' ', '_');
    }
    return entries;
}

std::string ContentsOf(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

void Checks::Forget() {
    history_ = {};
    saved_name_.clear();
}

void Checks::After(const Step& step) {
    program_.CheckState();
    const double progress = Module().form1.ProgressBar1.Value;
    Check(progress >= 0 && progress <= 100, "progress is a percentage");
    constexpr std::size_t kMostDisplays = 4000;
    Check(person_.seen.Displays <= kMostDisplays, "a command shows itself by percentages");
    Check(!step.After.Editing || step.After.Text == step.After.Box || HasFailed(person_.seen) ||
              step.After.Text.size() > 32000 || step.Before.Editing,
          "edit mode begins with the working text");
    CheckFiles();
    CheckFailures(step);
    CheckHistory(step);
    CheckLists(step);
    CheckCommand(step);
    if (!Is(step, "mnuSave") && (person_.seen.SaveWas || !person_.seen.Opened.empty())) {
        saved_name_.clear();
    }
}

void Checks::CheckFiles() const {
    const Reading& reading = files_.reading;
    // An extraction that was refused leaves its file open until the next command opens one.
    const bool stopped = person_.seen.Stopped;
    Check(reading.Open <= 1, "at most one file is open");
    Check(reading.Open == 0 || reading.Opened == 0 || stopped, "a command closes its file");
    Check(reading.ClosedEarly == 0 || stopped, "a file is read to its end");
}

void Checks::CheckFailures(const Step& step) const {
    for (const int failure : person_.seen.Failures) {
        const bool of_a_name =
            person_.seen.PickedMissing && (failure == 52 || failure == 53 || failure == 75);
        // A demo automation, or one without names, works on files that are not there.
        const bool of_automation = step.Act == "start";
        Check(failure != kBadFileNumber || of_a_name || of_automation, "a file is still open");
        if (failure != kInvalidCall && !of_a_name && !of_automation) {
            std::fprintf(stderr, "failure %d\n", failure);
            Check(false, "a failure has its reason");
        }
    }
}

void Checks::CheckHistory(const Step& step) {
    const UndoHistory& history = Module().history;
    const auto check = [&](const std::optional<State>& expected) {
        Check(step.After.IsSameAs(expected ? *expected : step.Before),
              "undo and redo bring back what was there");
    };
    if (step.Act == "undo") {
        check(history_.Undo(step.Before));
    } else if (step.Act == "redo") {
        check(history_.Redo(step.Before));
    } else if (!step.Title.empty()) {
        history_.Ran(step.Title, step.Before, step.After);
    }
    Check(history.UndoTitle() == history_.UndoTitle(step.After), "undo names its command");
    Check(history.RedoTitle() == history_.RedoTitle(step.After), "redo names its command");
}

void Checks::CheckLists(const Step& step) const {
    const bool listed = step.After.Addresses.Listed != step.Before.Addresses.Listed ||
                        step.After.Nicknames.Listed != step.Before.Nicknames.Listed;
    if (!listed || step.After.Editing || step.After.Mode != mode::kNative || step.Act == "undo" ||
        step.Act == "redo" || step.Act == "start" || HasFailed(person_.seen)) {
        return;
    }
    // While the chooser asks for the format, the working text is what stands in the file; and so it
    // stays where a button of one chooser brings another, and closes it with its own.
    if (step.After.Text.empty() || program_.Root().form3.Visible() || person_.seen.ChooserCame) {
        return;
    }
    const Listing listing = ListingOf(step.After.Text);
    const auto check = [](const ItemList& shown, const std::vector<std::string>& lines) {
        Check(shown.size() == lines.size(), "a list has a row for each line");
        for (std::size_t i = 0; i < lines.size(); ++i) {
            Check(shown[i] == lines[i], "a list shows its lines");
        }
    };
    check(step.After.Addresses.Items, listing.Addresses);
    check(step.After.Nicknames.Items, listing.Nicknames);
    Check(step.After.Count == listing.Addresses.size(), "the items are counted");
    Check(step.After.CountText == std::to_string(step.After.Count) + " items", "and shown");
}

void Checks::CheckCommand(const Step& step) {
    if (Is(step, "cmdEmail") || Is(step, "mnuAlphAddr")) {
        CheckSort(step, true);
    } else if (Is(step, "cmdNick") || Is(step, "mnuAlphNick")) {
        CheckSort(step, false);
    } else if (step.Act == "edit-entry" || step.Act == "delete-entries") {
        CheckEntryCommand(step);
    } else if (Is(step, "mnuExtract")) {
        CheckExtraction(step);
    } else if (Is(step, "mnuOpen") || step.Act == "drop") {
        CheckOpened(step);
    } else if (Is(step, "mnuMerge")) {
        CheckMerge(step);
    } else if (Is(step, "mnuSave")) {
        CheckSaved(step);
    }
    CheckConversion(step);
    CheckCopies(step);
    CheckPaste(step);
    CheckNeutral(step);
}

// Every address that the lists show goes into LDIF, whatever ends its line.
void Checks::CheckConversion(const Step& step) const {
    const bool converts = Is(step, "mnuConvert") || Is(step, "mnuCopyConvert") ||
                          Is(step, "mnuBoxCopy") || Is(step, "mnuEntEd");
    const std::size_t middle = step.Before.Text.find("\r\n-nick-");
    constexpr std::size_t kTextLimit = 32000;
    if (!converts || step.Before.Editing || step.Before.Mode != mode::kNative ||
        step.Before.Text.size() > kTextLimit || middle == std::string::npos ||
        step.Before.Text.find("-nick-") != middle + 2 || HasFailed(person_.seen)) {
        return;
    }
    const Entries written = EntriesOfLdif(Module().LdifText);
    const std::vector<std::string> shown = ListingOf(step.Before.Text).Addresses;
    Check(std::equal(written.begin(),
                     written.end(),
                     shown.begin(),
                     shown.end(),
                     [](const Entry& entry, const std::string& address) {
                         return entry.Address == address;
                     }),
          "every address that is shown is converted");
}

void Checks::CheckCopies(const Step& step) const {
    if (HasFailed(person_.seen) || step.Before.Text.empty()) {
        return;
    }
    const std::optional<Entries> entries = EntriesOf(step.Before.Text);
    const bool listed = step.Before.Mode == mode::kNative && entries && ArePlain(*entries);
    if (Is(step, "mnuBoxCopy")) {
        Check(step.Clipboard == step.After.Text, "the working text is copied");
    } else if (Is(step, "mnuSelCopy")) {
        Check(step.Clipboard == Module().form1.Text1.SelText(), "the selection is copied");
    } else if (Is(step, "mnuCopyConvert") && listed) {
        Check(step.Clipboard == Module().LdifText, "the LDIF text is copied");
        Check(EntriesOfLdif(step.Clipboard) == *entries, "LDIF holds every entry");
    } else if (Is(step, "mnuJuno") && listed && step.ByCr) {
        Check(EntriesOfJuno(step.Clipboard) == *entries, "a Juno book holds every entry");
    } else if (Is(step, "mnuCopyNet3") && listed) {
        Check(EntriesOfPage(step.Clipboard) == OnPage(*entries), "a page holds every entry");
    }
}

void Checks::CheckSaved(const Step& step) {
    saved_name_.clear();
    if (HasFailed(person_.seen) || !person_.seen.SaveWas || step.Before.Editing ||
        step.After.Caption == step.Before.Caption) {
        return;
    }
    const std::string& name = person_.seen.Saved;
    const std::string contents = ContentsOf(name);
    if (name.ends_with(".txt")) {
        Check(contents == step.After.Text, "a text list is written as it stands");
    } else if (name.ends_with(".ldif")) {
        Check(contents == Module().LdifText, "LDIF is written as it stands");
    } else if (name.ends_with(".pml")) {
        Check(contents.ends_with("\r\n" + step.After.Text + "\r\n"), "a list is added");
    }
    const std::optional<Entries> entries = EntriesOf(step.Before.Text);
    if (!entries || !ArePlain(*entries) || step.Before.Mode != mode::kNative || !step.ByCr) {
        return;
    }
    if (name.ends_with(".ldif")) {
        Check(EntriesOfLdif(contents) == *entries, "a saved LDIF book holds every entry");
        saved_name_ = name;
    } else if (name.ends_with(".txt")) {
        saved_name_ = name;
    } else if (name.ends_with(".nv")) {
        const Entries all = EntriesOfJuno(contents);
        Check(all.size() >= entries->size() &&
                  std::equal(entries->rbegin(), entries->rend(), all.rbegin()),
              "a saved Juno book ends with every entry");
        saved_name_ = all.size() == entries->size() ? name : std::string();
    } else if (name.ends_with(".pml") && contents.size() == step.After.Text.size() + 4) {
        saved_name_ = name;
    }
    saved_ = *entries;
}

void Checks::CheckNeutral(const Step& step) const {
    constexpr std::string_view kNeutral[] = {"Form1.mnuHlp_Click",
                                             "Form1.mnuHelpContents_Click",
                                             "Form1.mnuHelpIndex_Click",
                                             "Form1.mnuAbout_Click",
                                             "Form1.mnuFuture_Click",
                                             "Form1.mnuList_Click",
                                             "Form1.mnuPrefs_Click",
                                             "Form1.mnuAuto_Click",
                                             "Form1.mnuUninst_Click",
                                             "Form1.mnuFull_Click",
                                             "Form1.mnuSelCopy_Click",
                                             "Form1.List1_Click",
                                             "Form1.List2_Click",
                                             "Form1.cmdDone_Click",
                                             "Form1.cmdCancel_Click",
                                             "Form1.Form_Resize",
                                             "Form4.Command4_Click",
                                             "select",
                                             "rows",
                                             "key"};
    const bool neutral =
        std::find(std::begin(kNeutral), std::end(kNeutral), step.Act) != std::end(kNeutral);
    Check(!neutral || step.After.Text == step.Before.Text, "this does nothing to the text");
    if (Is(step, "mnuSave") && !person_.seen.SaveWas && step.Before.Text.empty()) {
        Check(step.After.Text.empty(), "an empty book stays empty");
    }
}

}  // namespace orvik::depth
