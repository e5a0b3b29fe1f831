// The loaders: each turns the contents of a file into the working text, or refuses it.

#include <string>

#include "app/messages.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "files/list_filters.h"

namespace orvik {

// How the loaders of the formats refuse a file. The user who is choosing already chooses again.
void Module1::RefuseFormat(const std::string& raw) {
    if (form3.Visible()) {
        Tell("This file is not recognizable. Please select another format", "Error");
        return;
    }
    if (Ask(UnknownFormat(), "Error", Buttons::YesNo, Icon::None) == Answer::Yes) {
        WorkText = raw;
        form3.Show(Showing::Modeless);
    } else {
        form1.Caption = OldCaption;
    }
}

// How the loaders of lists refuse a file, which they do only with an empty one.
void Module1::RefuseList() {
    const Answer answer = Ask(UnknownFormat(), "Error", Buttons::YesNo, Icon::None);
    if (form3.Visible() || answer != Answer::Yes) {
        form1.Caption = OldCaption;
    } else {
        form3.Show(Showing::Modeless);
    }
}

void Module1::OpenNetscape3() {
    if (WorkText.empty()) {
        RefuseFormat(WorkText);
        return;
    }
    const std::string raw = WorkText;
    WorkText = form1.UnNet3(raw);
    if (WorkText.empty()) {
        RefuseFormat(raw);
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
    if (WorkText.empty()) {
        RefuseFormat(WorkText);
        return;
    }
    TextMode = mode::kMoz4;
    LdifText = WorkText;
    form1.unconvert();
    RefreshLists();
    // The second pass puts the ASCII form, which the text box shows, back in place of the Native
    // form that the lists needed.
    form1.unconvert();
    form1.ShowTextIfShort();
}

bool Module1::BeginList() {
    if (OpenMode == kAskForTextFiles) {
        form3.Show(Showing::Modeless);
        return false;
    }
    if (AutoExtract) {
        Tell("Extraction routines have not been cleaned up yet");
        return false;
    }
    TextMode = mode::kAscii;
    if (WorkText.empty()) {
        RefuseList();
        return false;
    }
    return true;
}

void Module1::OpenTextList() {
    if (!BeginList()) {
        return;
    }
    if (!EditMode) {
        RefreshLists();
    }
    form1.ShowTextIfShort();
}

void Module1::OpenPegasus() {
    if (!BeginList()) {
        return;
    }
    WorkText = FilterPegasus(WorkText);
    if (!EditMode) {
        // A list of nothing but comments is a list without entries.
        Guard([&] { RefreshLists(); },
              [&](const RunTimeError& failure) {
                  if (failure.Number() != static_cast<int>(Failure::InvalidProcedureCall)) {
                      throw failure;
                  }
                  form1.ClearLists();
              });
    }
    form1.ShowTextIfShort();
}

void Module1::OpenCsv() {
    OpenColumns(&Module1::ReadCsv);
}

void Module1::OpenWordPerfect() {
    if (OpenColumns(&Module1::ReadWordPerfect) && !EditMode) {
        RefreshLists();
    }
}

bool Module1::OpenColumns(void (Module1::*reader)()) {
    const std::string raw = WorkText;
    if (!raw.empty()) {
        (this->*reader)();
    }
    if (!WorkText.empty()) {
        return true;
    }
    RefuseFormat(raw);
    return false;
}

void Module1::OpenJuno() {
    if (WorkText.empty()) {
        RefuseFormat(WorkText);
        return;
    }
    TextMode = mode::kJuno;
    const std::string raw = WorkText;
    WorkText = ReadJuno(raw);
    if (WorkText.empty()) {
        RefuseFormat(raw);
        return;
    }
    RefreshLists();
    form1.ToggleEditModeFourTimes();
}

void Module1::OpenAliasFile() {
    WorkText = FilterAliases(WorkText);
}

void Module1::ReopenFromChooser() {
    form3.Unload();
    form1.mnuOpen_Click();
}

}  // namespace orvik
