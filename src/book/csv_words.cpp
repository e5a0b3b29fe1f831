#include "book/csv_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "book/folded_words.h"

namespace orvik::book {
namespace {

constexpr std::array kLanguages = {
    std::pair<std::string_view, std::string_view>{"ca", "Catalan"},
    std::pair<std::string_view, std::string_view>{"cs", "Czech"},
    std::pair<std::string_view, std::string_view>{"da", "Danish"},
    std::pair<std::string_view, std::string_view>{"de", "German"},
    std::pair<std::string_view, std::string_view>{"el", "Greek"},
    std::pair<std::string_view, std::string_view>{"en", "English"},
    std::pair<std::string_view, std::string_view>{"es", "Spanish"},
    std::pair<std::string_view, std::string_view>{"es-AR", "Spanish (Argentina)"},
    std::pair<std::string_view, std::string_view>{"es-ES", "Spanish"},
    std::pair<std::string_view, std::string_view>{"es-MX", "Spanish (Mexico)"},
    std::pair<std::string_view, std::string_view>{"fi", "Finnish"},
    std::pair<std::string_view, std::string_view>{"fr", "French"},
    std::pair<std::string_view, std::string_view>{"hu", "Hungarian"},
    std::pair<std::string_view, std::string_view>{"it", "Italian"},
    std::pair<std::string_view, std::string_view>{"ja", "Japanese"},
    std::pair<std::string_view, std::string_view>{"ko", "Korean"},
    std::pair<std::string_view, std::string_view>{"nb", "Norwegian"},
    std::pair<std::string_view, std::string_view>{"nb-NO", "Norwegian"},
    std::pair<std::string_view, std::string_view>{"nl", "Dutch"},
    std::pair<std::string_view, std::string_view>{"pl", "Polish"},
    std::pair<std::string_view, std::string_view>{"pt", "Portuguese"},
    std::pair<std::string_view, std::string_view>{"pt-BR", "Portuguese (Brazil)"},
    std::pair<std::string_view, std::string_view>{"pt-PT", "Portuguese"},
    std::pair<std::string_view, std::string_view>{"ro", "Romanian"},
    std::pair<std::string_view, std::string_view>{"ru", "Russian"},
    std::pair<std::string_view, std::string_view>{"sk", "Slovak"},
    std::pair<std::string_view, std::string_view>{"sl", "Slovene"},
    std::pair<std::string_view, std::string_view>{"sv", "Swedish"},
    std::pair<std::string_view, std::string_view>{"sv-SE", "Swedish"},
    std::pair<std::string_view, std::string_view>{"tr", "Turkish"},
    std::pair<std::string_view, std::string_view>{"uk", "Ukrainian"},
    std::pair<std::string_view, std::string_view>{"zh", "Chinese"},
    std::pair<std::string_view, std::string_view>{"zh-CN", "Chinese"},
    std::pair<std::string_view, std::string_view>{"zh-TW", "Chinese (Taiwan)"},
};

// The text up to a separator; rest moves behind it.
std::string_view Taken(std::string_view& rest, char separator) {
    const std::size_t length = std::min(rest.find(separator), rest.size());
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    return taken;
}

// "phone 12 - value" -> "phone n - value" and 12.
void TakeNumber(CsvHeaderKey& key) {
    const std::size_t end = key.Text.find(" - ");
    const std::size_t begin =
        end == std::string::npos ? end : key.Text.find_last_not_of("0123456789", end - 1);
    if (end == 0 || begin == std::string::npos || key.Text[begin] != ' ' || begin + 1 == end) {
        return;
    }
    const char* const first = key.Text.data() + begin + 1;
    if (std::from_chars(first, key.Text.data() + end, key.Number).ec == std::errc()) {
        key.Text.replace(begin + 1, end - begin - 1, "n");
    }
}

}  // namespace

CsvHeaderKey KeyOf(std::string_view header) {
    CsvHeaderKey key{FoldedWords(header)};
    TakeNumber(key);
    return key;
}

CsvWords::CsvWords() {
    for (const std::string_view block : CsvHeaderBlocks()) {
        AddBlock(block);
    }
}

const CsvWords& CsvWords::All() {
    static const CsvWords words;
    return words;
}

void CsvWords::AddBlock(std::string_view block) {
    std::string_view head = Taken(block, '\n');
    CsvTable& table = tables_.emplace_back();
    table.Program = Taken(head, '\t');
    table.Language = head;
    while (!block.empty()) {
        std::string_view line = Taken(block, '\n');
        CsvWord word;
        word.Trust = static_cast<CsvTrust>(Taken(line, '\t').front());
        const std::string_view position = Taken(line, '\t');
        std::from_chars(position.data(), position.data() + position.size(), word.Position);
        word.Name = Taken(line, '\t');
        word.Field = &CsvFieldOf(word.Name);
        word.Text = line;
        hits_[KeyOf(line).Text].push_back({static_cast<std::uint32_t>(tables_.size() - 1),
                                           static_cast<std::uint32_t>(table.Words.size())});
        table.Words.push_back(word);
    }
}

std::span<const CsvWords::Hit> CsvWords::Find(const std::string& key) const {
    const auto found = hits_.find(key);
    return found == hits_.end() ? std::span<const Hit>{} : std::span<const Hit>(found->second);
}

std::string_view LanguageName(std::string_view code) {
    const auto* const found = std::find_if(kLanguages.begin(),
                                           kLanguages.end(),
                                           [code](const auto& one) { return one.first == code; });
    return found == kLanguages.end() ? code : found->second;
}

}  // namespace orvik::book
