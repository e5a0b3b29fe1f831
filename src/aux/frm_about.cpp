#include "aux/frm_about.h"

#include <string>

#include "app/module1.h"

namespace orvik {
namespace {

constexpr std::string_view kAbout =
    "Orvik 4.1 converts between multiple formats of addressbooks, and can sort "
    "addresses by Name or "
    "by Address. Automation is also supported. This program is still free, but "
    "I would appreciate "
    "it if you would send something to me, like a comment, at ";

constexpr std::string_view kFuturePlans =
    "Now that Orvik 4.1 for Windows is out, with only minor enhancements, I "
    "can concentrate on "
    "putting the finishing touches on the Orvik Wizard, the first version of "
    "which, tentatively "
    "called Orvik 4.2 beta 1 is coming out soon. In fact, a version of the "
    "Orvik Wizard is likely to "
    "be available already. After the Wizard matures project Orvik will be "
    "winding down, at least on "
    "the Windows platform. Bug fixes and new formats may still be supported, "
    "but no updates beyond "
    "4.x are expected. A parallel effort for a C-based cross-platform release "
    "is underway. In fact, "
    "Orvik 4.0 beta 1 for UNIX has been released. The final release might be "
    "postponed until Orvik "
    "for Windows is in a more or less stable state. The following features may "
    "or may not find "
    "their way into Orvik. If they do they will appear in a 4.1, 4.2, or 4.3 "
    "release. They are "
    "mailing list support and Live Update.";

constexpr std::string_view kSecret =
    "Yes, you have uncovered a secret, so what? Oh yeah, this is supposed to "
    "be an easter, and I do "
    "mean Easter egg, heh heh. Happy Easter and Passover 1998/5758!";

}  // namespace

std::vector<NamedControl> FrmAbout::Controls() {
    return {
        {"Picture1", &Picture1},
        {"Picture2", &Picture2},
        {"Text1", &Text1, {}, [this] { Text1_DblClick(); }},
        Clicked("Command1", &Command1, &FrmAbout::Command1_Click),
    };
}

void FrmAbout::ShowAbout() {
    ShowText("About Orvik", std::string(kAbout).append(kSupportAddress).append("."));
}

void FrmAbout::ShowFuturePlans() {
    ShowText("Future Plans", kFuturePlans);
}

void FrmAbout::ShowText(std::string_view caption, std::string_view text) {
    Text1.SetText("");
    Text1.SetText(std::string(text));
    Caption = caption;
    Picture2.Picture = Picture1.Picture;
    Show(Showing::Modeless);
}

void FrmAbout::Text1_DblClick() {
    Picture2.Picture.clear();
    Text1.SetText(std::string(kSecret));
}

void Form1::mnuAbout_Click() {
    module_.frm_about.ShowAbout();
}

void Form1::mnuFuture_Click() {
    module_.frm_about.ShowFuturePlans();
}

}  // namespace orvik
