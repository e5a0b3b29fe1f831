#include "book_cli/verbs.h"

namespace orvik::book_cli {

cli::ExitStatus Run(const Arguments& arguments, Console& console) {
    // Its plan says which files are read.
    if (arguments.What == Verb::Clean) {
        return Clean(arguments, console);
    }
    Outputs outputs(console, arguments);
    const cli::ExitStatus status = outputs.Check();
    if (status != cli::ExitStatus::Done) {
        return status;
    }
    switch (arguments.What) {
        case Verb::Convert:
            return Convert(arguments, console, outputs);
        case Verb::Check:
            return Check(arguments, console, outputs);
        case Verb::Diff:
            return Diff(arguments, console, outputs);
        case Verb::Find:
            return Find(arguments, console, outputs);
        case Verb::Dupes:
            return Dupes(arguments, console, outputs);
        case Verb::Clean:
        case Verb::Show:
            break;
    }
    return Show(arguments, console, outputs);
}

}  // namespace orvik::book_cli
