#include "book/ldif_dn.h"

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

TEST(DnOf, IsWhatMozillaWrites) {
    EXPECT_EQ(DnOf("Abbott, Ada", "a@b"), "cn=Abbott, Ada,mail=a@b");
    EXPECT_EQ(DnOf("Ada", ""), "cn=Ada");
    EXPECT_EQ(DnOf("", "a@b"), "mail=a@b");
    EXPECT_EQ(DnOf("", ""), "");
}

TEST(PartsOfDn, FindsNameAndAddress) {
    const struct {
        const char* Dn;
        const char* Name;
        const char* Address;
    } rows[] = {
        {"cn=Ada Abbott,mail=ada@example.org", "Ada Abbott", "ada@example.org"},
        {"cn=Abbott, Ada,mail=ada@example.org", "Abbott, Ada", "ada@example.org"},
        {"cn=Abbott\\, Ada,ou=people,dc=example,dc=org", "Abbott, Ada", ""},
        {"cn=\"Abbott, Ada\",mail=a@b", "Abbott, Ada", "a@b"},
        {"CN=J\\C3\\B6rg,MAIL=a@b,o=Firm", "J\xC3\xB6rg", "a@b"},
        {"cn=x,mail=y,mail=a@b", "x,mail=y", "a@b"},
        {"mail=a@b", "", "a@b"},
        {"cn=Rowers", "Rowers", ""},
        {"uid=ada,ou=people", "", ""},
        {"cn=a\\", "a\\", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        const DnParts parts = PartsOfDn(row.Dn);
        EXPECT_EQ(parts.Name, row.Name) << row.Dn;
        EXPECT_EQ(parts.Address, row.Address) << row.Dn;
    }
}

}  // namespace
}  // namespace orvik::book
