#include "book/mail/part_text.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <gmime/gmime.h>

#include "book/field_names.h"
#include "book/mail/gmime_use.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

constexpr auto kBase64 = [] {
    std::array<bool, 256> signs{};
    for (const char c : std::string_view(
             "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/= \t\r\n")) {
        signs[static_cast<unsigned char>(c)] = true;
    }
    return signs;
}();

// The lines of base64 at the start.
std::string_view Base64Of(std::string_view raw) {
    const auto* const bad = std::find_if(
        raw.begin(), raw.end(), [](char c) { return !kBase64[static_cast<unsigned char>(c)]; });
    const auto length = static_cast<std::size_t>(bad - raw.begin());
    if (length == raw.size()) {
        return raw;
    }
    const std::size_t line = raw.substr(0, length).rfind('\n');
    return raw.substr(0, line == std::string_view::npos ? 0 : line + 1);
}

std::string Decoded(std::string_view raw, GMimeContentEncoding encoding) {
    GMimeEncoding state;
    g_mime_encoding_init_decode(&state, encoding);
    std::string bytes(g_mime_encoding_outlen(&state, raw.size()), '\0');
    bytes.resize(g_mime_encoding_step(&state, raw.data(), raw.size(), bytes.data()));
    return bytes;
}

}  // namespace

std::string Untransferred(std::string_view raw, Transfer transfer, bool& whole) {
    whole = true;
    if (transfer == Transfer::QuotedPrintable) {
        return Decoded(raw, GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
    }
    if (transfer == Transfer::Plain) {
        return std::string(raw);
    }
    const std::string_view base64 = Base64Of(raw);
    whole = base64.size() == raw.size();
    std::string bytes = Decoded(base64, GMIME_CONTENT_ENCODING_BASE64);
    if (!whole) {
        bytes.append("\n").append(raw.substr(base64.size()));
    }
    return bytes;
}

bool HasPlainAscii(std::string_view charset) {
    return !StartsAsName(charset, "utf-16") && !StartsAsName(charset, "utf-32") &&
           !StartsAsName(charset, "utf-7") && !StartsAsName(charset, "unicode") &&
           !StartsAsName(charset, "ucs") && !StartsAsName(charset, "iso-10646");
}

CharsetConverter* PartLetters::Converter(std::string_view charset) {
    // Names come from strangers; hardly a folder has so many good ones.
    constexpr std::size_t kMost = 200;
    std::string name(charset);
    std::transform(name.begin(), name.end(), name.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    if (converters_.size() >= kMost) {
        converters_.clear();
    }
    const auto [place, is_new] = converters_.try_emplace(name);
    if (is_new) {
        place->second = CharsetConverter::Named(name);
    }
    return place->second ? &*place->second : nullptr;
}

std::string_view PartLetters::Text(std::string_view bytes,
                                   std::string_view charset,
                                   std::string& to,
                                   bool& known) {
    known = true;
    const bool utf8 = charset.empty() || SameName(charset, "utf-8") ||
                      SameName(charset, "us-ascii") || SameName(charset, "ascii");
    const bool plain = AsciiLength(bytes) == bytes.size();
    // An escape begins letters that are written as ASCII.
    const bool escapes = !utf8 && (bytes.find('\x1B') != std::string_view::npos ||
                                   !HasPlainAscii(charset) || StartsAsName(charset, "hz"));
    if ((plain && !escapes) || (utf8 && CountUtf8(bytes).Bad == 0)) {
        return bytes;
    }
    to.clear();
    if (StartsAsName(charset, "utf-7")) {
        iconv_t cd = g_mime_iconv_open("UTF-8", "UTF-7");
        const GText text(g_mime_iconv_strndup(cd, bytes.data(), bytes.size()));
        g_mime_iconv_close(cd);
        AppendUtf8(text ? std::string_view(text.get()) : bytes, to);
        return to;
    }
    CharsetConverter* converter = Converter(utf8 ? "windows-1252" : charset);
    if (converter == nullptr) {
        known = false;
        if (CountUtf8(bytes).Bad == 0) {
            return bytes;
        }
        converter = Converter("windows-1252");
    }
    converter->Append(bytes, to);
    return to;
}

}  // namespace orvik::book
