// The commands on Juno books.

#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "formats/conversion_progress.h"
#include "formats/juno_reader.h"
#include "formats/juno_writer.h"
#include "formats/unread.h"

namespace orvik {

std::string Module1::ReadJuno(std::string_view text) {
    std::string list = orvik::ReadJuno(text);
    TextMode = mode::kAscii;
    return list;
}

std::string Module1::JunoText(SharedText& text) {
    if (IsList(WorkText)) {
        form1.SplitIntoLists();
    }
    ConversionProgress progress(form1, platform);
    std::string book = WriteJuno(text, textSep, progress);
    progress.Finish();
    return book;
}

void Form1::mnuJuno_Click() {
    if (module_.WorkText.empty()) {
        return;
    }
    module_.platform.SetClipboardText(module_.JunoText(module_.WorkText));
    // On and off again: the working text is listed anew.
    mnuEntEd_Click();
    mnuEntEd_Click();
}

void Form1::mnuPasteJuno_Click() {
    std::string pasted;
    if (!BeginPaste(pasted)) {
        return;
    }
    module_.NoteReading(pasted, CountUnread(Format::Juno, pasted));
    module_.WorkText = module_.ReadJuno(pasted);
    ShowTextIfShort();
    module_.RefreshLists();
    module_.TextMode = mode::kAscii;
    ToggleEditModeFourTimes();
}

}  // namespace orvik
