#include "desktop/desktop_properties.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QTextDocument>
#include <algorithm>
#include <type_traits>
#include <vector>

#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/list_box_view.h"
#include "testkit/transcript.h"

namespace orvik::testkit {
namespace {

// Letters as the bytes of the encoding in which the form's text is shown.
std::string Shown(const QString& letters, std::string_view form_text) {
    Encoding encoding = EncodingOf(form_text);
    return Quote(ToBytes(letters, encoding));
}

std::string ShownItems(const ListBoxView& view, const ListBox& list) {
    std::vector<std::string> items;
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        items.push_back(Shown(model.index(row, 0).data().toString(),
                              list.Items()[static_cast<std::size_t>(row)]));
    }
    return FormatList(items);
}

std::string ShownRows(const ListBoxView& view) {
    std::vector<int> rows;
    for (const QModelIndex& index : view.selectionModel()->selectedIndexes()) {
        rows.push_back(index.row());
    }
    std::sort(rows.begin(), rows.end());
    std::vector<std::string> formatted;
    std::transform(rows.begin(), rows.end(), std::back_inserter(formatted), [](int row) {
        return std::to_string(row);
    });
    return FormatList(formatted);
}

using Property = std::optional<std::string>;

Property OfText(const TextBoxView& view, std::string_view name) {
    if (name == "Text") {
        Encoding encoding = view.encoding();
        return Quote(FromBoxText(view.document()->toRawText(), encoding));
    }
    return {};
}

Property OfList(const ListBoxView& view, const ListBox& list, std::string_view name) {
    if (name == "Items") {
        return ShownItems(view, list);
    }
    if (name == "Selected") {
        return ShownRows(view);
    }
    return {};
}

Property OfAction(const QAction& action, const MenuItem& item, std::string_view name) {
    if (name == "Caption" && !item.IsSeparator()) {
        return Shown(action.text(), item.Caption);
    }
    if (name == "Enabled") {
        return Format(action.isEnabled());
    }
    if (name == "Visible") {
        return Format(action.isVisible());
    }
    if (name == "Checked") {
        return Format(action.isChecked());
    }
    return {};
}

// The caption of what is pressed, checked or chosen, and whether it is.
template <class Kind>
Property OfButton(const QObject& view, const Kind& control, std::string_view name) {
    const auto& button = *qobject_cast<const QAbstractButton*>(&view);
    if (name == "Caption") {
        return Shown(button.text(), control.Caption);
    }
    if constexpr (std::is_same_v<Kind, CheckBox>) {
        if (name == "Value") {
            return button.isChecked() ? "1" : "0";
        }
    } else if constexpr (std::is_same_v<Kind, OptionButton>) {
        if (name == "Value") {
            return Format(button.isChecked());
        }
    }
    return {};
}

Property OfCombo(const QComboBox& view, const ComboBox& combo, std::string_view name) {
    if (name == "Text") {
        const QString text = view.currentIndex() < 0 ? view.placeholderText() : view.currentText();
        return Shown(text, combo.Text);
    }
    if (name == "Items") {
        std::vector<std::string> items;
        for (int row = 0; row < view.count(); ++row) {
            items.push_back(Shown(view.itemText(row), combo.Items[static_cast<std::size_t>(row)]));
        }
        return FormatList(items);
    }
    return {};
}

Property OfWidget(const QWidget& widget, std::string_view name) {
    if (name == "Visible") {
        return Format(!widget.isHidden());
    }
    if (name == "Enabled") {
        return Format(!widget.testAttribute(Qt::WA_ForceDisabled));
    }
    return {};
}

Property OfPanel(const QObject& bar, const StatusBar& form_bar, std::string_view name) {
    for (const std::size_t number : {1, 2}) {
        if (name == "Panels(" + std::to_string(number) + ").Text") {
            const auto* const panel = bar.findChild<QLabel*>(QStringLiteral("Panel%1").arg(number));
            return Shown(panel->text(), form_bar.Panels(number).Text);
        }
    }
    return {};
}

}  // namespace

Property ShownProperty(QObject& view, const ControlRef& control, std::string_view property) {
    if (const auto* const item = std::get_if<MenuItem*>(&control)) {
        return OfAction(*qobject_cast<QAction*>(&view), **item, property);
    }
    if (std::holds_alternative<ProgressBar*>(control)) {
        // When a command is over none is shown, whatever the form says.
        return {};
    }
    Property shown;
    if (const auto* const text = qobject_cast<TextBoxView*>(&view)) {
        // What lies under the lists counts as visible, but shows nothing.
        if (text->isCovered()) {
            return {};
        }
        shown = OfText(*text, property);
    } else if (const auto* const list = std::get_if<ListBox*>(&control)) {
        shown = OfList(*qobject_cast<ListBoxView*>(&view), **list, property);
    } else if (const auto* const bar = std::get_if<StatusBar*>(&control)) {
        shown = OfPanel(view, **bar, property);
    } else if (const auto* const combo = std::get_if<ComboBox*>(&control)) {
        shown = OfCombo(*qobject_cast<QComboBox*>(&view), **combo, property);
    } else if (const auto* const frame = std::get_if<Frame*>(&control);
               frame != nullptr && property == "Caption") {
        shown = Shown(qobject_cast<QGroupBox*>(&view)->title(), (*frame)->Caption);
    } else if (const auto* const button = std::get_if<Button*>(&control)) {
        shown = OfButton(view, **button, property);
    } else if (const auto* const box = std::get_if<CheckBox*>(&control)) {
        shown = OfButton(view, **box, property);
    } else if (const auto* const option = std::get_if<OptionButton*>(&control)) {
        shown = OfButton(view, **option, property);
    } else if (const auto* const label = std::get_if<Label*>(&control);
               label != nullptr && property == "Caption") {
        shown = Shown(qobject_cast<QLabel*>(&view)->text(), (*label)->Caption);
    }
    return shown ? shown : OfWidget(*qobject_cast<QWidget*>(&view), property);
}

}  // namespace orvik::testkit
