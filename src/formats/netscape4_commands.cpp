// The commands on Netscape 4 books.

#include <memory>
#include <string>
#include <utility>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "app/working_text.h"
#include "formats/conversion_progress.h"
#include "formats/ldif_reader.h"
#include "formats/ldif_writer.h"
#include "formats/unread_entries.h"

namespace orvik {

void Form1::Convert(SharedText& text) {
    if (module_.IsList(text)) {
        text = module_.SplitEntries(text, "txt");
    }
    MakeLdif([&text](Progress& progress) { PassLdif(text, progress); },
             [text](const TakePiece& take) { GiveLdif(text, take); });
    written_ = {text, module_.LdifText.Revision()};
}

void Form1::ConvertListed(const SharedText& list, std::vector<std::uint32_t> address_lengths) {
    const auto lengths =
        std::make_shared<const std::vector<std::uint32_t>>(std::move(address_lengths));
    MakeLdif([&lengths](Progress& progress) { PassLdif(*lengths, progress); },
             [list, lengths](const TakePiece& take) {
                 GiveLdif(NativeOfEntries(list, *lengths), take);
             });
    read_ = {module_.LdifText.Revision(), module_.textSep, list};
}

void Form1::MakeLdif(const std::function<void(Progress&)>& pass, LateText::Maker maker) {
    module_.LdifText.clear();
    written_ = {};
    TrapFailure(
        [&] {
            ConversionProgress progress(*this, module_.platform);
            pass(progress);
            module_.LdifText = LateText(std::move(maker));
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

// A book that is opened is read twice: the second time gives what came of the first.
void Form1::unconvert(UnreadEntries* left_out) {
    const LateText& ldif = module_.LdifText;
    const bool is_read = !ldif.empty() && read_.Ldif == ldif.Revision() &&
                         read_.Separator == module_.textSep && left_out == nullptr;
    if (!is_read) {
        const bool is_ours = !ldif.empty() && written_.Ldif == ldif.Revision();
        read_ = {ldif.Revision(),
                 module_.textSep,
                 is_ours && left_out == nullptr ? ReadWrittenLdif(written_.Native, module_.textSep)
                                                : ReadLdif(ldif, module_.textSep, left_out)};
    }
    module_.WorkText = read_.List;
    module_.TextMode = mode::kAscii;
}

void Form1::TakeReadList(const SharedText& list) {
    module_.LdifText = LateText([list](const TakePiece& take) { GiveLdifOf(list, take); });
    read_ = {module_.LdifText.Revision(), module_.textSep, list};
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
