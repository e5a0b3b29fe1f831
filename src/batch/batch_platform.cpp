#include "batch/batch_platform.h"

#include "app/form.h"
#include "app/printable.h"
#include "app/run_time_error.h"
#include "app/text.h"
#include "files/form3.h"
#include "platform/system_process.h"
#include "settings/form6.h"
#include "settings/keys.h"

namespace orvik::batch {
namespace {

// A command that tells of a failure and goes on was reading.
Status StatusOf(const MessageBox& box) {
    return box.Cause ? cli::StatusOf(*box.Cause, false) : Status::Problem;
}

// The settings of a run that reads none of the user's.
std::optional<std::string> DefaultSetting(std::string_view key) {
    static const std::map<std::string, std::string, std::less<>> kDefaults = {
        {"textsep", std::to_string(key::kByNewlines)},
        {"open", "1"},
        {"extract", "False"},
        {"sep", ","},
    };
    const auto found = kDefaults.find(key);
    return found == kDefaults.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

BatchPlatform::BatchPlatform(const Arguments& arguments,
                             cli::Messenger& messenger,
                             SettingsStore& store)
    : arguments_(arguments), messenger_(messenger), store_(store) {
    // The automation is a step of its own, so the start-up must not run it.
    BatchPlatform::SaveSetting(key::kSettings, "Auto", "False");
    if (arguments_.EntriesBy) {
        BatchPlatform::SaveSetting(
            key::kSettings,
            "textSep",
            std::to_string(*arguments_.EntriesBy == Separator::Comma ? key::kByCommas
                                                                     : key::kByNewlines));
    }
}

void BatchPlatform::BeginStep(std::optional<DialogKind> dialog,
                              std::string_view file,
                              std::function<std::string()> how_far) {
    dialog_ = dialog;
    file_ = file;
    how_far_ = std::move(how_far);
    told_too_much_ = false;
    messenger_.BeginStep(file);
}

void BatchPlatform::Fail(std::string_view text, Status status) {
    // What fails after it is only a consequence of it.
    if (result_ == Status::Done) {
        result_ = status;
        messenger_.Tell(text);
    }
}

void BatchPlatform::Fail(const RunTimeError& failure, bool writing) {
    Fail(cli::WithDetail(failure.what(), failure.Detail()),
         cli::StatusOf(failure.Cause(), writing));
}

void BatchPlatform::Note(std::string_view text) {
    if (!arguments_.Quiet) {
        messenger_.Tell(text);
    }
}

CopyAnswer BatchPlatform::OfferCopy(const std::string& /*book*/, const std::string& copy) {
    Note("A saving of this file was interrupted. Its old contents stand in " + copy);
    return CopyAnswer::NotNow;
}

Answer BatchPlatform::ShowBox(const MessageBox& box) {
    if (result_ != Status::Done) {
        return box.Choice == Buttons::OK ? Answer::OK : arguments_.Reply;
    }
    if (box.Choice == Buttons::OK) {
        if (box.About != Matter::TextTooLong) {
            Fail(cli::WithDetail(box.Text, box.Detail), StatusOf(box));
        } else if (!told_too_much_) {
            // The windows leave such a text out of the text box; nothing is lost by it.
            told_too_much_ = true;
            Note(box.Text);
        }
        return Answer::OK;
    }
    const std::string answered =
        PrintableIn(box.Text, box.FileName) +
        (arguments_.Reply == Answer::Yes ? " - answered yes" : " - answered no");
    if (box.About == Matter::UnknownFormat && arguments_.Reply == Answer::No) {
        Fail(answered);
    } else {
        Note(answered);
    }
    return arguments_.Reply;
}

std::string BatchPlatform::ShowFileDialog(FileDialog& dialog) {
    if (dialog_ == dialog.Kind) {
        return file_;
    }
    Note("No file is named for \"" + dialog.Title + "\"");
    return {};
}

std::optional<std::string> BatchPlatform::GetSetting(std::string_view section,
                                                     std::string_view key) {
    if (const auto stored = stored_.find({ToLower(section), ToLower(key)});
        stored != stored_.end()) {
        return stored->second;
    }
    if (arguments_.UsesSettings()) {
        return store_.Get(section, key);
    }
    return section == key::kSettings ? DefaultSetting(ToLower(key)) : std::nullopt;
}

void BatchPlatform::SaveSetting(std::string_view section,
                                std::string_view key,
                                std::string_view value) {
    stored_[{ToLower(section), ToLower(key)}] = value;
}

void BatchPlatform::ShowHelp(HelpCommand /*command*/,
                             std::string_view /*target*/,
                             std::string_view data) {
    Note("Help is in the manual page orvik-batch(1): " + std::string(data));
}

void BatchPlatform::ShowForm(Form& form, Showing /*showing*/) {
    if (&form == &windows_->form1 || &form == &windows_->form6) {
        return;
    }
    if (&form == &windows_->form3) {
        Fail("The format would have to be chosen by hand");
    } else {
        Fail("The settings are not complete. Start orvik and choose the preferences");
    }
    End();
}

void BatchPlatform::Repaint() {
    if (!arguments_.Quiet && how_far_) {
        messenger_.Progress(how_far_());
    }
}

void BatchPlatform::ReportFailure(const RunTimeError& failure) {
    Fail(failure, dialog_ == DialogKind::Save);
}

std::string BatchPlatform::ProgramFolder() {
    return orvik::ProgramFolder();
}

}  // namespace orvik::batch
