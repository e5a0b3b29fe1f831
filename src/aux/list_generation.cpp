// Generates a list of selected entries.

#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/text.h"
#include "app/working_text.h"
#include "aux/frm_select.h"

namespace orvik {

void Form1::mnuList_Click() {
    module_.frm_select.Show(Showing::Modeless);
}

void Form1::cmdDone_Click() {
    module_.ListSelected();
    List3.Clear();
    List3.Visible = false;
    cmdDone.Visible = false;
    cmdCancel.Visible = false;
    StatusBar1.SetPanelText(1, "Ready");
}

void Module1::ListSelected() {
    const SharedText text = InNativeForm();
    NativeReader reader(text);
    const auto separator = static_cast<double>(reader.Separator());
    std::string list;
    for (std::size_t row = 0; row < form1.List3.Items().size(); ++row) {
        const int percent = static_cast<int>(static_cast<double>(row + 1) / separator * 100);
        form1.StatusBar1.SetPanelText(1, "Converting: " + std::to_string(percent) + "%");
        if (!reader.Next()) {
            continue;
        }
        const std::string_view nickname = reader.TakeNickname();
        if (form1.List3.IsSelected(row)) {
            std::string address;
            AppendWithout(address, reader.RawAddress(), '\n');
            if (textSep == ",") {
                std::erase(address, ' ');
            }
            list.append(address).append(" ").append(nickname).append(kCrLf);
        }
    }
    Tell(list);
}

}  // namespace orvik
