// The removal of all settings.

#include "app/form1.h"
#include "app/module1.h"

namespace orvik {

void Form1::mnuUninst_Click() {
    module_.platform.DeleteSettings();
}

}  // namespace orvik
