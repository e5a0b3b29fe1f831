#include "book/html_entities.h"

#include <string>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

TEST(HtmlEntities, AreLettersOrStay) {
    const struct {
        std::string_view Text;
        std::string_view Expected;
    } rows[] = {
        {"R&amp;D &LT;&period;&commat;&num;", "R&D <.@#"},
        {"&nbsp;&Eacute;&eacute;&yuml;&EACUTE;", "\xC2\xA0\xC3\x89\xC3\xA9\xC3\xBF&EACUTE;"},
        {"&#233;&#xe9;&#XE9;&#233 &#233", "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9 \xC3\xA9"},
        {"&#64;x&#x1F600;&#10;&#9;", "@x\xF0\x9F\x98\x80\n\t"},
        {"&amp &amp&lt; & &; && &#; &#x; &#xg;", "&amp &amp< & &; && &#; &#x; &#xg;"},
        {"&#0;&#1;&#xD800;&#x110000;&#4294967361;", "&#0;&#1;&#xD800;&#x110000;&#4294967361;"},
        {"&amp;amp;", "&amp;"},
        {"", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WithoutEntities(row.Text), row.Expected) << row.Text;
        std::string to = "x";
        AppendWithoutEntities(row.Text, to);
        EXPECT_EQ(to, "x" + std::string(row.Expected)) << row.Text;
    }
}

}  // namespace
}  // namespace orvik::book
