// The commands on Netscape 3 books.

#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "app/text.h"
#include "app/working_text.h"
#include "formats/netscape3_reader.h"
#include "formats/netscape3_writer.h"
#include "formats/unread.h"

namespace orvik {

std::string Form1::Net3(SharedText& text1String) {
    if (module_.IsList(text1String)) {
        text1String = module_.SplitEntries(text1String, "txt");
    }
    return WriteNetscape3(text1String);
}

void Form1::mnuCopyNet3_Click() {
    if (!module_.WorkText.empty()) {
        module_.platform.SetClipboardText(Net3(module_.WorkText));
    }
}

std::string Form1::UnNet3(std::string_view what) {
    std::string list = ReadNetscape3(what, module_.textSep);
    // With CR this takes the last character of the last link text as well: the lists count on a
    // last character that is dropped.
    TrapFailure([&] { CutEnd(list, module_.textSep == "\r" ? 2 : 1); },
                [&](const RunTimeError& failure) {
                    module_.platform.ShowBox({.Text = "Error #" + std::to_string(failure.Number()),
                                              .Title = std::string(kTitle),
                                              .Cause = failure.Cause()});
                });
    return list;
}

void Form1::mnuClearPasteNet3_Click() {
    std::string pasted;
    if (!BeginPaste(pasted)) {
        return;
    }
    module_.NoteReading(pasted, CountUnread(Format::Netscape3, pasted));
    module_.WorkText = UnNet3(pasted);
    ShowTextIfShort();
    if (module_.TextMode == mode::kNative && !HasNickLine(module_.WorkText)) {
        // The mode is that of the book that was there.
        module_.TextMode = mode::kAscii;
    }
    EndPaste();
    module_.TextMode = mode::kNative;
}

}  // namespace orvik
