// The commands on Netscape 4 books.

#include <string>
#include <utility>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "formats/conversion_progress.h"
#include "formats/ldif_reader.h"
#include "formats/ldif_writer.h"
#include "formats/unread_entries.h"

namespace orvik {

void Form1::Convert(SharedText& text) {
    if (module_.IsList(text)) {
        text = module_.SplitEntries(text, "txt");
    }
    module_.LdifText.clear();
    written_ = {};
    TrapFailure(
        [&] {
            ConversionProgress progress(*this, module_.platform);
            module_.LdifText = WriteLdif(text, progress);
            written_ = {text, module_.LdifText.Revision()};
            progress.Finish();
        },
        [](const RunTimeError& failure) {
            // A book without an entry gives an empty LDIF text. Lack of memory must not: it would
            // be saved over somebody's file.
            PassLackOfMemory(failure);
        });
    LdifCurrent = true;
}

void Form1::mnuConvert_Click() {
    Convert(module_.WorkText);
}

void Form1::mnuCopyConvert_Click() {
    if (module_.WorkText.empty()) {
        return;
    }
    mnuConvert_Click();
    module_.platform.SetClipboardText(module_.LdifText);
}

void Form1::unconvert(UnreadEntries* left_out) {
    const bool is_ours = !module_.LdifText.empty() && written_.Ldif == module_.LdifText.Revision();
    module_.WorkText = is_ours && left_out == nullptr
                           ? ReadWrittenLdif(written_.Native, module_.textSep)
                           : ReadLdif(module_.LdifText, module_.textSep, left_out);
    module_.TextMode = mode::kAscii;
}

void Form1::mnuUn_Click() {
    unconvert();
}

void Form1::mnuClearPasteNet4_Click() {
    std::string pasted;
    if (!BeginPaste(pasted)) {
        return;
    }
    module_.LdifText = std::move(pasted);
    UnreadEntries left_out;
    unconvert(&left_out);
    module_.NoteReading(module_.LdifText, left_out.Total());
    SplitIntoLists();
    ShowTextIfShort();
    EndPaste();
}

}  // namespace orvik
