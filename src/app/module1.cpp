#include "app/module1.h"

#include <utility>

#include "app/run_time_error.h"
#include "app/text.h"
#include "app/working_text.h"

namespace orvik {

void Module1::RunEvent(const std::function<void()>& event) {
    TrapFailure(event, [this](const RunTimeError& failure) { platform.ReportFailure(failure); });
}

void Module1::RunCommand(const NamedHandler& handler) {
    if (handler.Title.empty()) {
        RunEvent(handler.Run);
    } else {
        history.Run(handler.Title, handler.Run);
    }
}

void Module1::Tell(std::string_view text, std::string_view title) {
    platform.ShowBox({std::string(text), std::string(title)});
}

void Module1::TellFailed(std::string_view text, std::string_view title) {
    platform.ShowBox(
        {.Text = std::string(text), .Title = std::string(title), .About = Matter::Failed});
}

void Module1::Tell(const RunTimeError& failure) {
    platform.ShowBox({.Text = std::string("Error: ") + failure.what(),
                      .Title = std::to_string(failure.Number()),
                      .Cause = failure.Cause(),
                      .Detail = failure.Detail()});
}

void Module1::TellTooMuchText() {
    platform.ShowBox({.Text = TooMuchText(), .Title = "Error", .About = Matter::TextTooLong});
}

Answer Module1::Ask(
    std::string_view text, std::string_view title, Buttons buttons, Icon icon, Matter about) {
    return Ask({.Text = std::string(text),
                .Title = std::string(title),
                .Choice = buttons,
                .Sign = icon,
                .About = about});
}

Answer Module1::Ask(const MessageBox& question) {
    const Answer answer = platform.ShowBox(question);
    MsgAnswer = std::to_string(static_cast<int>(answer));
    return answer;
}

SharedText Module1::SplitEntries(const SharedText& text, std::string_view kind) {
    if (kind == "txt" && IsSplit(text)) {
        return last_split_.Native;
    }
    last_split_ = {};
    EmailBlock = {};
    NickBlock = {};
    if (kind != "txt") {
        TellFailed("Error!");
    }
    NativeBlocks blocks = SplitBlocks(kind == "txt" ? text.View() : std::string_view{}, textSep);
    const std::size_t emails = blocks.EmailsLength;
    const std::size_t nicks_start = blocks.NicksStart();
    const std::size_t nicks = blocks.NicksLength();
    SharedText native(std::move(blocks.Native));
    EmailBlock = {native, 0, emails};
    NickBlock = {native, nicks_start, nicks};
    last_split_ = {text.Revision(), textSep, native};
    return native;
}

bool Module1::IsSplit(const SharedText& list) const {
    return !list.empty() && list.Revision() == last_split_.List && textSep == last_split_.Separator;
}

bool Module1::IsList(std::string_view text) const {
    return TextMode == mode::kAscii && !IsNative(text);
}

bool Module1::IsListed(std::string_view text) const {
    return TextMode == mode::kNative || (TextMode == mode::kAscii && IsNative(text));
}

SharedText Module1::InNativeForm() const {
    if (!IsList(WorkText)) {
        return WorkText;
    }
    return IsSplit(WorkText) ? last_split_.Native : SplitBlocks(WorkText, textSep).Native;
}

std::optional<Module1::ReadAhead> Module1::TakeReadAhead() {
    if (WorkText.empty() || WorkText.Revision() != read_ahead_.List) {
        return std::nullopt;
    }
    return std::exchange(read_ahead_, {});
}

EntrySum Module1::Entries(std::string_view text,
                          std::string_view mode,
                          std::string_view separator) {
    return SumEntries(text, mode == mode::kNative || HasNickLine(text), separator);
}

void Module1::RefreshLists() {
    if (TextMode == mode::kAscii) {
        if (IsList(WorkText)) {
            WorkText = SplitEntries(WorkText, "txt");
        }
        TextMode = mode::kNative;
    } else if (TextMode != mode::kNative) {
        TellFailed(TextNonexistant("An Error type"));
        return;
    }
    ListEntries(WorkText);
}

void Module1::ListEntries(const SharedText& native) {
    form1.List1.Clear(native);
    form1.List2.Clear(native);
    ItemCount = ListNative(
        native,
        [this](std::string_view item) { form1.List1.AddItem(item); },
        [this](std::string_view item) { form1.List2.AddItem(item); });
    form1.StatusBar1.SetPanelText(2, std::to_string(ItemCount) + " items");
}

}  // namespace orvik
