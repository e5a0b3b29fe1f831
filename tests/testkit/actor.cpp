#include "testkit/actor.h"

#include <algorithm>

#include "testkit/properties.h"
#include "testkit/statement.h"

namespace orvik::testkit {

void Actor::Start() {
    module().RunEvent([this] { module().form1.Show(Showing::Modeless); });
}

void Actor::RunHandler(Form& /*form*/, const NamedHandler& handler) {
    module().RunCommand(handler);
}

bool Actor::EditEntry(std::size_t row, const std::string& address, const std::string& nickname) {
    if (row >= module().form1.EntryRows()) {
        return false;
    }
    module().form1.EditEntry(row, address, nickname);
    return true;
}

bool Actor::DeleteEntries(const std::vector<std::size_t>& rows) {
    if (rows.back() >= module().form1.EntryRows()) {
        return false;
    }
    module().form1.DeleteEntries(rows);
    return true;
}

void Actor::Undo() {
    module().RunEvent([this] { module().history.Undo(); });
}

void Actor::Redo() {
    module().RunEvent([this] { module().history.Redo(); });
}

void Actor::SetText(const Target& /*target*/, TextBox& box, const std::string& text) {
    module().RunEvent([&] { box.EditByUser(text, text.size()); });
}

void Actor::TypeText(const Target& /*target*/, TextBox& box, const std::string& text) {
    module().RunEvent([&] {
        std::string whole(box.Text());
        whole.replace(box.SelStart, box.SelLength, text);
        box.EditByUser(std::move(whole), box.SelStart + text.size());
    });
}

void Actor::SelectText(const Target& /*target*/,
                       TextBox& box,
                       std::size_t start,
                       std::size_t length) {
    box.Select(start, length);
}

void Actor::SelectRows(const Target& target, ListBox& list, const std::vector<std::size_t>& rows) {
    list.Select(rows);
    if (!rows.empty()) {
        list.ListIndex = static_cast<std::ptrdiff_t>(rows.back());
    }
    RunIfAny(target.Click);
}

void Actor::SetCheck(const Target& target, CheckBox& box, bool checked) {
    box.Value = checked ? 1 : 0;
    RunIfAny(target.Click);
}

void Actor::ChooseOption(const Target& target, OptionButton& option) {
    target.Owner.Choose(option);
    RunIfAny(target.Click);
}

void Actor::ChooseItem(const Target& target, ComboBox& combo, const std::string& item) {
    combo.Text = item;
    RunIfAny(target.Click);
}

void Actor::Click(Form& form) {
    module().RunEvent([&] { form.Form_Click(); });
}

void Actor::DoubleClick(const Target& target) {
    RunIfAny(target.DoubleClick);
}

void Actor::RunIfAny(const std::function<void()>& handler) {
    if (handler) {
        module().RunEvent(handler);
    }
}

void Actor::ReleaseKey(Form& form, int key_code) {
    module().RunEvent([&] { form.Form_KeyUp(key_code); });
}

void Actor::Close(Form& form) {
    module().RunEvent([&] { form.Unload(); });
}

void Actor::Resize(Form& form, double width, double height) {
    module().RunEvent([&] {
        form.Width = form.ScaleWidth = width;
        form.Height = form.ScaleHeight = height;
        form.Form_Resize();
    });
}

std::string Actor::ReadProperty(const Target& target, std::string_view property) {
    return FormatProperty(target.Ref, property);
}

}  // namespace orvik::testkit
