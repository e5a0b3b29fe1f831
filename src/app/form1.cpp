#include "app/form1.h"

#include "app/module1.h"
#include "app/scope.h"
#include "app/working_text.h"

namespace orvik {
namespace {

// What stays free under the text box for the status bar, and under the lists for the buttons too.
constexpr double kStatusHeight = 375;
constexpr double kButtonsHeight = 600;
// List3 lies over the right edge of List1.
constexpr double kList3Overlap = 255;

}  // namespace

Form1::Form1(Module1& module) : Form(module, "Form1", kTitle) {
    Width = ScaleWidth = 6000;
    Height = ScaleHeight = 4500;
    Text1.Change = [this] { Text1_Change(); };
    Text3.Visible = false;
    List3.Visible = false;
    cmdDone.Visible = false;
    cmdCancel.Visible = false;
    ProgressBar1.Visible = false;
    EnableEditCommands(false);
}

void Form1::Form_Load() {
    module_.JustStarted = true;
    LdifCurrent = false;
    module_.EditMode = false;
    List1.Visible = true;
    List2.Visible = true;
    module_.TextMode = mode::kNone;
    module_.StartingUp = true;
    module_.LoadSettings();
    module_.RunStoredAutomation();
    module_.StartingUp = false;
    module_.CloseSettings();
}

bool Form1::Form_Unload() {
    if (cmdCancel.Visible) {
        cmdCancel_Click();
        if (module_.MsgAnswer == "7") {
            return false;
        }
    }
    if (OfferSave("Save before exiting?")) {
        module_.platform.End();
    }
    return false;
}

void Form1::Form_Resize() {
    if (Minimised) {
        return;
    }
    // The frame keeps its size when the window grows to the floor.
    if (Height < kMinimumHeight) {
        ScaleHeight += kMinimumHeight - Height;
        Height = kMinimumHeight;
    }
    if (Width < kMinimumWidth) {
        ScaleWidth += kMinimumWidth - Width;
        Width = kMinimumWidth;
    }
    Text1.Width = ScaleWidth;
    Text1.Height = ScaleHeight - kStatusHeight;
    List1.Width = ScaleWidth / 2;
    cmdEmail.Width = List1.Width;
    cmdDone.Width = List1.Width;
    List1.Height = ScaleHeight - kButtonsHeight;
    List2.Left = List1.Width;
    List3.Left = List1.Width - kList3Overlap;
    List3.Height = ScaleHeight - kButtonsHeight;
    cmdNick.Left = List2.Left;
    cmdCancel.Left = List2.Left;
    List2.Width = List1.Width;
    cmdNick.Width = List2.Width;
    cmdCancel.Width = List2.Width;
    List2.Height = List1.Height;
}

void Form1::Form_KeyUp(int key_code) {
    if (key_code == kKeyF1) {
        module_.ShowHelpTopic(1, "secWin", "screenshot.html");
    }
}

void Form1::mnuExit_Click() {
    Unload();
}

std::string Form1::CaptionOf(std::string_view file) {
    return std::string(kTitle).append(" - ").append(file);
}

std::string Form1::FileOf(std::string_view caption) {
    const std::string beginning = CaptionOf({});
    return std::string(caption.starts_with(beginning) ? caption.substr(beginning.size())
                                                      : std::string_view{});
}

bool Form1::OfferSave(std::string_view question) {
    const Answer answer = module_.Ask(question, "Save?", Buttons::YesNoCancel, Icon::Question);
    if (answer == Answer::No) {
        module_.saved.SetFate(SavedBook::Fate::GivenUp);
    } else if (answer == Answer::Yes) {
        const OnExit tell([this, before = module_.saved.Marks()] {
            if (module_.saved.Marks() == before) {
                module_.saved.SetFate(SavedBook::Fate::NotSaved);
            }
        });
        mnuSave_Click();
    }
    return answer != Answer::Cancel;
}

void Form1::ShowTextIfShort() {
    if (module_.WorkText.size() <= kTextLimit) {
        Text1.SetText(module_.WorkText);
    }
}

const std::string& Form1::ShowFileDialog(FileDialog dialog) {
    dialog.FilterIndex = CommonDialog1.FilterIndex;
    dialog.HasChanged = [this](const std::string& name) { return module_.File1.HasChanged(name); };
    CommonDialog1.FileName = module_.platform.ShowFileDialog(dialog);
    CommonDialog1.FilterIndex = dialog.FilterIndex;
    return CommonDialog1.FileName;
}

}  // namespace orvik
