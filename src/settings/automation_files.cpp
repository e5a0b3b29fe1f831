// The file steps of the automation.

#include <string>

#include "app/messages.h"
#include "app/module1.h"
#include "app/scope.h"
#include "app/text.h"
#include "app/working_text.h"
#include "formats/endings.h"

namespace orvik {
namespace {

// The entries as lines of aliases.
std::string AliasLines(Module1& module) {
    const SharedText native = module.IsList(module.WorkText)
                                  ? module.SplitEntries(module.WorkText, "txt")
                                  : module.WorkText;
    NativeReader reader(native);
    std::string lines;
    while (reader.Next()) {
        lines.append("alias \"").append(reader.TakeNickname()).append("\" ");
        AppendWithout(lines, reader.RawAddress(), '\n');
        lines.append(kCrLf);
    }
    return lines;
}

}  // namespace

void Module1::AutoOpenFile(const std::string& name) {
    OldCaption = form1.Caption;
    File1.OpenForInput(name);
    form1.StatusBar1.SetPanelText(1, "Opening . . .");
    ReadFile(name);
    File1.Close();
    if (OpenMode == kAskAlways) {
        ChooseFormat(Showing::Modal);
    } else if (IsAliasFile(name)) {
        const OnFailure forget([this] { Note.LeftOut = {}; });
        OpenAliasFile();
        WorkText = SplitEntries(WorkText, "txt");
        TextMode = mode::kNative;
        RefreshLists();
    } else {
        // The extraction reads the name there.
        form1.CommonDialog1.FileName = name;
        LoadByEnding(name, true);
        form1.CommonDialog1.FileName.clear();
    }
    form1.LdifCurrent = false;
    form1.StatusBar1.SetPanelText(1, "Ready");
    form1.Text1.SetText(WorkText);
    if (!WorkText.empty()) {
        saved.Mark(name);
    }
}

void Module1::AutoSaveFile(const std::string& name) {
    if (WorkText.empty()) {
        TellFailed(TextNonexistant("An Error has occured because an error type"), "Error");
        return;
    }
    if (IsAliasFile(name)) {
        File1.Replace(name, AliasLines(*this));
    } else if (!form1.WriteInFormatOf(name, true)) {
        return;
    }
    saved.Mark(name);
}

}  // namespace orvik
