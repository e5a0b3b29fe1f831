// Extract: collects the addresses of any file in the working text.

#include <string>
#include <utility>

#include "app/form1.h"
#include "app/messages.h"
#include "app/module1.h"
#include "app/scope.h"
#include "app/text.h"
#include "app/working_text.h"
#include "extract/extraction_display.h"
#include "extract/scan.h"

namespace orvik {
namespace {

constexpr std::string_view kExtractFilter =
    "Text files|*.txt|Orvik UNIX XTR|*.xtr|Netscape 3.0|*.htm|Internet Explorer 4.x|*.csv|"
    "All files|*.*";

// A file longer than this is scanned in chunks until this much is left, and asks first.
constexpr std::size_t kScannedAtOnce = 32000;
constexpr std::size_t kChunkLength = 5000;
constexpr std::size_t kKilobyte = 1024;

// A text of this length or longer is not put into the text box.
constexpr std::size_t kShownAfterExtraction = 32000;

void ScanFile(Module1& module, std::size_t length, std::string& found) {
    ExtractionControls controls(module.form1);
    const OnFailure empty([&] { module.WorkText.clear(); });
    const OnExit closing([&] { module.File1.Close(); });
    bool tail = false;
    for (std::size_t position = 1; position <= length && !tail; position += kChunkLength) {
        module.platform.Yield();
        if (module.CancelRequested) {
            module.CancelRequested = false;
            module.WorkText.clear();
            found.clear();
            return;
        }
        controls.ShowCancel();
        tail = length - position < kScannedAtOnce;
        const SharedText chunk = module.File1.Read(tail ? length - position + 1 : kChunkLength);
        module.WorkText = chunk;
        if (tail) {
            module.form1.StatusBar1.SetPanelText(1, "Extracting . . .");
        }
        module.ScanAddresses(found, chunk, length, position);
    }
}

// Makes the addresses of a file the working text. process is how the question about a long file
// spells that word. Returns false if none were found.
bool ExtractAddresses(Module1& module,
                      const std::string& name,
                      std::string_view process,
                      Icon icon) {
    module.CancelRequested = false;
    module.WorkText.clear();
    module.Note = {};
    module.File1.OpenForInput(name);
    module.AddressCount = 0;
    const std::size_t length = module.File1.Length();
    if (length > kScannedAtOnce) {
        std::string question = "The File " + name + " is pretty large (";
        question.append(std::to_string(length / kKilobyte));
        question.append(" kilobytes) and may take a long time to ").append(process);
        question.append(". Proceed anyway?");
        if (module.Ask({.Text = question,
                        .Title = "Warning: long file",
                        .Choice = Buttons::YesNo,
                        .Sign = icon,
                        .FileName = name}) == Answer::No) {
            // The file stays open until the next command opens one.
            return true;
        }
    }
    std::string found;
    ScanFile(module, length, found);
    module.form1.StatusBar1.SetPanelText(1, "Ready");
    if (found.empty()) {
        module.Tell("There were no addresses found in this file.");
        module.WorkText.clear();
        return false;
    }
    // Each address is its own nickname.
    std::string text;
    text.reserve(2 * found.size() + kNick.size() + kCrLf.size());
    text.append(found).append(kNick).append(kCrLf).append(found);
    module.WorkText = std::move(text);
    module.TextMode = mode::kNative;
    module.RefreshLists();
    module.form1.Text1.SetText(module.WorkText);
    return true;
}

}  // namespace

void Form1::mnuExtract_Click() {
    if (!module_.WorkText.empty() && !OfferSave("Save before opening?")) {
        return;
    }
    const std::string name = ShowFileDialog({.Kind = DialogKind::Open,
                                             .Title = "Open file for extraction",
                                             .Filter = std::string(kExtractFilter),
                                             .Flags = kFileMustExist | kHideReadOnly,
                                             .FileName = {}});
    if (name.empty()) {
        return;
    }
    Caption = CaptionOf(name);
    module_.ExtractFromFile();
    module_.TextMode = mode::kNative;
    module_.RefreshLists();
    if (module_.WorkText.size() < kShownAfterExtraction) {
        Text1.SetText(module_.WorkText);
    }
}

void Module1::ScanAddresses(std::string& found,
                            std::string_view chunk,
                            std::size_t total,
                            std::size_t start) {
    ScanDisplay display(form1, platform, AddressCount);
    ScanChunk({chunk, start, total}, found, AddressCount, display);
}

void Module1::ExtractFromFile() {
    WorkText.clear();
    CancelRequested = false;
    const std::string name = form1.CommonDialog1.FileName;
    if (!name.empty() && !ExtractAddresses(*this, name, "process", Icon::Question)) {
        form1.Caption = kTitle;
    }
}

void Module1::AutoExtractFile(const std::string& name) {
    ExtractAddresses(*this, name, "proces", Icon::None);
}

void Form1::cmdCancel_Click() {
    if (module_.Ask("Are you sure you want to stop the extraction process?",
                    "Really cancel?",
                    Buttons::YesNo,
                    Icon::Question) == Answer::Yes) {
        module_.CancelRequested = true;
    }
}

}  // namespace orvik
