#include "formats/juno_writer.h"

#include "app/form1.h"
#include "app/module1.h"
#include "app/text.h"
#include "app/working_text.h"
#include "formats/conversion_progress.h"

namespace orvik {

std::string WriteJuno(std::string_view native, std::string_view separator, Progress& progress) {
    const bool by_comma = separator == ",";
    NativeReader reader(native, by_comma ? ',' : '\r');
    PercentMeter meter(progress, reader.Separator());
    std::string book = "\r\n\r\n";
    std::string address;
    while (reader.Next()) {
        meter.Reach(reader.AddressEnd());
        address.clear();
        AppendWithout(address, reader.RawAddress(), by_comma ? ' ' : '\n');
        const std::string_view nickname = reader.TakeNickname();
        book.append("Type:Entry\r\nName:").append(nickname);
        book.append("\r\nEmail:").append(address);
        book.append("\r\nAlias:").append(nickname).append("\r\n\r\n");
        progress.Record();
    }
    meter.Reach(reader.Separator());
    CutEnd(book, kCrLf.size());
    return book;
}

std::string Module1::JunoText(std::string& text) {
    if (TextMode == mode::kAscii) {
        form1.mnuParse_Click();
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

}  // namespace orvik
