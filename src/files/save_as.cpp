// Save As: writes the working text in the format that the name's ending asks for.

#include <optional>
#include <string>
#include <utility>

#include "app/form1.h"
#include "app/messages.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "app/text.h"
#include "app/working_text.h"
#include "files/netscape3_merge.h"

namespace orvik {
namespace {

constexpr std::string_view kSaveFilter =
    "Netscape 4.x or IE|*.ldif|Netscape 3.x|*.htm|Juno|*.nv|Pegasus|*.pml|Text|*.txt|"
    "All Files|*.*";

}  // namespace

void Form1::mnuSave_Click() {
    if (module_.WorkText.empty()) {
        module_.Tell(TextNonexistant("An error type"), "Error");
        return;
    }
    // Both toggles bring what was edited into the working text, and with it LdifText up to date.
    // Where the text is too long for edit mode they do not, so that LdifText may be an older one.
    mnuEntEd_Click();
    const bool too_long = !module_.EditMode && module_.WorkText.size() > kTextLimit;
    mnuEntEd_Click();

    std::string name = ShowFileDialog({.Kind = DialogKind::Save,
                                       .Title = "Save As",
                                       .Filter = std::string(kSaveFilter),
                                       .Flags = kOverwritePrompt | kHideReadOnly | kLongNames,
                                       .FileName = {}});
    if (name.empty()) {
        return;
    }
    name = WithWholeEnding(std::move(name));
    Caption = std::string(kTitle) + " - " + name;
    if (!WriteInFormatOf(name, too_long)) {
        module_.platform.End();
    }
}

// LDIF and text are written as they stand, the other formats with a line break behind them.
bool Form1::WriteInFormatOf(const std::string& name, bool ldif_outdated) {
    if (HasEnding(name, "ldif")) {
        if (!LdifCurrent || ldif_outdated) {
            Convert(module_.WorkText);
        }
        module_.File1.Replace(name, module_.LdifText);
    } else if (HasEnding(name, "txt")) {
        RoundTripThroughLdif();
        module_.File1.Replace(name, module_.WorkText);
    } else if (HasEnding(name, "pml")) {
        RoundTripThroughLdif();
        module_.File1.Append(name, std::string(kCrLf) + module_.WorkText + std::string(kCrLf));
    } else if (HasEnding(name, "htm") || HasEnding(name, "html")) {
        return SaveNetscape3(name);
    } else if (HasEnding(name, "nv")) {
        module_.File1.TryAppending(name);
        module_.File1.Append(name, module_.JunoText(module_.WorkText).append(kCrLf));
    } else {
        // No other ending says in which format to write.
        throw RunTimeError(Failure::BadFileNumber);
    }
    return true;
}

void Form1::RoundTripThroughLdif() {
    if (module_.TextMode != "Text") {
        mnuConvert_Click();
        mnuUn_Click();
    }
}

bool Form1::SaveNetscape3(const std::string& name) {
    module_.File1.TryAppending(name);
    const std::string old_book = module_.File1.ReadIfThere(name);
    std::string book = Net3(module_.WorkText);
    if (!old_book.empty()) {
        std::optional<std::string> merged = MergeNetscape3(old_book, book);
        if (!merged) {
            module_.Tell("Bad Netscape 3.x Address Book!");
            return false;
        }
        book = std::move(*merged);
    }
    module_.File1.Replace(name, book.append(kCrLf));
    return true;
}

}  // namespace orvik
