// Which loader a file is given to.

#include "app/module1.h"
#include "app/scope.h"
#include "formats/endings.h"

namespace orvik {
namespace {

using Loader = void (Module1::*)();

Loader LoaderOf(Format format) {
    switch (format) {
        case Format::Netscape3:
            return &Module1::OpenNetscape3;
        case Format::Netscape4:
            return &Module1::OpenNetscape4;
        case Format::TextList:
            return &Module1::OpenTextList;
        case Format::Csv:
            return &Module1::OpenCsv;
        case Format::WordPerfect:
            return &Module1::OpenWordPerfect;
        case Format::Juno:
            return &Module1::OpenJuno;
        case Format::Pegasus:
            return &Module1::OpenPegasus;
        case Format::AnyFile:
            break;
    }
    return &Module1::ExtractFromFile;
}

}  // namespace

bool Module1::LoadByEnding(const std::string& name, bool pegasus) {
    // Of a book that was not loaded nothing was left out.
    const OnFailure forget([this] { Note.LeftOut = {}; });
    const Ending* const ending = FindEnding(name);
    if (ending != nullptr && (pegasus || ending->What != Format::Pegasus)) {
        (this->*LoaderOf(ending->What))();
    } else if (OpenMode == kDetectAlways) {
        OpenTextList();
    } else {
        ChooseFormat(Showing::Modal);
        return false;
    }
    return true;
}

}  // namespace orvik
