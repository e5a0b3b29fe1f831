#include "desktop/help/help_key.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <map>

#include "desktop/form1_window_fixture.h"
#include "desktop/windows/late_windows.h"

namespace orvik {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;

class HelpKeyTest : public test::Form1WindowTest {
 protected:
    LateWindows small_windows{program, desktop, &window};
    std::vector<std::string> shown;
    HelpKey help_key{[this](std::string_view topic) { shown.emplace_back(topic); }};
};

TEST_F(HelpKeyTest, EveryWindowHasAPage) {
    EXPECT_CALL(platform, ProgramFolder()).WillRepeatedly(Return("/p"));
    EXPECT_CALL(platform, ShowHelp(HelpCommand::Topic, _, _))
        .WillRepeatedly([this](HelpCommand, std::string_view, std::string_view topic) {
            shown.emplace_back(topic);
        });
    std::map<std::string, std::string> pages;
    for (Form* const form : program.Forms()) {
        QWidget& view = desktop.viewOf(*form)->window();
        // Wherever the focus is.
        auto* const inside = view.findChild<QPushButton*>();
        for (QWidget* const receiver : {&view, inside != nullptr ? inside : &view}) {
            shown.clear();
            QTest::keyClick(receiver, Qt::Key_F1);
            ASSERT_EQ(shown.size(), 1U) << form->Name();
            pages[std::string(form->Name())] = shown.front();
        }
    }
    EXPECT_EQ(pages,
              (std::map<std::string, std::string>{{"Form1", "screenshot.html"},
                                                  {"Form2", "preferences.html"},
                                                  {"Form3", "manopen.html"},
                                                  {"Form4", "conversions.html#pim"},
                                                  {"Form5", "preferences.html#pim"},
                                                  {"Form6", "automation.html"},
                                                  {"frmAbout", "index.html"},
                                                  {"frmSelect", "lists.html"}}));
}

TEST_F(HelpKeyTest, BoxesAndFileDialogsHaveAPageToo) {
    QMessageBox box(QMessageBox::NoIcon, {}, QStringLiteral("text"), QMessageBox::Ok);
    QTest::keyClick(box.button(QMessageBox::Ok), Qt::Key_F1);
    QFileDialog dialog;
    auto* const line = dialog.findChild<QLineEdit*>();
    QTest::keyClick(line, Qt::Key_F1);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QTest::keyClick(line, Qt::Key_F1);
    EXPECT_THAT(shown, ElementsAre("troubleshooting.html", "open.html", "open.html#save"));
}

TEST_F(HelpKeyTest, OtherKeysAndOtherWindowsAreLeftAlone) {
    QMessageBox box;
    QTest::keyClick(&box, Qt::Key_F2);
    QWidget other;
    QTest::keyClick(&other, Qt::Key_F1);
    EXPECT_THAT(shown, IsEmpty());
}

}  // namespace
}  // namespace orvik
