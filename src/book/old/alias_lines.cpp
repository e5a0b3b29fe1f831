#include "book/old/alias_lines.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "app/text.h"
#include "book/field_names.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kAliasBlanks = " \t";

// Commands of mailx and mutt, of which a file may have many more than aliases.
constexpr std::array<std::string_view, 11> kOfBoth = {"set",
                                                      "unset",
                                                      "ignore",
                                                      "unignore",
                                                      "alternates",
                                                      "source",
                                                      "unalias",
                                                      "echo",
                                                      "cd",
                                                      "version",
                                                      "bind"};
constexpr std::array<std::string_view, 14> kOfMailx = {"discard",
                                                       "retain",
                                                       "saveignore",
                                                       "saveretain",
                                                       "shortcut",
                                                       "account",
                                                       "ungroup",
                                                       "noset",
                                                       "fwdignore",
                                                       "fwdretain",
                                                       "define",
                                                       "mlist",
                                                       "mlsubscribe",
                                                       "colour"};
constexpr std::array<std::string_view, 26> kOfMutt = {"color",
                                                      "mono",
                                                      "macro",
                                                      "mailboxes",
                                                      "subscribe",
                                                      "lists",
                                                      "my_hdr",
                                                      "unmy_hdr",
                                                      "hdr_order",
                                                      "auto_view",
                                                      "alternative_order",
                                                      "score",
                                                      "push",
                                                      "exec",
                                                      "toggle",
                                                      "reset",
                                                      "spam",
                                                      "nospam",
                                                      "mime_lookup",
                                                      "ifdef",
                                                      "ifndef",
                                                      "finish",
                                                      "unmailboxes",
                                                      "unsubscribe",
                                                      "tag-formats",
                                                      "named-mailboxes"};

template <class Names>
bool IsCommandOf(const Names& names, std::string_view word) {
    return std::find(names.begin(), names.end(), word) != names.end();
}

// What a command of a shell has, and no address.
bool IsOfShell(std::string_view rest) {
    constexpr std::array<std::string_view, 4> kSigns = {"|", "$(", "&&", "!*"};
    return std::any_of(kSigns.begin(), kSigns.end(), [rest](std::string_view sign) {
        return rest.find(sign) != std::string_view::npos;
    });
}

// Two addresses with a blank and no comma between them.
bool HasBlanksBetween(std::string_view rest) {
    std::size_t words = 0;
    while (!rest.empty()) {
        const std::string_view word = TakeWord(rest, true);
        const bool address = word.find('@') != std::string_view::npos && !word.starts_with('<') &&
                             !word.ends_with(',');
        words = address ? words + 1 : 0;
        if (words > 1) {
            return true;
        }
    }
    return false;
}

// "Ada Abbott <ada@x>" without quotes is for mutt and Eudora alone.
bool HasPlainName(std::string_view rest) {
    const std::size_t bracket = rest.find('<');
    return bracket != std::string_view::npos && bracket > 0 &&
           rest.find('"') == std::string_view::npos;
}

class AliasJudge {
 public:
    std::optional<AliasSigns> Run(const Source& source) {
        LongLine line;
        eudora_ = source.Text().find('\x03') != std::string_view::npos;
        for (LongLines lines(source); !script_ && lines.Next(line);) {
            Take(line);
        }
        const bool notes = noted_ > 0 && settings_ == 0;
        const bool unlike = 2 * unknown_ > aliases_ + noted_;
        if (script_ || addresses_ + noted_ == 0 || 3 * addresses_ + 3 * noted_ < aliases_ ||
            (unlike && !IsNamedByEudora(source))) {
            return std::nullopt;
        }
        const AliasBook named = NamedBook(source);
        const bool windows = source.Signs().Cr;
        const AliasBook of = notes || (eudora_ && settings_ == 0)    ? AliasBook::Eudora
                             : mutt_ > mailx_                        ? AliasBook::Mutt
                             : mailx_ > 0                            ? AliasBook::Mailrc
                             : is_named_                             ? named
                             : windows && settings_ + comments_ == 0 ? AliasBook::Eudora
                             : likely_mutt_                          ? AliasBook::Mutt
                                                                     : AliasBook::Mailrc;
        return unlike && of != AliasBook::Eudora ? std::nullopt
                                                 : std::optional(AliasSigns{of, first_});
    }

 private:
    void Take(const LongLine& line) {
        std::string_view rest = WithoutBlanksAround(line.Text);
        if (rest.empty() || rest.starts_with('#')) {
            script_ = script_ || (line.Number == 1 && rest.starts_with("#!"));
            comments_ += rest.empty() ? 0U : 1U;
            return;
        }
        const std::string_view word = TakeWord(rest, false);
        const bool group = word == "group" && !rest.starts_with('-');
        if (SameName(word, "alias") || group) {
            TakeAlias(line, word, rest);
        } else if (SameName(word, "note") && !rest.empty()) {
            // Letters have lines that begin so, too.
            const bool field = rest.find('<') != std::string_view::npos &&
                               rest.find(':') != std::string_view::npos;
            noted_ += field ? 1U : 0U;
            unknown_ += field || aliases_ > 0 ? 0U : 1U;
            eudora_ = eudora_ || aliases_ > 0;
            first_ = first_ == 0 && field ? line.Number : first_;
        } else if (IsCommandOf(kOfBoth, word)) {
            ++settings_;
        } else if (IsCommandOf(kOfMailx, word)) {
            ++settings_;
            ++mailx_;
        } else if (IsCommandOf(kOfMutt, word) || word.ends_with("-hook") || word == "group" ||
                   word.starts_with("sidebar_")) {
            ++settings_;
            ++mutt_;
        } else {
            script_ = script_ || word == "export" || word == "function" || word == "fi";
            ++unknown_;
        }
    }

    void TakeAlias(const LongLine& line, std::string_view word, std::string_view rest) {
        eudora_ = eudora_ || rest.starts_with('"') || word == "Alias" || word == "ALIAS";
        mutt_ += rest.starts_with("-group") ? 1U : 0U;
        // The classic commands write "" for somebody without a nickname.
        const bool unnamed = rest.starts_with("\"\"");
        const std::string_view nickname = TakeWord(rest, true);
        if (nickname.find_first_of("=/;|") != std::string_view::npos ||
            (nickname.empty() && (!unnamed || rest.empty()))) {
            // "alias ll='ls -l'"
            script_ = script_ || nickname.find('=') != std::string_view::npos;
            ++unknown_;
            return;
        }
        if (IsOfShell(rest)) {
            ++unknown_;
            return;
        }
        ++aliases_;
        // What is in brackets behind an escaped quote is an address, of a machine's own, too.
        const bool address = rest.find('@') != std::string_view::npos ||
                             rest.find("\\\" <") != std::string_view::npos;
        addresses_ += address ? 1U : 0U;
        first_ = first_ == 0 ? line.Number : first_;
        mailx_ += word == "group" || (address && HasBlanksBetween(rest)) ? 1U : 0U;
        mutt_ += rest.find("\\\"") != std::string_view::npos ? 1U : 0U;
        likely_mutt_ = likely_mutt_ || (address && HasPlainName(rest)) ||
                       rest.find(',') != std::string_view::npos;
    }

    static std::string FileName(const Source& source) {
        std::string name = ToLower(source.Name());
        name.erase(0, name.find_last_of("/\\") + 1);
        return name;
    }

    // The names that the program gives its books. It passes over lines that it does not know.
    static bool IsNamedByEudora(const Source& source) {
        const std::string name = FileName(source);
        return name.starts_with("nndbase") || name.starts_with("rcpdbase") ||
               name.starts_with("eudora nicknames") || name.ends_with(".nnt");
    }

    AliasBook NamedBook(const Source& source) {
        const std::string name = FileName(source);
        const auto has = [&name](std::string_view part) {
            return name.find(part) != std::string::npos;
        };
        is_named_ = true;
        if (IsNamedByEudora(source) || has("nndbase") || has("rcpdbase") || has("eudora") ||
            has("nickname")) {
            return AliasBook::Eudora;
        }
        if (has("mutt") || has("aliases")) {
            return AliasBook::Mutt;
        }
        is_named_ = has("mailrc") || has("mail.rc");
        return AliasBook::Mailrc;
    }

    std::size_t aliases_ = 0;
    std::size_t addresses_ = 0;
    std::size_t noted_ = 0;
    std::size_t settings_ = 0;
    std::size_t comments_ = 0;
    std::size_t unknown_ = 0;
    std::size_t mailx_ = 0;
    std::size_t mutt_ = 0;
    std::uint32_t first_ = 0;
    bool eudora_ = false;
    bool likely_mutt_ = false;
    bool is_named_ = false;
    bool script_ = false;
};

}  // namespace

bool LongLines::Next(LongLine& line) {
    Line one;
    if (!lines_.Next(one)) {
        return false;
    }
    const char* const begin = one.Text.data();
    line.Number = one.Number;
    line.Lines = 1;
    line.Text = one.Text;
    line.Joined.clear();
    while (one.Text.ends_with('\\') && lines_.Next(one)) {
        if (line.Lines == 1) {
            line.Joined = line.Text;
        }
        line.Joined.pop_back();
        line.Joined += one.Text;
        ++line.Lines;
    }
    if (line.Lines > 1) {
        line.Text = line.Joined;
    }
    const char* const end = one.WithEnd.data() + one.WithEnd.size();
    line.Bytes = {begin, static_cast<std::size_t>(end - begin)};
    return true;
}

std::string_view TakeWord(std::string_view& rest, bool quotes) {
    const std::size_t close =
        quotes && rest.starts_with('"') ? rest.find('"', 1) : std::string_view::npos;
    const bool quoted = close != std::string_view::npos;
    // Blanks are looked for only where they end the word: a line may be quotes alone.
    const std::size_t end =
        quoted ? close + 1 : std::min(rest.find_first_of(kAliasBlanks), rest.size());
    const std::string_view word = quoted ? rest.substr(1, close - 1) : rest.substr(0, end);
    rest.remove_prefix(std::min(rest.find_first_not_of(kAliasBlanks, end), rest.size()));
    return word;
}

std::optional<AliasSigns> AliasSignsOf(const Source& source) {
    return AliasJudge().Run(source);
}

std::optional<std::string> AliasEvidence(const Source& source, AliasBook of) {
    const auto signs = AliasSignsOf(source);
    return signs && signs->Of == of
               ? std::optional("line " + std::to_string(signs->Line) + " begins an alias")
               : std::nullopt;
}

}  // namespace orvik::book
