#include <string>

#include "app/messages.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::BoxIs;
using test::Items;
using testing::Ref;
using testing::Return;

struct Row {
    const char* name;
    const char* file;
    // What the loader leaves of a text that is a list of one entry and nothing else.
    enum class Seen { NoBook, NoRecord, List, NoColumn, NoName } seen;
};

// The loaders are told from each other by what they make of a plain list.
class LoadByEndingTest : public test::CommandTest, public testing::WithParamInterface<Row> {
 protected:
    void ExpectRefusal() {
        EXPECT_CALL(platform, ShowBox(BoxIs(UnknownFormat(), "Error", Buttons::YesNo)))
            .WillOnce(Return(Answer::No));
    }
};

TEST_P(LoadByEndingTest, Name_ChoosesTheLoader) {
    SetAscii("A1\r\n");
    int failure = 0;
    switch (GetParam().seen) {
        case Row::Seen::NoBook:
            ExpectTold("Error #5");
            ExpectRefusal();
            break;
        case Row::Seen::NoName:
            ExpectRefusal();
            break;
        case Row::Seen::NoColumn:
            ExpectTold("Error!");
            failure = 5;
            // A line break behind the header would be enough.
            module1.WorkText = "A1\r\nA2";
            break;
        case Row::Seen::NoRecord:
            failure = 5;
            break;
        case Row::Seen::List:
            break;
    }
    int number = 0;
    try {
        module1.LoadByEnding(GetParam().file, true);
    } catch (const RunTimeError& error) {
        number = error.Number();
    }
    EXPECT_EQ(number, failure);
    EXPECT_EQ(ItemsOf(form1.List1), GetParam().seen == Row::Seen::List ? Items{"A1"} : Items{});
}

INSTANTIATE_TEST_SUITE_P(,
                         LoadByEndingTest,
                         testing::Values(Row{"Html", "a.html", Row::Seen::NoBook},
                                         Row{"Htm", "a.HTM", Row::Seen::NoBook},
                                         Row{"Shtml", "x.shtml", Row::Seen::NoBook},
                                         Row{"Ldif", "BOOK.LDIF", Row::Seen::NoRecord},
                                         Row{"Txt", "a.txt", Row::Seen::List},
                                         Row{"Csv", "a.csv", Row::Seen::NoColumn},
                                         Row{"Abx", "a.abx", Row::Seen::NoColumn},
                                         Row{"Nv", "address.nv", Row::Seen::NoName},
                                         Row{"NvWithoutDot", "canv", Row::Seen::NoName},
                                         Row{"Pml", "a.pml", Row::Seen::List},
                                         Row{"LdifCutShort", "book.ldi", Row::Seen::List},
                                         Row{"Unknown", "a.dat", Row::Seen::List},
                                         Row{"EndingOfFolder", "a.html/b", Row::Seen::List},
                                         Row{"NoName", "", Row::Seen::List}),
                         [](const auto& row) { return row.param.name; });

using LoadUnknownTest = test::CommandTest;

TEST_F(LoadUnknownTest, AskingMode_BringsTheChooser) {
    module1.OpenMode = 2;
    SetAscii("A1\r\n");
    EXPECT_CALL(platform, ShowForm(Ref(module1.form3), Showing::Modal));
    module1.LoadByEnding("a.dat", true);
    EXPECT_TRUE(form1.List1.Items().empty());
}

TEST_F(LoadUnknownTest, PegasusInAMerge_BringsTheChooser) {
    module1.OpenMode = 2;
    SetAscii("A1\r\n");
    EXPECT_CALL(platform, ShowForm(Ref(module1.form3), Showing::Modal));
    module1.LoadByEnding("a.pml", false);
}

TEST_F(LoadUnknownTest, PegasusInAMerge_IsATextList) {
    SetAscii("\\x\r\nA1\r\n");
    module1.LoadByEnding("a.pml", false);
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"\\x", "A1"}));
}

TEST_F(LoadUnknownTest, Xtr_IsExtracted) {
    module1.WorkText = "A1\r\n";
    module1.LoadByEnding("a.xtr", true);
    EXPECT_EQ(module1.WorkText, "");
}

}  // namespace
}  // namespace orvik
