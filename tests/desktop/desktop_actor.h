// Acts through the real windows, as a person does: a handler is run by choosing its menu item,
// clicking its button or its row, typing into its box. What a person could not do, since the
// control is disabled, hidden, or has no widget, or since the text does not pass the screen
// unchanged, goes to the form directly.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/session/desktop.h"
#include "store/recent_books.h"
#include "testkit/actor.h"

class QWidget;

namespace orvik {
class Form1Window;
class LateWindows;
class ListBoxView;
class TextBoxView;
}  // namespace orvik

namespace orvik::testkit {

// How many acts went through widgets, over all scenarios of a run.
struct Share {
    std::size_t ThroughWidgets = 0;
    std::size_t Direct = 0;

    [[nodiscard]] std::size_t All() const { return ThroughWidgets + Direct; }
    [[nodiscard]] std::size_t Percent() const {
        return All() == 0 ? 100 : ThroughWidgets * 100 / All();
    }
};

class DesktopActor : public Actor, public ScenarioPlatform::Windows {
 public:
    // Both must outlive the actor.
    DesktopActor(ScenarioPlatform& platform, Share& share);
    DesktopActor(const DesktopActor&) = delete;
    DesktopActor& operator=(const DesktopActor&) = delete;
    DesktopActor(DesktopActor&&) = delete;
    DesktopActor& operator=(DesktopActor&&) = delete;
    ~DesktopActor() override;

    void Attach(Program& program) override;
    void Detach() override;
    void RunHandler(Form& form, const NamedHandler& handler) override;
    void SetText(const Target& target, TextBox& box, const std::string& text) override;
    void TypeText(const Target& target, TextBox& box, const std::string& text) override;
    void SelectText(const Target& target,
                    TextBox& box,
                    std::size_t start,
                    std::size_t length) override;
    void SelectRows(const Target& target,
                    ListBox& list,
                    const std::vector<std::size_t>& rows) override;
    void SetCheck(const Target& target, CheckBox& box, bool checked) override;
    void ChooseOption(const Target& target, OptionButton& option) override;
    void ChooseItem(const Target& target, ComboBox& combo, const std::string& item) override;
    bool EditEntry(std::size_t row,
                   const std::string& address,
                   const std::string& nickname) override;
    bool DeleteEntries(const std::vector<std::size_t>& rows) override;
    void Click(Form& form) override;
    void DoubleClick(const Target& target) override;
    void ReleaseKey(Form& form, int key_code) override;
    void Close(Form& form) override;
    std::string ReadProperty(const Target& target, std::string_view property) override;

    void Sync() override;
    void Shown(Form& form) override;
    void Hidden(Form& form) override;
    void Closed(Form& form) override;

 private:
    [[nodiscard]] QWidget& WindowOf(const Form& form) const;
    // The object of a control by its name, null if it has none.
    template <class Kind>
    [[nodiscard]] Kind* Find(const Form& form, std::string_view name) const;
    // The widget of a control if a person could use it now, else null. It is brought to the front
    // if it lies on a background tab.
    template <class Kind>
    [[nodiscard]] Kind* Usable(const Form& form, std::string_view name) const;
    // The view of a text that a person could edit now, else null.
    [[nodiscard]] TextBoxView* Editable(const Target& target) const;
    bool ClickRow(ListBoxView& view, const ListBox& list, const std::vector<std::size_t>& rows);
    // Counts an act; one through widgets throws what it ended the program with.
    void CountWidget();
    void CountDirect() { ++share_.Direct; }

    ScenarioPlatform& platform_;
    Share& share_;
    std::unique_ptr<Desktop> desktop_;
    RecentBooks books_;
    std::unique_ptr<Form1Window> form1_;
    std::unique_ptr<LateWindows> small_windows_;
};

}  // namespace orvik::testkit
