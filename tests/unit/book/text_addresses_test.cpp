#include "book/mail/text_addresses.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvik::book {
namespace {

struct Found {
    std::string Addresses;  // with blanks between
    std::string Names;      // with | between
    std::size_t Ids = 0;
};

Found FoundIn(const std::string& text) {
    Found found;
    TextAddresses search([&](std::string_view address, std::string_view name) {
        found.Addresses += (found.Addresses.empty() ? "" : " ") + std::string(address);
        found.Names += (name.empty() ? "" : "|") + std::string(name);
    });
    search.Look(text);
    found.Ids = search.Ids();
    return found;
}

struct TextCase {
    const char* Text;
    const char* Addresses;
};

void Check(const std::vector<TextCase>& cases) {
    for (const TextCase& one : cases) {
        EXPECT_EQ(one.Addresses, FoundIn(one.Text).Addresses) << one.Text;
    }
}

TEST(TextAddresses, EndWhereTheSentenceDoes) {
    Check({
        {"ada@example.org", "ada@example.org"},
        {"Write to ada@example.org.", "ada@example.org"},
        {"Write to ada@example.org!", "ada@example.org"},
        {"ada@example.org, bob@example.org;cy@example.org",
         "ada@example.org bob@example.org cy@example.org"},
        {"(ada@example.org)", "ada@example.org"},
        {"[ada@example.org]", "ada@example.org"},
        {"<ada@example.org>", "ada@example.org"},
        {"\"ada@example.org\"", "ada@example.org"},
        {"'ada@example.org'", "ada@example.org"},
        {"`ada@example.org`", "ada@example.org"},
        {"*ada@example.org*", "ada@example.org"},
        {"_ada@example.org_", "ada@example.org"},
        {"_ada@example.org", "_ada@example.org"},
        {"{ada@example.org}", "ada@example.org"},
        {"-ada@example.org", "ada@example.org"},
        {"...ada@example.org...", "ada@example.org"},
        {"ada@example.org-", "ada@example.org"},
        {"ada@example.org/bob", "ada@example.org"},
        {"ada@example.org?", "ada@example.org"},
        {"ada@example.org\tbob@example.org", "ada@example.org bob@example.org"},
        {"\xE2\x80\x9C"
         "ada@example.org\xE2\x80\x9D",
         "ada@example.org"},
        {"\xC2\xA0"
         "ada@example.org\xC2\xA0x",
         "ada@example.org"},
        {"ada@example.org\xE2\x80\xA6", "ada@example.org"},
    });
}

TEST(TextAddresses, MayBeGluedToOtherText) {
    Check({
        {"mailto:ada@example.org", "ada@example.org"},
        {"E-Mail:ada@example.org", "ada@example.org"},
        {"rfc822;ada@example.org", "ada@example.org"},
        {"ada@example.org<mailto:ada@example.org>", "ada@example.org ada@example.org"},
        {"ada@example.org.Please write", "ada@example.org"},
        {"ada@example.co.uk.Thanks", "ada@example.co.uk"},
        {"ada@mail.example.Org", "ada@mail.example.Org"},
        {"ADA@EXAMPLE.ORG", "ADA@EXAMPLE.ORG"},
        {"\xE8\xAF\xB7\xE8\x81\x94\xE7\xB3\xBB"
         "ada@example.org\xE8\xB0\xA2\xE8\xB0\xA2",
         "ada@example.org"},
        {"email=ada@example.org", "ada@example.org"},
        {"bounce+ada=example.com@lists.example.org", "bounce+ada=example.com@lists.example.org"},
        {"a|b|ada@example.org|c", "ada@example.org"},
        {"/home/ada@example.org", "ada@example.org"},
    });
}

TEST(TextAddresses, MayHoldAnyLetters) {
    Check({
        {"j\xC3\xB6rg@b\xC3\xBC"
         "cher.example",
         "j\xC3\xB6rg@b\xC3\xBC"
         "cher.example"},
        {"o'brien@example.org", "o'brien@example.org"},
        {"a.b+c_d-e@x-y.example", "a.b+c_d-e@x-y.example"},
        {"x@xn--bcher-kva.example", "x@xn--bcher-kva.example"},
        {"\xE7\x94\xA8\xE6\x88\xB7@\xE4\xBE\x8B\xE5\xAD\x90.example",
         "\xE7\x94\xA8\xE6\x88\xB7@\xE4\xBE\x8B\xE5\xAD\x90.example"},
        {"\"ada b\"@example.org", "\"ada b\"@example.org"},
        {"1@example.org", "1@example.org"},
    });
}

TEST(TextAddresses, AreNotAllThatHasAnAt) {
    Check({
        {"@", ""},
        {"ada@", ""},
        {"@example.org", ""},
        {"ada@localhost", ""},
        {"ada@example.", ""},
        {"ada@@example.org", ""},
        {"ada@b@example.org", ""},
        {"ada..b@example.org", ""},
        {"ada@example..org", ""},
        {"ada@-example.org", ""},
        {"5 kg @ 3.50", ""},
        {"3@4.5", ""},
        {"ada@192.168.1.1", ""},
        {"ada@example.c0m", ""},
        {"ada @ example.org", ""},
        {"git@", ""},
        {"logo@2x.png", ""},
        {"photo@holiday.JPG", ""},
        {"image001.png@01D5C2A3.4E5F6A70", ""},
        {"[cid:logo.1815@example.org]", ""},
        {"https://maps.example/@48.1,11.5", ""},
        {"https://lists.example.org/msg/1815@example.org", ""},
        {"ftp://ada@ftp.example.org/", ""},
    });
    EXPECT_EQ("", FoundIn(std::string(65, 'a') + "@example.org").Addresses);
    EXPECT_EQ("", FoundIn("a@" + std::string(300, 'b') + ".org").Addresses);
    EXPECT_EQ("", FoundIn(std::string(100'000, '@')).Addresses);
    EXPECT_EQ("", FoundIn(std::string(1'000'000, 'a') + "@").Addresses);
}

TEST(TextAddresses, StandInParametersOfTheWeb) {
    Check({{"https://x.example/?mail=ada@example.org&x=1", "ada@example.org"},
           {"https://x.example/unsubscribe?u=ada@example.org", "ada@example.org"}});
}

struct IdCase {
    const char* Text;
    const char* Addresses;
    std::size_t Ids;
};

TEST(TextAddresses, AreNoIdentifiers) {
    const std::vector<IdCase> cases = {
        {"Message-ID: <ada@example.org>\nTo: bob@example.org", "bob@example.org", 1},
        {"> Message-Id: <ada@example.org>", "", 1},
        {"> > References: <a@example.org>\n> >  <b@example.org>\n> > x b@example.org",
         "b@example.org",
         2},
        {"    Message-ID: <a@example.org>\n    To: bob@example.org", "bob@example.org", 1},
        {"In-Reply-To: <a@example.org>", "", 1},
        {"X-Sender: ada@example.org", "", 1},
        {"List-Unsubscribe:\n <mailto:leave@example.org>", "", 1},
        {"Received: from x\n\tfor <ada@example.org>; Thu", "", 1},
        {"Return-Path: <ada@example.org>", "", 1},
        {"Delivered-To: ada@example.org", "", 1},
        {"Errors-To: ada@example.org", "", 1},
        {"Content-ID: <part1@example.org>", "", 1},
        {"X-Ray room: ada@example.org", "ada@example.org", 0},
        {"Return-Path: <ada@example.org>\n\nada@example.org", "ada@example.org", 1},
        {"Return-Path: <ada@example.org>\nSee ada@example.org", "ada@example.org", 1},
        {"in message <ada@example.org>, Ada wrote", "", 1},
        {"(Message-ID: <ada@example.org>)", "", 1},
        {"article <ada@example.org>", "", 1},
        {"a message to ada@example.org", "ada@example.org", 0},
        {"news:ada@example.org", "", 1},
        {"mid:ada@example.org", "", 1},
        {"<20240101120000.4711AB@example.org>", "", 1},
        {"<000001c0$4711@example.org>", "", 1},
        {"<CAF8abcd@mail.gmail.com>", "", 1},
        {"20240101120000.4711AB@example.org", "20240101120000.4711AB@example.org", 0},
        {"Ada Abbott <20240101120000.4711AB@example.org>", "20240101120000.4711AB@example.org", 0},
        {"Pyramid:ada@example.org", "ada@example.org", 0},
        {"a particle <ada@example.org>", "ada@example.org", 0},
        {"Final-Recipient: rfc822; ada@example.org", "ada@example.org", 0},
    };
    for (const IdCase& one : cases) {
        const Found found = FoundIn(one.Text);
        EXPECT_EQ(one.Addresses, found.Addresses) << one.Text;
        EXPECT_EQ(one.Ids, found.Ids) << one.Text;
    }
}

TEST(TextAddresses, HaveNamesBeforeThem) {
    const std::vector<TextCase> cases = {
        {"Ada Abbott <ada@example.org>", "|Ada Abbott"},
        {"\"Abbott, Ada\" <ada@example.org>", "|Abbott, Ada"},
        {"On Mon, 1 Jan 1998 10:00, Ada Abbott <ada@example.org> wrote:", "|Ada Abbott"},
        {"From: Ada van der Berg <ada@example.org>", "|Ada van der Berg"},
        {"J\xC3\xB6rg M\xC3\xBCller <j@example.org>", "|J\xC3\xB6rg M\xC3\xBCller"},
        {"please write to <ada@example.org>", ""},
        {"Write <ada@example.org>", ""},
        {"ada@example.org", ""},
    };
    for (const TextCase& one : cases) {
        EXPECT_EQ(one.Addresses, FoundIn(one.Text).Names) << one.Text;
    }
}

TEST(TextAddresses, AreNotLookedForInEncodedBytes) {
    EXPECT_EQ("ada@example.org",
              FoundIn("begin 644 x.bin\nM1@A.BC D@E.FG\nend\nada@example.org").Addresses);
    EXPECT_EQ("ada@example.org", FoundIn("begin with ada@example.org").Addresses);
}

}  // namespace
}  // namespace orvik::book
