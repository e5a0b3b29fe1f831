// The loaders: each turns the contents of a file into the working text, or refuses it.

#include <string>

#include "app/messages.h"
#include "app/module1.h"

namespace orvik {

void Module1::RefuseFile(const std::string& raw) {
    if (Ask(UnknownFormat(), "Error", Buttons::YesNo, Icon::None) == Answer::Yes) {
        WorkText = raw;
        Tell("This version of Orvik cannot ask for the format of a file.");
    } else {
        form1.Caption = OldCaption;
    }
}

void Module1::OpenNetscape4() {
    if (WorkText.empty()) {
        RefuseFile(WorkText);
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

void Module1::OpenTextList() {
    if (AutoExtract) {
        Tell("Extraction routines have not been cleaned up yet");
        return;
    }
    TextMode = mode::kAscii;
    if (WorkText.empty()) {
        RefuseFile(WorkText);
        return;
    }
    if (!EditMode) {
        RefreshLists();
    }
    form1.ShowTextIfShort();
}

}  // namespace orvik
