#include "app/controls.h"

#include <algorithm>

#include "app/run_time_error.h"
#include "app/scope.h"

namespace orvik {

void TextBox::SetText(std::string text) {
    Assign(std::move(text), 0);
}

void TextBox::ReplaceSelection(std::string_view text) {
    std::string whole = text_;
    whole.replace(SelStart, SelLength, text);
    Assign(std::move(whole), SelStart + text.size());
}

void TextBox::EditByUser(std::string text, std::size_t sel_start) {
    Assign(std::move(text), sel_start);
}

void TextBox::Select(std::size_t start, std::size_t length) {
    SelStart = std::min(start, text_.size());
    SelLength = std::min(length, text_.size() - SelStart);
}

void TextBox::Restore(std::string text) {
    text_ = std::move(text);
    ++revision_;
    SelStart = 0;
    SelLength = 0;
}

void TextBox::Assign(std::string text, std::size_t sel_start) {
    Restore(std::move(text));
    SelStart = std::min(sel_start, text_.size());
    RunChange();
}

void TextBox::RunChange() {
    if (Change && !changing_) {
        const Mark mark(changing_);
        Change();
    }
}

void ListBox::Clear() {
    items_.Clear();
    ForgetRows();
}

// Takes no memory: what puts an earlier state back is in the middle of it.
void ListBox::Restore(ItemList items) {
    items_ = std::move(items);
    ForgetRows();
}

void ListBox::ForgetRows() {
    ++items_revision_;
    selected_.clear();
    ++selection_revision_;
    ListIndex = -1;
}

void ListBox::AddItem(std::string_view item) {
    items_.Add(item);
    ++items_revision_;
}

bool ListBox::IsSelected(std::size_t row) const {
    return std::binary_search(selected_.begin(), selected_.end(), row);
}

void ListBox::Select(std::vector<std::size_t> rows) {
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (!rows.empty() && rows.back() >= items_.size()) {
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
    selected_ = std::move(rows);
    ++selection_revision_;
}

void StatusBar::SetPanelText(std::size_t number, std::string text) {
    Panel& panel = panels_.at(number - 1);
    if (panel.Text == text) {
        return;
    }
    panel.Text = std::move(text);
    if (TextChanged) {
        TextChanged(number, panel.Text);
    }
}

}  // namespace orvik
