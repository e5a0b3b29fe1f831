#include "book/mail/page_text.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

std::string TextOf(const std::string& html) {
    std::string text;
    AppendHtmlText(html, text);
    return text;
}

struct HtmlCase {
    const char* Html;
    const char* Text;
};

TEST(PageText, IsWhatAReaderSees) {
    const std::vector<HtmlCase> cases = {
        {"plain", "plain"},
        {"a<p>b</p>c", "a\nb\nc"},
        {"ada<b>@example</b>.org", "ada@example.org"},
        {"ada@<wbr>example.org", "ada@example.org"},
        {"ada<!-- no -->@example.org", "ada@example.org"},
        {"ada&#64;example&#x2e;org", "ada@example.org"},
        {"ada&commat;example&period;org", "ada@example.org"},
        {"&lt;ada@example.org&gt;", "<ada@example.org>"},
        {"J&ouml;rg &amp; &unknown; & &#0;", "J\xC3\xB6rg & &unknown; & &#0;"},
        {"&#x1F600;", "\xF0\x9F\x98\x80"},
        {"<script>var a = 'b@c.example';</script>x", "\n\nx"},
        {"<style>a@b.example</style>x", "\n\nx"},
        {"<img src=\"cid:part1@example.org\" alt='x@y.example'>z", "\nz"},
        {"<a href=\"https://x.example/a@b.example\">y</a>", "y"},
        {"1 < 2 > 1", "1 < 2 > 1"},
        {"a < b@example.org", "a < b@example.org"},
        {"Ada <ada@example.org> wrote", "Ada <ada@example.org> wrote"},
        {"<p title=\">\">x", "\nx"},
        {"x <b", "x <b"},
        {"<", "<"},
        {"<!DOCTYPE html><html>x", "\n\nx"},
        {"To: a<br>\n b\nc", "To: a\nb c"},
        {"<pre>To: a\n b</pre>\nc\nd", "\nTo: a\n b\nc d"},
        {"<!-- never ends", "<!-- never ends"},
        {"<!-- never ends <p>x", ""},
        {"<script>never ends", "\n"},
    };
    for (const HtmlCase& one : cases) {
        EXPECT_EQ(one.Text, TextOf(one.Html)) << one.Html;
    }
}

TEST(PageText, HasTheAddressesOfLinks) {
    const std::vector<HtmlCase> cases = {
        {"<a href=\"mailto:ada@example.org\">Ada</a>", "\nada@example.org\nAda"},
        {"<a href='MAILTO:ada%40example.org?subject=x'>Ada</a>", "\nada@example.org\nAda"},
        {"<a href=mailto:ada@example.org>Ada</a>", "\nada@example.org\nAda"},
        {"<a href=\"&#109;ailto:x\">Ada</a>", "Ada"},
        {"<a href=\"mailto:ada&#64;example.org\">Ada</a>", "\nada@example.org\nAda"},
        {"<area href=\"mailto:ada@example.org\">", "\n\nada@example.org\n"},
    };
    for (const HtmlCase& one : cases) {
        EXPECT_EQ(one.Text, TextOf(one.Html)) << one.Html;
    }
}

TEST(Mailto, MayNameSeveral) {
    const std::vector<HtmlCase> cases = {
        {"ada@example.org", "\nada@example.org\n"},
        {"a@example.org,b@example.org?cc=c%40example.org&subject=x&BCC=d@example.org",
         "\na@example.org,b@example.org\nc@example.org\nd@example.org\n"},
        {"?to=ada@example.org", "\n\nada@example.org\n"},
        {"ada%4", "\nada%4\n"},
        {"", "\n\n"},
    };
    for (const HtmlCase& one : cases) {
        std::string text;
        AppendMailto(one.Html, text);
        EXPECT_EQ(one.Text, text) << one.Html;
    }
}

TEST(PageText, TakesLinearTime) {
    const std::size_t many = 300'000;
    std::string open;
    for (std::size_t i = 0; i < many; ++i) {
        open += "<a";
    }
    EXPECT_FALSE(TextOf(open).empty());
    EXPECT_TRUE(TextOf(open + ">").empty());
    std::string entities;
    for (std::size_t i = 0; i < many; ++i) {
        entities += "&#";
    }
    EXPECT_EQ(entities, TextOf(entities));
}

}  // namespace
}  // namespace orvik::book
