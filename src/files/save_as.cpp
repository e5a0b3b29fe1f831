// Save As: writes the working text in the format that the name's ending asks for.

#include <optional>
#include <string>
#include <utility>

#include "app/book_file.h"
#include "app/form1.h"
#include "app/messages.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "app/text.h"
#include "app/working_text.h"
#include "files/netscape3_merge.h"
#include "formats/endings.h"

namespace orvik {
namespace {

constexpr std::string_view kSaveFilter =
    "Netscape 4.x or IE|*.ldif|Netscape 3.x|*.htm|Juno|*.nv|Pegasus|*.pml|Text|*.txt|"
    "All Files|*.*";

// Brings each entry into the form "NICK" <ADDR>.
void RoundTripThroughLdif(Module1& module) {
    if (module.TextMode != "Text") {
        module.form1.mnuConvert_Click();
        module.form1.mnuUn_Click();
    }
}

// Returns false, with a message, if the file is no Netscape 3 book.
bool SaveNetscape3(Module1& module, const std::string& name) {
    module.File1.TryWriting(name);
    const std::string book = module.form1.Net3(module.WorkText);
    const bool written = module.File1.Rewrite(
        name, [&](const std::optional<std::string>& old_book) -> std::optional<std::string> {
            if (!old_book || old_book->empty()) {
                return book + std::string(kCrLf);
            }
            std::optional<std::string> merged = MergeNetscape3(*old_book, book);
            if (merged) {
                if (MergeDropsText(*old_book)) {
                    KeepCopy(module.files, name, *old_book);
                }
                merged->append(kCrLf);
            }
            return merged;
        });
    if (!written) {
        module.TellFailed("Bad Netscape 3.x Address Book!");
    }
    return written;
}

}  // namespace

void Form1::mnuSave_Click() {
    if (module_.WorkText.empty()) {
        module_.TellFailed(TextNonexistant("An error type"), "Error");
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
                                       .FileName = {},
                                       .EndingIsFormat = true});
    if (name.empty()) {
        return;
    }
    name = WithWholeEnding(std::move(name));
    Caption = CaptionOf(name);
    if (!WriteInFormatOf(name, too_long)) {
        module_.platform.End();
    }
    module_.saved.Mark(name);
}

// LDIF and text are written as they stand, the other formats with a line break behind them.
bool Form1::WriteInFormatOf(const std::string& name, bool ldif_outdated) {
    const Ending* const ending = FindEnding(name);
    if (ending == nullptr || ending->Way == Saving::Never) {
        // No other ending says in which format to write.
        throw RunTimeError(Failure::BadFileNumber);
    }
    FileSlot& file = module_.File1;
    switch (ending->What) {
        case Format::Netscape3:
            return SaveNetscape3(module_, name);
        case Format::Juno:
            file.TryWriting(name);
            file.Append(name, module_.JunoText(module_.WorkText).append(kCrLf));
            break;
        case Format::Pegasus:
            RoundTripThroughLdif(module_);
            file.Append(name, std::string(kCrLf).append(module_.WorkText).append(kCrLf));
            break;
        case Format::TextList:
            RoundTripThroughLdif(module_);
            file.Replace(name, module_.WorkText);
            break;
        case Format::Netscape4:
            if (!LdifCurrent || ldif_outdated) {
                Convert(module_.WorkText);
            }
            file.Replace(name, module_.LdifText);
            break;
        case Format::Csv:
        case Format::WordPerfect:
        case Format::AnyFile:
            break;  // never written
    }
    return true;
}

}  // namespace orvik
