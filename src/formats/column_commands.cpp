// The readers of comma-separated books as commands.

#include <optional>
#include <string>
#include <utility>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "formats/csv_reader.h"

namespace orvik {

namespace {

// Takes what a reader found, by way of LDIF.
void LoadNative(Module1& module, std::optional<std::string> native) {
    if (!native) {
        module.TellFailed("Error!");
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
    module.TextMode = mode::kNative;
    SharedText text(std::move(*native));
    module.form1.Convert(text);
    module.form1.unconvert();
    if (!module.EditMode) {
        // On and off again: the new working text is listed.
        module.form1.mnuEntEd_Click();
        module.form1.mnuEntEd_Click();
    }
}

}  // namespace

void Module1::ReadCsv() {
    LoadNative(*this, CsvToNative(WorkText));
}

void Module1::ReadWordPerfect() {
    LoadNative(*this, WordPerfectToNative(WorkText));
}

}  // namespace orvik
