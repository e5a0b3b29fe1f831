#include "book/match/plan.h"

#include <memory>

#include <glib.h>

#include "app/printable.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

struct TextFreer {
    void operator()(gchar* text) const { g_free(text); }
};

std::string PlaceOf(const Book& book, std::uint32_t record) {
    const Origin& from = book.Contacts[record].From;
    return QuotedName(book.SourceAt(from.File).Name()) + ":" + std::to_string(from.Line);
}

bool NeedsQuotes(std::string_view name) {
    return name.empty() || name.find_first_of(" \"\\:#") != std::string_view::npos ||
           CountUtf8(name).Bad > 0 || Printable(name) != name;
}

void AppendByte(unsigned char byte, std::string& to) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    to += "\\x";
    to += kDigits[byte >> 4U];
    to += kDigits[byte & 0x0FU];
}

}  // namespace

std::string QuotedName(std::string_view name) {
    if (!NeedsQuotes(name)) {
        return std::string(name);
    }
    // Letters that nobody sees, or that turn others round, are written in bytes, too.
    const bool escaped = CountUtf8(name).Bad > 0 || Printable(name) != name;
    std::string quoted = "\"";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ' || byte == 0x7F || (byte >= 0x80 && escaped)) {
            AppendByte(byte, quoted);
        } else {
            quoted += c == '"' || c == '\\' ? "\\" : "";
            quoted += c;
        }
    }
    return quoted + "\"";
}

std::string Sha256(std::string_view bytes) {
    const std::unique_ptr<gchar, TextFreer> sum(g_compute_checksum_for_data(
        G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(bytes.data()), bytes.size()));
    return sum.get();
}

std::string SourceLine(const Source& source) {
    return "# source " + QuotedName(source.Name()) + " " + Sha256(source.Bytes()) + "\n";
}

std::string NoteLine(std::string_view note) {
    return std::string("# not compared: ").append(note) + "\n";
}

std::string PlanLine(const Book& book, const MatchLine& line) {
    std::string text(NameOf(line.Do));
    text.resize(7, ' ');
    const char* between = "";
    for (const std::uint32_t record : line.Records) {
        text.append(between).append(PlaceOf(book, record));
        between = "  ";
    }
    return text.append("   # ").append(NameOf(line.Why)) + ": " + line.Reason + "\n";
}

std::string PlanText(const Book& book, const Matches& found) {
    std::string text;
    for (std::uint32_t i = 0; i < book.SourceCount(); ++i) {
        text += SourceLine(book.SourceAt(i));
    }
    for (const MatchLine& line : found.Lines) {
        text += PlanLine(book, line);
    }
    for (const std::string& note : found.Notes) {
        text += NoteLine(note);
    }
    return text;
}

}  // namespace orvik::book
