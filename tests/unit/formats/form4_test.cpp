#include "formats/form4.h"

#include <string>

#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using testing::Return;

class Form4Test : public test::CommandTest {
 protected:
    Form4Test() {
        module1.PimSep = ",";
        test::WriteFile(folder_.Name("book.ldif"), "dn: x\r\ngivenname: Al\r\nmail: A1\r\n");
        form4.Text1.SetText(folder_.Name("book.ldif"));
        form4.Text2.SetText(folder_.Name("out.csv"));
    }
    void ExpectAsked(bool may) {
        EXPECT_CALL(platform,
                    MayExport(std::string(form4.Text1.Text()), std::string(form4.Text2.Text())))
            .WillOnce(Return(may));
    }

    test::TempFolder folder_;
    Form4& form4 = program.form4;
};

TEST_F(Form4Test, Conversion_SaysWhatItWrote) {
    ExpectAsked(true);
    form4.Command4_Click();
    EXPECT_EQ(test::ReadFile(folder_.Name("out.csv")), "Al,A1\r\n");
    EXPECT_EQ(form4.Result, "1 entry written to " + folder_.Name("out.csv"));
}

TEST_F(Form4Test, ExportThatMayNotBe_WritesNothing) {
    ExpectAsked(false);
    form4.Command4_Click();
    EXPECT_EQ(folder_.Files(), test::Items{"book.ldif"});
    EXPECT_EQ(form4.Result, "");
    EXPECT_TRUE(form4.Command4.Visible);
}

}  // namespace
}  // namespace orvik
