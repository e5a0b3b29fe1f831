// Extract: collects the addresses of any file in the working text.

#include <string>

#include "app/form1.h"
#include "app/messages.h"
#include "app/module1.h"
#include "app/run_time_error.h"
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
    Caption = std::string(kTitle) + " - " + name;
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
    if (!name.empty() && !ExtractAddresses(name, "process", Icon::Question)) {
        form1.Caption = kTitle;
    }
}

bool Module1::ExtractAddresses(const std::string& name, std::string_view process, Icon icon) {
    CancelRequested = false;
    WorkText.clear();
    File1.OpenForInput(name);
    AddressCount = 0;
    const std::size_t length = File1.Length();
    if (length > kScannedAtOnce) {
        std::string question = "The File " + name + " is pretty large (";
        question.append(std::to_string(length / kKilobyte));
        question.append(" kilobytes) and may take a long time to ").append(process);
        question.append(". Proceed anyway?");
        if (Ask(question, "Warning: long file", Buttons::YesNo, icon) == Answer::No) {
            // The file stays open until the next command opens one.
            return true;
        }
    }
    std::string found;
    Guard([&] { ScanFile(length, found); },
          [&](const RunTimeError& failure) {
              WorkText.clear();
              throw failure;
          });
    form1.StatusBar1.SetPanelText(1, "Ready");
    if (found.empty()) {
        Tell("There were no addresses found in this file.");
        WorkText.clear();
        return false;
    }
    // Each address is its own nickname.
    WorkText = found;
    WorkText.append(kNick).append(kCrLf).append(found);
    TextMode = mode::kNative;
    RefreshLists();
    form1.Text1.SetText(WorkText);
    return true;
}

void Module1::ScanFile(std::size_t length, std::string& found) {
    ExtractionControls controls(form1);
    // The file is closed on every way out.
    const FileSlot::Closing closing(File1);
    bool tail = false;
    for (std::size_t position = 1; position <= length && !tail; position += kChunkLength) {
        platform.Yield();
        if (CancelRequested) {
            CancelRequested = false;
            WorkText.clear();
            found.clear();
            return;
        }
        controls.ShowCancel();
        tail = length - position < kScannedAtOnce;
        const std::string chunk = File1.Read(tail ? length - position + 1 : kChunkLength);
        WorkText = chunk;
        if (tail) {
            form1.StatusBar1.SetPanelText(1, "Extracting . . .");
        }
        ScanAddresses(found, chunk, length, position);
    }
}

}  // namespace orvik
