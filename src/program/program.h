// The root: one run of the program, with its shared state and every window.

#pragma once

#include <vector>

#include "app/form1.h"
#include "app/module1.h"
#include "aux/frm_about.h"
#include "aux/frm_select.h"
#include "files/form3.h"
#include "formats/form4.h"
#include "formats/form5.h"
#include "platform/file_system.h"
#include "platform/platform.h"
#include "settings/form2.h"
#include "settings/form6.h"

namespace orvik {

class Program {
 public:
    // Both must outlive the program.
    Program(Platform& platform, FileSystem& files) : platform_(platform), files_(files) {}
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    Program(Program&&) = delete;
    Program& operator=(Program&&) = delete;
    ~Program() = default;

    // Every window.
    [[nodiscard]] std::vector<Form*> Forms() {
        return {&form1, &form2, &form3, &form4, &form5, &form6, &frm_about, &frm_select};
    }

 private:
    Platform& platform_;
    FileSystem& files_;

 public:
    // The shared state stands before the windows: making them reads and writes it.
    Module1 module{
        platform_, files_, {form1, form2, form3, form4, form5, form6, frm_about, frm_select}};
    Form1 form1{module};
    Form2 form2{module};
    Form3 form3{module};
    Form4 form4{module};
    Form5 form5{module};
    Form6 form6{module};
    FrmAbout frm_about{module};
    FrmSelect frm_select{module};
};

}  // namespace orvik
