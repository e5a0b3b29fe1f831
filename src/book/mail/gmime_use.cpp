#include "book/mail/gmime_use.h"

#include <array>

namespace orvik::book {

GMimeParserOptions* MailOptions() {
    static GMimeParserOptions* const options = [] {
        g_mime_init();
        GMimeParserOptions* const made = g_mime_parser_options_new();
        std::array<const char*, 3> charsets = {"utf-8", "windows-1252", nullptr};
        g_mime_parser_options_set_fallback_charsets(made, charsets.data());
        return made;
    }();
    return options;
}

}  // namespace orvik::book
