// The loaders: each turns the contents of a file into the working text, or refuses it.

#include <optional>
#include <string>

#include "app/messages.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "files/form3.h"
#include "files/list_filters.h"
#include "files/something_else.h"
#include "formats/unread.h"
#include "formats/unread_entries.h"

namespace orvik {
namespace {

Answer AskForType(Module1& module) {
    return module.Ask(UnknownFormat(), "Error", Buttons::YesNo, Icon::None, Matter::UnknownFormat);
}

// How the loaders of the formats refuse a file. The user who is choosing already chooses again.
void RefuseFormat(Module1& module, const SharedText& raw) {
    module.Note.LeftOut = {};
    if (module.form3.Visible()) {
        module.TellFailed("This file is not recognizable. Please select another format", "Error");
        return;
    }
    if (AskForType(module) == Answer::Yes) {
        module.WorkText = raw;
        module.ChooseFormat(Showing::Modeless);
    } else {
        module.form1.Caption = module.OldCaption;
    }
}

// How the loaders of lists refuse a file, which they do only with an empty one.
void RefuseList(Module1& module) {
    const Answer answer = AskForType(module);
    if (module.form3.Visible() || answer != Answer::Yes) {
        module.form1.Caption = module.OldCaption;
    } else {
        module.ChooseFormat(Showing::Modeless);
    }
}

// What the loaders of lists do first. Returns whether there is a list to load.
bool BeginList(Module1& module, Format format) {
    module.NoteReading(module.WorkText, CountUnread(format, module.WorkText));
    if (module.OpenMode == kAskForTextFiles) {
        module.ChooseFormat(Showing::Modeless);
        return false;
    }
    if (module.AutoExtract) {
        module.TellFailed("Extraction routines have not been cleaned up yet");
        return false;
    }
    module.TextMode = mode::kAscii;
    if (module.WorkText.empty()) {
        RefuseList(module);
        return false;
    }
    return true;
}

// Runs a reader of columns. Returns whether there is a book now.
bool OpenColumns(Module1& module, void (Module1::*reader)()) {
    const SharedText raw = module.WorkText;
    module.NoteReading(raw, {});
    if (!raw.empty()) {
        (module.*reader)();
    }
    if (!module.WorkText.empty()) {
        return true;
    }
    RefuseFormat(module, raw);
    return false;
}

}  // namespace

void Module1::NoteReading(std::string_view text, const Unread& left_out) {
    Note = {left_out, PlainlySomethingElse(text)};
    if (!Note.LooksLike.empty()) {
        // What a reader finds in such a text are no attributes.
        Note.LeftOut = {};
    }
}

void Module1::OpenNetscape3() {
    NoteReading(WorkText, CountUnread(Format::Netscape3, WorkText));
    if (WorkText.empty()) {
        RefuseFormat(*this, WorkText);
        return;
    }
    const SharedText raw = WorkText;
    WorkText = form1.UnNet3(raw);
    if (WorkText.empty()) {
        RefuseFormat(*this, raw);
        return;
    }
    TextMode = mode::kAscii;
    if (EditMode) {
        form1.ShowTextIfShort();
    } else {
        RefreshLists();
        TextMode = mode::kNative;
    }
}

void Module1::OpenNetscape4() {
    NoteReading(WorkText, {});
    if (WorkText.empty()) {
        RefuseFormat(*this, WorkText);
        return;
    }
    TextMode = mode::kMoz4;
    if (const std::optional<ReadAhead> read = TakeReadAhead()) {
        form1.TakeReadList(WorkText);
        form1.unconvert();
        Note.LeftOut = read->LeftOut;
    } else {
        LdifText = WorkText;
        UnreadEntries left_out;
        form1.unconvert(&left_out);
        NoteReading(LdifText, left_out.Total());
    }
    RefreshLists();
    // The second pass puts the ASCII form, which the text box shows, back in place of the Native
    // form that the lists needed.
    form1.unconvert();
    form1.ShowTextIfShort();
}

void Module1::OpenTextList() {
    if (!BeginList(*this, Format::TextList)) {
        return;
    }
    if (!EditMode) {
        RefreshLists();
    }
    form1.ShowTextIfShort();
}

void Module1::OpenPegasus() {
    if (!BeginList(*this, Format::Pegasus)) {
        return;
    }
    WorkText = FilterPegasus(WorkText);
    if (!EditMode) {
        // A list of nothing but comments is a list without entries.
        TrapFailure([&] { RefreshLists(); },
                    [&](const RunTimeError& failure) {
                        if (failure.Cause() != Failure::InvalidProcedureCall) {
                            throw failure;
                        }
                        form1.ClearLists();
                    });
    }
    form1.ShowTextIfShort();
}

void Module1::OpenCsv() {
    OpenColumns(*this, &Module1::ReadCsv);
}

void Module1::OpenWordPerfect() {
    if (OpenColumns(*this, &Module1::ReadWordPerfect) && !EditMode) {
        RefreshLists();
    }
}

void Module1::OpenJuno() {
    NoteReading(WorkText, {});
    if (WorkText.empty()) {
        RefuseFormat(*this, WorkText);
        return;
    }
    TextMode = mode::kJuno;
    const SharedText raw = WorkText;
    WorkText = ReadJuno(raw);
    if (WorkText.empty()) {
        RefuseFormat(*this, raw);
        return;
    }
    RefreshLists();
    form1.ToggleEditModeFourTimes();
}

void Module1::OpenAliasFile() {
    NoteReading(WorkText, CountUnreadOfAliases(WorkText));
    WorkText = FilterAliases(WorkText);
}

void Module1::ReopenFromChooser() {
    form3.Unload();
    form1.mnuOpen_Click();
}

}  // namespace orvik
