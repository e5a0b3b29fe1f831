#include "book/old/html_text.h"

#include <string>

#include <gtest/gtest.h>

#include "book/old/html_tags.h"

namespace orvik::book {
namespace {

TEST(HtmlText, ReadsEntitiesAndBreaks) {
    const struct {
        std::string_view Piece;
        std::string_view Expected;
    } rows[] = {
        {"R&amp;D &lt;x&gt; &quot;q&quot;", "R&D <x> \"q\""},
        {"&AMP;&eacute;&Eacute;&nbsp;&yuml;", "&\xC3\xA9\xC3\x89\xC2\xA0\xC3\xBF"},
        {"&#233;&#xE9;&#X263a;&#128512;", "\xC3\xA9\xC3\xA9\xE2\x98\xBA\xF0\x9F\x98\x80"},
        {"&nix; & &; &#; &#x; &#xD800; &#1; &#99999999; &amp",
         "&nix; & &; &#; &#x; &#xD800; &#1; "
         "&#99999999; &amp"},
        {"&amp;lt;", "&lt;"},
        {"one<BR>two<br >\r\n   three<Br>", "one\ntwo\nthree"},
        {"one  \r\n  two\rthree\n", "one\ntwo\nthree"},
        {"Al <al@example.org> <b>x</b> 2 < 3", "Al <al@example.org> <b>x</b> 2 < 3"},
        {"<A HREF=\"x\">y</A>", "<A HREF=\"x\">y</A>"},
        {"a<p>b<!-- c -->d<!-- e", "abd<!-- e"},
        {"", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(HtmlText(row.Piece), row.Expected) << row.Piece;
    }
}

TEST(HtmlText, ReadsEscapesOfAddressesThatStandForLetters) {
    const struct {
        std::string_view Address;
        std::string_view Expected;
    } rows[] = {
        {"ada%40example.org", "ada@example.org"},
        {"a%20b%22c@d", "a b\"c@d"},
        {"al%40b@c", "al%40b@c"},
        {"al%dec.example.org@b", "al%dec.example.org@b"},
        {"j%c3%b6rg@b", "j\xC3\xB6rg@b"},
        {"al%@b%4", "al%@b%4"},
        {"al%0A%00%7f@b", "al%0A%00%7f@b"},
        {"100%", "100%"},
        {"", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WithoutPercents(row.Address), row.Expected) << row.Address;
    }
}

// "KIND LINE NAME=VALUE ...;" for each tag.
std::string TagsOf(std::string_view text) {
    std::string shown;
    HtmlTags tags(text);
    for (HtmlTag tag; tags.Next(tag);) {
        shown += std::to_string(static_cast<int>(tag.Kind)) + " " + std::to_string(tag.Line);
        for (const HtmlAttribute& one : tag.Attributes) {
            shown += " " + std::string(one.Name) + "=" + std::string(one.Value);
        }
        shown += ";";
    }
    return shown;
}

TEST(HtmlTags, ForgiveWhatPeopleAndProgramsLeaveOut) {
    const struct {
        std::string_view Text;
        std::string_view Expected;
    } rows[] = {
        {"<DT><A HREF=\"a\" NICKNAME=\"b\">", "0 1;2 1 HREF=a NICKNAME=b;"},
        {"<dt >\r\n<a  nickname = b\rhref=a>", "0 1;2 2 nickname=b href=a;"},
        {"<A HREF='a b' FOLDED X=>", "2 1 HREF=a b FOLDED= X=;"},
        {"<A HREF=\"a>b\">", "2 1 HREF=a>b;"},
        {"<A HREF=\"mailto:a@b ALIASID=\"0\">", "2 1 HREF=mailto:a@b ALIASID=0;"},
        {"<A HREF=\"a\n<DD>", "2 1 HREF=a;1 2;"},
        {"<A HREF=\"a\"<DD", "2 1 HREF=a;1 1;"},
        {"<A \"\" = >", "2 1;"},
        {"<!-- <DT> -->\n</A></DL><BR>", "11 1;3 2;7 2;8 2;"},
        {"<!DOCTYPE x>\n\n<H3></H3>", "11 1;4 3;5 3;"},
        {"<al@example.org> <b> < <> <A1> <", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(TagsOf(row.Text), row.Expected) << row.Text;
    }
}

}  // namespace
}  // namespace orvik::book
