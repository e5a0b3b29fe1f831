// Form1's menus, controls and handlers as tables.

#include "app/form1.h"

namespace orvik {

std::vector<Form1::Menu> Form1::Menus() {
    return {
        {"mnuFile",
         &mnuFile,
         {
             {"mnuOpen", &mnuOpen, &Form1::mnuOpen_Click},
             {"mnuExtract", &mnuExtract, &Form1::mnuExtract_Click},
             {"mnuSave", &mnuSave, &Form1::mnuSave_Click},
             {"mnuMerge", &mnuMerge, &Form1::mnuMerge_Click},
             {"mnuAuto", &mnuAuto, &Form1::mnuAuto_Click},
             {"mnuSeventhDash", &mnuSeventhDash, nullptr},
             {"mnuList", &mnuList, &Form1::mnuList_Click},
             {"mnuFull", &mnuFull, &Form1::mnuFull_Click},
             {"mnuUninst", &mnuUninst, &Form1::mnuUninst_Click},
             {"mnuFirstDash", &mnuFirstDash, nullptr},
             {"mnuExit", &mnuExit, &Form1::mnuExit_Click},
         }},
        {"mnuEdit",
         &mnuEdit,
         {
             {"mnuBoxCopy", &mnuBoxCopy, &Form1::mnuBoxCopy_Click},
             {"mnuSelCopy", &mnuSelCopy, &Form1::mnuSelCopy_Click},
             {"mnuCopyConvert", &mnuCopyConvert, &Form1::mnuCopyConvert_Click},
             {"mnuCopyNet3", &mnuCopyNet3, &Form1::mnuCopyNet3_Click},
             {"mnuJuno", &mnuJuno, &Form1::mnuJuno_Click},
             {"mnuSecondDash", &mnuSecondDash, nullptr},
             {"mnuPaste", &mnuPaste, &Form1::mnuPaste_Click},
             {"mnuClearPaste", &mnuClearPaste, &Form1::mnuClearPaste_Click},
             {"mnuClearPasteNet4", &mnuClearPasteNet4, &Form1::mnuClearPasteNet4_Click},
             {"mnuClearPasteNet3", &mnuClearPasteNet3, &Form1::mnuClearPasteNet3_Click},
             {"mnuPasteJuno", &mnuPasteJuno, &Form1::mnuPasteJuno_Click},
             {"mnuThirdDash", &mnuThirdDash, nullptr},
             {"mnuEntEd", &mnuEntEd, &Form1::mnuEntEd_Click},
             {"mnuDel", &mnuDel, &Form1::mnuDel_Click},
             {"mnuClear", &mnuClear, &Form1::mnuClear_Click},
             {"mnuFifthDash", &mnuFifthDash, nullptr},
             {"mnuPrefs", &mnuPrefs, &Form1::mnuPrefs_Click},
         }},
        {"mnuOrvik",
         &mnuOrvik,
         {
             {"mnuConvert", &mnuConvert, &Form1::mnuConvert_Click},
             {"mnuFourthDash", &mnuFourthDash, nullptr},
             {"mnuAlphNick", &mnuAlphNick, &Form1::mnuAlphNick_Click},
             {"mnuAlphAddr", &mnuAlphAddr, &Form1::mnuAlphAddr_Click},
             {"mnuRemDup", &mnuRemDup, &Form1::mnuRemDup_Click},
             {"mnuSixthDash", &mnuSixthDash, nullptr},
             {"mnuUn", &mnuUn, &Form1::mnuUn_Click},
             {"mnuParse", &mnuParse, &Form1::mnuParse_Click},
         }},
        {"mnuHelp",
         &mnuHelp,
         {
             {"mnuHlp", &mnuHlp, &Form1::mnuHlp_Click},
             {"mnuHelpContents", &mnuHelpContents, &Form1::mnuHelpContents_Click},
             {"mnuHelpIndex", &mnuHelpIndex, &Form1::mnuHelpIndex_Click},
             {"mnuEighthDash", &mnuEighthDash, nullptr},
             {"mnuAbout", &mnuAbout, &Form1::mnuAbout_Click},
             {"mnuFuture", &mnuFuture, &Form1::mnuFuture_Click},
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
        bind("mnuExtract_Click", &Form1::mnuExtract_Click),
        bind("mnuSave_Click", &Form1::mnuSave_Click),
        bind("mnuMerge_Click", &Form1::mnuMerge_Click),
        bind("mnuList_Click", &Form1::mnuList_Click),
        bind("mnuAuto_Click", &Form1::mnuAuto_Click),
        bind("mnuFull_Click", &Form1::mnuFull_Click),
        bind("mnuUninst_Click", &Form1::mnuUninst_Click),
        bind("mnuPrefs_Click", &Form1::mnuPrefs_Click),
        bind("mnuExit_Click", &Form1::mnuExit_Click),
        bind("mnuBoxCopy_Click", &Form1::mnuBoxCopy_Click),
        bind("mnuSelCopy_Click", &Form1::mnuSelCopy_Click),
        bind("mnuCopyConvert_Click", &Form1::mnuCopyConvert_Click),
        bind("mnuCopyNet3_Click", &Form1::mnuCopyNet3_Click),
        bind("mnuJuno_Click", &Form1::mnuJuno_Click),
        bind("mnuPaste_Click", &Form1::mnuPaste_Click),
        bind("mnuClearPaste_Click", &Form1::mnuClearPaste_Click),
        bind("mnuClearPasteNet4_Click", &Form1::mnuClearPasteNet4_Click),
        bind("mnuClearPasteNet3_Click", &Form1::mnuClearPasteNet3_Click),
        bind("mnuPasteJuno_Click", &Form1::mnuPasteJuno_Click),
        bind("mnuEntEd_Click", &Form1::mnuEntEd_Click),
        bind("mnuDel_Click", &Form1::mnuDel_Click),
        bind("mnuClear_Click", &Form1::mnuClear_Click),
        bind("mnuConvert_Click", &Form1::mnuConvert_Click),
        bind("mnuAlphNick_Click", &Form1::mnuAlphNick_Click),
        bind("mnuAlphAddr_Click", &Form1::mnuAlphAddr_Click),
        bind("mnuRemDup_Click", &Form1::mnuRemDup_Click),
        bind("mnuUn_Click", &Form1::mnuUn_Click),
        bind("mnuParse_Click", &Form1::mnuParse_Click),
        bind("mnuHlp_Click", &Form1::mnuHlp_Click),
        bind("mnuHelpContents_Click", &Form1::mnuHelpContents_Click),
        bind("mnuHelpIndex_Click", &Form1::mnuHelpIndex_Click),
        bind("mnuAbout_Click", &Form1::mnuAbout_Click),
        bind("mnuFuture_Click", &Form1::mnuFuture_Click),
        bind("cmdEmail_Click", &Form1::cmdEmail_Click),
        bind("cmdNick_Click", &Form1::cmdNick_Click),
        bind("cmdDone_Click", &Form1::cmdDone_Click),
        bind("cmdCancel_Click", &Form1::cmdCancel_Click),
        bind("List1_Click", &Form1::List1_Click),
        bind("List2_Click", &Form1::List2_Click),
        {"Text1_Change", [this] { Text1.RunChange(); }},
    };
}

}  // namespace orvik
