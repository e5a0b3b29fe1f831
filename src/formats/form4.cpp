#include "formats/form4.h"

#include "app/module1.h"
#include "app/run_time_error.h"
#include "app/scope.h"
#include "app/text.h"
#include "formats/pim_export.h"

namespace orvik {
std::vector<NamedControl> Form4::Controls() {
    return {
        {"Label1", &Label1},
        {"Text1", &Text1},
        Clicked("Command1", &Command1, &Form4::Command1_Click),
        {"Label2", &Label2},
        {"Text2", &Text2},
        Clicked("Command2", &Command2, &Form4::Command2_Click),
        {"Picture2", &Picture2},
        Clicked("Command4", &Command4, &Form4::Command4_Click),
        Clicked("Command3", &Command3, &Form4::Command3_Click),
        Clicked("Command5", &Command5, &Form4::Command5_Click),
    };
}

bool Form4::Form_Unload() {
    Command5_Click();
    return false;
}

void Form4::Form_KeyUp(int /*key_code*/) {
    Command3_Click();
}

void Form4::Command1_Click() {
    Pick("All files|*.*|Netscape 4.0|*.ldif|", false, Text1);
}

void Form4::Command2_Click() {
    Pick("All Files|*.*|Comma Separated|*.csv|Text Files|*.txt", true, Text2);
}

// The main window's dialog, with one title for both files.
void Form4::Pick(std::string_view filter, bool for_output, TextBox& box) {
    const std::string& name = module_.form1.ShowFileDialog({.Kind = DialogKind::Open,
                                                            .Title = "Open file for conversion",
                                                            .Filter = std::string(filter),
                                                            .FileName = {},
                                                            .ForOutput = for_output});
    if (!name.empty()) {
        box.SetText(name);
    }
}

void Form4::Command3_Click() {
    module_.ShowHelpTopic(1, "Stripped", "conversions.html#pim");
}

void Form4::Command4_Click() {
    Result.clear();
    if (!module_.platform.MayExport(std::string(Text1.Text()), std::string(Text2.Text()))) {
        return;
    }
    ShowButtons(false);
    const OnExit showing([this] { ShowButtons(true); });
    bool reading_is_over = false;
    TrapFailure([&] { ConvertFile(reading_is_over); },
                [&](const RunTimeError& failure) {
                    PassLackOfMemory(failure);
                    module_.TellFailed("Bad Filename. Please select a new file");
                    if (reading_is_over) {
                        Command2_Click();
                    } else {
                        Command1_Click();
                    }
                });
}

void Form4::ConvertFile(bool& reading_is_over) {
    module_.File1.OpenForInput(std::string(Text1.Text()));
    const std::string ldif = module_.File1.Read(module_.File1.Length());
    module_.File1.Close();
    int shown = -1;
    std::string output = ExportPim(ldif, module_.PimSep, [&](std::size_t position) {
        const double done = static_cast<double>(position) / static_cast<double>(ldif.size());
        Picture2.Width = done * kFullWidth;
        if (static_cast<int>(done * 100) != shown) {
            shown = static_cast<int>(done * 100);
            module_.platform.Repaint();
        }
    });
    // Reading is over: a failure from here on is one of the output file.
    reading_is_over = true;
    const std::size_t entries = CountExported(output);
    const std::string name(Text2.Text());
    module_.File1.Replace(name, output.append(kCrLf));
    Result =
        std::to_string(entries) + (entries == 1 ? " entry" : " entries") + " written to " + name;
}

void Form4::ShowButtons(bool visible) {
    Command4.Visible = visible;
    Command3.Visible = visible;
}

void Form4::Command5_Click() {
    Hide();
    module_.form1.Show(Showing::Modeless);
}

void Form1::mnuFull_Click() {
    module_.form4.Show(Showing::Modeless);
    Hide();
}

}  // namespace orvik
