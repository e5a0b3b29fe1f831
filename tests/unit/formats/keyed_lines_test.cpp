#include "formats/keyed_lines.h"

#include <algorithm>
#include <string>
#include <vector>

#include "app/text.h"
#include "formats/juno_reader.h"
#include "formats/ldif_reader.h"
#include "unit/generated_texts.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;

std::vector<std::string> Parts(const std::string& text, const std::string& end) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t i = text.find(end); i != std::string::npos; i = text.find(end, start)) {
        parts.push_back(text.substr(start, i - start));
        start = i + end.size();
    }
    if (start < text.size()) {
        parts.push_back(text.substr(start));
    }
    return parts;
}

void CountLine(UnreadEntries& entries, const std::string& line, const KeyedFormat& format) {
    if (line.empty()) {
        entries.EndEntry();
    }
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos || line[0] == ' ' || line[0] == '#') {
        return;
    }
    const std::string key = ToLower(line.substr(0, std::min(colon, line.find(';'))));
    const auto has_key = [&](const auto& own) {
        return std::find(own.begin(), own.end(), key) != own.end();
    };
    if (std::none_of(format.OwnKeys.begin(), format.OwnKeys.end(), has_key)) {
        entries.Other(std::string_view(line).substr(colon + 1));
    }
}

// What is left out, slow and literal: first the lines, then the parts of each.
Unread CountLiterally(const std::string& file, const KeyedFormat& format) {
    UnreadEntries entries;
    const std::vector<std::string> lines = Parts(file, "\r\n");
    std::vector<std::vector<std::string>> parts;
    for (const std::string& line : lines) {
        parts.push_back(line.empty() ? std::vector<std::string>(1) : Parts(line, "\n"));
    }
    bool known = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = lines[i];
        bool known_next = true;
        if (known && line.starts_with(format.NicknameKey)) {
            entries.Nickname(line.substr(format.NicknameKey.size()));
        } else if (known && line.starts_with(format.AddressKey)) {
            entries.Address(line.substr(format.AddressKey.size()));
            known_next = !format.PassesOver;
        } else {
            for (const std::string& part : parts[i]) {
                CountLine(entries, part, format);
            }
        }
        known = known_next;
    }
    return entries.Total();
}

void Compare(const std::string& file) {
    UnreadEntries of_ldif;
    ASSERT_EQ(ReadLdif(file, "\r", &of_ldif), ReadLdif(file, "\r"));
    ASSERT_EQ(of_ldif.Total(), CountLiterally(file, LdifLines())) << testing::PrintToString(file);
    UnreadEntries of_juno;
    ASSERT_EQ(ReadJuno(file, &of_juno), ReadJuno(file));
    ASSERT_EQ(of_juno.Total(), CountLiterally(file, JunoLines())) << testing::PrintToString(file);
}

TEST(ReadKeyedLines, EveryShortFile_IsCountedLiterally) {
    ForEveryText(
        {"a", ":", "\r", "\n", "\r\n", "mail: ", "xmozillanickname: ", "Email:"}, 5, Compare);
}

TEST(ReadKeyedLines, RandomFiles_AreCountedLiterally) {
    ForRandomTexts({"a",
                    "Al",
                    "Al Berg",
                    "\r\n",
                    "\r\n\r\n",
                    "\r\nmail: ",
                    "\r\nxmozillanickname: ",
                    "\r\nName:",
                    "\r\nEmail:",
                    "\r\ncn: ",
                    "\nsn;lang-de: ",
                    "\r\nDN: x",
                    "\r\nobjectClass;x: y",
                    "\r\nTYPE: entry",
                    "\r\n more: x",
                    "\r\n# not: x",
                    " ",
                    "\n",
                    "\r",
                    ";"},
                   40,
                   20000,
                   Compare);
}

}  // namespace
}  // namespace orvik
