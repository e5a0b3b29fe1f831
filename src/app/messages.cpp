#include "app/messages.h"

namespace orvik {

std::string TextNonexistant(std::string_view opening) {
    std::string text(opening);
    text.append(" #USR&001 occured: \"Text Nonexistant\". Please E-Mail a bug report to ");
    return text.append(kSupportAddress);
}

std::string UnknownFormat() {
    std::string text =
        "An Error type #USR&002 occured: \"The file does not appear to be of the known format\". "
        "If nothing helps, please E-Mail a bug report to ";
    return text.append(kSupportAddress).append(". Select type?");
}

std::string TooMuchText() {
    std::string text =
        "An Error type #USR&003 occured: \"Too much text\". Orvik cannot handle over 32000 "
        "characters of text. If you are positive that you are editing less text, please E-Mail a "
        "bug report to ";
    return text.append(kSupportAddress);
}

}  // namespace orvik
