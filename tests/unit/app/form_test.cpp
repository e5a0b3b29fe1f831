#include "app/form.h"

#include <string>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

using testing::InSequence;
using testing::Ref;
using testing::Return;
using testing::Throw;

// A window that counts what is asked of it.
class CountingForm : public Form {
 public:
    explicit CountingForm(Module1& module) : Form(module, "CountingForm", "Counting") {}

    std::vector<NamedControl> Controls() override { return {}; }
    void Form_Load() override { ++loads; }
    bool Form_Unload() override { return may_go; }
    void Form_Resize() override { ++resizes; }

    int loads = 0;
    int resizes = 0;
    bool may_go = true;
};

class FormTest : public test::CommandTest {
 protected:
    CountingForm form_{module1};
};

TEST_F(FormTest, NewForm_IsNeitherLoadedNorVisible) {
    EXPECT_EQ(form_.Name(), "CountingForm");
    EXPECT_EQ(form_.Caption, "Counting");
    EXPECT_FALSE(form_.Loaded());
    EXPECT_FALSE(form_.Visible());
}

TEST_F(FormTest, SecondLoad_DoesNothing) {
    form_.Load();
    form_.Load();
    EXPECT_EQ(form_.loads, 1);
    EXPECT_FALSE(form_.Visible());
}

TEST_F(FormTest, Show_LoadsLaysOutAndShows) {
    EXPECT_CALL(platform, ShowForm(Ref(form_), Showing::Modal));
    form_.Show(Showing::Modal);
    EXPECT_EQ(form_.loads, 1);
    EXPECT_EQ(form_.resizes, 1);
    EXPECT_TRUE(form_.Visible());
}

TEST_F(FormTest, ShowAgain_DoesNotLayOutAgain) {
    EXPECT_CALL(platform, ShowForm(Ref(form_), Showing::Modeless)).Times(2);
    form_.Show(Showing::Modeless);
    form_.Show(Showing::Modeless);
    EXPECT_EQ(form_.loads, 1);
    EXPECT_EQ(form_.resizes, 1);
}

TEST_F(FormTest, FormThatCannotBeShown_IsNotVisible) {
    EXPECT_CALL(platform, ShowForm(Ref(form_), Showing::Modeless))
        .WillOnce(Throw(std::bad_alloc()))
        .WillOnce(Return())
        .WillOnce(Throw(std::bad_alloc()));
    EXPECT_THROW(form_.Show(Showing::Modeless), std::bad_alloc);
    EXPECT_FALSE(form_.Visible());
    form_.Show(Showing::Modeless);
    EXPECT_TRUE(form_.Visible());
    // It is where it was.
    EXPECT_THROW(form_.Show(Showing::Modeless), std::bad_alloc);
    EXPECT_TRUE(form_.Visible());
}

TEST_F(FormTest, HiddenForm_StaysLoaded) {
    const InSequence in_order;
    EXPECT_CALL(platform, ShowForm(Ref(form_), Showing::Modeless));
    EXPECT_CALL(platform, HideForm(Ref(form_)));
    form_.Show(Showing::Modeless);
    form_.Hide();
    form_.Hide();
    EXPECT_FALSE(form_.Visible());
    EXPECT_TRUE(form_.Loaded());
}

TEST_F(FormTest, UnloadedForm_ClosesAndCanBeLoadedAgain) {
    EXPECT_CALL(platform, CloseForm(Ref(form_)));
    form_.Load();
    form_.Unload();
    EXPECT_FALSE(form_.Loaded());
    form_.Load();
    EXPECT_EQ(form_.loads, 2);
}

TEST_F(FormTest, FormThatStays_IsNotClosed) {
    form_.may_go = false;
    form_.Load();
    form_.Unload();
    EXPECT_TRUE(form_.Loaded());
}

TEST_F(FormTest, FormThatIsNotLoaded_IsNotUnloaded) {
    form_.Unload();
    EXPECT_FALSE(form_.Loaded());
}

TEST_F(FormTest, CommandTitle_LosesAccessKeyAndLastDots) {
    const struct {
        const char* Control;
        const char* Expected;
    } rows[] = {
        {"mnuOpen", "Open file"},
        {"mnuConvert", "Convert from text to Netscape 4.0"},
        {"mnuClearPasteNet3", "Clear and Paste Netscape 3.x format"},
        {"cmdEmail", "Sort by E-Mail Address"},
        {"cmdDone", "Done"},
        {"List1", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Form::CommandOf(form1.ControlNamed(row.Control)).Title, row.Expected);
    }
}

}  // namespace
}  // namespace orvik
