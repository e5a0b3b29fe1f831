#include "book_cli/prepared.h"

#include "book_cli/limits.h"
#include "book_cli/told.h"

namespace orvik::book_cli {

Prepared Prepare(const Arguments& chosen, Loaded& loaded, Console& console) {
    Prepared made{Write(chosen, loaded, console)};
    made.Refused = TooManyFor(chosen, made.Whole.Records);
    if (made.Refused.empty()) {
        made.Refused = Refusal(loaded.Book, chosen.AllowLoss);
    }
    if (!made.Refused.empty()) {
        return made;
    }
    if (chosen.Form != nullptr) {
        DoubtWhatIsTooMuch(*chosen.Form, loaded.Book, made.Whole);
        made.TooMuch = TooMuchInAll(*chosen.Form, loaded.Book, made.Whole);
    }
    if (chosen.Split > 0) {
        made.Parts = Cut(chosen, loaded.Book, made.Whole);
    }
    return made;
}

}  // namespace orvik::book_cli
