// The format chooser: the user names the format of the file that is in the working text.

#pragma once

#include <vector>

#include "app/controls.h"
#include "app/form.h"
#include "app/shared_text.h"

namespace orvik {

class Form3 : public Form {
 public:
    explicit Form3(Module1& module);

    // The buttons stand in the form's order.
    std::vector<NamedControl> Controls() override;

    void Form_Load() override;
    void Form_Activate() override;
    bool Form_Unload() override;
    void Form_KeyUp(int key_code) override;

    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();
    void Command10_Click();

    Label Label1{" Please indicate the format this file is in."};
    Button Command10{"&WordPerfect Addressbook"};
    Button Command9{"&Help"};
    Button Command8{"&Open another file"};
    Button Command7{"&Cancel"};
    Button Command4{"Microsoft's &Internet Explorer, Outlook, etc Addressbook"};
    Button Command3{"N&etscape 3.x HTML Addressbook"};
    Button Command5{"&Juno Addressbook"};
    Button Command2{"&Netscape 4 + LDIF/LDAP Addressbook"};
    Button Command1{"&ASCII list"};
    Button Command6{"&Pegasus Mail Distribution List"};

 private:
    std::vector<NamedHandler> OtherHandlers() override;
    template <void (Module1::*Loader)()>
    void LoadAs();

    SharedText saved_text_;
    bool closed_by_button_ = false;
};

}  // namespace orvik
