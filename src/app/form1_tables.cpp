// Form1's menus, controls and handlers as tables.

#include "app/form1.h"

namespace orvik {

std::vector<Form1::Menu> Form1::Menus() {
    return {
        {"mnuFile",
         &mnuFile,
         {
             {"mnuOpen", &mnuOpen, &Form1::mnuOpen_Click},
             {"mnuExtract", &mnuExtract, nullptr},
             {"mnuSave", &mnuSave, &Form1::mnuSave_Click},
             {"mnuMerge", &mnuMerge, nullptr},
             {"mnuAuto", &mnuAuto, nullptr},
             {"mnuSeventhDash", &mnuSeventhDash, nullptr},
             {"mnuList", &mnuList, nullptr},
             {"mnuFull", &mnuFull, nullptr},
             {"mnuUninst", &mnuUninst, nullptr},
             {"mnuFirstDash", &mnuFirstDash, nullptr},
             {"mnuExit", &mnuExit, &Form1::mnuExit_Click},
         }},
        {"mnuEdit",
         &mnuEdit,
         {
             {"mnuBoxCopy", &mnuBoxCopy, &Form1::mnuBoxCopy_Click},
             {"mnuSelCopy", &mnuSelCopy, &Form1::mnuSelCopy_Click},
             {"mnuCopyConvert", &mnuCopyConvert, &Form1::mnuCopyConvert_Click},
             {"mnuCopyNet3", &mnuCopyNet3, nullptr},
             {"mnuJuno", &mnuJuno, nullptr},
             {"mnuSecondDash", &mnuSecondDash, nullptr},
             {"mnuPaste", &mnuPaste, &Form1::mnuPaste_Click},
             {"mnuClearPaste", &mnuClearPaste, &Form1::mnuClearPaste_Click},
             {"mnuClearPasteNet4", &mnuClearPasteNet4, &Form1::mnuClearPasteNet4_Click},
             {"mnuClearPasteNet3", &mnuClearPasteNet3, nullptr},
             {"mnuPasteJuno", &mnuPasteJuno, nullptr},
             {"mnuThirdDash", &mnuThirdDash, nullptr},
             {"mnuEntEd", &mnuEntEd, &Form1::mnuEntEd_Click},
             {"mnuDel", &mnuDel, &Form1::mnuDel_Click},
             {"mnuClear", &mnuClear, &Form1::mnuClear_Click},
             {"mnuFifthDash", &mnuFifthDash, nullptr},
             {"mnuPrefs", &mnuPrefs, nullptr},
         }},
        {"mnuOrvik",
         &mnuOrvik,
         {
             {"mnuConvert", &mnuConvert, &Form1::mnuConvert_Click},
             {"mnuFourthDash", &mnuFourthDash, nullptr},
             {"mnuAlphNick", &mnuAlphNick, nullptr},
             {"mnuAlphAddr", &mnuAlphAddr, nullptr},
             {"mnuRemDup", &mnuRemDup, nullptr},
             {"mnuSixthDash", &mnuSixthDash, nullptr},
             {"mnuUn", &mnuUn, &Form1::mnuUn_Click},
             {"mnuParse", &mnuParse, &Form1::mnuParse_Click},
         }},
        {"mnuHelp",
         &mnuHelp,
         {
             {"mnuHlp", &mnuHlp, nullptr},
             {"mnuHelpContents", &mnuHelpContents, nullptr},
             {"mnuHelpIndex", &mnuHelpIndex, nullptr},
             {"mnuEighthDash", &mnuEighthDash, nullptr},
             {"mnuAbout", &mnuAbout, nullptr},
             {"mnuFuture", &mnuFuture, nullptr},
         }},
    };
}

std::vector<NamedControl> Form1::Controls() {
    std::vector<NamedControl> controls = {
        {"Text1", &Text1},
        {"Text3", &Text3},
        {"List1", &List1},
        {"List2", &List2},
        {"List3", &List3},
        {"cmdEmail", &cmdEmail},
        {"cmdNick", &cmdNick},
        {"cmdDone", &cmdDone},
        {"cmdCancel", &cmdCancel},
        {"StatusBar1", &StatusBar1},
        {"ProgressBar1", &ProgressBar1},
    };
    for (const Menu& menu : Menus()) {
        controls.push_back({menu.Name, menu.Item});
        for (const MenuRow& row : menu.Rows) {
            controls.push_back({row.Name, row.Item});
        }
    }
    return controls;
}

std::vector<NamedHandler> Form1::Handlers() {
    const auto bind = [this](std::string_view name, Handler handler) {
        return NamedHandler{name, [this, handler] { (this->*handler)(); }};
    };
    return {
        {"Form_Load", [this] { Form_Load(); }},
        {"Form_Unload", [this] { Unload(); }},
        {"Form_Resize", [this] { Form_Resize(); }},
        bind("mnuOpen_Click", &Form1::mnuOpen_Click),
        bind("mnuSave_Click", &Form1::mnuSave_Click),
        bind("mnuExit_Click", &Form1::mnuExit_Click),
        bind("mnuBoxCopy_Click", &Form1::mnuBoxCopy_Click),
        bind("mnuSelCopy_Click", &Form1::mnuSelCopy_Click),
        bind("mnuCopyConvert_Click", &Form1::mnuCopyConvert_Click),
        bind("mnuPaste_Click", &Form1::mnuPaste_Click),
        bind("mnuClearPaste_Click", &Form1::mnuClearPaste_Click),
        bind("mnuClearPasteNet4_Click", &Form1::mnuClearPasteNet4_Click),
        bind("mnuEntEd_Click", &Form1::mnuEntEd_Click),
        bind("mnuDel_Click", &Form1::mnuDel_Click),
        bind("mnuClear_Click", &Form1::mnuClear_Click),
        bind("mnuConvert_Click", &Form1::mnuConvert_Click),
        bind("mnuUn_Click", &Form1::mnuUn_Click),
        bind("mnuParse_Click", &Form1::mnuParse_Click),
        bind("cmdCancel_Click", &Form1::cmdCancel_Click),
        bind("List1_Click", &Form1::List1_Click),
        bind("List2_Click", &Form1::List2_Click),
        bind("Text1_Change", &Form1::Text1_Change),
    };
}

}  // namespace orvik
