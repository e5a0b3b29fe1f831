#include "book/transfer.h"

#include <cstddef>
#include <memory>

#include <glib.h>

namespace orvik::book {
namespace {

struct Freer {
    void operator()(gchar* text) const { g_free(text); }
};

// The digits of base64 alone; false if there are other signs, or a digit too many.
bool TakeDigits(std::string_view text, std::string& digits) {
    bool ended = false;
    for (const char c : text) {
        if (g_ascii_isspace(c)) {
            continue;
        }
        const bool digit = g_ascii_isalnum(c) || c == '+' || c == '/';
        if ((digit && ended) || (!digit && c != '=')) {
            return false;
        }
        ended = ended || !digit;
        if (digit) {
            digits += c;
        }
    }
    return digits.size() % 4 != 1;
}

}  // namespace

bool AppendBase64(std::string_view base64, std::string& to) {
    std::string digits;
    digits.reserve(base64.size() + 2);
    if (!TakeDigits(base64, digits)) {
        return false;
    }
    digits.append((4 - digits.size() % 4) % 4, '=');
    const std::size_t before = to.size();
    to.resize(before + digits.size() / 4 * 3 + 3);
    gint state = 0;
    guint saved = 0;
    auto* const place = reinterpret_cast<guchar*>(to.data() + before);
    to.resize(before + g_base64_decode_step(digits.data(), digits.size(), place, &state, &saved));
    return true;
}

std::string ToBase64(std::string_view bytes) {
    const std::unique_ptr<gchar, Freer> text(
        g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size()));
    return text.get();
}

bool AppendQuotedPrintable(std::string_view text, std::string& to) {
    bool odd = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool byte = text[i] == '=' && i + 2 < text.size() && g_ascii_isxdigit(text[i + 1]) &&
                          g_ascii_isxdigit(text[i + 2]);
        if (byte) {
            to += static_cast<char>(g_ascii_xdigit_value(text[i + 1]) * 16 +
                                    g_ascii_xdigit_value(text[i + 2]));
            i += 2;
        } else {
            odd = odd || text[i] == '=';
            to += text[i];
        }
    }
    return odd;
}

}  // namespace orvik::book
