#include "desktop/windows/form_window.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include <gmock/gmock.h>

#include "desktop/text/text_box_view.h"
#include "desktop/views/control_views.h"
#include "desktop/views/picture_view.h"
#include "desktop/windows/small_windows.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using testing::_;
using testing::Ref;
using testing::Return;

class FormWindowTest : public test::CommandTest {
 protected:
    std::unique_ptr<FormWindow> Make(Form& form) {
        return MakeWindow(module1, form, desktop, &owner);
    }
    // A window that is shown; the platform's part in it is taken for granted.
    std::unique_ptr<FormWindow> Open(Form& form) {
        auto window = Make(form);
        EXPECT_CALL(platform, GetSetting(_, _)).WillRepeatedly(Return(std::nullopt));
        EXPECT_CALL(platform, ShowForm(Ref(form), Showing::Modeless));
        module1.StartingUp = true;
        form.Show(Showing::Modeless);
        window->sync();
        window->show();
        return window;
    }

    Desktop desktop;
    QWidget owner;
};

template <class View, class Kind>
void ExpectCaption(const QWidget& window, const NamedControl& control, const Kind& kind) {
    auto* const view = window.findChild<View*>(ObjectName(control.Name));
    ASSERT_NE(view, nullptr) << control.Name;
    EXPECT_EQ(view->text().toStdString(), kind.Caption);
    EXPECT_EQ(view->toolTip().toStdString(), kind.ToolTip);
    if constexpr (!std::is_same_v<View, QLabel>) {
        EXPECT_EQ(view->accessibleName(), SpokenCaption(kind.Caption));
    }
}

void ExpectShown(const QWidget& window, const NamedControl& control) {
    auto* const view = window.findChild<QWidget*>(ObjectName(control.Name));
    ASSERT_NE(view, nullptr) << control.Name;
    // A control that nobody placed lies in the corner of the window.
    const QWidget* const around = view->parentWidget();
    ASSERT_NE(around->layout(), nullptr) << control.Name;
    if (const auto* const button = std::get_if<Button*>(&control.Ref)) {
        ExpectCaption<QPushButton>(window, control, **button);
    } else if (const auto* const box = std::get_if<CheckBox*>(&control.Ref)) {
        ExpectCaption<QCheckBox>(window, control, **box);
    } else if (const auto* const option = std::get_if<OptionButton*>(&control.Ref)) {
        ExpectCaption<QRadioButton>(window, control, **option);
    } else if (const auto* const label = std::get_if<Label*>(&control.Ref)) {
        ExpectCaption<QLabel>(window, control, **label);
    } else if (const auto* const frame = std::get_if<Frame*>(&control.Ref)) {
        EXPECT_EQ(qobject_cast<QGroupBox*>(view)->title().toStdString(), (*frame)->Caption);
    } else if (const auto* const tabs = std::get_if<TabControl*>(&control.Ref)) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(qobject_cast<QTabWidget*>(view)->tabText(i).toStdString(),
                      (*tabs)->Tabs.at(static_cast<std::size_t>(i)));
        }
    } else {
        EXPECT_FALSE(view->accessibleName().isEmpty()) << control.Name;
    }
}

TEST_F(FormWindowTest, EveryControlIsOnItsWindow) {
    for (Form* const form : program.Forms()) {
        if (form == &form1) {
            continue;
        }
        SCOPED_TRACE(form->Name());
        const auto window = Make(*form);
        EXPECT_EQ(window->windowTitle().toStdString(), form->Caption);
        EXPECT_EQ(window->objectName().toStdString(), form->Name());
        for (const NamedControl& control : form->Controls()) {
            ExpectShown(*window, control);
        }
    }
}

TEST_F(FormWindowTest, AButtonRunsItsHandler) {
    const auto window = Make(module1.form3);
    EXPECT_CALL(platform, ProgramFolder()).WillRepeatedly(Return("/p"));
    EXPECT_CALL(platform, ShowHelp(HelpCommand::Topic, _, _)).Times(2);
    window->findChild<QPushButton*>(QStringLiteral("Command9"))->click();
    QTest::keyRelease(window.get(), Qt::Key_F1);
}

TEST_F(FormWindowTest, TheCloseBoxUnloadsTheForm) {
    const auto window = Make(module1.form3);
    EXPECT_CALL(platform, ShowForm(Ref(module1.form3), Showing::Modeless));
    module1.form3.Show(Showing::Modeless);
    EXPECT_CALL(platform, CloseForm(Ref(module1.form3)));
    window->close();
    EXPECT_FALSE(module1.form3.Loaded());
}

TEST_F(FormWindowTest, EscapePressesCancel) {
    const struct {
        Form* Shown;
        const Button* Cancel;
    } rows[] = {{&module1.form2, &module1.form2.Command2},
                {&module1.form3, &module1.form3.Command7},
                {&module1.form5, &module1.form5.Command2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Shown->Name());
        const auto window = Open(*row.Shown);
        auto& button = window->widget<QPushButton>(*row.Cancel);
        int presses = 0;
        QObject::connect(&button, &QPushButton::clicked, [&] { ++presses; });
        EXPECT_CALL(platform, CloseForm(Ref(*row.Shown)));
        QTest::keyClick(window->focusWidget() == nullptr ? window.get() : window->focusWidget(),
                        Qt::Key_Escape);
        EXPECT_EQ(presses, 1);
        EXPECT_FALSE(row.Shown->Loaded());
    }
}

TEST_F(FormWindowTest, EscapeInTheChooserKeepsTheOldBook) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    module1.TextBeforeOpen = module1.WorkText;
    SetAscii("dn: cn=Bo");
    const auto window = Open(module1.form3);
    EXPECT_CALL(platform, CloseForm(Ref(module1.form3)));
    QTest::keyClick(&window->widget(module1.form3.Command1), Qt::Key_Escape);
    EXPECT_EQ(module1.WorkText, module1.TextBeforeOpen);
}

// In the window that begins a list Cancel does nothing.
TEST_F(FormWindowTest, EscapeIsTheCloseBoxWithoutAUsefulCancel) {
    for (Form* const form :
         {static_cast<Form*>(&module1.frm_about), static_cast<Form*>(&module1.frm_select)}) {
        const auto window = Open(*form);
        EXPECT_CALL(platform, CloseForm(Ref(*form)));
        QTest::keyClick(window.get(), Qt::Key_Escape);
        EXPECT_FALSE(form->Loaded()) << form->Name();
    }
}

TEST_F(FormWindowTest, EnterInALineIsTheDefaultButton) {
    Form5& form = module1.form5;
    module1.PimSep = ",";
    const auto window = Open(form);
    auto& text = window->widget<TextBoxView>(form.Text1);
    text.selectAll();
    QTest::keyClicks(&text, QStringLiteral("; "));
    EXPECT_CALL(platform, SaveSetting("Settings", "Sep", "; "));
    EXPECT_CALL(platform, CloseForm(Ref(form)));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(module1.PimSep, "; ");
}

TEST_F(FormWindowTest, WhatIsPastedIntoALineStaysOneLine) {
    Form5& form = module1.form5;
    const auto window = Open(form);
    QGuiApplication::clipboard()->setText(QStringLiteral("/a\nb\n"));
    window->widget<TextBoxView>(form.Text1).paste();
    EXPECT_EQ(form.Text1.Text(), "/a b");
}

TEST_F(FormWindowTest, OfAGroupOneOptionIsChosen) {
    Form2& form = module1.form2;
    const auto window = Open(form);
    window->widget<QRadioButton>(form.Option4).click();
    EXPECT_TRUE(form.Option4.Value);
    EXPECT_FALSE(form.Option2.Value);
    EXPECT_TRUE(form.Option5.Value);
    EXPECT_FALSE(window->widget<QRadioButton>(form.Option2).isChecked());
    EXPECT_TRUE(window->widget<QRadioButton>(form.Option5).isChecked());
    EXPECT_FALSE(window->widget(form.Frame1).isVisible());
}

TEST_F(FormWindowTest, NoOptionNeedBeChosen) {
    Form2& form = module1.form2;
    const auto window = Open(form);
    form.Option2.Value = false;
    window->sync();
    EXPECT_FALSE(window->widget<QRadioButton>(form.Option2).isChecked());
}

TEST_F(FormWindowTest, ABoxIsCheckedAndUncheckedByTheUser) {
    Form2& form = module1.form2;
    const auto window = Open(form);
    window->widget<QTabWidget>(form.SSTab1).setCurrentIndex(2);
    window->widget<QCheckBox>(form.Check1).click();
    EXPECT_EQ(form.Check1.Value, 1);
    EXPECT_TRUE(window->widget(form.Frame2).isVisible());
    window->widget<QCheckBox>(form.Check1).click();
    EXPECT_EQ(form.Check1.Value, 0);
    EXPECT_FALSE(window->widget(form.Frame2).isVisible());
}

TEST_F(FormWindowTest, AComboBoxShowsATextThatIsNoItem) {
    Form2& form = module1.form2;
    const auto window = Open(form);
    auto& combo = window->widget<QComboBox>(form.Combo2);
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_EQ(combo.placeholderText(), QStringLiteral("Disabled"));
    auto& sort = window->widget<QComboBox>(form.Combo1);
    sort.setCurrentIndex(0);
    emit sort.activated(0);
    EXPECT_EQ(form.Combo1.Text, "Sort by Address");
    EXPECT_EQ(combo.currentText(), QStringLiteral("Done"));
    form.Combo2.Text.clear();
    window->sync();
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_TRUE(combo.placeholderText().isEmpty());
}

TEST_F(FormWindowTest, TheFirstStartSaysWhatTheButtonsDo) {
    Form2& form = module1.form2;
    for (const bool first : {true, false}) {
        const auto window = Make(form);
        EXPECT_CALL(platform, GetSetting(_, _))
            .WillRepeatedly(Return(first ? std::nullopt : std::optional<std::string>("5")));
        EXPECT_CALL(platform, ShowForm(Ref(form), Showing::Modeless));
        EXPECT_CALL(platform, ShowBox(_)).Times(testing::AnyNumber());
        // A failed automation asks at a start too, but not at the first one.
        module1.StartingUp = true;
        form.Show(Showing::Modeless);
        window->sync();
        window->show();
        const auto& line = *window->findChild<QLabel*>(QStringLiteral("firstStart"));
        EXPECT_EQ(line.isVisible(), first);
        EXPECT_TRUE(line.text().contains(u"OK") && line.text().contains(u"Cancel"));
        if (first) {
            EXPECT_LT(line.geometry().bottom(), window->widget(form.SSTab1).geometry().top());
        }
        EXPECT_CALL(platform, CloseForm(Ref(form)));
        form.Unload();
    }
}

TEST_F(FormWindowTest, TheCaptionsOfTheLastStepsFollowTheirBox) {
    Form2& form = module1.form2;
    const auto window = Open(form);
    window->widget<QTabWidget>(form.SSTab1).setCurrentIndex(2);
    window->widget<QCheckBox>(form.Check1).click();
    QCoreApplication::processEvents();
    const QWidget& box = window->widget(form.Combo3);
    for (const bool enabled : {false, true, false}) {
        form.Combo3.Enabled = enabled;
        window->sync();
        EXPECT_EQ(box.isEnabled(), enabled);
        EXPECT_EQ(window->widget(form.Label5).isEnabled(), enabled);
        EXPECT_EQ(window->widget(form.Label6).isEnabled(), enabled);
    }
    const auto middle = [&](const QWidget& widget) {
        return widget.mapTo(window.get(), widget.rect().center()).y();
    };
    EXPECT_NEAR(middle(box),
                (middle(window->widget(form.Label5)) + middle(window->widget(form.Label6))) / 2.0,
                2);
}

TEST_F(FormWindowTest, TheStripIsAsLongAsTheProgress) {
    Form4& form = module1.form4;
    const auto window = Make(form);
    form.Picture2.Width = Form4::kFullWidth / 2;
    window->sync();
    EXPECT_EQ(window->widget<PictureView>(form.Picture2).progress(), 500);
}

TEST_F(FormWindowTest, TheExportSaysWhatItWrote) {
    Form4& form = module1.form4;
    const auto window = Make(form);
    form.Result = "2 entries written to a<b>.csv";
    window->sync();
    EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("Result"))->text(),
              QStringLiteral("2 entries written to a<b>.csv"));
}

TEST_F(FormWindowTest, ADoubleClickOnTheAboutTextIsAnEvent) {
    FrmAbout& form = module1.frm_about;
    const auto window = Make(form);
    EXPECT_CALL(platform, ShowForm(Ref(form), Showing::Modeless));
    form.ShowAbout();
    window->sync();
    window->show();
    auto& picture = window->widget<PictureView>(form.Picture2);
    const QPoint spine(picture.width() / 8, picture.height() / 2);
    const auto colour = [&] { return picture.grab().toImage().pixelColor(spine); };
    EXPECT_EQ(colour(), QColor(15, 68, 86));
    EXPECT_TRUE(window->widget<TextBoxView>(form.Text1).isReadOnly());
    QTest::mouseDClick(window->widget<TextBoxView>(form.Text1).viewport(), Qt::LeftButton);
    EXPECT_TRUE(form.Text1.Text().View().starts_with("Yes, you have uncovered a secret"));
    EXPECT_TRUE(form.Picture2.Picture.empty());
    EXPECT_EQ(colour(), picture.palette().color(QPalette::Window));
}

TEST_F(FormWindowTest, TheAboutWindowTellsTheVersion) {
    const auto window = Make(module1.frm_about);
    EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("version"))->text(),
              QStringLiteral("Version 7.8.9"));
}

TEST_F(FormWindowTest, AClickOnTheAutomationIsTakenAtAYield) {
    Form6& form = module1.form6;
    const auto window = Open(form);
    EXPECT_CALL(platform, ShowBox(_)).Times(2).WillRepeatedly(Return(Answer::Yes));
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, {1, 1});
    EXPECT_TRUE(module1.CancelRequested);
    module1.CancelRequested = false;
    QMetaObject::invokeMethod(
        window.get(),
        [&] { QTest::mouseClick(&window->widget(form.Label1), Qt::LeftButton); },
        Qt::QueuedConnection);
    desktop.yield();
    EXPECT_TRUE(module1.CancelRequested);
}

}  // namespace
}  // namespace orvik
