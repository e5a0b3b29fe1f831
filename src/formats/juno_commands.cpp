// The commands on Juno books.

#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "formats/conversion_progress.h"
#include "formats/juno_reader.h"
#include "formats/juno_writer.h"
#include "formats/unread_entries.h"

namespace orvik {

std::string Module1::ReadJuno(std::string_view text) {
    UnreadEntries left_out;
    std::string list = orvik::ReadJuno(text, &left_out);
    NoteReading(text, left_out.Total());
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
    module_.WorkText = module_.ReadJuno(pasted);
    ShowTextIfShort();
    module_.RefreshLists();
    module_.TextMode = mode::kAscii;
    ToggleEditModeFourTimes();
}

}  // namespace orvik
