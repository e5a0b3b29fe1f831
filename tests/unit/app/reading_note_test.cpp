#include "app/reading_note.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

struct Row {
    ReadingNote note;
    const char* text;
};

class ReadingNoteTest : public testing::TestWithParam<Row> {};

TEST_P(ReadingNoteTest, Text_IsASentence) {
    EXPECT_EQ(GetParam().note.Text(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    ReadingNoteTest,
    testing::Values(Row{{}, ""},
                    Row{{{1, 1}, {}}, "1 attribute of 1 entry was not read"},
                    Row{{{2, 1}, {}}, "2 attributes of 1 entry were not read"},
                    Row{{{12, 5}, {}}, "12 attributes of 5 entries were not read"},
                    Row{{{}, "a vCard"}, "The contents look like a vCard"},
                    Row{{{2, 1}, "a vCard"},
                        "The contents look like a vCard\n2 attributes of 1 entry were not read"}));

TEST(ReadingNote, OfTwoBooks_IsOfBothTogether) {
    ReadingNote note{{2, 1}, {}};
    note.Join({{3, 2}, "a vCard"});
    note.Join({{}, "a mail folder"});
    EXPECT_EQ(note.Text(),
              "The contents look like a vCard\n5 attributes of 3 entries were not read");
}

}  // namespace
}  // namespace orvik
