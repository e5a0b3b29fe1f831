#include "book/old/mailboxes.h"

#include <string>

#include <gtest/gtest.h>

#include "book/old/encoded_words.h"

namespace orvik::book {
namespace {

std::string Shown(std::string_view text) {
    std::string shown;
    for (const Mailbox& one : MailboxesOf(text)) {
        shown += "[" + one.Name + "|" + one.Address + "]";
    }
    return shown;
}

TEST(Mailboxes, ArePartedByCommas) {
    const struct {
        const char* Text;
        const char* Expected;
    } rows[] = {
        {"", ""},
        {" , ,", ""},
        {"a@x", "[|a@x]"},
        {"<a@x>", "[|a@x]"},
        {"a@x, b@y,c", "[|a@x][|b@y][c|]"},
        {"Ada Abbott <a@x>", "[Ada Abbott|a@x]"},
        {"\"Abbott, Ada\" <a@x>,b", "[Abbott, Ada|a@x][b|]"},
        {"\"Abbott, Ada\"<a@x>", "[Abbott, Ada|a@x]"},
        {"Abbott, Ada <a@x>", "[Abbott|][Ada|a@x]"},
        {"\"A \\\"B\\\" C\" <a@x>", "[A \"B\" C|a@x]"},
        {"Ada \"the cox\" Abbott <a@x>", "[Ada the cox Abbott|a@x]"},
        {"a@x (Ada, and (her) boat), b", "[Ada, and (her) boat|a@x][b|]"},
        {"<a@x> (Ada)", "[Ada|a@x]"},
        {"Ada (cox) <a@x>", "[Ada|a@x]"},
        {"a@x \"Ada\"", "[Ada|a@x]"},
        {"Ada Abbott a@x", "[Ada Abbott|a@x]"},
        {"Ada a@x b@y", "[Ada a@x b@y|]"},
        {"\"a b\"@x", "[|\"a b\"@x]"},
        {"<a@x,b@y:c@z>", "[|a@x,b@y:c@z]"},
        {"Ada <>", "[Ada|]"},
        {"<a@x> <b@y>", "[|a@x]"},
        {"O'Hara <a@x>", "[O'Hara|a@x]"},
        // What is never closed is a letter.
        {"\"Ada, b", "[\"Ada|][b|]"},
        {"Ada (cox, b@x", "[Ada (cox|][|b@x]"},
        {"Ada <a@x, b@x", "[Ada|<a@x][|b@x]"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Shown(row.Text), row.Expected) << row.Text;
    }
}

TEST(DecodedWords, AreLetters) {
    const struct {
        const char* Text;
        const char* Expected;
    } rows[] = {
        {"plain =?", "plain =?"},
        {"=?UTF-8?Q?J=C3=B6rg_Berg?=", "J\xC3\xB6rg Berg"},
        {"=?iso-8859-1?q?J=F6rg?= Berg", "J\xC3\xB6rg Berg"},
        {"=?UTF-8?B?SsO2cmc=?=", "J\xC3\xB6rg"},
        {"=?utf-8*de?Q?J=C3=B6rg?=", "J\xC3\xB6rg"},
        {"(=?utf-8?q?a?=)", "(a)"},
        {"=?utf-8?q?Dorte\\t_Test?=", "Dorte\\t Test"},
        // Blanks between two do not count, and a letter may be in two of them.
        {"=?UTF-8?Q?J=C3?= =?UTF-8?Q?=B6rg?= x", "J\xC3\xB6rg x"},
        {"=?UTF-8?Q?a?=\t =?latin1?Q?=F6?=", "a\xC3\xB6"},
        {"=?UTF-8?Q?a?= b", "a b"},
        // What cannot be read stays.
        {"=?klingon?Q?a?=", "=?klingon?Q?a?="},
        {"=?UTF-8?Q?=FF?=", "=?UTF-8?Q?=FF?="},
        {"=?UTF-8?Q?=C?=", "=?UTF-8?Q?=C?="},
        {"=?UTF-8?B?!?=", "=?UTF-8?B?!?="},
        {"=?UTF-8?X?a?=", "=?UTF-8?X?a?="},
        {"=?UTF-8?Q?a b?=", "=?UTF-8?Q?a b?="},
        {"=??Q?a?=", "=??Q?a?="},
        {"=?UTF-8?Q?a", "=?UTF-8?Q?a"},
        {"=?UTF-8?Q?a\tb?=", "=?UTF-8?Q?a\tb?="},
        {"=?UTF-8?Q?", "=?UTF-8?Q?"},
        {"=?UTF-8?Q", "=?UTF-8?Q"},
        {"=?UTF-8?", "=?UTF-8?"},
        {"=?UTF-8", "=?UTF-8"},
        {"=?=?=?", "=?=?=?"},
        {"=?klingon?Q?a?= =?utf-8?Q?b?=", "=?klingon?Q?a?= b"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(DecodedWords(row.Text), row.Expected) << row.Text;
    }
}

}  // namespace
}  // namespace orvik::book
