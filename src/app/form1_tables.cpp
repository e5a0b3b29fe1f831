// Form1's menus, controls and handlers as tables.

#include <algorithm>
#include <iterator>

#include "app/form1.h"

namespace orvik {

std::vector<Form1::Menu> Form1::Menus() {
    return {
        {"mnuFile",
         &mnuFile,
         {
             Clicked("mnuOpen", &mnuOpen, &Form1::mnuOpen_Click),
             Clicked("mnuExtract", &mnuExtract, &Form1::mnuExtract_Click),
             Clicked("mnuSave", &mnuSave, &Form1::mnuSave_Click),
             Clicked("mnuMerge", &mnuMerge, &Form1::mnuMerge_Click),
             Clicked("mnuAuto", &mnuAuto, &Form1::mnuAuto_Click),
             {"mnuSeventhDash", &mnuSeventhDash},
             Clicked("mnuList", &mnuList, &Form1::mnuList_Click),
             Clicked("mnuFull", &mnuFull, &Form1::mnuFull_Click),
             Clicked("mnuUninst", &mnuUninst, &Form1::mnuUninst_Click),
             {"mnuFirstDash", &mnuFirstDash},
             Clicked("mnuExit", &mnuExit, &Form1::mnuExit_Click),
         }},
        {"mnuEdit",
         &mnuEdit,
         {
             Clicked("mnuBoxCopy", &mnuBoxCopy, &Form1::mnuBoxCopy_Click),
             Clicked("mnuSelCopy", &mnuSelCopy, &Form1::mnuSelCopy_Click),
             Clicked("mnuCopyConvert", &mnuCopyConvert, &Form1::mnuCopyConvert_Click),
             Clicked("mnuCopyNet3", &mnuCopyNet3, &Form1::mnuCopyNet3_Click),
             Clicked("mnuJuno", &mnuJuno, &Form1::mnuJuno_Click),
             {"mnuSecondDash", &mnuSecondDash},
             Clicked("mnuPaste", &mnuPaste, &Form1::mnuPaste_Click),
             Clicked("mnuClearPaste", &mnuClearPaste, &Form1::mnuClearPaste_Click),
             Clicked("mnuClearPasteNet4", &mnuClearPasteNet4, &Form1::mnuClearPasteNet4_Click),
             Clicked("mnuClearPasteNet3", &mnuClearPasteNet3, &Form1::mnuClearPasteNet3_Click),
             Clicked("mnuPasteJuno", &mnuPasteJuno, &Form1::mnuPasteJuno_Click),
             {"mnuThirdDash", &mnuThirdDash},
             Clicked("mnuEntEd", &mnuEntEd, &Form1::mnuEntEd_Click),
             Clicked("mnuDel", &mnuDel, &Form1::mnuDel_Click),
             Clicked("mnuClear", &mnuClear, &Form1::mnuClear_Click),
             {"mnuFifthDash", &mnuFifthDash},
             Clicked("mnuPrefs", &mnuPrefs, &Form1::mnuPrefs_Click),
         }},
        {"mnuOrvik",
         &mnuOrvik,
         {
             Clicked("mnuConvert", &mnuConvert, &Form1::mnuConvert_Click),
             {"mnuFourthDash", &mnuFourthDash},
             Clicked("mnuAlphNick", &mnuAlphNick, &Form1::mnuAlphNick_Click),
             Clicked("mnuAlphAddr", &mnuAlphAddr, &Form1::mnuAlphAddr_Click),
             Clicked("mnuRemDup", &mnuRemDup, &Form1::mnuRemDup_Click),
             {"mnuSixthDash", &mnuSixthDash},
             Clicked("mnuUn", &mnuUn, &Form1::mnuUn_Click),
             Clicked("mnuParse", &mnuParse, &Form1::mnuParse_Click),
         }},
        {"mnuHelp",
         &mnuHelp,
         {
             Clicked("mnuHlp", &mnuHlp, &Form1::mnuHlp_Click),
             Clicked("mnuHelpContents", &mnuHelpContents, &Form1::mnuHelpContents_Click),
             Clicked("mnuHelpIndex", &mnuHelpIndex, &Form1::mnuHelpIndex_Click),
             {"mnuEighthDash", &mnuEighthDash},
             Clicked("mnuAbout", &mnuAbout, &Form1::mnuAbout_Click),
             Clicked("mnuFuture", &mnuFuture, &Form1::mnuFuture_Click),
         }},
    };
}

std::vector<NamedControl> Form1::Controls() {
    std::vector<NamedControl> controls = {
        {"Text1", &Text1},
        {"Text3", &Text3},
        Clicked("List1", &List1, &Form1::List1_Click),
        Clicked("List2", &List2, &Form1::List2_Click),
        {"List3", &List3},
        Clicked("cmdEmail", &cmdEmail, &Form1::cmdEmail_Click),
        Clicked("cmdNick", &cmdNick, &Form1::cmdNick_Click),
        Clicked("cmdDone", &cmdDone, &Form1::cmdDone_Click),
        Clicked("cmdCancel", &cmdCancel, &Form1::cmdCancel_Click),
        {"StatusBar1", &StatusBar1},
        {"ProgressBar1", &ProgressBar1},
    };
    for (Menu& menu : Menus()) {
        controls.push_back({menu.Name, menu.Item});
        std::move(menu.Rows.begin(), menu.Rows.end(), std::back_inserter(controls));
    }
    return controls;
}

std::vector<NamedHandler> Form1::OtherHandlers() {
    return {
        {"Form_Resize", [this] { Form_Resize(); }},
        {"Text1_Change", [this] { Text1.RunChange(); }},
    };
}

}  // namespace orvik
