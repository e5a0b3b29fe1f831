// Which loader a file is given to.

#include <algorithm>
#include <array>
#include <string>

#include "app/module1.h"
#include "app/text.h"

namespace orvik {
namespace {

struct Row {
    std::string_view Ending;
    void (Module1::*Loader)();
};

// The first row whose ending the name has decides. Only the tail of the whole path counts.
constexpr std::array kRows = {
    Row{"html", &Module1::OpenNetscape3},
    Row{"htm", &Module1::OpenNetscape3},
    Row{"ldif", &Module1::OpenNetscape4},
    Row{"txt", &Module1::OpenTextList},
    Row{"csv", &Module1::OpenCsv},
    Row{"abx", &Module1::OpenWordPerfect},
    Row{"nv", &Module1::OpenJuno},
    Row{"pml", &Module1::OpenPegasus},
    Row{"xtr", &Module1::ExtractFromFile},
};

}  // namespace

void Module1::LoadByEnding(const std::string& name, bool pegasus) {
    const auto* const row = std::find_if(kRows.begin(), kRows.end(), [&](const Row& known) {
        return HasEnding(name, known.Ending) && (pegasus || known.Ending != "pml");
    });
    if (row != kRows.end()) {
        (this->*row->Loader)();
    } else if (OpenMode == kDetectAlways) {
        OpenTextList();
    } else {
        form3.Show(Showing::Modal);
    }
}

}  // namespace orvik
