#include "files/recovery_copy.h"

#include <charconv>
#include <system_error>

namespace orvik {
namespace {

// The last field: without it the file is cut off.
constexpr std::string_view kEnd = "end";

void AppendField(std::string& bytes, std::string_view name, std::string_view value) {
    bytes.append(name).append(" ").append(std::to_string(value.size())).append("\n");
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

// Returns false for a value that cannot be.
bool Take(const Field& field, RecoveryCopy& copy) {
    const auto& [name, value] = field;
    if (name == "text") {
        copy.Text = value;
    } else if (name == "mode") {
        copy.Mode = value;
    } else if (name == "caption") {
        copy.Caption = value;
    } else if (name == "box") {
        copy.Box = value;
    } else if (name == "box-is-text") {
        copy.Box = copy.Text;
    } else if (name == "edit-mode") {
        copy.EditMode = true;
    } else if (name == "file") {
        copy.File = value;
    } else if (name == "entries") {
        return ParseNumber(value, copy.Entries);
    } else if (name == "seconds") {
        return ParseNumber(value, copy.Seconds);
    }
    return true;
}

}  // namespace

std::string WriteRecoveryCopy(const RecoveryCopy& copy) {
    constexpr std::size_t kNames = 200;
    const bool box_is_text = copy.Box == copy.Text;
    std::string bytes;
    bytes.reserve(copy.Text.size() + (box_is_text ? 0 : copy.Box.size()) + copy.Caption.size() +
                  copy.File.size() + kNames);
    bytes.append(kRecoveryBeginning);
    AppendField(bytes, "seconds", std::to_string(copy.Seconds));
    AppendField(bytes, "entries", std::to_string(copy.Entries));
    AppendField(bytes, "file", copy.File);
    AppendField(bytes, "caption", copy.Caption);
    AppendField(bytes, "mode", copy.Mode);
    if (copy.EditMode) {
        AppendField(bytes, "edit-mode", "");
    }
    AppendField(bytes, "text", copy.Text);
    if (box_is_text) {
        AppendField(bytes, "box-is-text", "");
    } else {
        AppendField(bytes, "box", copy.Box);
    }
    AppendField(bytes, kEnd, "");
    return bytes;
}

std::optional<RecoveryCopy> ReadRecoveryCopy(std::string_view bytes) {
    if (!bytes.starts_with(kRecoveryBeginning)) {
        return std::nullopt;
    }
    bytes.remove_prefix(kRecoveryBeginning.size());
    RecoveryCopy copy;
    while (const std::optional<Field> field = TakeField(bytes)) {
        if (field->Name == kEnd) {
            return copy;
        }
        if (!Take(*field, copy)) {
            break;
        }
    }
    return std::nullopt;
}

}  // namespace orvik
