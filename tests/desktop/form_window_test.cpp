#include "desktop/form_window.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

#include "desktop/control_views.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

class FormWindowTest : public test::CommandTest {
 protected:
    Desktop desktop;
    QWidget owner;
};

TEST_F(FormWindowTest, EveryLabelAndButtonIsOnTheWindow) {
    for (Form* const form : module1.Forms()) {
        if (form == &form1) {
            continue;
        }
        FormWindow window(module1, *form, desktop, &owner);
        EXPECT_EQ(window.windowTitle().toStdString(), form->Caption);
        for (const NamedControl& control : form->Controls()) {
            const QString name = ObjectName(control.Name);
            if (const auto* const button = std::get_if<Button*>(&control.Ref)) {
                auto* const view = window.findChild<QPushButton*>(name);
                ASSERT_NE(view, nullptr) << control.Name;
                EXPECT_EQ(view->text().toStdString(), (*button)->Caption);
                EXPECT_EQ(view->accessibleName(), SpokenCaption((*button)->Caption));
            } else if (const auto* const label = std::get_if<Label*>(&control.Ref)) {
                auto* const view = window.findChild<QLabel*>(name);
                ASSERT_NE(view, nullptr) << control.Name;
                EXPECT_EQ(view->text().toStdString(), (*label)->Caption);
            } else {
                EXPECT_NE(window.findChild<QWidget*>(name), nullptr) << control.Name;
            }
        }
    }
}

TEST_F(FormWindowTest, AButtonRunsItsHandler) {
    FormWindow window(module1, module1.form3, desktop, &owner);
    EXPECT_CALL(platform, ProgramFolder()).WillRepeatedly(testing::Return("/p"));
    EXPECT_CALL(platform, ShowHelp(HelpCommand::Topic, testing::_, testing::_)).Times(2);
    window.findChild<QPushButton*>(QStringLiteral("Command9"))->click();
    QTest::keyRelease(&window, Qt::Key_F1);
}

TEST_F(FormWindowTest, TheCloseBoxUnloadsTheForm) {
    FormWindow window(module1, module1.form3, desktop, &owner);
    EXPECT_CALL(platform, ShowForm(testing::Ref(module1.form3), Showing::Modeless));
    module1.form3.Show(Showing::Modeless);
    EXPECT_CALL(platform, CloseForm(testing::Ref(module1.form3)));
    window.close();
    EXPECT_FALSE(module1.form3.Loaded());
}

}  // namespace
}  // namespace orvik
