// The controls of the forms: plain values under their own names. A view shows them and forwards
// what the user does; rules and texts live here. Sizes are in twips, 1440 to the inch.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "app/shared_text.h"
#include "platform/platform.h"

namespace orvik {

// Counts the changes of a value, so that a view touches its widget only when the value moved.
using Revision = std::uint64_t;

struct Control {
    bool Visible = true;
    bool Enabled = true;
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
    std::string ToolTip;
};

// Caption: "&" stands before the access key.
struct Button : Control {
    explicit Button(std::string_view caption, std::string_view tool_tip = {}) : Caption(caption) {
        ToolTip = tool_tip;
    }
    std::string Caption;
};

struct Label : Control {
    explicit Label(std::string_view caption) : Caption(caption) {}
    std::string Caption;
};

struct Frame : Control {
    explicit Frame(std::string_view caption) : Caption(caption) {}
    std::string Caption;
};

// Value: 1 checked, 0 not.
struct CheckBox : Control {
    explicit CheckBox(std::string_view caption) : Caption(caption) {}
    std::string Caption;
    int Value = 0;
};

// Of the options of one group on a form at most one is chosen.
struct OptionButton : Control {
    OptionButton(std::string_view caption, int group) : Caption(caption), Group(group) {}
    std::string Caption;
    int Group;
    bool Value = false;
};

// Shows any text; the user chooses among the items.
struct ComboBox : Control {
    std::vector<std::string> Items;
    std::string Text;
};

// Picture: the name of what it shows, empty for nothing.
struct PictureBox : Control {
    explicit PictureBox(std::string_view picture = {}) : Picture(picture) {}
    std::string Picture;
};

// The tabs of a window, by their captions. Front: the one that is in front when the window is
// shown, counted from 0; from then on the user chooses.
struct TabControl : Control {
    explicit TabControl(std::vector<std::string> tabs) : Tabs(std::move(tabs)) {}
    std::vector<std::string> Tabs;
    std::size_t Front = 0;
};

// A menu, a menu item, or a separator (Caption "-").
struct MenuItem {
    explicit MenuItem(std::string_view caption) : Caption(caption) {}
    [[nodiscard]] bool IsSeparator() const { return Caption == "-"; }

    std::string Caption;
    bool Visible = true;
    bool Enabled = true;
    bool Checked = false;
};

// A text box. Its text changes in two ways only: by a command or by the user. Both run Change, also
// when the text is the same. The selection counts bytes from 0.
class TextBox : public Control {
 public:
    [[nodiscard]] const SharedText& Text() const { return text_; }
    [[nodiscard]] Revision TextRevision() const { return revision_; }
    [[nodiscard]] std::string_view SelText() const {
        return text_.View().substr(SelStart, SelLength);
    }

    // A command assigns the text; the selection goes to the start.
    void SetText(SharedText text);
    // A command replaces the selection; the cursor stands behind the new text.
    void ReplaceSelection(std::string_view text);
    // The user changed the text; the new selection is empty at sel_start.
    void EditByUser(SharedText text, std::size_t sel_start);
    // Puts an earlier text back, without Change.
    void Restore(SharedText text);
    // Runs Change.
    void RunChange();
    // The user selected; what lies beyond the text is cut off.
    void Select(std::size_t start, std::size_t length);

    std::size_t SelStart = 0;
    std::size_t SelLength = 0;
    // The form's Change handler. An assignment that it makes itself does not run it again.
    std::function<void()> Change;

 private:
    void Assign(SharedText text, std::size_t sel_start);

    SharedText text_;
    Revision revision_ = 0;
    bool changing_ = false;
};

// The items of a list, which stand in one text one behind the other, so that a million of them cost
// two allocations, or one where the text is there already. A copy shares them until one of the two
// changes.
class ItemList {
 public:
    [[nodiscard]] std::size_t size() const { return items_->Ends.size(); }
    [[nodiscard]] bool empty() const { return items_->Ends.empty(); }
    [[nodiscard]] std::string_view operator[](std::size_t i) const { return items_->Item(i); }
    // The text that the items are views of; empty where they have one of their own.
    [[nodiscard]] const SharedText& Source() const { return items_->Source; }
    // The memory that the items take beside their source. Copies take it once.
    [[nodiscard]] std::size_t Bytes() const {
        return items_->Own.size() + items_->Ends.size() * sizeof(std::size_t);
    }
    [[nodiscard]] const void* Identity() const { return items_.get(); }
    // No item is left. Those that are added next may be views of source, equally far from one
    // another; they are not copied then.
    void Clear(SharedText source = {});
    void Add(std::string_view item);

 private:
    struct Shared {
        SharedText Source;
        std::string Own;
        std::size_t First = 0;  // where the first item starts
        std::size_t Gap = 0;    // how far an item starts behind the end of the one before
        std::vector<std::size_t> Ends;

        [[nodiscard]] std::size_t Start(std::size_t i) const {
            return i == 0 ? First : Ends[i - 1] + Gap;
        }
        [[nodiscard]] std::string_view Item(std::size_t i) const {
            const std::size_t start = Start(i);
            return (Source.empty() ? std::string_view(Own) : Source.View())
                .substr(start, Ends[i] - start);
        }
        // Whether the item became a view of the source.
        bool AddView(std::string_view item);
        // Gives the items a text of their own.
        void LeaveSource();
    };
    std::shared_ptr<Shared> items_ = std::make_shared<Shared>();
};

// A list in which several rows can be selected. Rows count from 0.
class ListBox : public Control {
 public:
    // Selected rows, ascending; copies share them.
    using Rows = std::shared_ptr<const std::vector<std::size_t>>;

    [[nodiscard]] const ItemList& Items() const { return items_; }
    [[nodiscard]] Revision ItemsRevision() const { return items_revision_; }
    // No item is left; those that are added next may be views of source.
    void Clear(SharedText source = {});
    void AddItem(std::string_view item);
    // Puts earlier items and their selection back.
    void Restore(ItemList items, Rows selected);

    // The selected rows, ascending.
    [[nodiscard]] const std::vector<std::size_t>& Selected() const { return *selected_; }
    [[nodiscard]] const Rows& SelectedRows() const { return selected_; }
    [[nodiscard]] Revision SelectionRevision() const { return selection_revision_; }
    [[nodiscard]] bool IsSelected(std::size_t row) const;
    // Selects exactly these rows. Errors: RunTimeError 5 if one does not exist; nothing changes.
    void Select(std::vector<std::size_t> rows);

    // The row that the user clicked last, -1 for none.
    std::ptrdiff_t ListIndex = -1;

 private:
    // The items are others now, and none of them is selected.
    void ForgetRows(Rows selected);

    ItemList items_;
    Revision items_revision_ = 0;
    Rows selected_ = std::make_shared<const std::vector<std::size_t>>();
    Revision selection_revision_ = 0;
};

// How a panel of the status bar gets its width.
enum class AutoSize { Spring, Contents };

// A status bar with two panels, counted from 1.
class StatusBar : public Control {
 public:
    struct Panel {
        std::string Text;
        std::string ToolTip;
    };

    StatusBar(Panel first, Panel second) : panels_{std::move(first), std::move(second)} {}
    [[nodiscard]] const Panel& Panels(std::size_t number) const { return panels_.at(number - 1); }
    void SetPanelText(std::size_t number, std::string text);

    AutoSize PanelSizing = AutoSize::Spring;
    // Told of each change of a panel's text, if set.
    std::function<void(std::size_t number, std::string_view text)> TextChanged;

 private:
    std::array<Panel, 2> panels_;
};

struct ProgressBar : Control {
    double Value = 0;  // 0 to 100
};

// The common file dialog: what the next showing gets and what the last one returned.
struct CommonDialog {
    std::string FileName;
    int FilterIndex = 1;
};

using ControlRef = std::variant<TextBox*,
                                ListBox*,
                                Button*,
                                Label*,
                                Frame*,
                                CheckBox*,
                                OptionButton*,
                                ComboBox*,
                                PictureBox*,
                                TabControl*,
                                MenuItem*,
                                StatusBar*,
                                ProgressBar*>;

// One row of a form's table: a control under its name, and what a click and a double click on it
// run, if anything.
struct NamedControl {
    std::string_view Name;
    ControlRef Ref;
    std::function<void()> Click = {};
    std::function<void()> DoubleClick = {};
};

}  // namespace orvik
