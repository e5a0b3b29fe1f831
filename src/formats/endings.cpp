#include "formats/endings.h"

#include <algorithm>
#include <array>

#include "app/text.h"

namespace orvik {
namespace {

constexpr std::array kEndings = {
    Ending{"html", Format::Netscape3, Saving::Adds},
    Ending{"htm", Format::Netscape3, Saving::Adds},
    Ending{"ldif", Format::Netscape4, Saving::Replaces},
    Ending{"txt", Format::TextList, Saving::Replaces},
    Ending{"csv", Format::Csv, Saving::Never},
    Ending{"abx", Format::WordPerfect, Saving::Never},
    Ending{"nv", Format::Juno, Saving::Adds},
    Ending{"pml", Format::Pegasus, Saving::Adds},
    Ending{"xtr", Format::AnyFile, Saving::Never},
};

}  // namespace

std::span<const Ending> Endings() {
    return kEndings;
}

const Ending* FindEnding(std::string_view name) {
    const auto* const found = std::find_if(
        kEndings.begin(), kEndings.end(), [&](const Ending& e) { return HasEnding(name, e.Text); });
    return found == kEndings.end() ? nullptr : found;
}

Saving SavingOf(std::string_view name) {
    const Ending* const ending = FindEnding(name);
    return ending == nullptr ? Saving::Never : ending->Way;
}

bool IsAliasFile(std::string_view name) {
    return HasEnding(name, "nndbase.txt");
}

}  // namespace orvik
