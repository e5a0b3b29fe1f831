#include "book/charset_guess.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include <uchardet/uchardet.h>

#include "book/field_names.h"
#include "book/lines.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

constexpr std::size_t kLongestSample = 256UL * 1024;
constexpr std::size_t kFewestLetters = 6;

// What uchardet is believed.
constexpr std::array<std::string_view, 17> kTrusted = {"BIG5",
                                                       "EUC-JP",
                                                       "EUC-KR",
                                                       "UHC",
                                                       "GB18030",
                                                       "SHIFT_JIS",
                                                       "ISO-2022-JP",
                                                       "ISO-2022-KR",
                                                       "ISO-2022-CN",
                                                       "KOI8-R",
                                                       "WINDOWS-1251",
                                                       "WINDOWS-1253",
                                                       "ISO-8859-7",
                                                       "WINDOWS-1255",
                                                       "ISO-8859-8",
                                                       "EUC-TW",
                                                       "JOHAB"};

struct DetectorCloser {
    void operator()(uchardet* detector) const { uchardet_delete(detector); }
};

bool IsHigh(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

std::string LinesNotUtf8(std::string_view text) {
    std::string sample;
    std::string whole;  // a line with those that go on with it: a letter may be folded
    const auto take = [&] {
        if (CountUtf8(whole).Bad > 0) {
            sample.append(whole, 0, kLongestSample - sample.size());
        }
        whole.clear();
    };
    Line line;
    for (Lines lines(text); sample.size() < kLongestSample && lines.Next(line);) {
        const bool goes_on = line.Text.starts_with(' ') || line.Text.starts_with('\t');
        if (!goes_on) {
            take();
        }
        whole += line.Text.substr(goes_on ? 1 : 0);
    }
    take();
    return sample;
}

std::string GuessCharset(std::string_view sample) {
    const auto letters = std::count_if(sample.begin(), sample.end(), IsHigh);
    if (static_cast<std::size_t>(letters) < kFewestLetters) {
        return {};
    }
    const std::unique_ptr<uchardet, DetectorCloser> detector(uchardet_new());
    if (!detector || uchardet_handle_data(detector.get(), sample.data(), sample.size()) != 0) {
        return {};
    }
    uchardet_data_end(detector.get());
    const std::string_view name = uchardet_get_charset(detector.get());
    const bool trusted = std::any_of(kTrusted.begin(), kTrusted.end(), [&](std::string_view one) {
        return SameName(one, name);
    });
    return trusted ? std::string(name) : std::string();
}

bool IsOfOldMacs(std::string_view text, std::string_view sample) {
    return NameOf(CountLineEnds(text)) == "CR" &&
           std::any_of(sample.begin(), sample.end(), [](char c) {
               const auto byte = static_cast<unsigned char>(c);
               return byte >= 0x80 && byte <= 0x9F;
           });
}

std::string WordsEncodedTwice(std::string_view text) {
    // How the letters from U+00C0 to U+00FF begin then.
    constexpr std::string_view kTwice = "\xC3\x83\xC2";
    constexpr std::string_view kBetween = " \t\r\n:;,=\"\\";
    constexpr std::size_t kFewest = 2;
    constexpr std::size_t kMostWords = 3;
    constexpr std::size_t kLongestWord = 40;
    std::size_t count = 0;
    std::vector<std::string_view> words;
    for (std::size_t at = text.find(kTwice); at != std::string_view::npos;
         at = text.find(kTwice, at + 1)) {
        ++count;
        // No more than what a word has is looked at, so that time stays linear.
        const std::size_t from = at - std::min(at, kLongestWord);
        const std::size_t between = text.substr(from, at - from).find_last_of(kBetween);
        const std::size_t begin = between == std::string_view::npos ? from : from + between + 1;
        const std::string_view rest = text.substr(begin, kLongestWord);
        const std::string_view word = rest.substr(0, rest.find_first_of(kBetween));
        if (words.size() < kMostWords &&
            std::find(words.begin(), words.end(), word) == words.end()) {
            words.push_back(word);
        }
    }
    // Each is two letters now, and others may stand beside them.
    if (count < kFewest || CountUtf8(text).Letters > 4 * count) {
        return {};
    }
    std::string joined;
    for (const std::string_view word : words) {
        joined.append(joined.empty() ? "" : ", ").append(word);
    }
    return joined;
}

}  // namespace orvik::book
