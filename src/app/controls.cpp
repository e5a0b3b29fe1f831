#include "app/controls.h"

#include <algorithm>
#include <functional>

#include "app/run_time_error.h"
#include "app/scope.h"

namespace orvik {

void TextBox::SetText(SharedText text) {
    Assign(std::move(text), 0);
}

void TextBox::ReplaceSelection(std::string_view text) {
    std::string whole(text_);
    whole.replace(SelStart, SelLength, text);
    Assign(std::move(whole), SelStart + text.size());
}

void TextBox::EditByUser(SharedText text, std::size_t sel_start) {
    Assign(std::move(text), sel_start);
}

void TextBox::Select(std::size_t start, std::size_t length) {
    SelStart = std::min(start, text_.size());
    SelLength = std::min(length, text_.size() - SelStart);
}

void TextBox::Restore(SharedText text) {
    text_ = std::move(text);
    ++revision_;
    SelStart = 0;
    SelLength = 0;
}

void TextBox::Assign(SharedText text, std::size_t sel_start) {
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

void ItemList::Clear(SharedText source) {
    items_ = std::make_shared<Shared>();
    items_->Source = std::move(source);
}

void ItemList::Add(std::string_view item) {
    if (items_.use_count() > 1) {
        items_ = std::make_shared<Shared>(*items_);
    }
    if (!items_->Source.empty()) {
        if (items_->AddView(item)) {
            return;
        }
        items_->LeaveSource();
    }
    items_->Own.append(item);
    items_->Ends.push_back(items_->Own.size());
}

bool ItemList::Shared::AddView(std::string_view item) {
    const std::string_view text = Source.View();
    const std::less<> before;
    if (before(item.data(), text.data()) ||
        before(text.data() + text.size(), item.data() + item.size())) {
        return false;
    }
    const auto start = static_cast<std::size_t>(item.data() - text.data());
    if (Ends.empty()) {
        First = start;
    } else if (Ends.size() == 1 && start >= Ends.front()) {
        Gap = start - Ends.front();
    } else if (start != Start(Ends.size())) {
        return false;
    }
    Ends.push_back(start + item.size());
    return true;
}

void ItemList::Shared::LeaveSource() {
    Shared own;
    for (std::size_t i = 0; i < Ends.size(); ++i) {
        own.Own.append(Item(i));
        own.Ends.push_back(own.Own.size());
    }
    *this = std::move(own);
}

void ListBox::Clear(SharedText source) {
    items_.Clear(std::move(source));
    ForgetRows(std::make_shared<const std::vector<std::size_t>>());
}

// Takes no memory: what puts an earlier state back is in the middle of it.
void ListBox::Restore(ItemList items, Rows selected) {
    items_ = std::move(items);
    ForgetRows(std::move(selected));
}

void ListBox::ForgetRows(Rows selected) {
    ++items_revision_;
    selected_ = std::move(selected);
    ++selection_revision_;
    ListIndex = -1;
}

void ListBox::AddItem(std::string_view item) {
    items_.Add(item);
    ++items_revision_;
}

bool ListBox::IsSelected(std::size_t row) const {
    return std::binary_search(selected_->begin(), selected_->end(), row);
}

void ListBox::Select(std::vector<std::size_t> rows) {
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (!rows.empty() && rows.back() >= items_.size()) {
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
    selected_ = std::make_shared<const std::vector<std::size_t>>(std::move(rows));
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
