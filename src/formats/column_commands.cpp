// The readers of comma-separated books as commands.

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "formats/csv_reader.h"
#include "formats/unread_entries.h"

namespace orvik {

namespace {

using Reader = std::optional<std::string> (*)(std::string_view csv, UnreadEntries* left_out);

// Takes what a reader finds.
SharedText Read(Module1& module, Reader reader) {
    UnreadEntries left_out;
    std::optional<std::string> native = reader(module.WorkText, &left_out);
    module.NoteReading(module.WorkText, native ? left_out.Total() : Unread{});
    if (!native) {
        module.TellFailed("Error!");
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
    module.TextMode = mode::kNative;
    return std::move(*native);
}

// Takes back what was written as LDIF.
void ReadBack(Module1& module) {
    module.form1.unconvert();
    if (!module.EditMode) {
        // On and off again: the new working text is listed.
        module.form1.mnuEntEd_Click();
        module.form1.mnuEntEd_Click();
    }
}

}  // namespace

void Module1::ReadCsv() {
    if (std::optional<ReadAhead> read = TakeReadAhead()) {
        NoteReading(WorkText, read->LeftOut);
        TextMode = mode::kNative;
        form1.ConvertListed(WorkText, std::move(read->AddressLengths));
    } else {
        SharedText text = Read(*this, &CsvToNative);
        form1.Convert(text);
    }
    ReadBack(*this);
}

void Module1::ReadWordPerfect() {
    SharedText text = Read(*this, &WordPerfectToNative);
    form1.Convert(text);
    ReadBack(*this);
}

}  // namespace orvik
