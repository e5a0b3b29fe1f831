#include "files/recovery_copy.h"

#include <array>
#include <charconv>
#include <system_error>
#include <utility>

namespace orvik {
namespace {

// The last field: without it the file is cut off.
constexpr std::string_view kEnd = "end";

void AppendHead(std::string& bytes, std::string_view name, std::size_t length) {
    bytes.append(name).append(" ").append(std::to_string(length)).append("\n");
}

void AppendField(std::string& bytes, std::string_view name, std::string_view value) {
    AppendHead(bytes, name, value.size());
    bytes.append(value).append("\n");
}

template <class Number>
bool ParseNumber(std::string_view digits, Number& number) {
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && rest == end;
}

struct Field {
    std::string_view Name;
    std::string_view Value;
};

// Takes the first field of bytes away; nothing where there is no whole one.
std::optional<Field> TakeField(std::string_view& bytes) {
    const std::size_t line = bytes.find('\n');
    const std::size_t blank = bytes.substr(0, line).rfind(' ');
    std::size_t length = 0;
    if (line == std::string_view::npos || blank == std::string_view::npos ||
        !ParseNumber(bytes.substr(blank + 1, line - blank - 1), length)) {
        return std::nullopt;
    }
    const Field field{bytes.substr(0, blank), bytes.substr(line + 1, length)};
    bytes.remove_prefix(line + 1 + field.Value.size());
    if (field.Value.size() < length || !bytes.starts_with('\n')) {
        return std::nullopt;
    }
    bytes.remove_prefix(1);
    return field;
}

// What was found of each field. Where one stands twice the first counts.
struct Found {
    std::optional<std::string_view> Text, Mode, Caption, Box, BoxIsText, EditMode, File, Entries,
        Seconds;
};

void Take(const Field& field, Found& found) {
    using Place = std::optional<std::string_view> Found::*;
    constexpr std::array<std::pair<std::string_view, Place>, 9> kPlaces = {{
        {"text", &Found::Text},
        {"mode", &Found::Mode},
        {"caption", &Found::Caption},
        {"box", &Found::Box},
        {"box-is-text", &Found::BoxIsText},
        {"edit-mode", &Found::EditMode},
        {"file", &Found::File},
        {"entries", &Found::Entries},
        {"seconds", &Found::Seconds},
    }};
    // Both say what the box holds.
    if ((found.Box && field.Name == "box-is-text") || (found.BoxIsText && field.Name == "box")) {
        return;
    }
    for (const auto& [name, place] : kPlaces) {
        if (name == field.Name && !(found.*place)) {
            found.*place = field.Value;
        }
    }
}

// A number that cannot be is no reason to lose the text.
template <class Number>
Number NumberOf(std::optional<std::string_view> digits, Number largest, Number unknown) {
    Number number = 0;
    return digits && ParseNumber(*digits, number) && number >= 0 && number <= largest ? number
                                                                                      : unknown;
}

std::optional<RecoveryCopy> CopyOf(const Found& found) {
    constexpr std::int64_t kYear10000 = 253'402'300'800;
    if (!found.Text) {
        return std::nullopt;
    }
    RecoveryCopy copy;
    copy.Text = *found.Text;
    copy.Mode = found.Mode.value_or("");
    copy.Caption = found.Caption.value_or("");
    copy.Box = found.BoxIsText ? copy.Text : SharedText(found.Box.value_or(""));
    copy.EditMode = found.EditMode.has_value();
    copy.File = found.File.value_or("");
    copy.Entries = NumberOf(found.Entries, kUnknownEntries - 1, kUnknownEntries);
    copy.Seconds = NumberOf(found.Seconds, kYear10000 - 1, std::int64_t{0});
    return copy;
}

}  // namespace

void GiveRecoveryCopy(const RecoveryCopy& copy, const TakePiece& take) {
    std::string between(kRecoveryBeginning);
    AppendField(between, "seconds", std::to_string(copy.Seconds));
    AppendField(between, "entries", std::to_string(copy.Entries));
    AppendField(between, "file", copy.File);
    AppendField(between, "caption", copy.Caption);
    AppendField(between, "mode", copy.Mode);
    if (copy.EditMode) {
        AppendField(between, "edit-mode", "");
    }
    AppendHead(between, "text", copy.Text.size());
    take(between);
    take(copy.Text);
    between = "\n";
    if (copy.Box == copy.Text) {
        AppendField(between, "box-is-text", "");
    } else {
        AppendHead(between, "box", copy.Box.size());
        take(between);
        take(copy.Box);
        between = "\n";
    }
    AppendField(between, kEnd, "");
    take(between);
}

std::string WriteRecoveryCopy(const RecoveryCopy& copy) {
    std::string bytes;
    GiveRecoveryCopy(copy, [&bytes](std::string_view piece) { bytes.append(piece); });
    return bytes;
}

std::optional<RecoveryCopy> ReadRecoveryCopy(std::string_view bytes) {
    if (!bytes.starts_with(kRecoveryBeginning)) {
        return std::nullopt;
    }
    bytes.remove_prefix(kRecoveryBeginning.size());
    Found found;
    while (const std::optional<Field> field = TakeField(bytes)) {
        if (field->Name == kEnd) {
            return CopyOf(found);
        }
        Take(*field, found);
    }
    return std::nullopt;
}

}  // namespace orvik
