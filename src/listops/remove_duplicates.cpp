// Remove duplicates.

#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/working_text.h"

namespace orvik {

void Form1::mnuRemDup_Click() {
    module_.RemoveDuplicates();
}

void Module1::RemoveDuplicates() {
    const std::string count = std::to_string(form1.List1.Items().size());
    Tell(count);
    // Each line is compared with the text from its start on, so it is found to be its own duplicate
    // and none is kept. Older versions leave the same text; Undo brings the entries back.
    WorkText = kNick;
    Tell(count);
}

}  // namespace orvik
