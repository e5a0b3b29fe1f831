#include "formats/pim_export.h"

#include <algorithm>
#include <array>

#include "app/text.h"

namespace orvik {
namespace {

constexpr std::array<std::string_view, 5> kDropped = {
    "dn: ", "cn: ", "objectclass: ", "xmozillause", "xnav"};

constexpr std::string_view kRecordBreak = "\r\n\r\n";

// Whether neither a line break nor a dropped key begins with this character.
bool IsPlain(char c) {
    return c != '\r' && c != 'd' && c != 'c' && c != 'o' && c != 'x';
}

// How many characters from i on are exported as they are, whatever stands around them.
std::size_t PlainRun(std::string_view text, std::size_t i) {
    const std::string_view rest = Mid(text, i);
    return static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), IsPlain) -
                                    rest.begin());
}

bool IsDropped(std::string_view text, std::size_t i) {
    const std::string_view rest = Mid(text, i);
    return !rest.empty() && !IsPlain(rest.front()) &&
           std::any_of(kDropped.begin(), kDropped.end(), [&](std::string_view key) {
               return rest.starts_with(key);
           });
}

// Goes from a dropped key at i to where the walk goes on: two before the line
// feed of its line. Returns false where no line feed follows.
bool SkipLine(std::string_view text, std::size_t& i) {
    const std::size_t end = FindFrom(text, "\n", i);
    if (end > text.size()) {
        return false;
    }
    i = end - 2;
    return true;
}

enum class Found { Value, DroppedLine, End };

// Goes from a line break at i to the ":" of the next line that is kept, and past it.
Found FindValue(std::string_view text, std::size_t& i) {
    for (; text[i - 1] != ':'; ++i) {
        if (IsDropped(text, i)) {
            return SkipLine(text, i) ? Found::DroppedLine : Found::End;
        }
        if (i >= text.size()) {
            return Found::End;
        }
    }
    ++i;
    return Found::Value;
}

}  // namespace

std::string ExportPim(std::string_view ldif,
                      std::string_view separator,
                      const std::function<void(std::size_t)>& progress) {
    std::string output;
    bool begins_record = false;
    for (std::size_t i = 1; i <= ldif.size(); ++i) {
        if (const std::size_t run = PlainRun(ldif, i); run > 0) {
            output.append(Mid(ldif, i, run));
            i += run - 1;
            progress(i);
            continue;
        }
        progress(i);
        if (IsDropped(ldif, i)) {
            if (!SkipLine(ldif, i)) {
                return output;
            }
        } else if (Mid(ldif, i, 2) == kCrLf && Mid(ldif, i, 4) != kRecordBreak) {
            switch (FindValue(ldif, i)) {
                case Found::End:
                    return output;
                case Found::DroppedLine:
                    break;
                case Found::Value:
                    if (!output.empty() && !begins_record) {
                        output.append(separator);
                    } else {
                        begins_record = false;
                    }
                    break;
            }
        } else {
            output += ldif[i - 1];
        }
        if (Mid(ldif, i, 4) == kRecordBreak) {
            begins_record = true;
        }
    }
    return output;
}

std::size_t CountExported(std::string_view output) {
    std::size_t count = 0;
    while (!output.empty()) {
        const std::size_t end = std::min(output.find(kCrLf), output.size());
        count += end > 0 ? 1 : 0;
        output.remove_prefix(std::min(end + kCrLf.size(), output.size()));
    }
    return count;
}

}  // namespace orvik
