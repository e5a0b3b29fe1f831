#include "desktop/windows/late_windows.h"

#include "desktop/form1_window_fixture.h"

namespace orvik {
namespace {

class LateWindowsTest : public test::Form1WindowTest {
 protected:
    QWidget& WindowOf(const Form& form) { return desktop.viewOf(form)->window(); }
};

TEST_F(LateWindowsTest, EachIsMadeOnce) {
    const LateWindows late(program, desktop, &window);
    EXPECT_TRUE(late.made().empty());
    const QWidget& asked = WindowOf(program.form3);
    ASSERT_EQ(late.made().size(), 1U);
    EXPECT_EQ(late.made().front().get(), &asked);
    EXPECT_EQ(&WindowOf(program.form3), &asked);
    EXPECT_EQ(late.made().size(), 1U);
}

TEST_F(LateWindowsTest, AllAreMadeButTheMainWindow) {
    LateWindows late(program, desktop, &window);
    late.makeAll();
    EXPECT_EQ(late.made().size(), program.Forms().size() - 1);
    late.makeAll();
    EXPECT_EQ(late.made().size(), program.Forms().size() - 1);
}

TEST_F(LateWindowsTest, NobodyMakesThemWhenTheyAreGone) {
    { const LateWindows late(program, desktop, &window); }
    EXPECT_EQ(desktop.viewOf(program.form3), nullptr);
    EXPECT_EQ(desktop.viewOf(program.form1), &window);
}

TEST_F(LateWindowsTest, AreMadeInTurnBetweenCommands) {
    LateWindows late(program, desktop, &window);
    late.makeInTurn();
    EXPECT_TRUE(late.made().empty());
    desktop.run([&] {
        Settle();
        EXPECT_TRUE(late.made().empty());
    });
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return late.made().size() == program.Forms().size() - 1; }, 20'000));
}

// A box belongs to the hindmost form that can be seen, in whatever order they were shown first.
TEST_F(LateWindowsTest, StandInTheOrderOfTheirForms) {
    const LateWindows late(program, desktop, &window);
    QWidget& last = WindowOf(program.form5);
    QWidget& middle = WindowOf(program.form2);
    window.show();
    last.show();
    middle.show();
    QWidget help;
    help.show();
    help.activateWindow();
    Settle();
    ASSERT_EQ(QApplication::activeWindow(), &help);
    EXPECT_EQ(desktop.frontWindow(), &last);
    last.hide();
    EXPECT_EQ(desktop.frontWindow(), &middle);
}

}  // namespace
}  // namespace orvik
