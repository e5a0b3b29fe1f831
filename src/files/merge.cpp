// Merge: joins a second book to the working text.

#include <string>
#include <utility>

#include "app/form1.h"
#include "app/module1.h"
#include "app/text.h"
#include "app/working_text.h"

namespace orvik {
namespace {

constexpr std::string_view kMergeFilter =
    "Netscape 4.x|*.ldif|Netscape 3.0|*.htm|Internet Explorer 4.x|*.csv|Juno|*.nv|"
    "WordPerfect 8|*.abx|Text files|*.txt|All files|*.*";

// The dialog starts with the current file's name less its last character, which leaves the name to
// be completed by the user.
std::string PresetName(std::string_view caption) {
    if (caption == kTitle) {
        return {};
    }
    std::string name(Mid(caption, kTitle.size() + std::string_view(" - ").size() + 1));
    if (!name.empty()) {
        name.pop_back();
    }
    return name;
}

// A text in the ASCII form, by way of LDIF.
SharedText ThroughLdif(Module1& module, SharedText text) {
    if (text.empty()) {
        return text;
    }
    module.TextMode = HasNickLine(text) ? mode::kNative : mode::kAscii;
    module.form1.Convert(text);
    module.form1.unconvert();
    return module.WorkText;
}

}  // namespace

void Form1::mnuMerge_Click() {
    module_.TextBeforeOpen = module_.WorkText;
    module_.NoteBeforeOpen = module_.Note;
    module_.JustStarted = false;
    const std::string name = ShowFileDialog({.Kind = DialogKind::Open,
                                             .Title = "Open file for merging",
                                             .Filter = std::string(kMergeFilter),
                                             .Flags = kFileMustExist | kHideReadOnly,
                                             .FileName = PresetName(Caption),
                                             .EndingIsFormat = true});
    if (name.empty()) {
        return;
    }
    module_.OldCaption = Caption;
    module_.File1.OpenForInput(name);
    StatusBar1.SetPanelText(1, "Opening . . .");
    module_.ReadFile(name);
    module_.File1.Close();
    if (module_.OpenMode == kAskAlways) {
        module_.ChooseFormat(Showing::Modeless);
        return;
    }
    module_.Note = {};
    module_.LoadByEnding(name, false);
    module_.Note.Join(module_.NoteBeforeOpen);
    LdifCurrent = false;
    StatusBar1.SetPanelText(1, "Ready");
    // The old text passes through WorkText, so the new one is kept apart from it.
    SharedText new_text = module_.WorkText;
    module_.MergeLdif(module_.TextBeforeOpen, new_text);
}

void Module1::MergeLdif(SharedText& old_text, SharedText& new_text) {
    // After a failure both texts are what they were.
    old_text = ThroughLdif(*this, old_text);
    new_text = ThroughLdif(*this, new_text);
    std::string joined;
    joined.reserve(old_text.size() + textSep.size() + new_text.size());
    joined.append(old_text).append(textSep).append(new_text);
    WorkText = std::move(joined);
    TextMode = mode::kAscii;
    RefreshLists();
}

}  // namespace orvik
