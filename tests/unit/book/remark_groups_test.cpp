#include "book/remark_groups.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

// "lost 0 2, carried(X-AIM) 1": each group with the numbers of its remarks.
std::string Grouped(const Report& told) {
    std::string text;
    for (const RemarkGroup& one : GroupRemarks(told)) {
        text += text.empty() ? "" : ", ";
        text += NameOf(one.Kind);
        text += one.Kind == What::Carried ? "(" + std::string(one.Field) + ")"
                                          : "(" + std::string(WordsFor(one.Why)) + ")";
        for (const std::uint32_t number : one.Remarks) {
            text += " " + std::to_string(number);
        }
    }
    return text;
}

TEST(GroupRemarks, WhatIsLostComesFirstByItsReasons) {
    Report told;
    EXPECT_EQ(Grouped(told), "");
    const auto add = [&](What kind, Reason why, std::string_view field) {
        told.Add({field, "5", 0, 1, FieldNames::kNone, kind, why});
    };
    add(What::Carried, Reason::NotInTarget, "X-AIM");
    add(What::Lost, Reason::NotInTarget, "KEY");
    add(What::Doubtful, Reason::TooMany, "TEL");
    add(What::Lost, Reason::NoSuchLetter, "FN");
    add(What::Carried, Reason::None, "NOTE");
    add(What::Kept, Reason::None, "FN");
    add(What::Lost, Reason::NotInTarget, "PHOTO");
    add(What::Carried, Reason::None, "X-AIM");
    add(What::Skipped, Reason::NotBegun, "");
    EXPECT_EQ(Grouped(told),
              "lost(has no place in the target) 1 6, "
              "lost(has letters that the target's set has not) 3, "
              "doubtful(is one more than the program takes) 2, "
              "skipped(belongs to no record) 8, "
              "carried(X-AIM) 0 7, carried(NOTE) 4");
}

TEST(GroupRemarks, AFieldOfThousandsOfNamesIsAGroupEach) {
    Report told;
    const std::size_t count = 3000;
    std::vector<std::string> names;
    names.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        names.push_back("X-" + std::to_string(i));
        told.Add({names.back(), "5", 0, 1, FieldNames::kNone, What::Carried, Reason::None});
    }
    EXPECT_EQ(GroupRemarks(told).size(), count);
}

}  // namespace
}  // namespace orvik::book
